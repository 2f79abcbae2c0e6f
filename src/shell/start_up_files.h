#pragma once

#include <string>
#include <string_view>

#include "form/desk.h"

namespace zelvo {

// The few doings with files that start-up needs. Each does what it can: a file that stays, or a log that cannot be
// written, keeps nobody from working.

/// Adds the session's current log line to "session.log". The file is opened and closed for each line, so that it is
/// complete up to the last step even when the program dies.
void WriteLog(const Session& session);
std::string sessionLogPath(const Session& session);

/// Deletes the file when it is there; in any case waits a second for a program that is just letting go of it.
void DeleteFileIfExists(Desk& desk, std::string_view path);
void RenameFile(std::string_view oldPath, std::string_view newPath);

/// The program that shows web pages, with one blank behind it to which an address can be joined; empty when the desktop
/// has none, which is also noted in the session.
std::string GetBrowser(Desk& desk);

/// Notes the network's name for the user, eight characters of it, or "Unknown".
void GetUserID(Desk& desk);

}  // namespace zelvo
