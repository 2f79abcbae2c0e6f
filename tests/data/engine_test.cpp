#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <random>

#include "base/files.h"
#include "data/sqlite/schema.h"
#include "data/sqlite/sqlite_engine.h"
#include "small_office.h"

namespace zelvo {
namespace {

using namespace std::string_literals;
using namespace std::chrono_literals;

class EngineTest : public SmallOffice {
 protected:
  /// Works on a file as another program would.
  void elsewhere(const std::string& file, const std::string& sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(folder.file(file).c_str(), &database), SQLITE_OK);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK) << message;
    sqlite3_close(database);
  }
  Error refusal(const std::string& file) {
    const auto opened = Connection::open(connectionText(folder.file(file)));
    return opened.ok() ? Error{Trouble::Failed, "was opened"} : opened.error();
  }
  /// Whether another process can begin to write.
  bool anotherMayWrite(const std::string& file) {
    const pid_t child = ::fork();
    if (child == 0) {
      const auto engine = sqlite::openEngine(folder.file(file), 20ms);
      ::_exit(engine.ok() && (*engine)->begin().ok() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0;
  }
};

/// What an order of any column is held against: the engine's own sorting, one column more in the statement.
TEST_F(EngineTest, RowsAreSortedAsTheEngineItselfWould) {
  const auto connection = connect();
  std::minstd_rand random(7);
  const std::string parts[] = {"",         "a", "Hollis &", " Daughters", "hollis & d", "\xC3\x89mile",
                               "\xC3\xA9", "z", "-",        "Z"};
  std::size_t left = 3000;
  const std::vector<std::string_view> columns = {"PERMIT", "OWNNAME1", "NOTES", "APPXCOST", "VD4"};
  ASSERT_TRUE(bulkInsert(*connection, *findTable("BLDGPERM"), columns, [&](std::vector<Value>& values) {
                const auto part = [&] { return parts[random() % std::size(parts)]; };
                const bool none = random() % 9 == 0;
                values[0] = "26-" + std::to_string(left);
                values[1] = none ? Value() : Value(part() + part() + part());
                values[2] = part() + std::string(random() % 3 * 40, 'x') + part();
                values[3] = none ? Value() : Value((static_cast<double>(random() % 2000) - 1000) / 7);
                values[4] = none ? Value() : Value(DateTime{{2026, 1 + static_cast<int>(random() % 12), 1}, 0});
                return left-- > 0;
              }).ok());
  auto database = sqlite::Database::open(folder.file("db1.mdb"), sqlite::Database::Mode::ReadOnly);
  for (const std::string column : {"OWNNAME1", "NOTES", "APPXCOST", "VD4"})
    for (const std::string order : {"", " desc"}) {
      const bool isText = column == "OWNNAME1" || column == "NOTES";
      const auto expected =
          (*database)->ask("select group_concat(rowid) from (select rowid from BLDGPERM order by " +
                           (isText ? "zfold(" + column + ")" : "+" + column) + order + ", rowid" + order + ")");
      std::vector<std::string> rows;
      const auto sorted = connection->engine().select("Select * from BLDGPERM order by " + column + order);
      for (const RowId row : sorted->rows)
        rows.push_back(std::to_string(row));
      EXPECT_EQ(join(rows, ","), *expected) << column << order;
    }
}

TEST_F(EngineTest, TellsWhatAFileIsInsteadOfADatabase) {
  folder.write("empty.mdb", "");
  folder.write("jet.mdb", "\0\1\0\0Standard Jet DB\0"s + std::string(4000, 'x'));
  folder.write("ace.mdb", "\0\1\0\0Standard ACE DB\0"s + std::string(4000, 'x'));
  folder.write("letter.mdb", "Dear Mr. Smith,\r\n" + std::string(4000, ' '));
  folder.write("short.mdb", "xy");
  folder.write("torn.mdb", "SQLite format 3\0"s + std::string(9000, '\7'));
  folder.write("sub/x", "");
  elsewhere("music.mdb", "create table songs (name text)");
  elsewhere("other.mdb", "create table BLDGPERM (PERMIT text); pragma application_id = 7");
  elsewhere("lacking.mdb", "create table BLDGPERM (PERMIT text)");
  connect("db2.mdb");
  elsewhere("db2.mdb", "pragma user_version = 2");
  const struct {
    std::string file;
    Trouble trouble;
    std::string_view says;
  } files[] = {
      {"none.mdb", Trouble::NotFound, "not there"},
      {"sub", Trouble::BadInput, "folder"},
      {"empty.mdb", Trouble::NotOurs, "it is empty"},
      {"jet.mdb", Trouble::NotOurs, "old database engine"},
      {"ace.mdb", Trouble::NotOurs, "old database engine"},
      {"letter.mdb", Trouble::NotOurs, "it is no database"},
      {"short.mdb", Trouble::NotOurs, "it is no database"},
      {"torn.mdb", Trouble::NotOurs, "it is no database"},
      {"music.mdb", Trouble::NotOurs, "none of the office's tables"},
      {"other.mdb", Trouble::NotOurs, "another program"},
      {"lacking.mdb", Trouble::NotOurs, "lacks the column JOB"},
      {"db2.mdb", Trouble::NotOurs, "Update the program"},
  };
  for (const auto& file : files) {
    const Error error = refusal(file.file);
    EXPECT_EQ(error.trouble, file.trouble) << file.file << ": " << error.message;
    EXPECT_NE(error.message.find(file.says), std::string::npos) << file.file << ": " << error.message;
    EXPECT_NE(error.message.find(folder.file(file.file)), std::string::npos) << error.message;
  }
}

TEST_F(EngineTest, OldParcelTableIsKnownUnderAnyName) {
  ASSERT_TRUE(createDatabase(folder.file("old.mdb"), *findTable("SBL")).ok());
  EXPECT_EQ((*connect("old.mdb")->table("sbl"))->columns.size(), 13u);
  EXPECT_EQ(connect("old.mdb")->table("BLDGPERM").error().trouble, Trouble::NotFound);
}

TEST_F(EngineTest, MakesNoDatabaseOverAFile) {
  addPermit(*permits(connect()), "25-1");
  EXPECT_EQ(createDatabase(folder.file("db1.mdb"), *findTable("BLDGPERM")).error().trouble, Trouble::Duplicate);
  EXPECT_EQ(createDatabase(folder.file("no/db1.mdb"), *findTable("BLDGPERM")).error().trouble, Trouble::NotFound);
  EXPECT_EQ(copyDatabase(folder.file("no.mdb"), folder.file("copy.mdb")).error().trouble, Trouble::NotFound);
  ASSERT_TRUE(copyDatabase(folder.file("db1.mdb"), folder.file("copy.mdb")).ok());
  EXPECT_EQ(copyDatabase(folder.file("db1.mdb"), folder.file("copy.mdb")).error().trouble, Trouble::Duplicate);
  EXPECT_EQ(permits(connect("copy.mdb"))->text("PERMIT"), "25-1");
  const std::vector<std::string> whole = {"copy.mdb", "db1.mdb", "db1.mdb-journal"};
  EXPECT_EQ(listFiles(folder.path(), "*"), whole) << "a copy has no journal until records are stored in it";
}

TEST_F(EngineTest, ReadOnlyFileIsReadAndNotWritten) {
  addPermit(*permits(connect()), "25-1");
  ASSERT_EQ(::chmod(folder.file("db1.mdb").c_str(), 0444), 0);
  const auto connection = connect();
  auto records = permits(connection);
  EXPECT_EQ(records->text("PERMIT"), "25-1");
  records->set("OWNNAME1", "Jones");
  const auto stored = records->Update();
  ASSERT_FALSE(stored.ok());
  EXPECT_EQ(stored.error().trouble, Trouble::ReadOnly) << stored.error().message;
  EXPECT_EQ(records->text("OWNNAME1"), "Jones") << "still typed";
  EXPECT_EQ(connection->begin().error().trouble, Trouble::ReadOnly);
}

TEST_F(EngineTest, WriteAheadFileIsSetBackForTheSharedFolder) {
  addPermit(*permits(connect()), "25-1");
  elsewhere("db1.mdb", "pragma journal_mode = wal; update BLDGPERM set OWNNAME1 = 'Jones'");
  EXPECT_EQ(permits(connect())->text("OWNNAME1"), "Jones");
  EXPECT_EQ(folder.read("db1.mdb")[18], '\1') << "a journal that is rolled back";

  elsewhere("db1.mdb", "pragma journal_mode = wal");
  ASSERT_EQ(::chmod(folder.file("db1.mdb").c_str(), 0444), 0);
  EXPECT_EQ(refusal("db1.mdb").trouble, Trouble::Busy);
}

TEST_F(EngineTest, OtherProgramsMayRemoveTheJournalWhileAScreenIsOpen) {
  const auto connection = connect();
  addPermit(*permits(connection), "25-1");
  EXPECT_TRUE(FileExists(folder.file("db1.mdb-journal"))) << "it is kept, to be written over";
  elsewhere("db1.mdb", "update BLDGPERM set OWNNAME1 = 'Jones'");
  EXPECT_FALSE(FileExists(folder.file("db1.mdb-journal")));
  addPermit(*permits(connection), "25-2");
  EXPECT_EQ(permits(connect())->RecordCount(), 2u);
}

TEST_F(EngineTest, SecondScreenOnAFileKeepsTheLockOfTheFirst) {
  const auto connection = connect();
  auto transaction = connection->begin();
  addPermit(*permits(connection), "25-1");
  EXPECT_TRUE(connect().get()) << "opened and closed again";
  EXPECT_TRUE(FileExists(folder.file("db1.mdb")));
  ASSERT_TRUE(copyDatabase(folder.file("db1.mdb"), folder.file("copy.mdb")).ok());
  EXPECT_FALSE(anotherMayWrite("db1.mdb"));
  ASSERT_TRUE(transaction->commit().ok());
  EXPECT_TRUE(anotherMayWrite("db1.mdb"));
  EXPECT_EQ(permits(connect("copy.mdb"))->RecordCount(), 0u) << "a copy holds what is stored, not what is under way";
}

/// An engine with a hand on its database, to make the store fail at will.
struct FailingStore {
  explicit FailingStore(const std::string& path) {
    auto opened = sqlite::Database::open(path, sqlite::Database::Mode::ReadWrite);
    database = opened->get();
    auto tables = sqlite::tablesOf(*database);
    table = tables->front();
    engine = std::make_unique<sqlite::SqliteEngine>(std::move(*opened), *tables);
  }
  Result<RowId> add(std::size_t notes) {
    Row row(table->columns.size());
    row[table->position("NOTES")] = std::string(notes, 'n');
    return engine->insert(*table, row);
  }
  std::size_t count() { return engine->select("Select * from BLDGPERM")->rows.size(); }

  sqlite::Database* database;
  const Table* table;
  std::unique_ptr<sqlite::SqliteEngine> engine;
};

TEST_F(EngineTest, FullDiskGivesUpTheWholeTransaction) {
  connect();
  FailingStore store(folder.file("db1.mdb"));
  const auto pages = store.database->ask("pragma page_count");
  ASSERT_TRUE(store.database->execute("pragma max_page_count = " + *pages).ok());
  ASSERT_TRUE(store.engine->begin().ok());
  EXPECT_TRUE(store.add(10).ok());
  EXPECT_EQ(store.add(50000).error().trouble, Trouble::Full);
  EXPECT_FALSE(store.add(10).ok()) << "the end of a transaction is not stored without its beginning";
  EXPECT_FALSE(store.engine->commit().ok());
  EXPECT_EQ(store.count(), 0u);
  EXPECT_TRUE(store.add(10).ok()) << "and what comes later is stored again";
  EXPECT_EQ(store.add(50000).error().trouble, Trouble::Full);
  EXPECT_EQ(store.count(), 1u);
}

TEST_F(EngineTest, FilesAreOurOwnAndReadableByOthers) {
  connect();
  auto database = sqlite::Database::open(folder.file("db1.mdb"), sqlite::Database::Mode::ReadWrite);
  ASSERT_TRUE(database.ok());
  const struct {
    std::string question, answer;
  } facts[] = {
      {"pragma application_id", std::to_string(sqlite::applicationMark)},
      {"pragma user_version", "1"},
      {"pragma page_size", "8192"},
      {"pragma journal_mode", "delete"},
      {"pragma synchronous", "3"},
      {"select count(*) from sqlite_master where type = 'index'", "2"},
      {"pragma integrity_check", "ok"},
  };
  for (const auto& fact : facts)
    EXPECT_EQ((*database)->ask(fact.question).valueOr("error"), fact.answer) << fact.question;
}

TEST_F(EngineTest, LooksKeysAndParcelsUpByIndex) {
  connect();
  auto database = sqlite::Database::open(folder.file("db1.mdb"), sqlite::Database::Mode::ReadWrite);
  for (const std::string where : {"\"PERMIT\" = '25-1'", "\"SEC\" = '12' and \"BLK\" = '3'"}) {
    auto plan = (*database)->prepare("explain query plan select rowid from BLDGPERM where " + where);
    ASSERT_TRUE(plan.ok());
    ASSERT_EQ(plan->step(), SQLITE_ROW);
    EXPECT_NE(plan->text(3).find("USING COVERING INDEX"), std::string::npos) << plan->text(3);
  }
}

}  // namespace
}  // namespace zelvo
