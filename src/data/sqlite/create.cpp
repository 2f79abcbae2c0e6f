#include "data/sqlite/create.h"

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <functional>

#include "base/files.h"
#include "base/open_file.h"
#include "base/text.h"
#include "data/sqlite/file_kind.h"
#include "data/sqlite/schema.h"
#include "data/sqlite/sqlite_engine.h"

namespace zelvo::sqlite {

namespace {

std::string folderAt(const std::string& path) {
  const std::string folder = folderOf(path);
  return folder.empty() ? "." : folder;
}

bool somethingAt(const std::string& path) {
  struct stat state {};
  return ::lstat(path.c_str(), &state) == 0;
}

/// A file that is not whole yet, under a name of its own; gone when it is given up.
class Unfinished {
 public:
  explicit Unfinished(std::string name) : name_(std::move(name)) {}
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  ~Unfinished() {
    if (!beside_.empty())
      ::unlink(beside_.c_str());
  }

  const std::string& beside() const { return beside_; }

  /// Makes it, empty, with the rights that a shared folder gives.
  Result<void> begin() {
    if (somethingAt(name_))
      return trouble(EEXIST);
    if (::access(folderAt(name_).c_str(), W_OK | X_OK) != 0)
      return trouble(errno);
    const int error = openBeside();
    return error == 0 ? Result<void>() : trouble(error);
  }

  /// Another computer may have made the same file meanwhile, and work in it: then that one stays.
  Result<void> finish() {
    if (::link(beside_.c_str(), name_.c_str()) == 0)
      ::unlink(beside_.c_str());
    else if (errno == EEXIST || somethingAt(name_))
      return trouble(EEXIST);
    else if (std::rename(beside_.c_str(), name_.c_str()) != 0)  // sticks and some shared folders know no links
      return trouble(errno);
    beside_.clear();
    OpenFile folder(folderAt(name_), O_RDONLY | O_DIRECTORY);
    return folder.isOpen() && folder.flush() == EIO ? trouble(EIO) : Result<void>();
  }

  /// An error met on the way, told of the name that the file was to have.
  Error named(const Error& error) const { return {error.trouble, replaceAll(error.message, beside_, name_)}; }

 private:
  /// Other computers, which count their programs as this one does, may make files in the same folder at the same time:
  /// a name that is taken is passed over, and left to whoever has it.
  int openBeside() {
    static std::atomic<unsigned> next{0};
    const std::string stem = folderAt(name_) + "/.zelvo-new-" + std::to_string(::getpid()) + "-";
    for (;;) {
      const std::string free = stem + std::to_string(next++) + ".tmp";
      const OpenFile file(free, O_RDWR | O_CREAT | O_EXCL);
      if (file.isOpen())
        beside_ = free;
      if (file.isOpen() || file.error() != EEXIST)
        return file.error();
    }
  }

  Result<void> trouble(int error) const { return fileError(FileDeed::Write, name_, error); }

  std::string name_;
  std::string beside_;
};

/// Makes a file by filling the open database of its unfinished one, which is closed then.
Result<void> make(std::string_view path, const std::function<Result<void>(std::unique_ptr<Database>)>& fill) {
  Unfinished file(systemPath(path));
  if (auto begun = file.begin(); !begun)
    return begun;
  auto database = Database::open(file.beside(), Database::Mode::Create);
  if (!database)
    return file.named(database.error());
  if (auto filled = fill(std::move(*database)); !filled)
    return file.named(filled.error());
  return file.finish();
}

/// The whole file in one go: a copy in pieces would begin anew with every change of another computer. `shared` is the
/// one of the two that other computers may hold.
Result<void> pour(Database& from, Database& to, const Database& shared) {
  sqlite3_backup* copying = sqlite3_backup_init(to.handle(), "main", from.handle(), "main");
  if (!copying)
    return to.trouble(FileDeed::Write);
  const int code = sqlite3_backup_step(copying, -1);
  sqlite3_backup_finish(copying);
  if (code == SQLITE_DONE)
    return {};
  return (code & 0xff) == SQLITE_BUSY ? shared.trouble(FileDeed::Read, code) : to.trouble(FileDeed::Copy, code);
}

Result<std::unique_ptr<Database>> openFile(std::string_view path) {
  const std::string name = systemPath(path);
  const auto mode = modeOf(name);
  return mode ? Database::open(name, *mode) : mode.error();
}

}  // namespace

Result<void> createFile(std::string_view path, const Table& table,
                        const std::function<Result<void>(Engine& file)>& fill) {
  return make(path, [&](std::unique_ptr<Database> database) {
    auto made = database->execute("begin immediate;" + creation(table) + "commit");
    if (!made || !fill)
      return made;
    SqliteEngine engine(std::move(database), {&table});
    return fill(engine);
  });
}

Result<void> copyDatabaseFile(std::string_view from, std::string_view to) {
  const auto source = openFile(from);
  return source ? copyDatabaseFile(**source, to) : source.error();
}

Result<void> copyDatabaseFile(Database& from, std::string_view to) {
  return make(to, [&](std::unique_ptr<Database> target) { return pour(from, *target, from); });
}

Result<void> replaceDatabaseFile(std::string_view from, std::string_view to) {
  const auto target = openFile(to);
  return target ? replaceDatabaseFile(from, **target) : target.error();
}

Result<void> replaceDatabaseFile(std::string_view from, Database& to) {
  const auto source = openFile(from);
  return source ? pour(**source, to, to) : source.error();
}

Result<void> checkDatabaseFile(std::string_view path) {
  const auto database = openFile(path);
  if (!database)
    return database.error();
  const auto found = (*database)->ask("pragma integrity_check(1)");
  if (!found)
    return found.error();
  if (*found != "ok")
    return fileError(FileDeed::Read, systemPath(path), Trouble::NotOurs, "it is damaged (" + *found + ")",
                     "Restore it from the backup.");
  return {};
}

}  // namespace zelvo::sqlite
