#include "data/no_dbfound.h"

#include <filesystem>

#include "base/files.h"
#include "data/connection.h"
#include "data/data_folder.h"

namespace zelvo {

namespace {

constexpr std::string_view kQuestion =
    "(the default database specified in the preferences settings) cannot be found in the specified location. What do "
    "you want to do?";

Result<void> checkHolds(std::string_view path, const Table& table) {
  if (!FileExists(path))
    return Error{Trouble::NotFound, "The file " + std::string(path) + " is not there. Please choose one that is."};
  const auto opened = Connection::open(connectionText(path));
  const auto found = opened ? (*opened)->table(table.name) : opened.error();
  return found ? Result<void>() : found.error();
}

}  // namespace

noDbfound::noDbfound(Desk& itsDesk, const Table& table, std::string_view path)
    : Screen(itsDesk, "noDbfound", "Database Not Found"), table_(table) {
  Label1.caption = path;
  Label2.caption = kQuestion;
  Command1.tip = " Browse and locate database";
  Command1.isDefault = true;
  Command2.tip = " Cancel";
  Command2.isCancel = true;
  onClick(Command1, [this] { Command1_Click(); });
  onClick(Command2, [this] { closeMe(); });
}

void noDbfound::Command1_Click() {
  const auto path = desk.pickers.openFile({"Find DB", "database file |*.mdb", desk.session.dataFolder});
  if (!path || refuse(*path))
    return;
  desk.session.dataFolder = folderOf(*path);
  desk.session.parcelLayout = parcelLayoutIn(desk.session.dataFolder);
  if (table_.index >= 0)
    desk.session.connections[static_cast<std::size_t>(table_.index)] = connectionText(*path);
  located_ = true;
  closeMe();
}

bool noDbfound::refuse(std::string_view path) {
  const auto holds = checkHolds(path, table_);
  if (!holds)
    desk.messages.tell(" " + caption, holds.error().message, Icon::Exclamation);
  return !holds;
}

namespace {

bool somethingAt(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(path, unknown);
}

const std::string& locatedConnection(const Session& session, const Table* table) {
  static const std::string none;
  return table && table->index >= 0 ? session.connections[static_cast<std::size_t>(table->index)] : none;
}

}  // namespace

Result<std::string> reachableConnection(const Session& session, std::string_view file) {
  if (const std::string& located = locatedConnection(session, findTableOfFile(fileNameOf(file))); !located.empty())
    return located;
  const auto path = ensureDatabase(session, file);
  return path ? Result<std::string>(connectionText(*path)) : path;
}

Result<std::string> databaseConnection(Desk& desk, std::string_view file) {
  const auto reached = reachableConnection(desk.session, file);
  const Table* table = findTableOfFile(fileNameOf(file));
  const std::string missing = joinPath(desk.session.dataFolder, file);
  if (reached || !table || table->index < 0 || somethingAt(missing))
    return reached;
  noDbfound search(desk, *table, missing);
  desk.screens.showModal(search);
  return search.located() ? Result<std::string>(locatedConnection(desk.session, table))
                          : Error{Trouble::Cancelled, reached.error().message};
}

}  // namespace zelvo
