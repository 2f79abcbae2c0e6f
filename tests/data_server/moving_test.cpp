// Offices that move from their files to a server, and back.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <chrono>
#include <map>
#include <random>
#include <thread>

#include "base/files.h"
#include "data/data_folder.h"
#include "data/mdb.h"
#include "data/moving/move_office.h"
#include "data/moving/office_files.h"
#include "data/server_folder.h"
#include "data/small_office.h"
#include "data/sqlite/database.h"
#include "support/scripted_desk.h"
#include "test_server.h"

namespace zelvo {
namespace {

using namespace std::chrono_literals;

/// Every row of every table that holds any.
using Contents = std::map<std::string, std::vector<Row>>;

/// An office that works in files at first, and a server that it may move to.
class Move : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!server().lacking().empty())
      GTEST_SKIP() << server().lacking();
  }

  static TestServer& server() { return TestServer::instance(); }
  std::string path(std::string_view file) { return folder.file(file); }

  Result<void> toServer() { return moveToServer(folder.path(), server().line(), stamp(), report()); }
  Result<void> toFiles() { return moveToFiles(folder.path(), stamp(), report()); }
  std::string stamp() { return "20260309-1430" + std::to_string(moves_++); }
  MoveReport report() {
    return [this](const std::string& line) { told += line + "\n"; };
  }
  bool tells(std::string_view text) const { return told.find(text) != std::string::npos; }

  void add(std::string_view file, const std::vector<std::pair<std::string_view, Value>>& values) {
    const Table& table = *findTableOfFile(file);
    if (!keepsOnServer(folder.path()) && !FileExists(path(file))) {
      ASSERT_TRUE(createDatabase(path(file), table).ok());
    }
    const auto engine = openEngine(path(file));
    ASSERT_TRUE(engine.ok()) << troubleOf(engine);
    const Table& real = **(*engine)->table(findTable(table.name)->name);
    Row row(real.columns.size());
    for (const auto& [column, value] : values)
      row[real.position(column)] = value;
    const auto added = (*engine)->insert(real, row);
    ASSERT_TRUE(added.ok()) << troubleOf(added);
  }

  /// Something of each kind that a column may hold, and what has been there and went.
  void fillOffice() {
    addInspections(700);
    add("db1.mdb", {{"PERMIT", ""}, {"OWNNAME1", Value()}, {"NOTES", ""}});
    add("db1.mdb", {{"PERMIT", "25-1"}, {"VD3", Date{2026, 3, 9}}, {"FILEFEE", 60.1}, {"APPXCOST", -0.0}});
    add("db1.mdb", {{"PERMIT", "25-2"}, {"TSTAMP", DateTime{{2026, 3, 9}, 86399}}, {"VD4", Date{100, 1, 1}}});
    add("db1.mdb", {{"PERMIT", "25-3"}, {"NOTES", std::string(200000, 'n') + "\r\n\t\\N \\. 'é' \U0001F3E0"}});
    add("db1.mdb", {{"PERMIT", "Désir"}, {"FILEFEE", 1e300}, {"COFEE", 0.1 + 0.2}, {"VD5", Date{9999, 12, 31}}});
    for (const int number : {5, 900, 12})
      add("fdb.mdb", {{"FSEQ", number}, {"FSBL", "12-0-0-3"}});
    ASSERT_TRUE(createDatabase(path("sbl.mdb"), extendedParcelTable()).ok());
    add("sbl.mdb", {{"SBLF", "12-0-0-3"}, {"MAILING", "PO Box 1"}, {"VIOL", 1}});
    add("rps.mdb", {{"RSBLF", "12-0-0-3"}});
    add("db5.mdb", {{"RECNO", Value()}, {"NOTES", "first"}});
    add("db5.mdb", {{"RECNO", Value()}, {"NOTES", "second"}});
  }
  void addInspections(int count) {
    const Table& table = *findTable("INSPDTL");
    ASSERT_TRUE(createDatabase(path(table.file), table).ok());
    const std::size_t notes[] = {table.position("NOTES")};
    const auto stored = (*openEngine(path(table.file)))->insertMany(table, notes, [&](std::vector<Value>& row) {
      row = {std::to_string(count)};
      return count-- > 0;
    });
    ASSERT_TRUE(stored.ok()) << troubleOf(stored);
  }
  /// Works on a file as another program would.
  void elsewhere(const std::string& file, const std::string& sql) {
    const auto database = sqlite::Database::open(path(file), sqlite::Database::Mode::ReadWrite);
    const auto done = (*database)->execute(sql);
    ASSERT_TRUE(done.ok()) << troubleOf(done);
  }

  Contents contents() {
    Contents all;
    for (const Table& table : catalogue())
      if (keepsOnServer(folder.path()) || FileExists(path(table.file)))
        if (auto rows = rowsOf(table); !rows.empty())
          all[std::string(table.name)] = std::move(rows);
    return all;
  }
  std::vector<Row> rowsOf(const Table& table) { return rowsOf(table, folder.path()); }
  static std::vector<Row> rowsOf(const Table& table, const std::string& office) {
    std::vector<Row> rows;
    const auto engine = openEngine(joinPath(office, table.file));
    EXPECT_TRUE(engine.ok()) << troubleOf(engine);
    const auto reader = (*engine)->everyRow(**(*engine)->table(table.name));
    EXPECT_TRUE(reader.ok()) << troubleOf(reader);
    Row row;
    for (auto more = (*reader)->next(row); more.valueOr(false); more = (*reader)->next(row))
      rows.push_back(row);
    return rows;
  }

  std::string schemas() {
    return server().elsewhere(
        "select string_agg(nspname, ' ' order by nspname) from pg_namespace where nspname like "
        "'zelvo%'");
  }

  /// As the message of a move asks for, when it finds what one that was broken off left.
  void clearUp() {
    if (!keepsOnServer(folder.path()))
      std::filesystem::remove(path("schema.txt"));
    else
      for (const std::string& file : officeFilesIn(folder.path()).ours)
        std::filesystem::remove(path(file));
  }

  TempFolder folder;
  std::string told;
  int moves_ = 10;
};

TEST_F(Move, ThereAndBackKeepsEveryValue) {
  fillOffice();
  folder.write("old.mdb", "of some other program");
  folder.write("sblversion.txt", "18");
  const Contents before = contents();
  ASSERT_GT(before.size(), 5u);

  const auto there = toServer();
  ASSERT_TRUE(there.ok()) << troubleOf(there);
  EXPECT_TRUE(tells("BLDGPERM: 5 rows of db1.mdb copied and compared.")) << told;
  EXPECT_TRUE(tells("old.mdb is none")) << told;
  EXPECT_EQ(listFiles(folder.path(), "*.mdb"), std::vector<std::string>{"old.mdb"});
  EXPECT_EQ(listFiles(path("moved-20260309-143010"), "*.mdb").size(), 6u);
  EXPECT_TRUE(contents() == before);
  EXPECT_FALSE(toServer().ok()) << "it is there";

  add("fdb.mdb", {{"FSBL", "new"}});
  EXPECT_EQ(rowsOf(*findTable("FPARCEL")).back()[0], Value(901)) << "numbers go on behind those given";
  const Contents grown = contents();
  told.clear();
  const auto back = toFiles();
  ASSERT_TRUE(back.ok()) << troubleOf(back);
  EXPECT_TRUE(tells("FPARCEL: 4 rows copied to fdb.mdb and compared.")) << told;
  EXPECT_TRUE(tells("stay as they are in the schema zelvo_")) << told;
  EXPECT_FALSE(keepsOnServer(folder.path()));
  EXPECT_TRUE(contents() == grown);
  EXPECT_FALSE(toFiles().ok()) << "it is there";

  testing::ScriptedDesk user;
  user.session.dataFolder = folder.path();
  user.session.programFolder = path("program");
  EXPECT_TRUE(resolveDataFolder(user.desk).ok()) << "and start-up misses nothing";
  EXPECT_EQ(user.session.dataFolder, folder.path());

  const auto again = toServer();
  EXPECT_TRUE(again.ok()) << "into a schema of its own: " << troubleOf(again);
  EXPECT_TRUE(contents() == grown);
}

TEST_F(Move, WhatWouldNotComeOutAsItWasStaysWhereItIs) {
  const struct {
    std::string_view what;
    std::string file, sql;
    std::string_view says;
  } cases[] = {
      {"a text too long", "db1.mdb", "update BLDGPERM set UNITNO = 'much too long' where PERMIT = '25-2'",
       "(PERMIT \"25-2\") UNITNO is \"much too long\""},
      {"no date", "db1.mdb", "update BLDGPERM set VD3 = 'soon' where PERMIT = '25-2'", "VD3"},
      {"a key twice but for an accent's case", "db1.mdb", "insert into BLDGPERM (PERMIT) values ('DÉSIR')",
       "is there already"},
      {"no number", "db5.mdb", "update VIOLDATA set DTEFU = 'x'", "DTEFU"},
  };
  fillOffice();
  const std::string before = schemas();
  for (const auto& row : cases) {
    const std::string kept = folder.read(row.file);
    elsewhere(row.file, row.sql);
    const auto moved = toServer();
    ASSERT_FALSE(moved.ok()) << row.what;
    EXPECT_NE(moved.error().message.find(row.says), std::string::npos) << row.what << ": " << moved.error().message;
    EXPECT_EQ(listFiles(folder.path(), "*.txt").size(), 0u) << row.what;
    EXPECT_EQ(listFiles(folder.path(), "*.mdb").size(), 6u) << row.what;
    EXPECT_EQ(schemas(), before) << row.what;
    folder.write(row.file, kept);
  }
  EXPECT_TRUE(toServer().ok());
}

TEST_F(Move, IsRefusedWhereItWouldBeHalf) {
  EXPECT_EQ(toServer().error().trouble, Trouble::NotFound) << "a folder without databases";
  fillOffice();
  const Contents before = contents();
  const auto refused = [&](const Result<void>& moved, std::string_view says) {
    EXPECT_FALSE(moved.ok()) << says;
    EXPECT_NE(troubleOf(moved).find(says), std::string::npos) << troubleOf(moved);
    EXPECT_FALSE(keepsOnServer(folder.path())) << says;
  };
  refused(moveToServer(path("nowhere"), server().line(), stamp(), report()), "no such data folder");
  refused(moveToServer(folder.path(), " ", stamp(), report()), "how to reach the server");
  refused(moveToServer(folder.path(), "my secret server", stamp(), report()), "cannot be understood");
  refused(moveToServer(folder.path(), "host=127.0.0.1 port=1", stamp(), report()), "could not be reached");
  refused(toFiles(), "does not work on a server");
  folder.write("db3.mdb", std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4000, 'x'));
  refused(toServer(), "old database engine");
  std::filesystem::remove(path("db3.mdb"));
  EXPECT_FALSE(FileExists(path("schema.txt"))) << "and a name that was made up is forgotten";

  folder.write("schema.txt", "theirs");
  server().elsewhere("drop schema if exists theirs cascade");
  const TempFolder theirs;
  theirs.write("schema.txt", "theirs");
  theirs.write("server.txt", server().line());
  auto permits = Recordset::open(*Connection::open(connectionText(theirs.file("db1.mdb"))), "Select * from BLDGPERM");
  (*permits)->AddNew();
  ASSERT_TRUE((*permits)->Update().ok());
  refused(toServer(), "has rows already");
  ASSERT_TRUE((*permits)->Delete().ok());
  EXPECT_TRUE(contents() == before);
  EXPECT_TRUE(toServer().ok()) << "into tables that are there and empty";

  folder.write("db7.mdb", "left behind");
  EXPECT_EQ(toFiles().error().trouble, Trouble::Duplicate);
  EXPECT_TRUE(keepsOnServer(folder.path()));
  EXPECT_EQ(folder.read("db7.mdb"), "left behind");
  EXPECT_TRUE(contents() == before);
}

/// What a clerk does with a screen that was opened before the office moved.
struct OpenScreen {
  explicit OpenScreen(const std::string& path)
      : opened(
            Recordset::open(*Connection::open(connectionText(path)), "Select * from BLDGPERM where [PERMIT] = '25-1'")),
        records(opened->get()) {
    records->set("OWNNAME1", "Jones");
  }
  Result<std::unique_ptr<Recordset>> opened;
  Recordset* records;
};

TEST_F(Move, NobodyStoresWhatTheMoveWouldLose) {
  fillOffice();
  const auto anotherMayStore = [&] {
    const auto engine = openEngine(path("db1.mdb"), 20ms);
    return (*engine)->begin().ok();
  };
  for (const bool there : {true, false}) {
    OpenScreen screen(path("db1.mdb"));
    std::string stored;
    const MoveReport report = [&](const std::string& line) {
      if (line.starts_with("BLDGPERM"))
        stored = anotherMayStore() ? "stored" : "waited";
    };
    const auto moved = there ? moveToServer(folder.path(), server().line(), stamp(), report)
                             : moveToFiles(folder.path(), stamp(), report);
    ASSERT_TRUE(moved.ok()) << troubleOf(moved);
    EXPECT_EQ(stored, "waited");

    const auto late = screen.records->Update();
    ASSERT_FALSE(late.ok());
    EXPECT_NE(late.error().message.find("moved to another place"), std::string::npos) << troubleOf(late);
    EXPECT_EQ(screen.records->text("OWNNAME1"), "Jones") << "still typed";
    add("db1.mdb", {{"PERMIT", there ? "26-1" : "26-2"}});
  }
}

TEST_F(Move, RegistryOfARunningProgramGoesWithTheOffice) {
  fillOffice();
  Session session;
  session.dataFolder = folder.path();
  mdb parcels(session);
  EXPECT_TRUE(parcels.SBLExists("12-0-0-3").valueOr(false));
  ASSERT_TRUE(toServer().ok());
  add("sbl.mdb", {{"SBLF", "1-0-0"}});
  EXPECT_TRUE(parcels.SBLExists("1-0-0").valueOr(false));
  ASSERT_TRUE(toFiles().ok());
  EXPECT_TRUE(parcels.SBLSetViol().ok()) << "on the row that it was moved to";
  EXPECT_TRUE(parcels.SBLAdd("2-0-0", "", "", "", "").ok());
  EXPECT_EQ(rowsOf(*findTable("SBL")).size(), 3u);
  EXPECT_TRUE(parcels.SBLExists("1-0-0").valueOr(false) && parcels.SBLHasViol());
}

/// Moves the office in a process of its own, which is switched off some time after it has told of so many lines.
void switchOffAfter(int lines, int microseconds, const std::function<Result<void>(const MoveReport&)>& move) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const pid_t mover = ::fork();
  if (mover == 0) {
    const auto moved = move([&](const std::string&) { (void)!::write(ends[1], "", 1); });
    ::_exit(moved.ok() ? 0 : 1);
  }
  ::close(ends[1]);
  for (char line = 0; lines > 0 && ::read(ends[0], &line, 1) == 1; --lines) {
  }
  std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
  ::kill(mover, SIGKILL);
  int status = 0;
  ::waitpid(mover, &status, 0);
  ::close(ends[0]);
  EXPECT_TRUE(WIFSIGNALED(status) || status == 0) << "refused";
}

TEST_F(Move, ComputerSwitchedOffLeavesTheOfficeHereOrThere) {
  fillOffice();
  const Contents before = contents();
  std::mt19937 random(20260309);
  int arrived = 0;
  for (int round = 0; round < 36; ++round) {
    const bool there = !keepsOnServer(folder.path());
    switchOffAfter(round * 7 % 18, static_cast<int>(random() % 30000), [&](const MoveReport& tell) {
      return there ? moveToServer(folder.path(), server().line(), stamp(), tell)
                   : moveToFiles(folder.path(), stamp(), tell);
    });
    arrived += keepsOnServer(folder.path()) == there ? 1 : 0;
    ASSERT_TRUE(contents() == before) << "round " << round;
    clearUp();
    moves_ += 1;
  }
  EXPECT_GE(arrived, 2);
}

TEST_F(Move, ServerThatGoesAwayLeavesTheOfficeWhereItWas) {
  fillOffice();
  const Contents before = contents();
  const MoveReport pull = [](const std::string& line) {
    if (line.starts_with("FPARCEL"))
      server().stop();
  };
  const auto moved = moveToServer(folder.path(), server().line(), stamp(), pull);
  EXPECT_FALSE(moved.ok());
  EXPECT_FALSE(keepsOnServer(folder.path()));
  EXPECT_TRUE(contents() == before);
  server().start();
  ASSERT_TRUE(toServer().ok());

  const auto back = moveToFiles(folder.path(), stamp(), pull);
  EXPECT_FALSE(back.ok());
  server().start();
  EXPECT_TRUE(listFiles(folder.path(), "*.mdb").empty());
  EXPECT_TRUE(contents() == before);
}

TEST_F(Move, ServersDatabaseIsSavedIntoAFile) {
  fillOffice();
  const auto permits = rowsOf(*findTable("BLDGPERM")), parcels = rowsOf(*findTable("SBL"));
  ASSERT_TRUE(toServer().ok());
  const TempFolder backup;
  for (const auto* file : {"db1.mdb", "sbl.mdb", "db4.mdb"}) {
    const auto saved = copyDatabase(path(file), backup.file(file));
    ASSERT_TRUE(saved.ok()) << troubleOf(saved);
  }
  EXPECT_EQ(copyDatabase(path("db1.mdb"), backup.file("db1.mdb")).error().trouble, Trouble::Duplicate);
  EXPECT_EQ(copyDatabase(backup.file("db1.mdb"), path("db1.mdb")).error().trouble, Trouble::BadInput);
  EXPECT_TRUE(rowsOf(*findTable("BLDGPERM"), backup.path()) == permits);
  EXPECT_TRUE(rowsOf(*findTable("SBL"), backup.path()) == parcels);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(backup.path()), {}), 3);
}

}  // namespace
}  // namespace zelvo
