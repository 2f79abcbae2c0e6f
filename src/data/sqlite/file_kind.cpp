#include "data/sqlite/file_kind.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace zelvo::sqlite {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view sqliteMark = "SQLite format 3\0"sv;
// Behind a version of four bytes; "Jet DB" or "ACE DB" follows.
constexpr std::string_view oldEngineMark = "Standard "sv;
constexpr std::size_t oldEngineMarkAt = 4;
constexpr std::size_t formatAt = 18;
constexpr char writeAheadFormat = 2;
constexpr sqlite3_int64 headSize = 100;

Error notOurs(const Database& database, std::string_view why, std::string_view advice) {
  return fileError(FileDeed::Read, database.path(), Trouble::NotOurs, why, advice);
}

}  // namespace

Result<std::string> headOf(Database& database) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database.handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (!file || !file->pMethods)
    return database.trouble(FileDeed::Read, SQLITE_CANTOPEN);
  sqlite3_int64 size = 0;
  int code = file->pMethods->xFileSize(file, &size);
  std::string head(static_cast<std::size_t>(std::min(size, headSize)), '\0');
  if (code == SQLITE_OK && !head.empty())
    code = file->pMethods->xRead(file, head.data(), static_cast<int>(head.size()), 0);
  if (code != SQLITE_OK)
    return database.trouble(FileDeed::Read, code);
  return head;
}

// A file that nobody may write is marked read-only, whoever the user is.
Result<Database::Mode> modeOf(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0)
    return fileError(FileDeed::Read, path, errno);
  if (S_ISDIR(state.st_mode))
    return fileError(FileDeed::Read, path, EISDIR);
  if (::access(path.c_str(), R_OK) != 0)
    return fileError(FileDeed::Read, path, errno);
  const bool writable = (state.st_mode & 0222) != 0 && ::access(path.c_str(), W_OK) == 0;
  return writable ? Database::Mode::ReadWrite : Database::Mode::ReadOnly;
}

Result<void> checkHead(Database& database) {
  const auto head = headOf(database);
  if (!head)
    return head.error();
  if (head->empty())
    return notOurs(
        database, "it is empty",
        "It was not copied to its end: restore it from the backup, or remove it, and an empty database is put "
        "in its place.");
  if (std::string_view(*head).substr(0, oldEngineMarkAt + oldEngineMark.size()).ends_with(oldEngineMark))
    return notOurs(database, "it was made by the office's old database engine",
                   "Convert it first, then open it again.");
  if (!head->starts_with(sqliteMark))
    return notOurs(database, "it is no database",
                   "Restore it from the backup, or choose another data folder in the preferences.");
  return {};
}

bool writesAhead(Database& database) {
  const auto head = headOf(database);
  return head && head->size() > formatAt && (*head)[formatAt] == writeAheadFormat;
}

}  // namespace zelvo::sqlite
