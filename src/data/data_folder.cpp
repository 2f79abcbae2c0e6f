#include "data/data_folder.h"

#include <array>
#include <filesystem>
#include <optional>

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"
#include "data/connection.h"
#include "data/server_folder.h"

namespace zelvo {

namespace {

constexpr std::string_view blanksFolder = "\\wrk";
constexpr std::string_view usualFolder = "\\databases";
constexpr std::string_view layoutFile = "\\sblversion.txt";
constexpr int oldLayout = 13;
constexpr int extendedLayout = 18;

/// The databases that start-up looks after. The screens of the others do so themselves.
constexpr std::array<std::string_view, 8> mainFiles = {"db1.mdb", "db2.mdb", "db3.mdb", "db4.mdb",
                                                       "db5.mdb", "db6.mdb", "db7.mdb", "sbl.mdb"};

constexpr std::string_view notLocated =
    "One or more database pointed by your preferences cannot be located. The program will use the default location, or "
    "will set an empty database in its place instead. No further action on your part is necessary.\n\n"
    "You should set your database location in Preferences from the Admin menu.";

/// A copy that another computer made first is as good as ours.
Result<void> unlessThere(const Result<void>& made, const std::string& path) {
  return !made && made.error().trouble == Trouble::Duplicate && FileExists(path) ? Result<void>() : made;
}

Result<void> makeBlank(std::string_view programFolder, const Table& table) {
  const std::string folder = joinPath(programFolder, blanksFolder);
  const std::string path = joinPath(folder, table.file);
  if (FileExists(path))
    return {};
  if (auto made = makeFolder(folder); !made)
    return made;
  return unlessThere(createDatabase(path, table), path);
}

}  // namespace

// Where the program's own folder may not be written, or still holds blanks of the office's old engine, an empty
// database is made straight in its place.
Result<void> putBlank(std::string_view programFolder, const Table& table, const std::string& path) {
  if (makeBlank(programFolder, table)) {
    const std::string blank = joinPath(joinPath(programFolder, blanksFolder), table.file);
    auto copied = unlessThere(copyDatabase(blank, path), path);
    if (copied || copied.error().trouble != Trouble::NotOurs)
      return copied;
  }
  return unlessThere(createDatabase(path, table), path);
}

namespace {

/// A database that is there and cannot be read is not missing: nothing is put in its place, and the reason is told.
std::optional<Error> unreadable(const std::string& path) {
  std::error_code unknown;
  if (!std::filesystem::exists(path, unknown))
    return std::nullopt;
  const auto read = readBytes(path);
  return read ? std::nullopt : std::optional(read.error());
}

Result<std::string> ensureIn(std::string_view folder, std::string_view programFolder, std::string_view file) {
  const std::string path = joinPath(folder, file);
  if (FileExists(path))
    return path;
  if (auto refused = unreadable(path))
    return *refused;
  const Table* table = findTableOfFile(fileNameOf(file));
  if (!table)
    return Error{Trouble::NotFound, "The file \"" + path +
                                        "\" is not there, and it is none of the office's databases. "
                                        "Check the data folder in the preferences."};
  if (keepsOnServer(folder))
    return path;
  if (auto put = putBlank(programFolder, *table, path); !put)
    return put.error();
  return path;
}

/// Puts blanks in the place of what is missing; says whether anything was. On a server nothing is: what is not there
/// is made when it is opened.
Result<bool> completeFolder(const std::string& folder, std::string_view programFolder) {
  bool changed = false;
  if (keepsOnServer(folder))
    return changed;
  for (const std::string_view file : mainFiles) {
    if (FileExists(joinPath(folder, file)))
      continue;
    if (auto made = makeFolder(folder); !made)
      return made.error();
    if (auto there = ensureIn(folder, programFolder, file); !there)
      return there.error();
    changed = true;
  }
  return changed;
}

}  // namespace

Result<void> resolveDataFolder(Desk& desk) {
  Session& session = desk.session;
  std::string folder = session.dataFolder;
  const bool elsewhere = !keepsOnServer(folder) && (trim(folder).empty() || listFiles(folder, "*.mdb").empty());
  if (elsewhere)
    folder = withoutEndSeparator(joinPath(session.programFolder, usualFolder));
  const auto changed = completeFolder(folder, session.programFolder);
  if (!changed)
    return changed.error();
  if (elsewhere || *changed) {
    desk.messages.tell("Zelvo", notLocated);
    session.dataFolder = folder;
  }
  session.parcelLayout = parcelLayoutIn(session.dataFolder);
  return {};
}

// No path at all while there is no data folder: the current folder is not to stand in for it.
int parcelLayoutIn(std::string_view dataFolder) {
  constexpr std::size_t longest = 4096;
  const auto lines = readLines(dataFolder.empty() ? "" : joinPath(dataFolder, layoutFile), longest).valueOr({});
  return !lines.empty() && CInt(Val(lines.front())) == extendedLayout ? extendedLayout : oldLayout;
}

Result<void> makeBlanks(std::string_view programFolder) {
  for (const Table& table : catalogue())
    if (auto made = makeBlank(programFolder, table); !made)
      return made;
  return makeBlank(programFolder, extendedParcelTable());
}

Result<std::string> ensureDatabase(const Session& session, std::string_view file) {
  return ensureIn(session.dataFolder, session.programFolder, file);
}

}  // namespace zelvo
