#include "data/sqlite/alone.h"

#include "base/files.h"
#include "data/sqlite/file_kind.h"

namespace zelvo::sqlite {

Result<std::unique_ptr<Database>> openAlone(std::string_view path, std::chrono::milliseconds patience) {
  const std::string name = systemPath(path);
  const auto mode = modeOf(name);
  auto database = mode ? Database::open(name, *mode, patience) : mode.error();
  if (!database)
    return database;
  if (*mode == Database::Mode::ReadOnly)
    return (*database)->trouble(FileDeed::Write, SQLITE_READONLY);
  // The lock of the empty transaction stays when it ends.
  if (auto held = (*database)->execute("pragma locking_mode = exclusive; begin exclusive; commit"); !held)
    return held.error();
  return database;
}

}  // namespace zelvo::sqlite
