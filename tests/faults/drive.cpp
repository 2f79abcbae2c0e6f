#include "drive.h"

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <map>

#include "base/files.h"
#include "base/text.h"
#include "data/recordset.h"
#include "data/sqlite/database.h"

namespace zelvo::testing {

namespace {

constexpr int mostCalls = 5000;

/// Ends as 0 when the work got through, as 9 when it was killed on its way.
Tried tryInOwnProgram(Fault fault, int call, const TempFolder& folder, const std::function<std::string()>& work) {
  Tried tried;
  tried.mayLeaveFiles = true;
  const pid_t program = ::fork();
  if (program == 0) {
    FailingDisk disk(folder.path(), fault, call);
    const bool done = work().empty();
    disk.finish();
    ::_exit(done ? 0 : 1);
  }
  int status = 0;
  ::waitpid(program, &status, 0);
  tried.struck = tried.killed = WIFEXITED(status) && WEXITSTATUS(status) == 9;
  EXPECT_TRUE(tried.killed || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << "ended otherwise: " << status;
  return tried;
}

std::string recordsOf(const std::string& path, const Table& table) {
  const auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error().message;
  const auto rows = Recordset::open(*connection, "Select * from " + std::string(table.name));
  if (!rows)
    return rows.error().message;
  std::string text;
  for (; !(*rows)->Eof(); (*rows)->MoveNext()) {
    for (const Column& column : (*rows)->table().columns)
      text += (*rows)->text(column.name) + "|";
    text += "\n";
  }
  return text;
}

std::string databaseAt(const std::string& path) {
  std::string sound = "cannot be opened";
  if (auto database = sqlite::Database::open(path, sqlite::Database::Mode::ReadWrite))
    sound = (*database)->ask("pragma integrity_check").valueOr("cannot be checked");
  EXPECT_EQ(sound, "ok") << path;
  const Table* table = findTableOfFile(std::filesystem::path(path).filename().string());
  return recordsOf(path, table ? *table : *findTable("SBL"));
}

/// A database's journal, and the end of one that it shares with others, which the engine removes as it opens them.
bool isJournal(const std::string& name) {
  return name.find(".mdb-") != std::string::npos;
}

bool isUnfinished(const std::string& name) {
  return name.starts_with(".zelvo");
}

std::vector<std::string> filesIn(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file())
      files.push_back(entry.path().string());
  return files;
}

std::string nameIn(const std::string& path) {
  return std::filesystem::path(path).filename().string();
}

}  // namespace

Tried tryUnder(Fault fault, int call, const TempFolder& folder, const std::function<std::string()>& work) {
  if (kills(fault))
    return tryInOwnProgram(fault, call, folder, work);
  FailingDisk disk(folder.path(), fault, call);
  Tried tried;
  tried.said = work();
  tried.struck = disk.struck();
  tried.at = disk.struckAt();
  tried.mayLeaveFiles = fault == Fault::FailsFromThenOn || disk.struckARemoval();
  return tried;
}

int atEveryCall(const std::function<Tried(int call)>& attempt, int every) {
  int met = 0;
  for (int call = 1; call < mostCalls; call += every) {
    if (!attempt(call).struck)
      return met;
    ++met;
    if (::testing::Test::HasFailure())
      return met;
  }
  ADD_FAILURE() << "never got through";
  return met;
}

bool tellsOf(Fault fault, const std::string& message) {
  const bool full = fault == Fault::FullOnce || fault == Fault::FullFromThenOn;
  return message.find(full ? "the disk is full" : "the disk") != std::string::npos;
}

std::string seenIn(const std::string& folder) {
  std::map<std::string, std::string> seen;
  for (const std::string& path : filesIn(folder)) {
    const std::string name = nameIn(path);
    if (isUnfinished(name) || isJournal(name))
      continue;
    seen[path.substr(folder.size())] = name.ends_with(".mdb") ? databaseAt(path) : *readBytes(path);
  }
  std::string text;
  for (const auto& [place, content] : seen)
    text += "[" + place + "]\n" + content + "\n";
  return text;
}

std::vector<std::string> leftOversIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const std::string& path : filesIn(folder))
    if (isUnfinished(nameIn(path)))
      names.push_back(nameIn(path));
  return names;
}

}  // namespace zelvo::testing
