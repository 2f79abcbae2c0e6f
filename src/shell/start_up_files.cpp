#include "shell/start_up_files.h"

#include <fcntl.h>

#include "base/files.h"
#include "base/open_file.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::size_t kUserIdLength = 8;

/// Results of doings that nobody needs to hear of.
void ignore(const Result<void>&) {}

}  // namespace

std::string sessionLogPath(const Session& session) {
  return joinPath(session.programFolder, "session.log");
}

void WriteLog(const Session& session) {
  ignore(appendLine(sessionLogPath(session), session.logLine));
}

void DeleteFileIfExists(Desk& desk, std::string_view path) {
  if (FileExists(path))
    ignore(deleteFile(path));
  desk.clock.pause(1);
}

void RenameFile(std::string_view oldPath, std::string_view newPath) {
  ignore(renameFile(oldPath, newPath));
}

// The desktop tells the program by a file of that kind. A page of that name that someone left there is used and kept.
std::string GetBrowser(Desk& desk) {
  const std::string page = joinPath(desk.desktop.temporaryFolder(), "dummy.html");
  const bool made = OpenFile(page, O_WRONLY | O_CREAT | O_EXCL).isOpen();
  const auto program = desk.desktop.programFor(page);
  if (made)
    ignore(deleteFile(page));
  desk.session.defaultBrowserFound = program.has_value();
  return program ? *program + " " : "";
}

void GetUserID(Desk& desk) {
  desk.session.userId = left(desk.desktop.networkUser().value_or("Unknown"), kUserIdLength);
}

}  // namespace zelvo
