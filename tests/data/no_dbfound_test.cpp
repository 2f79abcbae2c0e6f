#include "data/no_dbfound.h"

#include "base/files.h"
#include "data/connection.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {
namespace {

/// An office whose data folder is lost; "elsewhere" holds its permits.
class LostFolder : public ::testing::Test {
 protected:
  LostFolder() {
    at.session.programFolder = folder.file("program");
    at.session.dataFolder = folder.file("lost");
    EXPECT_TRUE(makeFolder(folder.file("elsewhere")).ok());
    EXPECT_TRUE(createDatabase(folder.file("elsewhere/permits old.mdb"), *findTable("BLDGPERM")).ok());
    EXPECT_TRUE(createDatabase(folder.file("elsewhere/db2.mdb"), *findTable("INSPDTL")).ok());
  }

  TempFolder folder;
  ScriptedDesk at;
};

TEST_F(LostFolder, TheUserFindsTheDatabase) {
  at.when("noDbfound", [this](Screen& screen) {
    EXPECT_EQ(screen.caption, "Database Not Found");
    EXPECT_EQ(at.shown(screen, "Label1"), folder.file("lost/db1.mdb"));
    EXPECT_EQ(at.shown(screen, "Label2"),
              "(the default database specified in the preferences settings) cannot be found in the specified location. "
              "What do you want to do?");
    EXPECT_EQ(at.shown(screen, "Command1") + "|" + at.control(screen, "Command1").tip,
              "Let me find it | Browse and locate database");
    EXPECT_EQ(at.shown(screen, "Command2"), " Cancel");
    at.pick(folder.file("elsewhere/permits old.mdb"));
    at.click(screen, "Command1");
  });
  const auto connection = databaseConnection(at.desk, "db1.mdb");
  ASSERT_TRUE(connection.ok());
  EXPECT_EQ(*connection,
            "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder.file("elsewhere/permits old.mdb") + ";");
  EXPECT_EQ(at.session.dataFolder, folder.file("elsewhere"));
  EXPECT_EQ(*databaseConnection(at.desk, "db1.mdb"), *connection) << "it is remembered for the run";
  EXPECT_EQ(*databaseConnection(at.desk, "db2.mdb"), connectionText(folder.file("elsewhere/db2.mdb")));
}

TEST_F(LostFolder, CancelLeavesEverythingAsItWas) {
  at.when("noDbfound", [this](Screen& screen) {
    at.click(screen, "Command1");  // the picker is given up
    EXPECT_TRUE(at.screens.isOpen(screen));
    at.click(screen, "Command2");
  });
  const auto connection = databaseConnection(at.desk, "db1.mdb");
  ASSERT_FALSE(connection.ok());
  EXPECT_EQ(connection.error().trouble, Trouble::Cancelled);
  EXPECT_EQ(at.session.dataFolder, folder.file("lost"));
  EXPECT_EQ(at.session.connections[1], "");
  EXPECT_FALSE(folderExists(folder.file("lost")));
}

TEST_F(LostFolder, WhatIsNoDatabaseOfTheKindIsRefused) {
  folder.write("elsewhere/letter.mdb", "Dear Sir");
  at.when("noDbfound", [this](Screen& screen) {
    for (const char* wrong : {"elsewhere/db2.mdb", "elsewhere/letter.mdb", "elsewhere/none.mdb", "elsewhere"}) {
      SCOPED_TRACE(wrong);
      at.pick(folder.file(wrong));
      at.expect(" Database Not Found", "The file ...");
      at.click(screen, "Command1");
      EXPECT_TRUE(at.screens.isOpen(screen));
      EXPECT_EQ(at.session.dataFolder, folder.file("lost"));
    }
    at.click(screen, "Command2");
  });
  EXPECT_FALSE(databaseConnection(at.desk, "db1.mdb").ok());
}

TEST_F(LostFolder, WhatCanBeMadeFromItsBlankIsNotAskedFor) {
  at.session.dataFolder = folder.file("elsewhere");
  const auto fees = databaseConnection(at.desk, "pbfees.mdb");
  ASSERT_TRUE(fees.ok()) << fees.error().message;
  EXPECT_TRUE(FileExists(folder.file("elsewhere/pbfees.mdb")));
}

TEST_F(LostFolder, WhatIsThereAndCannotBeReadIsNotAskedFor) {
  at.session.dataFolder = folder.file("elsewhere");
  ASSERT_TRUE(makeFolder(folder.file("elsewhere/db3.mdb")).ok());
  const auto connection = databaseConnection(at.desk, "db3.mdb");
  ASSERT_FALSE(connection.ok());
  EXPECT_NE(connection.error().trouble, Trouble::Cancelled);
}

}  // namespace
}  // namespace zelvo::testing
