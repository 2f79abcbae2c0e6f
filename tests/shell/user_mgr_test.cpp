#include "shell/user_mgr.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "shell/shell_screens.h"
#include "shell/user_edit.h"
#include "shell/users.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

using Plain = std::vector<User>;

class UserManagement : public ::testing::Test {
 protected:
  UserManagement() {
    learnShellScreens(desk.screens);
    desk.session.programFolder = folder.path();
    store({{"Boss", "x", "ADMIN"}, {"Smith", "Abc", "SUPERVISOR"}, {"Kim", "k", "USER"}});
    EXPECT_TRUE(readUsers(desk.session));
    desk.session.userSlot = 1;
    desk.session.rights = "ADMIN";
  }
  void store(const Plain& users) {
    std::vector<User> hidden;
    for (const User& user : users)
      hidden.push_back(scrambled(user));
    ASSERT_TRUE(writeUsers(folder.path(), hidden));
  }
  /// "NAME/PASSWORD/ACCESS ..." of the file.
  std::string stored() {
    std::vector<std::string> users;
    const auto file = readUserFile(folder.path());
    for (const User& user : file->users)
      users.push_back(scrambled(user.name) + "/" + scrambled(user.password) + "/" + scrambled(user.access));
    return join(users, " ");
  }
  Screen& manager() { return *desk.screens.open("UserMgr"); }
  void fill(Screen& form, std::string_view name, std::string_view password, std::string_view access) {
    desk.set(form, "Text1", name);
    desk.set(form, "Text2", password);
    if (!access.empty())
      desk.set(form, "Combo1", access);
    desk.click(form, "Command1");
  }
  void add(std::string name, std::string password, std::string access) {
    desk.when("NewFrm", [=, this](Screen& form) { fill(form, name, password, access); });
    desk.click(manager(), "Command1");
  }
  void edit(std::string_view row, std::string name, std::string password, std::string access = "") {
    desk.when("UserEdit", [=, this](Screen& form) { fill(form, name, password, access); });
    desk.choose(manager(), "ListView1", row);
    desk.click(manager(), "Command5");
  }
  void remove(std::string_view row) {
    desk.choose(manager(), "ListView1", row);
    desk.click(manager(), "Command2");
  }
  std::string row(std::size_t number) {
    const auto& list = dynamic_cast<ListView&>(desk.control(manager(), "ListView1"));
    return list.rows->cell(number, 0) + "|" + list.rows->cell(number, 1) + "|" + list.rows->cell(number, 2);
  }

  TempFolder folder;
  testing::ScriptedDesk desk;
};

TEST_F(UserManagement, nothingHoldsBeforeDone) {
  EXPECT_EQ(row(1), "Smith|Abc|SUPERVISOR");
  add(" Lee, \"J\" ", " p,w ", "INSPECTOR");
  edit("Smith", "SMITH", "new");
  remove("Kim");
  EXPECT_EQ(stored(), "Boss/x/ADMIN Smith/Abc/SUPERVISOR Kim/k/USER");
  desk.click(manager(), "Command3");
  EXPECT_EQ(stored(), "Boss/x/ADMIN SMITH/new/SUPERVISOR Lee, \"J\"/ p,w /INSPECTOR")
      << "an access level that is not offered stays";
  CheckPassword(desk.session, "lee, \"j\"", " P,W ");
  EXPECT_EQ(desk.session.userSlot, 3u);

  remove("SMITH");
  desk.click(manager(), "Command4");
  EXPECT_EQ(row(1), "SMITH|new|SUPERVISOR");
}

TEST_F(UserManagement, closingTheWindowAsksWhenSomethingWouldBeLost) {
  Screen& screen = manager();
  remove("Kim");
  desk.expect(" User Management", "You changed the list of users and did not save it....", Answer::No);
  desk.expect(" User Management", "...", Answer::Yes);
  screen.userCloses();
  EXPECT_TRUE(desk.screens.isOpen(screen));
  screen.userCloses();
  EXPECT_FALSE(desk.screens.isOpen(screen));
  manager().userCloses();
  EXPECT_TRUE(desk.screens.all().empty()) << "without a change nothing is asked";
}

TEST_F(UserManagement, refusesWhatCannotBeAUser) {
  struct Row {
    const char *name, *password, *access, *title, *text;
  };
  const Row rows[] = {
      {" ", "p", "USER", " Missing user ID", "You must give a user ID for the user to log on."},
      {"Lee", "  ", "USER", " Missing user password", "You must assign an initial password for the user to log on."},
      {"Lee", "p", "", " Missing access rights", "You must choose what the user may do: ..."},
      {"smith ", "p", "USER", " Add a New User",
       "There is another user with this user ID. Please choose a different one."}};
  for (const Row& row : rows) {
    desk.expect(row.title, row.text);
    add(row.name, row.password, row.access);
  }
  EXPECT_EQ(desk.shown(manager(), "ListView1"), "3 rows, 3 columns");
  const auto& edits = desk.control(manager(), "Command5");
  EXPECT_FALSE(edits.enabled) << "there is nothing highlighted";
}

TEST_F(UserManagement, keepsTheLastAdministrator) {
  const std::string_view text = "This is the only administrator. Please make another user one first.";
  desk.expect(" User Management", std::string(text));
  remove("Boss");
  desk.expect(" Edit User", std::string(text));
  edit("Boss", "Boss", "x", "USER");
  edit("Kim", "Kim", "k", "ADMIN");
  remove("Boss");
  desk.click(manager(), "Command3");
  EXPECT_EQ(stored(), "Smith/Abc/SUPERVISOR Kim/k/ADMIN");
}

TEST_F(UserManagement, holdsAHundredUsers) {
  Plain many;
  for (int i = 1; i <= 102; ++i)
    many.push_back({"user" + std::to_string(i), "p", i == 1 ? "ADMIN" : "USER"});
  store(many);
  EXPECT_EQ(desk.shown(manager(), "ListView1"), "102 rows, 3 columns") << "who cannot sign in is seen as well";
  desk.expect(" User Management", "The list holds 102 users, more than the 100 that it can. ...");
  desk.click(manager(), "Command3");
  remove("user50");
  remove("user51");
  desk.expect(" Add a New User", "The list holds 100 users, which is as many as it can. ...");
  add("one more", "p", "USER");
  desk.click(manager(), "Command3");
  EXPECT_EQ(desk.session.users.size(), 100u);
  EXPECT_EQ(scrambled(desk.session.users[99].name), "user102") << "nobody fell off the end";
}

TEST_F(UserManagement, whatSomebodyElseSavedMeanwhileIsNotLost) {
  add("Mine", "m", "USER");
  edit("Smith", "Smith", "mine");
  remove("Kim");
  store({{"Boss", "theirs", "ADMIN"}, {"Kim", "k", "USER"}, {"Smith", "Abc", "SUPERVISOR"}, {"Theirs", "t", "USER"}});
  Screen& screen = manager();
  desk.expect(" User Management", "Someone else changed the list of users while you worked on it....", Answer::No);
  desk.click(screen, "Command3");
  EXPECT_EQ(row(1), "Smith|mine|SUPERVISOR") << "the own list stands as it was";
  desk.expect(" User Management", "...", Answer::Yes);
  desk.click(screen, "Command3");
  ASSERT_TRUE(desk.screens.isOpen(screen)) << "to be looked over";
  desk.click(screen, "Command3");
  EXPECT_EQ(stored(), "Boss/theirs/ADMIN Smith/mine/SUPERVISOR Theirs/t/USER Mine/m/USER");
}

TEST_F(UserManagement, twoNewUsersOfOneNameAreSettledByPeople) {
  add("Lee", "m", "USER");
  store({{"Boss", "x", "ADMIN"}, {"Lee", "t", "USER"}});
  desk.expect(" User Management", "Someone else changed the list of users while you worked on it....", Answer::Yes);
  desk.click(manager(), "Command3");
  desk.expect(" User Management", "There are two users with the ID \"Lee\". ...");
  desk.click(manager(), "Command3");
  desk.choose(manager(), "ListView1", "3");
  desk.click(manager(), "Command2");
  desk.click(manager(), "Command3");
  EXPECT_EQ(stored(), "Boss/x/ADMIN Lee/t/USER");
}

TEST_F(UserManagement, ownPasswordStandsBesideTheChangesOfOthers) {
  desk.session.userSlot = 3;
  desk.session.rights = "USER";
  desk.when("UserEdit", [this](Screen& form) {
    store({{"Boss", "x", "ADMIN"}, {"Lee", "t", "USER"}, {"kim", "k", "INSPECTOR"}});
    desk.set(form, "Text2", "secret");
    desk.click(form, "Command1");
  });
  changeOwnPassword(desk.desk);
  EXPECT_EQ(stored(), "Boss/x/ADMIN Lee/t/USER KIM/secret/USER");
  EXPECT_EQ(desk.session.userSlot, 3u);

  desk.when("UserEdit", [this](Screen& form) {
    store({{"Boss", "x", "ADMIN"}});
    desk.set(form, "Text2", "again");
    desk.expect(" Edit User", "Your user was removed from the list. ...");
    desk.click(form, "Command1");
  });
  changeOwnPassword(desk.desk);
  EXPECT_EQ(stored(), "Boss/x/ADMIN") << "nobody comes back by changing a password";
  desk.expect(" Edit User", "Your user was removed from the list. ...");
  changeOwnPassword(desk.desk);
}

TEST_F(UserManagement, aDoubledNameFromAnOldListCanBeMended) {
  store({{"Boss", "x", "ADMIN"}, {"Lee", "1", "USER"}, {"lee", "2", "USER"}});
  edit("2", "LEE", "new");
  desk.choose(manager(), "ListView1", "3");
  desk.when("UserEdit", [this](Screen& form) { fill(form, "Lee-2", "2", ""); });
  desk.click(manager(), "Command5");
  desk.click(manager(), "Command3");
  EXPECT_EQ(stored(), "Boss/x/ADMIN LEE/new/USER Lee-2/2/USER");
}

}  // namespace
}  // namespace zelvo
