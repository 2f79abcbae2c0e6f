// What is the server's own: how the office's dialect is answered there, how a folder finds its server, and what becomes
// of the office's work when the server goes away.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <thread>

#include "base/files.h"
#include "data/computers.h"
#include "data/data_folder.h"
#include "data/dialect_cases.h"
#include "data/postgres/postgres_engine.h"
#include "data/small_office.h"
#include "support/scripted_desk.h"
#include "test_server.h"

namespace zelvo {
namespace {

class ServerTest : public SmallOffice {
 protected:
  TestServer& server() { return TestServer::instance(); }
  std::string schema() { return serverPlace(folder.path())->schema; }
  Error refusal() { return Connection::open(connectionText(folder.file("db1.mdb"))).error(); }
};

/// Six permits, as the tests of the dialect have them.
class ServerDialect : public ServerTest {
 protected:
  void SetUp() override {
    ServerTest::SetUp();
    if (!IsSkipped())
      fill();
  }
  void fill() {
    ASSERT_TRUE(createDatabase(folder.file("db1.mdb"), dialect::permits).ok());
    auto place = serverPlace(folder.path());
    auto opened = std::make_unique<postgres::Server>(folder.file("db1.mdb"), *place, usualPatience);
    ASSERT_TRUE(opened->connect().ok());
    engine = std::make_unique<postgres::PostgresEngine>(std::move(opened), &dialect::permits);
    const Row rows[] = {
        {"25-1", "O'Brien, Ann", "3", 60, 1, Date{2025, 3, 9}, "Garage"},
        {"25-2", "smith, john", "03", 100.5, 0, DateTime{{2025, 3, 9}, 36900}, "deck, 100% wood"},
        {"25-3", "DÉSIR", " 3.0", 0, {}, Date{1999, 12, 31}, ""},
        {"25-10", "Désirée", "x", {}, 2, {}, {}},
        {"A-5", {}, "", -3.2, 0, Date{2025, 12, 31}, "[draft] pool_house"},
        {"a-6", "étienne", {}, 7, 0, Date{2026, 1, 1}, "see 12/31/2025"},
    };
    for (const Row& row : rows)
      ASSERT_TRUE(engine->insert(dialect::permits, row).ok());
  }

  std::string found(const std::string& query) {
    const auto keys = engine->select(query);
    if (!keys)
      return "trouble: " + keys.error().message;
    const auto rows = engine->rows(dialect::permits, keys->rows);
    if (!rows)
      return "trouble: " + rows.error().message;
    std::string numbers;
    for (const Row& row : *rows)
      numbers += (numbers.empty() ? "" : " ") + row[0].text();
    return numbers;
  }
  std::string where(const std::string& condition) { return found("Select * from BLDGPERM where " + condition); }

  std::unique_ptr<Engine> engine;
};

TEST_F(ServerDialect, SelectsWhatAConditionSays) {
  for (const dialect::Case& row : dialect::conditionCases)
    EXPECT_EQ(where(row.query), row.permits) << row.query;
}

TEST_F(ServerDialect, OrdersAndComparesAccentsAsADictionaryDoes) {
  const dialect::Case cases[] = {
      {"Select * from BLDGPERM where [OWNER] > 'É'", "25-1 25-2 a-6"},
      {"Select * from BLDGPERM", "25-1 25-2 25-3 25-10 A-5 a-6"},
      {"select*from bldgperm order by PERMIT desc", "a-6 A-5 25-3 25-2 25-10 25-1"},
      {"select * from BLDGPERM order by OWNER", "A-5 25-3 25-10 a-6 25-1 25-2"},
      {"select * from BLDGPERM order by FLAG desc, FEE", "25-10 25-1 A-5 a-6 25-2 25-3"},
      {"select * from BLDGPERM where [OWNER] like '%s%' order by [PERMIT]", "25-10 25-2 25-3"},
  };
  for (const dialect::Case& row : cases)
    EXPECT_EQ(found(row.query), row.permits) << row.query;
}

TEST_F(ServerDialect, TextsThatAreDatesOrNumbersCountAsSuch) {
  const struct {
    const char* text;
    const char* condition;
    bool answers;
  } texts[] = {
      {"3/9/29", "[NOTES] = #03/09/2029#", true},
      {"3-9-1930", "[NOTES] = #03/09/30#", true},
      {"March 9, 2025", "[NOTES] = #03/09/2025#", true},
      {"2025-03-09 10:15:00", "[NOTES] > #03/09/2025#", true},
      {"3/9/2025 10:15 PM", "[NOTES] > #03/09/2025#", true},
      {"2/30/2025", "[NOTES] > #01/01/1900#", false},
      {"now", "[NOTES] > #01/01/1900#", false},
      {" +1.5d1 ", "[NOTES] = 15", true},
      {"1e999", "[NOTES] > 0", false},
      {"12abc", "[NOTES] = 12", false},
      {"NaN", "[NOTES] > 0", false},
  };
  const Row none(dialect::permits.columns.size());
  for (const auto& row : texts) {
    Row typed = none;
    typed[6] = row.text;
    const auto id = engine->insert(dialect::permits, typed);
    ASSERT_TRUE(id.ok());
    const auto answer = engine->exists(dialect::permits, "[PERMIT] is null and " + std::string(row.condition));
    ASSERT_TRUE(answer.ok()) << row.text << ": " << troubleOf(answer);
    EXPECT_EQ(*answer, row.answers) << row.text << " " << row.condition;
    ASSERT_TRUE(engine->remove(dialect::permits, *id, typed).ok());
  }
}

TEST_F(ServerDialect, AnyPatternIsAnswered) {
  constexpr std::string_view pieces[] = {"[", "]", "!", "-", "%", "_",  "\\", "^", "$", ".",        "*",   "(",
                                         ")", "{", "a", "Z", "1", "''", " ",  "|", "+", "\xC3\x89", "\xFF"};
  std::mt19937 dice(20250309);
  for (int i = 0; i < 1500; ++i) {
    std::string condition = "[NOTES] like '";
    for (std::size_t count = dice() % 9; count > 0; --count)
      condition += pieces[dice() % std::size(pieces)];
    EXPECT_EQ(where(condition + "'").find("trouble"), std::string::npos) << condition << "\n" << where(condition + "'");
  }
}

TEST_F(ServerTest, EachFolderHasASchemaOfItsOwn) {
  addPermit(*permits(connect()), "25-1");
  const TempFolder other, sameOffice;
  for (const TempFolder* copy : {&other, &sameOffice})
    copy->write("server.txt", server().line());
  sameOffice.write("schema.txt", folder.read("schema.txt"));
  const auto count = [](const TempFolder& office) {
    return permits(*Connection::open(connectionText(office.file("db1.mdb"))))->RecordCount();
  };
  EXPECT_EQ(count(folder), 1u);
  EXPECT_EQ(count(other), 0u);
  EXPECT_EQ(count(sameOffice), 1u);
  EXPECT_EQ(listFiles(folder.path(), "*.mdb").size(), 0u);
}

TEST_F(ServerTest, ComputersThatComeAtOnceMakeOneTable) {
  std::vector<Computer> computers;
  for (int i = 0; i < 6; ++i)
    computers.push_back(startAdding(folder.file("db1.mdb"), 5));
  for (const Computer& computer : computers) {
    EXPECT_EQ(acknowledged(computer).size(), 5u);
    EXPECT_EQ(ended(computer), 0);
  }
  EXPECT_EQ(storedNumbers(*permits(connect())).size(), 30u);
}

TEST_F(ServerTest, ServerWhosePlugIsPulledLosesNothingAcknowledged) {
  std::set<std::int32_t> all;
  for (int round = 0; round < 5; ++round) {
    const Computer computer = startAdding(folder.file("db1.mdb"), 1 << 20);
    for (const std::int32_t number : nextAcknowledged(computer, 3))
      all.insert(number);
    std::this_thread::sleep_for(std::chrono::microseconds(700 * round));
    server().stop();
    server().start();
    ::kill(computer.process, SIGKILL);  // should it have found the server again
    for (const std::int32_t number : acknowledged(computer))
      all.insert(number);
    (void)ended(computer);
    const auto now = storedNumbers(*permits(connect()));
    ASSERT_TRUE(std::includes(now.begin(), now.end(), all.begin(), all.end())) << "a permit lost in round " << round;
    ASSERT_EQ(soundness(folder, "db1.mdb"), "ok") << "round " << round;
  }
  EXPECT_GE(all.size(), 15u);
}

TEST_F(ServerTest, UsesTheSchemaThatIsMadeForIt) {
  folder.write("schema.txt", "office_of_ours");
  server().elsewhere("drop role if exists keeper");
  server().elsewhere("create role keeper login; create schema office_of_ours authorization keeper");
  folder.write("server.txt", replaceAll(server().line(), "user=clerk", "user=keeper"));
  addPermit(*permits(connect()), "25-1");
  EXPECT_EQ(server().elsewhere("select \"PERMIT\" from office_of_ours.\"BLDGPERM\""), "25-1");
  server().elsewhere("drop schema office_of_ours cascade");
}

TEST_F(ServerTest, NumbersGivenUpAreNotGivenTwice) {
  const auto connection = connect("meeting.mdb");
  auto meetings = rows(connection, "Select * from MEETING");
  const auto add = [&](const Value& number) {
    meetings->AddNew();
    if (!number.isNull())
      meetings->set("RECNO", number);
    const auto stored = meetings->Update();
    EXPECT_TRUE(stored.ok()) << troubleOf(stored);
  };
  add(41);
  add({});
  {
    auto transaction = connection->begin();
    ASSERT_TRUE(meetings->Delete().ok());
    add(7);
  }
  meetings->CancelUpdate();
  add({});
  EXPECT_EQ(meetings->text("RECNO"), "43");
}

TEST_F(ServerTest, LineOfTheServerIsUnderstoodOrToldOf) {
  const struct {
    std::string line;
    Trouble trouble;
    std::string_view says;
  } lines[] = {
      {"", Trouble::BadInput, "names no server"},
      {"my secret server", Trouble::BadInput, "cannot be understood"},
      {"host=127.0.0.1 port=1 password=secret", Trouble::Failed, "could not be reached"},
      {replaceAll(server().line(), "dbname=postgres", "dbname=nosuch"), Trouble::Failed, "nosuch"},
  };
  for (const auto& row : lines) {
    folder.write("server.txt", row.line);
    const Error error = refusal();
    EXPECT_EQ(error.trouble, row.trouble) << error.message;
    EXPECT_NE(error.message.find(row.says), std::string::npos) << row.line << ": " << error.message;
    EXPECT_EQ(error.message.find("secret"), std::string::npos) << "a password is shown: " << error.message;
  }
  folder.write("server.txt", server().line());
  folder.write("schema.txt", "x\"; drop schema public");
  EXPECT_EQ(refusal().trouble, Trouble::BadInput);
}

TEST_F(ServerTest, HoldsEveryTableOfTheCatalogue) {
  for (const Table& table : catalogue()) {
    const auto opened = Connection::open(connectionText(folder.file(table.file)));
    ASSERT_TRUE(opened.ok()) << table.file << ": " << troubleOf(opened);
    auto records = rows(*opened, "Select * from " + std::string(table.name));
    EXPECT_EQ(records->fieldCount(), table.columns.size()) << table.name;
    records->AddNew();
    const auto stored = records->Update();
    EXPECT_TRUE(stored.ok()) << table.name << ": " << troubleOf(stored);
  }
}

TEST_F(ServerTest, StartUpMissesNoFiles) {
  testing::ScriptedDesk user;
  user.session.programFolder = folder.file("program");
  user.session.dataFolder = folder.path();
  EXPECT_TRUE(resolveDataFolder(user.desk).ok()) << "without a message";
  EXPECT_EQ(user.session.dataFolder, folder.path());
  EXPECT_EQ(ensureDatabase(user.session, "\\pbfees.mdb").valueOr(""), folder.file("pbfees.mdb"));
  EXPECT_FALSE(ensureDatabase(user.session, "db9.mdb").ok());
  folder.write("sblversion.txt", "18");
  const auto parcels = Connection::open(connectionText(folder.file("sbl.mdb")));
  ASSERT_TRUE(parcels.ok()) << troubleOf(parcels);
  EXPECT_EQ(rows(*parcels, "Select * from SBL")->fieldCount(), 18u);
  EXPECT_TRUE(listFiles(folder.path(), "*.mdb").empty());
}

TEST_F(ServerTest, WorkGoesOnWhenTheServerIsBack) {
  const auto connection = connect();
  auto records = permits(connection);
  addPermit(*records, "25-1");
  records->set("OWNNAME1", "Jones");
  server().stop();
  for (int attempt = 0; attempt < 2; ++attempt) {
    const auto stored = records->Update();
    ASSERT_FALSE(stored.ok());
    EXPECT_NE(stored.error().message.find("server"), std::string::npos) << stored.error().message;
    EXPECT_EQ(records->text("OWNNAME1"), "Jones") << "still typed";
  }
  EXPECT_FALSE(records->Find("[PERMIT] = '25-1'").ok());
  server().start();
  const auto stored = records->Update();
  EXPECT_TRUE(stored.ok()) << troubleOf(stored);
  EXPECT_EQ(permits(connection)->text("OWNNAME1"), "Jones");
}

TEST_F(ServerTest, TransactionThatLosesItsServerIsGivenUpWhole) {
  const auto connection = connect();
  auto records = permits(connection);
  auto transaction = connection->begin();
  addPermit(*records, "25-1");
  server().stop();
  server().start();
  records->AddNew();
  records->set("PERMIT", "25-2");
  EXPECT_FALSE(records->Update().ok());
  EXPECT_FALSE(records->Update().ok()) << "the end of a transaction is not stored without its beginning";
  EXPECT_FALSE(transaction->commit().ok());
  EXPECT_EQ(records->text("PERMIT"), "25-2") << "still typed";
  EXPECT_EQ(permits(connect())->RecordCount(), 0u);
  EXPECT_TRUE(records->Update().ok());
  EXPECT_EQ(permits(connect())->RecordCount(), 1u);
}

TEST_F(ServerTest, LossAtTheLastMomentIsToldAsSuch) {
  const auto connection = connect();
  auto records = permits(connection);
  auto transaction = connection->begin();
  addPermit(*records, "25-1");
  server().stop();
  const auto kept = transaction->commit();
  server().start();
  ASSERT_FALSE(kept.ok());
  EXPECT_NE(kept.error().message.find("may have kept"), std::string::npos) << kept.error().message;
  EXPECT_EQ(records->text("PERMIT"), "25-1") << "still typed";
  EXPECT_TRUE(records->Update().ok());
}

TEST_F(ServerTest, TroublesOfTheServerAreToldInTheOfficesWords) {
  const auto connection = connect();
  auto records = permits(connection);
  addPermit(*records, "25-1");
  server().elsewhere("drop role if exists guest");
  server().elsewhere("create role guest login; grant usage on schema " + schema() + " to guest; grant select on all " +
                     "tables in schema " + schema() + " to guest");
  folder.write("server.txt", replaceAll(server().line(), "user=clerk", "user=guest"));
  auto guest = permits(connect());
  EXPECT_EQ(guest->text("PERMIT"), "25-1");
  guest->set("OWNNAME1", "Jones");
  const auto stored = guest->Update();
  ASSERT_FALSE(stored.ok());
  EXPECT_EQ(stored.error().trouble, Trouble::ReadOnly) << stored.error().message;
  EXPECT_EQ(guest->text("OWNNAME1"), "Jones") << "still typed";
}

}  // namespace
}  // namespace zelvo
