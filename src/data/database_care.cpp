#include "data/database_care.h"

#include <string>

#include "base/file_trouble.h"
#include "base/files.h"
#include "data/engine.h"
#include "data/server_folder.h"
#include "data/sqlite/create.h"

namespace zelvo {

namespace {

constexpr std::chrono::milliseconds kShortPatience{1500};

Result<void> refuseOnServer(std::string_view path) {
  if (keepsOnServer(folderOf(path)))
    return fileError(FileDeed::Write, path, Trouble::BadInput, "the tables of its folder lie on a server",
                     "Have them looked after there.");
  return {};
}

}  // namespace

Result<void> checkDatabase(std::string_view path) {
  if (auto refused = refuseOnServer(path); !refused)
    return refused;
  return sqlite::checkDatabaseFile(path);
}

Result<std::size_t> countRows(std::string_view path, const Table& table) {
  auto engine = openEngine(path);
  if (!engine)
    return engine.error();
  const auto rows = (*engine)->select("Select * from " + std::string(table.name));
  if (!rows)
    return rows.error();
  return rows->rows.size();
}

Result<void> replaceDatabase(std::string_view from, std::string_view to) {
  if (auto refused = refuseOnServer(to); !refused)
    return refused;
  return sqlite::replaceDatabaseFile(from, to);
}

Result<void> removeJournal(std::string_view path) {
  const std::string journal = systemPath(path) + "-journal";
  return FileExists(journal) ? deleteFile(journal) : Result<void>();
}

Result<void> refuseWhileWritten(std::string_view path) {
  auto engine = openEngine(path, kShortPatience);
  if (!engine)
    return engine.error();
  auto begun = (*engine)->begin();
  if (begun)
    (*engine)->rollback();
  return begun;
}

}  // namespace zelvo
