// Adds permits one by one, as the permit screen stores them, beside the least that a disk can be asked for to keep a
// small file: making it, writing 4 KB, flushing and removing it.

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <set>

#include "base/files.h"
#include "base/open_file.h"
#include "clock.h"
#include "data/query_text.h"
#include "data/recordset.h"
#include "measures.h"

namespace zelvo::bench {

namespace {

constexpr int rounds = 20;
constexpr int addsOfOne = 16, addsOfOffice = 240;  // of a round: the office is busy, not all at one sign
constexpr int filesOfRound = 16;
constexpr int mostComputers = 64;
// No town of ours has permits of that year: what a broken-off measurement left behind is known by it.
constexpr const char* ownPermits = "Select * from BLDGPERM where [BLDGPERMYY] = '99' order by PERMIT";

std::string permitOf(int sequence) {
  return "99-" + std::to_string(sequence);
}

Result<void> keepSmallFile(const std::string& path) {
  const std::string block(4096, 'x');
  OpenFile file(path, O_RDWR | O_CREAT | O_TRUNC);
  if (!file.isOpen() || file.write(block) != 0 || file.flush() != 0 || file.close() != 0 || ::unlink(path.c_str()) != 0)
    return Error{Trouble::Failed, "The file " + path + " cannot be made and removed."};
  return {};
}

Result<void> timeSmallFiles(const std::string& path, std::vector<double>& times) {
  for (int i = 0; i < filesOfRound; ++i) {
    const Stopwatch watch;
    if (auto kept = keepSmallFile(path); !kept)
      return kept;
    times.push_back(watch.microseconds());
  }
  return {};
}

Result<void> removeOwn(const std::string& path) {
  const auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error();
  const auto own = Recordset::open(*connection, ownPermits);
  if (!own)
    return own.error();
  auto transaction = (*connection)->begin();
  if (!transaction)
    return transaction.error();
  while (!(*own)->Eof())
    if (auto removed = (*own)->Delete(); !removed)
      return removed;
  return transaction->commit();
}

// ---- one computer

/// The permit screen of one computer.
class Computer {
 public:
  static Result<std::unique_ptr<Computer>> start(const std::string& path) {
    auto connection = Connection::open(connectionText(path));
    if (!connection)
      return connection.error();
    auto permits = Recordset::open(*connection, "Select * from BLDGPERM order by PERMIT");
    if (!permits)
      return permits.error();
    return std::unique_ptr<Computer>(new Computer(std::move(*connection), std::move(*permits)));
  }

  /// Takes the next number that is free; gives it.
  Result<int> add() {
    auto transaction = connection_->begin();
    if (!transaction)
      return transaction.error();
    if (auto moved = moveOn(); !moved)
      return moved.error();
    permits_->AddNew();
    fillIn();
    if (auto stored = permits_->Update(); !stored)
      return stored.error();
    if (auto kept = transaction->commit(); !kept)
      return kept.error();
    return sequence_;
  }

 private:
  Computer(std::shared_ptr<Connection> connection, std::unique_ptr<Recordset> permits)
      : connection_(std::move(connection)), permits_(std::move(permits)) {
    permits_->MoveLast();
    for (const Column& column : permits_->table().columns)
      pattern_.push_back(permits_->get(column.name));
  }

  Result<void> moveOn() {
    for (;;) {
      const auto taken = connection_->exists("BLDGPERM", columnIs("PERMIT", permitOf(++sequence_)));
      if (!taken)
        return taken.error();
      if (!*taken)
        return {};
    }
  }

  /// A permit as any other, but for its number.
  void fillIn() {
    const auto columns = permits_->table().columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
      permits_->set(columns[i].name, pattern_[i]);
    permits_->set("PERMIT", permitOf(sequence_));
    permits_->set("BLDGPERMYY", "99");
    permits_->set("BLDGPRM", std::to_string(sequence_));
  }

  std::shared_ptr<Connection> connection_;
  std::unique_ptr<Recordset> permits_;
  std::vector<Value> pattern_;
  int sequence_ = 0;
};

// ---- several at once

/// What a computer tells: which permit it added, and in what time. One that is ready, or that could not add, has none.
struct Told {
  enum class What { Ready, Added, Failed };
  What what = What::Ready;
  int sequence = 0;
  double microseconds = 0;
};

/// A computer as a process of its own: adds a permit for every sign it is given. Anything that goes wrong ends it, a
/// message that the database is locked included.
[[noreturn]] void work(const std::string& path, int signs, int tell) {
  auto computer = Computer::start(path);
  Told told{computer ? Told::What::Ready : Told::What::Failed};
  char sign = 0;
  while (::write(tell, &told, sizeof told) == sizeof told && told.what != Told::What::Failed &&
         ::read(signs, &sign, 1) == 1) {
    const Stopwatch watch;
    const auto sequence = (*computer)->add();
    if (!sequence)
      std::fprintf(stderr, "%s\n", sequence.error().message.c_str());
    told = {sequence ? Told::What::Added : Told::What::Failed, sequence.valueOr(0), watch.microseconds()};
  }
  ::_exit(0);
}

/// Computers that work on the same database.
class Office {
 public:
  Office(const std::string& path, int computers) : computers_(computers) {
    int signs[2], told[2];
    if (::pipe(signs) != 0 || ::pipe(told) != 0)
      return;
    signs_ = signs[1];
    told_ = told[0];
    for (int i = 0; i < computers; ++i)
      if (::fork() == 0) {
        ::close(signs_);
        work(path, signs[0], told[1]);
      }
    ::close(signs[0]);
    ::close(told[1]);
  }
  Office(const Office&) = delete;
  Office& operator=(const Office&) = delete;
  ~Office() {
    ::close(signs_);
    for (int i = 0; i < computers_; ++i)
      ::wait(nullptr);
    ::close(told_);
  }

  bool isReady() {
    return hear(computers_, [](const Told&) {});
  }

  /// Adds so many permits, all computers at once.
  Result<void> add(int permits, std::vector<double>& times) {
    const std::string signs(static_cast<std::size_t>(permits), '.');
    if (::write(signs_, signs.data(), signs.size()) != static_cast<ssize_t>(signs.size()))
      return Error{Trouble::Failed, "The computers are gone."};
    const bool heard = hear(permits, [&](const Told& told) {
      times.push_back(told.microseconds);
      given_.insert(told.sequence);
    });
    if (!heard)
      return Error{Trouble::Failed, "A computer could not add."};
    return given_.size() == times.size() ? Result<void>()
                                         : Error{Trouble::Duplicate, "A permit's number was given twice."};
  }

 private:
  template <class Take>
  bool hear(int count, const Take& take) {
    for (Told told; count > 0; --count) {
      if (::read(told_, &told, sizeof told) != sizeof told || told.what == Told::What::Failed)
        return false;
      take(told);
    }
    return true;
  }

  int computers_;
  int signs_ = -1, told_ = -1;
  std::set<int> given_;
};

/// By turns with the small files, as a disk has slow minutes and quick ones.
Result<std::string> measured(const std::string& path, int computers) {
  const std::string small = joinPath(folderOf(path), "small.tmp");
  Office office(path, computers);
  if (!office.isReady())
    return Error{Trouble::Failed, "The computers could not open the permits."};
  std::vector<double> files, adds;
  for (int round = 0; round < rounds; ++round) {
    if (auto timed = timeSmallFiles(small, files); !timed)
      return timed.error();
    if (auto added = office.add(computers == 1 ? addsOfOne : addsOfOffice, adds); !added)
      return added.error();
  }
  const double add = middle(adds), file = middle(files);
  std::fprintf(stderr, "one add %.3f ms, one small file %.3f ms\n", add / 1000, file / 1000);
  char ratio[32];
  std::snprintf(ratio, sizeof ratio, "%.2f", add / file);
  return std::string(ratio);
}

}  // namespace

Result<std::string> addPermits(Arguments arguments) {
  const std::string& path = arguments[0];
  const int computers = std::atoi(arguments[1].c_str());
  if (computers < 1 || computers > mostComputers)
    return Error{Trouble::BadInput, "1 to " + std::to_string(mostComputers) + " computers can be tried."};
  if (auto tidy = removeOwn(path); !tidy)
    return tidy.error();
  auto ratio = measured(path, computers);
  if (auto tidy = removeOwn(path); ratio && !tidy)
    return tidy.error();
  return ratio;
}

}  // namespace zelvo::bench
