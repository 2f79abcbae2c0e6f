// What holds of every store behind the door, whatever it is made of.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "data/engine.h"
#include "small_office.h"

namespace zelvo {
namespace {

using namespace std::chrono_literals;

class StoreTest : public SmallOffice {
 protected:
  /// Whether another process can begin to write.
  bool anotherMayWrite(const std::string& file) {
    const pid_t child = ::fork();
    if (child == 0) {
      const auto engine = openEngine(folder.file(file), 20ms);
      ::_exit(engine.ok() && (*engine)->begin().ok() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0;
  }
};

TEST_F(StoreTest, ConnectionTextMustNameADatabase) {
  for (const std::string_view text : {"", "PROVIDER=Microsoft.Jet.OLEDB.4.0;", "Data Source=;", "Data Source= "})
    EXPECT_EQ(Connection::open(text).error().trouble, Trouble::BadInput) << text;
  EXPECT_EQ(Connection::open(connectionText(folder.file("none.mdb"))).error().trouble, Trouble::NotFound);
  connect("db1.mdb");
  const std::string path = folder.file("DB1.MDB");
  for (const std::string& text : {"provider=x;DATA SOURCE=" + path, "Data Source=" + path + ";", connectionText(path)})
    EXPECT_TRUE(Connection::open(text).ok()) << text;
}

TEST_F(StoreTest, ParcelTableComesInTheLayoutItHas) {
  ASSERT_TRUE(createDatabase(folder.file("sbl.mdb"), extendedParcelTable()).ok());
  EXPECT_EQ((*connect("sbl.mdb")->table("SBL"))->columns.size(), 18u);
  EXPECT_EQ(rows(connect("sbl.mdb"), "Select * from SBL")->fieldCount(), 18u);
  EXPECT_EQ(connect("sbl.mdb")->table("BLDGPERM").error().trouble, Trouble::NotFound);
}

TEST_F(StoreTest, MakesNoDatabaseOverAnother) {
  addPermit(*permits(connect()), "25-1");
  EXPECT_EQ(createDatabase(folder.file("db1.mdb"), *findTable("BLDGPERM")).error().trouble, Trouble::Duplicate);
  EXPECT_EQ(permits(connect())->text("PERMIT"), "25-1");
}

TEST_F(StoreTest, LockedDatabaseIsToldAfterTheWait) {
  const auto connection = connect();
  const auto other = openEngine(folder.file("db1.mdb"), 30ms);
  ASSERT_TRUE(other.ok());
  const Table& table = **connection->table("BLDGPERM");
  auto transaction = connection->begin();
  const auto inserted = (*other)->insert(table, Row(table.columns.size()));
  ASSERT_FALSE(inserted.ok());
  EXPECT_EQ(inserted.error().trouble, Trouble::Busy);
  EXPECT_NE(inserted.error().message.find("locked"), std::string::npos) << inserted.error().message;
  EXPECT_TRUE((*other)->select("Select * from BLDGPERM").ok()) << "reading goes on";
  transaction->rollback();
  EXPECT_TRUE((*other)->insert(table, Row(table.columns.size())).ok());
}

TEST_F(StoreTest, SecondScreenKeepsTheLockOfTheFirst) {
  const auto connection = connect();
  auto transaction = connection->begin();
  addPermit(*permits(connection), "25-1");
  EXPECT_EQ(permits(connect())->RecordCount(), 0u) << "opened and closed again; what is under way is not seen";
  EXPECT_FALSE(anotherMayWrite("db1.mdb"));
  ASSERT_TRUE(transaction->commit().ok());
  EXPECT_TRUE(anotherMayWrite("db1.mdb"));
}

TEST_F(StoreTest, LookingAtRowsKeepsNobodyWaiting) {
  auto records = permits(connect());
  for (int i = 0; i < 300; ++i)
    addPermit(*records, std::to_string(i));
  auto looking = permits(connect());
  EXPECT_EQ(looking->text("PERMIT"), "0");
  looking->MoveLast();
  EXPECT_TRUE(*looking->Find("[PERMIT] = '99'"));
  EXPECT_TRUE(anotherMayWrite("db1.mdb"));
}

TEST_F(StoreTest, FailedChangeLeavesItsTransactionWhole) {
  const auto connection = connect();
  auto records = permits(connection);
  auto transaction = connection->begin();
  addPermit(*records, "25-1");
  records->AddNew();
  records->set("PERMIT", "25-1");
  EXPECT_EQ(records->Update().error().trouble, Trouble::Duplicate);
  EXPECT_TRUE(*connection->exists("BLDGPERM", "[PERMIT] = '25-1'"));
  EXPECT_FALSE(*connection->exists("BLDGPERM", "[PERMIT] = '25-2'"));
  records->set("PERMIT", "25-2");
  EXPECT_TRUE(records->Update().ok());
  ASSERT_TRUE(transaction->commit().ok());
  EXPECT_EQ(permits(connect())->RecordCount(), 2u);
}

TEST_F(StoreTest, WhatIsStoredInTwoDatabasesTogetherIsKeptTogether) {
  connect("db7.mdb");
  const auto connection = connect();
  for (const bool kept : {false, true}) {
    auto transaction = connection->begin({connectionText(folder.file("db7.mdb"))});
    ASSERT_TRUE(transaction.ok()) << troubleOf(transaction);
    addPermit(*permits(connection), "25-1");
    const auto insurance = rows(connection, "Select * from INSBASE");
    insurance->AddNew();
    insurance->set("RECNO", "25-1");
    EXPECT_TRUE(insurance->Update().ok());
    if (kept)
      EXPECT_EQ(troubleOf(transaction->commit()), "");
    else
      transaction->rollback();
    EXPECT_EQ(permits(connect())->RecordCount(), kept ? 1u : 0u);
    EXPECT_EQ(rows(connect("db7.mdb"), "Select * from INSBASE")->RecordCount(), kept ? 1u : 0u);
    EXPECT_FALSE(Recordset::open(connection, "Select * from INSBASE").ok()) << "only while they are stored together";
  }
}

TEST_F(StoreTest, ADatabaseThatIsNotThereKeepsNothingFromBeingStoredWithoutIt) {
  connect("db7.mdb");
  const auto connection = connect();
  const std::string there = connectionText(folder.file("db7.mdb")), away = connectionText("/nowhere/cont.mdb");
  EXPECT_FALSE(connection->begin({there, away}).ok());
  addPermit(*permits(connection), "25-1");
  EXPECT_EQ(permits(connect())->RecordCount(), 1u);
  EXPECT_TRUE(connection->begin({there}).ok()) << "nothing of the first try is held";
}

TEST_F(StoreTest, AnyTextIsStoredAndFoundAgain) {
  auto records = permits(connect());
  for (const std::string text :
       {"Désirée", "日本 \U0001F3E0", "tab\tline\r\nend\\N \\.", "'; drop table BLDGPERM --"}) {
    records->AddNew();
    records->set("OWNNAME1", text);
    ASSERT_TRUE(records->Update().ok()) << text;
    EXPECT_EQ(permits(connect())->Find("[OWNNAME1] like '" + replaceAll(text, "'", "''") + "'").valueOr(false), true)
        << text;
  }
  for (const std::string& odd : {std::string("Smith\0John", 10), std::string("D\xE9sir")}) {
    records->AddNew();
    records->set("OWNNAME1", odd);
    ASSERT_TRUE(records->Update().ok());
    records->set("LOCN1", "1 Main St");
    const auto stored = records->Update();
    EXPECT_TRUE(stored.ok()) << "the row as it was added is the row as it is: " << troubleOf(stored);
  }
}

}  // namespace
}  // namespace zelvo
