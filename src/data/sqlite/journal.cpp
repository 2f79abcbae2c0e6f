#include "data/sqlite/journal.h"

#include <algorithm>

#include "base/files.h"
#include "data/sqlite/file_kind.h"

namespace zelvo::sqlite {

namespace {

constexpr std::size_t changeCounterAt = 24;  // one more with every change
// A conversion of the whole office leaves no more than a megabyte of its journal.
constexpr const char* keptJournal[] = {"journal_mode = persist", "journal_size_limit = 1048576"};

/// The number in the first four bytes, the highest first.
std::uint32_t bigEndian(std::string_view bytes) {
  std::uint32_t number = 0;
  for (const char byte : bytes.substr(0, 4))
    number = number << 8 | static_cast<unsigned char>(byte);
  return number;
}

std::uint32_t changeCounter(Database& database) {
  const std::string head = headOf(database).valueOr("");
  return head.size() < changeCounterAt ? 0 : bigEndian(std::string_view(head).substr(changeCounterAt));
}

/// The file that a journal names as the end of a change of several databases; empty when it names none. Behind the name
/// stand its length, its check sum, and the mark of journals.
std::string namedByJournal(const std::string& journal) {
  constexpr std::string_view mark = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
  constexpr std::size_t behindName = 16, mostOfName = 4096;
  if (journal.size() < behindName || !journal.ends_with(mark))
    return "";
  const std::size_t size = bigEndian(std::string_view(journal).substr(journal.size() - behindName));
  if (size == 0 || size > std::min(mostOfName, journal.size() - behindName))
    return "";
  return journal.substr(journal.size() - behindName - size, size);
}

/// A journal with its mark is played back by whoever opens the file next, unless it names a file that is gone.
bool wouldBePlayedBack(Database& database) {
  const auto journal = readBytes(sqlite3_filename_journal(sqlite3_db_filename(database.handle(), "main")));
  if (!journal || journal->empty() || journal->front() == '\0')
    return false;
  const std::string end = namedByJournal(*journal);
  return end.empty() || FileExists(end);
}

}  // namespace

Result<void> keepJournal(Database& database, std::string_view file) {
  for (const char* setting : keptJournal)
    if (const auto set = database.ask("pragma " + std::string(file) + "." + setting); !set)
      return set.error();
  return {};
}

void CommitWitness::begin(Database& database) {
  before_ = changeCounter(database);
}

bool CommitWitness::stands(Database& database) const {
  return !wouldBePlayedBack(database) && changeCounter(database) == before_ + 1;
}

}  // namespace zelvo::sqlite
