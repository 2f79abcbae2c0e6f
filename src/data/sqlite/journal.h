#pragma once

#include <cstdint>

#include "data/sqlite/database.h"

namespace zelvo::sqlite {

/// The journal stays beside the file between changes, marked as done with, instead of being made and removed each time:
/// an add flushes the folder no more, and takes less than half the time. Only a connection that stores records asks for
/// it; a file that is made or copied leaves no journal behind.
Result<void> keepJournal(Database& database, std::string_view file = "main");

/// Tells of a commit that failed whether the change stands all the same. A change is made as soon as its journal is
/// marked as done with; when only the flush of that mark fails, the engine reports a failure of the disk, and whoever
/// was told of one would store the record a second time.
class CommitWitness {
 public:
  /// To be called when the database was taken for writing.
  void begin(Database& database);
  /// Only a change of this connection counts: what another computer stored meanwhile leaves it unanswered, and then the
  /// change is taken for lost.
  bool stands(Database& database) const;

 private:
  std::uint32_t before_ = 0;
};

}  // namespace zelvo::sqlite
