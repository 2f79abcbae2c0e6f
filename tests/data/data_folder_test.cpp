#include "data/data_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/files.h"
#include "small_office.h"
#include "support/scripted_desk.h"

namespace zelvo {
namespace {

constexpr const char* notLocated =
    "One or more database pointed by your preferences cannot be located. The program will use the default location, or "
    "will set an empty database in its place instead. No further action on your part is necessary.\n\nYou should set "
    "your "
    "database location in Preferences from the Admin menu.";

class DataFolder : public SmallOffice {
 protected:
  DataFolder() {
    user.session.programFolder = folder.file("program");
    user.session.dataFolder = folder.file("records");
    for (const auto* made : {"program", "records"})
      EXPECT_TRUE(makeFolder(folder.file(made)).ok());
  }
  void fill() {
    for (const Table& table : catalogue())
      ASSERT_TRUE(createDatabase(joinPath(folder.file("records"), table.file), table).ok());
  }
  void resolve() {
    const auto resolved = resolveDataFolder(user.desk);
    EXPECT_TRUE(resolved.ok()) << troubleOf(resolved);
  }
  std::size_t databasesIn(std::string_view name) { return listFiles(folder.file(name), "*.mdb").size(); }

  testing::ScriptedDesk user;
};

TEST_F(DataFolder, CompleteFolderIsTakenAsItIs) {
  fill();
  resolve();
  EXPECT_EQ(user.session.dataFolder, folder.file("records"));
  EXPECT_EQ(user.session.parcelLayout, 13);
  EXPECT_EQ(databasesIn("program/wrk"), 0u);
}

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

TEST_F(DataFolder, ParcelLayoutIsReadFromItsFile) {
  const struct {
    std::string_view text;
    int layout;
  } files[] = {{"18\r\n", 18}, {" 18 ", 18}, {"18 fields", 18}, {"15", 13},
               {"13", 13},     {"", 13},     {"eighteen", 13},  {"\r\n18", 13}};
  fill();
  for (const auto& file : files) {
    folder.write("records/SblVersion.txt", file.text);
    user.session.parcelLayout = 0;
    resolve();
    EXPECT_EQ(user.session.parcelLayout, file.layout) << "\"" << file.text << "\"";
  }
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

TEST_F(DataFolder, ScreensMakeSureOfTheirDatabase) {
  const auto fees = ensureDatabase(user.session, "\\pbfees.mdb");
  ASSERT_TRUE(fees.ok()) << troubleOf(fees);
  EXPECT_EQ(*fees, folder.file("records/pbfees.mdb"));
  EXPECT_EQ(rows(connect("records/pbfees.mdb"), "Select * from PBFEES")->RecordCount(), 0u);
  EXPECT_EQ(ensureDatabase(user.session, "db9.mdb").error().trouble, Trouble::NotFound);
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
