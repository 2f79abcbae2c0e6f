#include "data/sqlite/journal.h"

#include <fstream>

#include "data/sqlite/file_kind.h"

namespace zelvo::sqlite {

namespace {

constexpr std::size_t changeCounterAt = 24;  // four bytes, the highest first; one more with every change
// A conversion of the whole office leaves no more than a megabyte of its journal.
constexpr const char* keptJournal[] = {"pragma journal_mode = persist", "pragma journal_size_limit = 1048576"};

std::uint32_t changeCounter(Database& database) {
  const std::string head = headOf(database).valueOr("");
  std::uint32_t counter = 0;
  for (std::size_t i = changeCounterAt; i < changeCounterAt + 4 && i < head.size(); ++i)
    counter = counter << 8 | static_cast<unsigned char>(head[i]);
  return counter;
}

/// A journal with its mark is played back by whoever opens the file next.
bool wouldBePlayedBack(Database& database) {
  std::ifstream journal(sqlite3_filename_journal(sqlite3_db_filename(database.handle(), "main")), std::ios::binary);
  const int first = journal.get();
  return first != std::ifstream::traits_type::eof() && first != 0;
}

}  // namespace

Result<void> keepJournal(Database& database) {
  for (const char* pragma : keptJournal)
    if (const auto set = database.ask(pragma); !set)
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
