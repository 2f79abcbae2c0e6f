#include <cstdio>
#include <fstream>

#include "clock.h"
#include "data/query_text.h"
#include "data/recordset.h"
#include "measures.h"

namespace zelvo::bench {

namespace {

constexpr std::size_t rowsOfPage = 100;
constexpr const char* allPermits = "Select * from BLDGPERM order by PERMIT";

Result<std::unique_ptr<Recordset>> permitsIn(const std::string& path, std::string_view query) {
  const auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error();
  return Recordset::open(*connection, query);
}

/// The most memory that this process has had at a time, in MB, as the system counts it.
std::string mostMemory() {
  std::ifstream status("/proc/self/status");
  double kilobytes = 0;
  for (std::string word; status >> word;)
    if (word == "VmHWM:")
      status >> kilobytes;
  char text[32];
  std::snprintf(text, sizeof text, "%.1f", kilobytes / 1024);
  return text;
}

}  // namespace

Result<std::string> openPermits(Arguments arguments) {
  const std::string &path = arguments[0], &permit = arguments[1];
  const auto opened = permitsIn(path, allPermits);
  if (!opened)
    return opened.error();
  Recordset& permits = **opened;
  permits.MoveLast();
  const std::string last = permits.text("PERMIT");
  permits.MoveFirst();
  const auto found = permits.Find(columnIs("PERMIT", permit));
  if (!found)
    return found.error();
  if (!*found)
    return Error{Trouble::Failed, "There is no permit " + permit + " in " + path + "."};
  return std::to_string(permits.RecordCount()) + " permits, the last " + last + "; " + permit + " is at " +
         permits.text("LOCN1") + "; MB of memory: " + mostMemory();
}

Result<std::string> readFirstPage(Arguments arguments) {
  const auto opened = permitsIn(arguments[0], allPermits);
  if (!opened)
    return opened.error();
  const Recordset& permits = **opened;
  const std::size_t rows = std::min(rowsOfPage, permits.RecordCount());
  std::size_t characters = 0;
  const Stopwatch watch;
  for (std::size_t row = 0; row < rows; ++row)
    for (std::size_t column = 0; column < permits.fieldCount(); ++column)
      characters += permits.shownCell(row, column).size();
  const double took = watch.microseconds();
  if (characters == 0)
    return Error{Trouble::Failed, "There is nothing in the permits of " + arguments[0] + "."};
  return std::to_string(took);
}

Result<std::string> countFound(Arguments arguments) {
  const auto opened = permitsIn(arguments[0], arguments[1]);
  if (!opened)
    return opened.error();
  return std::to_string((*opened)->RecordCount());
}

}  // namespace zelvo::bench
