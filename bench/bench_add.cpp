// Adds permits one by one, as the permit screen stores them, each beside the least that a disk can be asked for to keep
// a small file: making it, writing 4 KB, flushing and removing it. Prints the ratio of the two middle times.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <vector>

#include "base/files.h"
#include "base/open_file.h"
#include "data/recordset.h"

namespace {

using namespace zelvo;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kRounds = 300;
// No town of ours has permits of that year: what a broken-off measurement left behind is known by it.
constexpr const char* kOwnPermits = "Select * from BLDGPERM where [BLDGPERMYY] = '99' order by PERMIT";

struct Times {
  std::vector<double> adds, files;
};

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double middle(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

/// One permit as any other, under a number of its own.
void fillIn(Recordset& permits, const std::vector<Value>& pattern, const std::string& sequence) {
  const auto columns = permits.table().columns;
  for (std::size_t i = 0; i < columns.size(); ++i)
    permits.set(columns[i].name, pattern[i]);
  permits.set("PERMIT", "99-" + sequence);
  permits.set("BLDGPERMYY", "99");
  permits.set("BLDGPRM", sequence);
}

Result<void> addPermit(Connection& connection, Recordset& permits, const std::vector<Value>& pattern,
                       const std::string& sequence) {
  auto transaction = connection.begin();
  if (!transaction)
    return transaction.error();
  const auto taken = connection.exists("BLDGPERM", "[PERMIT] = '99-" + sequence + "'");
  if (!taken || *taken)
    return taken ? Error{Trouble::Duplicate, "The permit 99-" + sequence + " is there already."} : taken.error();
  permits.AddNew();
  fillIn(permits, pattern, sequence);
  if (auto stored = permits.Update(); !stored)
    return stored;
  return transaction->commit();
}

Result<void> keepSmallFile(const std::string& path) {
  const std::string block(4096, 'x');
  OpenFile file(path, O_RDWR | O_CREAT | O_TRUNC);
  if (!file.isOpen() || file.write(block) != 0 || file.flush() != 0 || file.close() != 0 || ::unlink(path.c_str()) != 0)
    return Error{Trouble::Failed, "The file " + path + " cannot be made and removed."};
  return {};
}

Result<void> removeOwn(const std::shared_ptr<Connection>& connection) {
  const auto own = Recordset::open(connection, kOwnPermits);
  if (!own)
    return own.error();
  auto transaction = connection->begin();
  if (!transaction)
    return transaction.error();
  while (!(*own)->Eof())
    if (auto removed = (*own)->Delete(); !removed)
      return removed;
  return transaction->commit();
}

std::vector<Value> currentRow(const Recordset& permits) {
  std::vector<Value> row;
  for (const Column& column : permits.table().columns)
    row.push_back(permits.get(column.name));
  return row;
}

template <class Work>
Result<void> timed(std::vector<double>& times, const Work& work) {
  const auto start = Clock::now();
  const auto done = work();
  times.push_back(secondsSince(start));
  return done;
}

Result<Times> measured(const std::shared_ptr<Connection>& connection, const std::string& besideDatabase) {
  const auto opened = Recordset::open(connection, "Select * from BLDGPERM order by PERMIT");
  if (!opened)
    return opened.error();
  Recordset& permits = **opened;
  permits.MoveLast();
  const std::vector<Value> pattern = currentRow(permits);
  Times times;
  for (std::size_t round = 1; round <= kRounds; ++round) {
    if (auto kept = timed(times.files, [&] { return keepSmallFile(besideDatabase); }); !kept)
      return kept.error();
    if (auto added = timed(times.adds, [&] { return addPermit(*connection, permits, pattern, std::to_string(round)); });
        !added)
      return added.error();
  }
  return times;
}

Result<Times> measuredAndTidied(const std::string& path) {
  const auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error();
  if (auto tidy = removeOwn(*connection); !tidy)
    return tidy.error();
  auto times = measured(*connection, joinPath(folderOf(path), "bench_add.tmp"));
  if (auto tidy = removeOwn(*connection); times && !tidy)
    return tidy.error();
  return times;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "Usage: bench_add DATABASE\n";
    return 2;
  }
  const auto times = measuredAndTidied(arguments[1]);
  if (!times) {
    std::cerr << times.error().message << "\n";
    return 1;
  }
  const double add = middle(times->adds), file = middle(times->files);
  std::fprintf(stderr, "one add %.3f ms, one small file %.3f ms\n", add * 1000, file * 1000);
  std::printf("%.2f\n", add / file);
  return 0;
}
