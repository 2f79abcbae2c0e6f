#include "shell/first_run.h"

#include <gtest/gtest.h>

#include "base/files.h"
#include "data/connection.h"
#include "data/recordset.h"
#include "shell/new_office.h"
#include "shell/settings.h"
#include "shell/shell_screens.h"
#include "shell/start_up.h"
#include "shell/users.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

class FirstStart : public ::testing::Test {
 protected:
  FirstStart() {
    learnShellScreens(desk.screens);
    desk.session.programFolder = program();
    desk.temporary = folder.path();
    std::filesystem::create_directories(program());
  }
  std::string program() const { return folder.file("program"); }
  void fillIn(Screen& first) {
    desk.set(first, "Text1", "Alder Glen");
    desk.set(first, "Text2", folder.file("town/data/"));
    desk.set(first, "Text3", " Chief ");
    desk.set(first, "Text4", "s3cret");
    desk.set(first, "Text5", "s3cret");
  }
  void signInAs(std::string name, std::string password) {
    desk.when("PswFrm", [=, this](Screen& login) {
      desk.set(login, "Text1", name);
      desk.set(login, "Text2", password);
      desk.click(login, "cmdOK");
    });
  }
  std::size_t filesIn(const std::string& place) {
    const auto each = std::filesystem::recursive_directory_iterator(place);
    return static_cast<std::size_t>(std::distance(begin(each), end(each)));
  }

  TempFolder folder;
  testing::ScriptedDesk desk;
};

TEST_F(FirstStart, leadsAnEmptyOfficeStraightToItsMenu) {
  desk.when("FirstRun", [this](Screen& first) {
    fillIn(first);
    desk.click(first, "cmdOK");
  });
  signInAs("CHIEF", "S3CRET");
  StartUp(desk.desk, program()).Main();
  EXPECT_EQ(desk.screens.front()->name(), "MenuFrm");
  EXPECT_TRUE(desk.session.administrator && desk.session.masterComputer);
  EXPECT_EQ(desk.session.municipality.name, "Alder Glen");
  EXPECT_EQ(desk.session.dataFolder, folder.file("town/data"));
  EXPECT_EQ(desk.session.formsFolder, folder.file("town/forms"));
  EXPECT_EQ(desk.session.localLaw, "Alder Glen Building and Zoning Code");
  EXPECT_EQ(desk.session.seeds.permit, "-1");
  EXPECT_FALSE(desk.session.rollImported);
  for (const char* made : {"town/forms", "town/data/docs", "town/data/pics", "program/wrk"})
    EXPECT_TRUE(folderExists(folder.file(made))) << made;
  auto permits = Connection::open(connectionText(folder.file("town/data/db1.mdb")));
  ASSERT_TRUE(permits);
  EXPECT_TRUE(Recordset::open(*permits, "Select * from BLDGPERM"));
  EXPECT_FALSE(isNewOffice(program()));
}

TEST_F(FirstStart, givenUpLeavesNothingBehind) {
  desk.when("FirstRun", [this](Screen& first) {
    fillIn(first);
    desk.click(first, "cmdCancel");
  });
  StartUp(desk.desk, program()).Main();
  EXPECT_EQ(desk.session.ended, "the first start was given up");
  EXPECT_EQ(filesIn(folder.path()), 1u) << "the program folder itself";
}

TEST_F(FirstStart, asksForAllOfIt) {
  const std::pair<const char*, const char*> lacking[] = {{"Text1", " "}, {"Text2", ""}, {"Text2", "data"},
                                                         {"Text3", ""},  {"Text4", ""}, {"Text5", "S3cret"}};
  FirstRun first(desk.desk, program());
  desk.when("FirstRun", [&](Screen&) {
    for (const auto& [box, value] : lacking) {
      fillIn(first);
      desk.set(first, box, value);
      desk.expect(" Missing Information", "...");
      desk.click(first, "cmdOK");
      EXPECT_EQ(first.focus->id(), box);
    }
    desk.pick(folder.file("chosen"));
    desk.click(first, "Command3");
    EXPECT_EQ(desk.shown(first, "Text2"), folder.file("chosen"));
  });
  desk.screens.showModal(first);
  EXPECT_FALSE(first.begun());
  EXPECT_EQ(filesIn(folder.path()), 1u);
}

TEST_F(FirstStart, isWholeOrNothing) {
  const std::pair<const char*, const char*> obstacles[] = {
      {"town", "where the folders go"}, {"program/def.txt/x", "a file"}, {"program/wrk", "the blanks"}};
  for (const auto& [path, what] : obstacles) {
    folder.write(path, "in the way");
    const std::size_t before = filesIn(folder.path());
    EXPECT_FALSE(beginOffice(program(), {"Alder Glen", folder.file("town/data"), "Chief", "x"})) << what;
    EXPECT_EQ(filesIn(folder.path()), before) << what;
    EXPECT_TRUE(isNewOffice(program())) << what;
    for (const char* again : {"town", "program/def.txt", "program/wrk"})
      std::filesystem::remove_all(folder.file(again));
  }
}

TEST_F(FirstStart, joinsAnOfficeThatWorksAlready) {
  folder.write("town/data/db1.mdb", "records of the others");
  folder.write("town/data/Inspectors.txt", "A. Brown\r\n");
  ASSERT_TRUE(beginOffice(program(), {"Alder Glen", folder.file("town/data"), "Chief", "x"}));
  EXPECT_EQ(folder.read("town/data/db1.mdb"), "records of the others");
  ASSERT_TRUE(ReadSettings(desk.session));
  EXPECT_FALSE(desk.session.masterComputer) << "that one keeps the databases";
}

TEST_F(FirstStart, isOnlyForAFreshFolder) {
  struct Row {
    const char *settings, *users;
    bool fresh;
  };
  const Row rows[] = {{nullptr, nullptr, true},     {"", "", true},
                      {" \r\n", "0\r\n", true},     {nullptr, "noise", false},
                      {nullptr, "3\r\n", false},    {"/data\r\n", nullptr, false},
                      {"/data\r\n", "0\r\n", false}};
  for (const Row& row : rows) {
    std::filesystem::remove_all(program());
    std::filesystem::create_directories(program());
    if (row.settings)
      folder.write("program/Zelvo.ini", row.settings);
    if (row.users)
      folder.write("program/Users.Set", row.users);
    EXPECT_EQ(isNewOffice(program()), row.fresh)
        << (row.settings ? row.settings : "no settings") << " " << (row.users ? row.users : "no users");
  }
  EXPECT_TRUE(writeUsers(program(), {scrambled(User{"Chief", "x", "ADMIN"})}));
  std::filesystem::remove(folder.file("program/Zelvo.ini"));
  EXPECT_FALSE(isNewOffice(program()));
  std::filesystem::remove(folder.file("program/Users.Set"));
  folder.write("program/Users.Set/x", "a folder in its place");
  EXPECT_FALSE(isNewOffice(program()));
}

}  // namespace
}  // namespace zelvo
