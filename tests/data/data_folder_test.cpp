#include "data/data_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "data/mdb.h"
#include "start_up_office.h"

namespace zelvo {
namespace {

constexpr const char* notLocated =
    "One or more database pointed by your preferences cannot be located. The program will use the default location, or "
    "will set an empty database in its place instead. No further action on your part is necessary.\n\nYou should set "
    "your "
    "database location in Preferences from the Admin menu.";

TEST_F(DataFolder, FolderWithoutDatabasesGivesWayToTheUsualOne) {
  for (const std::string& given : {folder.file("records"), folder.file("nowhere"), std::string()}) {
    user.session.dataFolder = given;
    user.expect("Zelvo", notLocated);
    resolve();
    EXPECT_EQ(user.session.dataFolder, folder.file("program/databases"));
    EXPECT_EQ(databasesIn("program/databases"), 8u);
    EXPECT_EQ(databasesIn("records"), 0u);
  }
}

TEST_F(DataFolder, MissingDatabaseIsReplacedByItsBlank) {
  fill();
  ASSERT_TRUE(makeFolder(folder.file("program/wrk")).ok());
  ASSERT_TRUE(createDatabase(folder.file("program/wrk/sbl.mdb"), extendedParcelTable()).ok());
  addPermit(*permits(connect("records/db1.mdb")), "25-1");
  for (const auto* file : {"sbl.mdb", "db7.mdb", "rps.mdb"})
    ASSERT_TRUE(deleteFile(folder.file("records/" + std::string(file))).ok());
  user.expect("Zelvo", notLocated);
  resolve();
  EXPECT_EQ(user.session.dataFolder, folder.file("records"));
  EXPECT_EQ((*connect("records/sbl.mdb")->table("SBL"))->columns.size(), 18u) << "the office's own blank";
  EXPECT_TRUE(FileExists(folder.file("program/wrk/db7.mdb"))) << "a missing blank is made";
  EXPECT_FALSE(FileExists(folder.file("records/rps.mdb"))) << "none of the main databases";
  EXPECT_EQ(permits(connect("records/db1.mdb"))->text("PERMIT"), "25-1");

  resolve();
}

TEST_F(DataFolder, BlankOfTheOldEngineIsOfNoUse) {
  fill();
  folder.write("program/wrk/db2.mdb", std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4000, 'x'));
  ASSERT_TRUE(deleteFile(folder.file("records/db2.mdb")).ok());
  user.expect("Zelvo", notLocated);
  resolve();
  EXPECT_EQ(rows(connect("records/db2.mdb"), "Select * from INSPDTL")->RecordCount(), 0u);
}

TEST_F(DataFolder, BlanksAreMadeOnceAndNeverReplaced) {
  const std::string program = folder.file("program");
  ASSERT_TRUE(makeBlanks(program).ok());
  EXPECT_EQ(databasesIn("program/wrk"), 16u);
  EXPECT_EQ((*connect("program/wrk/sbl18.mdb")->table("SBL"))->columns.size(), 18u);
  folder.write("program/wrk/db1.mdb", "the office's own");
  ASSERT_TRUE(makeBlanks(program).ok());
  EXPECT_EQ(folder.read("program/wrk/db1.mdb"), "the office's own");
}

TEST_F(DataFolder, FilesThatAnotherComputerIsMakingAreLeftToIt) {
  std::vector<std::string> theirs;
  for (int next = 0; next < 200; ++next) {
    theirs.push_back(
        folder.file("records/.zelvo-new-" + std::to_string(::getpid()) + "-" + std::to_string(next) + ".tmp"));
    folder.write("records/" + fileNameOf(theirs.back()), "half made");
  }
  const auto made = createDatabase(folder.file("records/db1.mdb"), *findTable("BLDGPERM"));
  EXPECT_TRUE(made.ok()) << troubleOf(made);
  for (const std::string& path : theirs)
    EXPECT_TRUE(FileExists(path)) << path;
}

TEST_F(DataFolder, RegistryWithoutItsFileIsToldOf) {
  EXPECT_EQ(mdb(user.session).resetsbl().error().trouble, Trouble::NotFound);
}

TEST_F(DataFolder, WhatIsThereAndCannotBeReadIsNotReplaced) {
  fill();
  ASSERT_TRUE(deleteFile(folder.file("records/db1.mdb")).ok());
  ASSERT_TRUE(makeFolder(folder.file("records/db1.mdb")).ok());
  const auto resolved = resolveDataFolder(user.desk);
  ASSERT_FALSE(resolved.ok());
  EXPECT_NE(troubleOf(resolved).find("cannot be read"), std::string::npos) << troubleOf(resolved);
  EXPECT_TRUE(folderExists(folder.file("records/db1.mdb")));
}

TEST_F(DataFolder, ClosedFolderIsToldAndLeftAsItIs) {
  fill();
  ASSERT_TRUE(deleteFile(folder.file("records/db3.mdb")).ok());
  ASSERT_TRUE(makeBlanks(folder.file("program")).ok());
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod(folder.file("records").c_str(), 0555), 0);
  // The administrator of a computer is stopped by no folder's rights.
  const bool administrator = ::geteuid() == 0;
  ASSERT_TRUE(!administrator || ::seteuid(65534) == 0);
  const auto resolved = resolveDataFolder(user.desk);
  ASSERT_TRUE(!administrator || ::seteuid(0) == 0);
  ASSERT_FALSE(resolved.ok());
  EXPECT_EQ(resolved.error().trouble, Trouble::ReadOnly);
  EXPECT_NE(resolved.error().message.find("db3.mdb"), std::string::npos) << resolved.error().message;
  EXPECT_EQ(databasesIn("records"), 14u);
}

}  // namespace
}  // namespace zelvo
