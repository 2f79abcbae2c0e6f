#include "base/file_trouble.h"
#include "base/files.h"
#include "base/text.h"
#include "data/database_care.h"
#include "data/moving/move_office.h"
#include "data/moving/office_files.h"
#include "data/moving/table_copy.h"
#include "data/postgres/office.h"
#include "data/server_folder.h"

namespace zelvo {

namespace {

class ToServer {
 public:
  ToServer(std::string_view folder, std::string_view connection, std::string_view stamp, const MoveReport& tell)
      : folder_(folder), connection_(trim(connection)), aside_(setAsideFolder(folder, stamp)), tell_(tell) {}

  Result<void> run();

 private:
  Result<void> check() const;
  Result<void> holdFiles();
  Result<void> fillServer();
  Result<void> openOffice();
  Result<void> moveTable(HeldFile& file);
  Result<void> makeEmptyTable(const Table& table);
  Result<void> keep();
  Result<void> setAside(std::string_view file);
  void setFilesAside();

  std::string folder_, connection_, aside_;
  const MoveReport& tell_;
  std::vector<HeldFile> files_;
  std::unique_ptr<postgres::Office> office_;
};

Result<void> ToServer::check() const {
  if (!folderExists(folder_))
    return fileError(FileDeed::Read, folder_, Trouble::NotFound, "there is no such data folder", "Check its name.");
  if (keepsOnServer(folder_))
    return fileError(FileDeed::Write, joinPath(folder_, serverFile), Trouble::Duplicate,
                     "the office works on a server already", "Nothing was moved.");
  if (folderExists(aside_))
    return fileError(FileDeed::MakeFolder, aside_, Trouble::Duplicate, "there is one of that name", "Try again.");
  if (connection_.empty() || connection_.find_first_of("\r\n") != std::string::npos)
    return Error{Trouble::BadInput,
                 "Say in one line how to reach the server, as host=records.town dbname=zelvo user=clerk."};
  return {};
}

// From here to the end no computer stores anything.
Result<void> ToServer::holdFiles() {
  const OfficeFiles found = officeFilesIn(folder_);
  for (const std::string& name : found.ours) {
    auto held = holdFile(folder_, name);
    if (!held)
      return held.error();
    files_.push_back(std::move(*held));
  }
  if (files_.empty())
    return fileError(FileDeed::Read, folder_, Trouble::NotFound, "it holds no database of the office",
                     "Check the name of the data folder.");
  for (const std::string& name : found.others)
    tell_(name + " is none of the office's databases; it stays where it is.");
  return {};
}

Result<void> ToServer::openOffice() {
  auto schema = schemaOf(folder_);
  if (!schema)
    return schema.error();
  auto office = postgres::Office::open(joinPath(folder_, serverFile), {connection_, std::move(*schema)},
                                       postgres::Office::Kind::New);
  if (!office)
    return office.error();
  office_ = std::move(*office);
  return office_->begin();
}

Result<void> ToServer::makeEmptyTable(const Table& table) {
  const auto made = office_->make(table);
  if (made || made.error().trouble != Trouble::Duplicate)
    return made;
  const auto there = office_->tableThere(table);
  if (!there)
    return there.error();
  const auto filled = office_->hasRows(table);
  if (!filled)
    return filled.error();
  if (*there == &table && !*filled)
    return {};
  return Error{Trouble::Duplicate, "The table " + std::string(table.name) + " in the schema " + office_->schema() +
                                       " of the server " + (*filled ? "has rows already" : "has another layout") +
                                       ". Have the schema dropped there when nobody needs it, or write another name "
                                       "into schema.txt of the data folder, or delete that file for a new name."};
}

Result<void> ToServer::moveTable(HeldFile& file) {
  if (auto made = makeEmptyTable(*file.table); !made)
    return made;
  if (auto copied = copyRows(*file.engine, *file.table, *office_); !copied)
    return copied;
  const auto compared = compareRows(*file.engine, *file.table, *office_);
  if (!compared)
    return compared.error();
  tell_(std::string(file.table->name) + ": " + std::to_string(*compared) + " rows of " + file.name +
        " copied and compared.");
  return {};
}

Result<void> ToServer::fillServer() {
  if (auto opened = openOffice(); !opened)
    return opened;
  for (HeldFile& file : files_)
    if (auto moved = moveTable(file); !moved)
      return moved;
  return {};
}

// The server keeps all tables in one moment, and server.txt, which is there whole or not at all, is the next one: until
// then the office works in its files, from then on at the server, whatever becomes of this computer.
Result<void> ToServer::keep() {
  if (auto kept = office_->commit(); !kept)
    return kept;
  auto switched = writeLines(joinPath(folder_, serverFile), {connection_});
  if (!switched)
    return Error{switched.error().trouble, switched.error().message + " The office goes on in its files. The schema " +
                                               office_->schema() +
                                               " on the server holds a copy that nobody uses; have it dropped."};
  tell_("The office works on the server now, in the schema " + office_->schema() + ".");
  return switched;
}

// Without its journal, which the engine would take for that of another file.
Result<void> ToServer::setAside(std::string_view file) {
  const std::string path = joinPath(folder_, file);
  auto moved = renameFile(path, joinPath(aside_, file));
  return moved ? removeJournal(path) : moved;
}

// They are held until each has left its place: a screen that still has one open finds it moved.
void ToServer::setFilesAside() {
  if (auto made = makeFolder(aside_); !made)
    return tell_(made.error().message + " The old files stay where they are; nobody uses them any more.");
  for (const HeldFile& file : files_)
    if (auto moved = setAside(file.name); !moved)
      tell_(moved.error().message + " It stays where it is; nobody uses it any more.");
  flushFolder(folder_);
  tell_("The files lie in " + aside_ + " now, as they were.");
}

Result<void> ToServer::run() {
  auto done = check();
  if (done)
    done = holdFiles();
  if (!done)
    return done;
  const bool named = FileExists(joinPath(folder_, schemaFile));
  done = fillServer();
  if (!done && !named)
    (void)deleteFile(joinPath(folder_, schemaFile)).ok();
  if (done)
    done = keep();
  if (done)
    setFilesAside();
  return done;
}

}  // namespace

Result<void> moveToServer(std::string_view dataFolder, std::string_view connection, std::string_view stamp,
                          const MoveReport& tell) {
  return ToServer(withoutEndSeparator(systemPath(dataFolder)), connection, stamp, tell).run();
}

}  // namespace zelvo
