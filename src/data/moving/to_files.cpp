#include <unistd.h>

#include <algorithm>

#include "base/file_trouble.h"
#include "base/files.h"
#include "data/connection.h"
#include "data/data_folder.h"
#include "data/moving/move_office.h"
#include "data/moving/office_files.h"
#include "data/moving/table_copy.h"
#include "data/postgres/office.h"
#include "data/server_folder.h"

namespace zelvo {

namespace {

class ToFiles {
 public:
  ToFiles(std::string_view folder, std::string_view stamp, const MoveReport& tell)
      : folder_(folder), aside_(setAsideFolder(folder, stamp)), tell_(tell) {}

  Result<void> run();

 private:
  Result<void> check() const;
  Result<void> holdServer();
  Result<void> makeFiles();
  Result<void> moveTable(const Table& table);
  Result<void> makeEmptyFiles();
  Result<void> putInPlace();
  Result<void> leaveServer();
  void takeBack();

  bool made(const Table& table) const { return std::find(made_.begin(), made_.end(), table.file) != made_.end(); }
  std::string besidePath(std::string_view file) const { return joinPath(aside_, file); }

  std::string folder_, aside_;
  const MoveReport& tell_;
  std::unique_ptr<postgres::Office> office_;
  std::vector<std::string_view> made_, placed_;
};

Result<void> ToFiles::check() const {
  if (!keepsOnServer(folder_))
    return fileError(FileDeed::Read, joinPath(folder_, serverFile), Trouble::NotFound,
                     "the office does not work on a server", "Nothing was moved. Check the name of the data folder.");
  if (folderExists(aside_))
    return fileError(FileDeed::MakeFolder, aside_, Trouble::Duplicate, "there is one of that name", "Try again.");
  const OfficeFiles found = officeFilesIn(folder_);
  if (found.ours.empty())
    return {};
  return fileError(FileDeed::Write, joinPath(folder_, found.ours.front()), Trouble::Duplicate,
                   "there is a database of that name already, which nobody uses",
                   "Nothing was moved. Put it and its like into another folder first.");
}

// From here to the end no computer stores anything.
Result<void> ToFiles::holdServer() {
  auto place = serverPlace(folder_);
  if (!place)
    return place.error();
  auto office =
      postgres::Office::open(joinPath(folder_, serverFile), std::move(*place), postgres::Office::Kind::Settled);
  if (!office)
    return office.error();
  office_ = std::move(*office);
  return office_->begin();
}

// The parcel table of the extended layout is named after a blank; the office's registry has one name only.
std::string_view fileOf(const Table& table) {
  return findTable(table.name)->file;
}

Result<void> ToFiles::moveTable(const Table& table) {
  const std::string_view file = fileOf(table);
  if (auto blank = createDatabase(besidePath(file), table); !blank)
    return blank;
  made_.push_back(file);
  auto held = holdFile(aside_, std::string(file));
  if (!held)
    return held.error();
  if (auto copied = copyRows(*office_, table, *held->engine); !copied)
    return copied;
  const auto compared = compareRows(*office_, table, *held->engine);
  if (!compared)
    return compared.error();
  tell_(std::string(table.name) + ": " + std::to_string(*compared) + " rows copied to " + std::string(file) +
        " and compared.");
  return held->engine->commit();
}

// A table that nobody ever opened is not on the server. Start-up would miss its file and say so; but for the roll,
// whose file means that one was imported.
Result<void> ToFiles::makeEmptyFiles() {
  for (const Table& table : catalogue()) {
    if (made(table) || table.name == "RPS")
      continue;
    const bool extended = table.name == extendedParcelTable().name && parcelLayoutIn(folder_) == 18;
    if (auto blank = createDatabase(besidePath(table.file), extended ? extendedParcelTable() : table); !blank)
      return blank;
    made_.push_back(table.file);
    tell_(std::string(table.name) + ": not on the server; " + std::string(table.file) + " is empty.");
  }
  return {};
}

Result<void> ToFiles::makeFiles() {
  if (auto folder = makeFolder(aside_); !folder)
    return folder;
  const auto tables = office_->tablesThere();
  if (!tables)
    return tables.error();
  for (const Table* table : *tables)
    if (auto moved = moveTable(*table); !moved)
      return moved;
  return makeEmptyFiles();
}

Result<void> ToFiles::putInPlace() {
  for (const std::string_view file : made_) {
    if (auto placed = renameFile(besidePath(file), joinPath(folder_, file)); !placed)
      return placed;
    placed_.push_back(file);
  }
  flushFolder(folder_);
  return {};
}

// The moment of the switch: until server.txt is gone the office works on the server and sees no file.
Result<void> ToFiles::leaveServer() {
  if (auto left = renameFile(joinPath(folder_, serverFile), besidePath(serverFile)); !left)
    return left;
  flushFolder(folder_);
  if (auto left = renameFile(joinPath(folder_, schemaFile), besidePath(schemaFile)); !left)
    tell_(left.error().message);
  tell_("The office works in its files now. What named the server lies in " + aside_ + ".");
  tell_("The tables on the server stay as they are in the schema " + office_->schema() +
        "; have it dropped when they are needed no more.");
  return {};
}

void ToFiles::takeBack() {
  for (const std::string_view file : placed_)
    (void)deleteFile(joinPath(folder_, file)).ok();
  for (const std::string_view file : made_)
    (void)deleteFile(besidePath(file)).ok();
  (void)::rmdir(aside_.c_str());
}

Result<void> ToFiles::run() {
  auto done = check();
  if (done)
    done = holdServer();
  if (!done)
    return done;
  done = makeFiles();
  if (done)
    done = putInPlace();
  if (done)
    done = leaveServer();
  if (!done)
    takeBack();
  return done;
}

}  // namespace

Result<void> moveToFiles(std::string_view dataFolder, std::string_view stamp, const MoveReport& tell) {
  return ToFiles(withoutEndSeparator(systemPath(dataFolder)), stamp, tell).run();
}

}  // namespace zelvo
