#include "data/sqlite/trouble.h"

#include <sqlite3.h>
#include <unistd.h>

#include <string>

#include "base/files.h"

namespace zelvo::sqlite {

namespace {

struct Cause {
  int code;
  Trouble trouble;
  std::string_view why;
  std::string_view advice;
};

constexpr std::string_view askForRights = "Ask whoever looks after the computers for the right to write there.";

// The exact codes come before the families that they belong to.
constexpr Cause causes[] = {
    {SQLITE_READONLY_DBMOVED, Trouble::Conflict, "it was moved or replaced while it was open",
     "Close the screen and open it again."},
    {SQLITE_READONLY_DIRECTORY, Trouble::ReadOnly, "its folder is read-only", askForRights},
    {SQLITE_READONLY_ROLLBACK, Trouble::ReadOnly,
     "another computer broke off while writing, and this one has no right to clean up after it",
     "Open it once on a computer that may write to it."},
    {SQLITE_IOERR_NOMEM, Trouble::Failed, "the computer is out of memory", "Close other programs and try again."},
    {SQLITE_FULL, Trouble::Full, "the disk is full", "Make room on the disk and try again."},
    {SQLITE_BUSY, Trouble::Busy, "another computer kept it locked", "Wait a moment and try again."},
    {SQLITE_LOCKED, Trouble::Busy, "another screen kept it locked", "Wait a moment and try again."},
    {SQLITE_READONLY, Trouble::ReadOnly, "it is read-only", askForRights},
    {SQLITE_PERM, Trouble::ReadOnly, "this user has no right to it", askForRights},
    {SQLITE_AUTH, Trouble::ReadOnly, "this user has no right to it", askForRights},
    {SQLITE_NOTADB, Trouble::NotOurs, "it is no database",
     "Restore it from the backup, or choose another data folder."},
    {SQLITE_CORRUPT, Trouble::Failed, "it is damaged", "Restore it from the backup."},
    {SQLITE_NOMEM, Trouble::Failed, "the computer is out of memory", "Close other programs and try again."},
    {SQLITE_TOOBIG, Trouble::BadInput, "a text is too long", "Shorten it and try again."},
    {SQLITE_IOERR, Trouble::Failed, "the disk or the network failed", "Check them and try again."},
    {SQLITE_PROTOCOL, Trouble::Busy, "the shared folder's locks failed", "Wait a moment and try again."},
};

/// The engine does not tell why it could not make its journal beside the file, so what can be seen is told.
Error cannotOpen(FileDeed deed, std::string_view path) {
  if (!FileExists(path))
    return fileError(deed, path, Trouble::NotFound, "it is not there any more, or its folder is not",
                     "Check the folder in the settings.");
  const std::string folder = folderOf(path);
  if (::access(folder.empty() ? "." : folder.c_str(), W_OK) != 0)
    return fileError(deed, path, Trouble::ReadOnly, "its folder is read-only", askForRights);
  return fileError(deed, path, Trouble::Failed, "the disk is full or fails",
                   "Make room on the disk, or check it and the network, and try again.");
}

}  // namespace

Error storeError(FileDeed deed, std::string_view path, int code, std::string_view detail) {
  if ((code & 0xff) == SQLITE_CANTOPEN)
    return cannotOpen(deed, path);
  for (const Cause& cause : causes)
    if (cause.code == code || cause.code == (code & 0xff))
      return fileError(deed, path, cause.trouble, cause.why, cause.advice);
  return fileError(deed, path, Trouble::Failed, detail, "Try again, and tell whoever looks after the program.");
}

}  // namespace zelvo::sqlite
