#include "shell/users.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "shell/shell_screens.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

User stored(std::string_view name, std::string_view password, std::string_view access = "USER") {
  return scrambled(User{std::string(name), std::string(password), std::string(access)});
}

TEST(Scrambling, isItsOwnInverseAndKeepsClearOfTheSeparators) {
  for (char32_t code = 1; code <= 0x10FFFF; code += code == 0xD7FF ? 0x801 : 1) {
    std::string character;
    appendCharacter(character, code);
    const std::string hidden = scrambled(character);
    ASSERT_TRUE(isUtf8(hidden) && scrambled(hidden) == character) << static_cast<unsigned>(code);
    ASSERT_TRUE(code >= 0x10000 || hidden.size() == 4) << static_cast<unsigned>(code) << " is too near to a separator";
  }
}

TEST(UserList, survivesItsFileWhateverIsTyped) {
  TempFolder folder;
  Session session;
  session.programFolder = folder.path();
  const std::vector<User> users = {stored("O'Brien, \"Pat\"", " a,b ", "ADMIN"), stored("Zoë 日本", "\xF0\x9F\x94\x91"),
                                   stored(" ", "\xF0\x92\x8D\xA9\xF0\x92\x8D\x88")};  // scrambled: a comma, a CR
  ASSERT_TRUE(writeUsers(folder.path(), users));
  EXPECT_TRUE(folder.read("Users.Set").starts_with("3\r\n"));
  EXPECT_EQ(folder.read("Users.Set").find("Pat"), std::string::npos);
  EXPECT_EQ(std::filesystem::status(folder.file("Users.Set")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  ASSERT_TRUE(readUsers(session));
  ASSERT_EQ(session.users.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_TRUE(session.users[i].name == users[i].name && session.users[i].password == users[i].password) << i;
}

TEST(UserList, oddFilesGiveWhatCanBeRead) {
  TempFolder folder;
  Session session;
  session.programFolder = folder.path();
  session.users.resize(4);
  EXPECT_TRUE(readUsers(session)) << "a missing list is an empty one";
  EXPECT_TRUE(session.users.empty());

  struct Row {
    std::string_view text;
    std::size_t users;
    bool whole;
  };
  const Row rows[] = {{"", 0, true},
                      {" \r\n", 0, true},
                      {"0\r\n", 0, true},
                      {"1\r\na,b,c\r\nd,e,f\r\n", 1, true},
                      {"\xEF\xBB\xBF"
                       "1\na,b,c",
                       1, true},
                      {"-3\r\na,b,c\r\n", 0, false},
                      {"nonsense\r\na,b,c\r\n", 0, false},
                      {"5\r\na,b,c\r\nd,e", 1, false},
                      {"99999999999999999999\r\na,b,c", 1, false},
                      {"2\na,b,c\nd,e,\"f", 2, true}};
  for (const Row& row : rows) {
    folder.write("Users.Set", row.text);
    EXPECT_EQ(readUsers(session).ok(), row.whole) << row.text;
    EXPECT_EQ(session.users.size(), row.users) << row.text;
  }
  std::string many = "103\r\n";
  for (int i = 0; i < 103; ++i)
    many += "a,b,c\r\n";
  folder.write("Users.Set", many);
  EXPECT_FALSE(readUsers(session));
  EXPECT_EQ(session.users.size(), kUserLimit);
  folder.write("Users.Set", std::string(2u << 20, '\n'));
  EXPECT_FALSE(readUsers(session)) << "no office has so many";
}

class SignIn : public ::testing::Test {
 protected:
  SignIn() {
    learnShellScreens(desk.screens);
    desk.session.users = {stored("Smith", "Abc", "ADMIN"), stored("smith", "other"),
                          stored("Jones", "pw", "INSPECTOR")};
    screen = desk.screens.open("PswFrm");
  }
  void attempt(std::string_view name, std::string_view password) {
    desk.set(*screen, "Text1", name);
    desk.set(*screen, "Text2", password);
    desk.click(*screen, "cmdOK");
  }

  testing::ScriptedDesk desk;
  Screen* screen;
};

TEST_F(SignIn, takesNameAndPasswordInAnyCase) {
  EXPECT_EQ(screen->focus->id(), "Text1");
  attempt("JONES", "Pw");
  EXPECT_TRUE(desk.session.signedIn);
  EXPECT_EQ(desk.session.rights, "INSPECTOR");
  EXPECT_EQ(desk.session.userSlot, 3u);
  EXPECT_EQ(desk.session.userId, "JONES");
  EXPECT_FALSE(desk.screens.isOpen(*screen));
}

TEST_F(SignIn, refusesAndLetsTheUserRetypeThePassword) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"Smith", "other"}, {"Nobody", "Abc"}, {"", ""}, {"Jones", ""}, {" Jones", "pw"}};
  for (const auto& [name, password] : rows) {
    desk.expect("Login", "Invalid Password, try again!");
    attempt(name, password);
    EXPECT_FALSE(desk.session.signedIn) << name;
    EXPECT_TRUE(screen->selectAll && screen->focus->id() == "Text2") << name;
  }
  EXPECT_EQ(desk.session.rights, "INSPECTOR") << "of the user named last";
  attempt("smith", "aBC");
  EXPECT_EQ(desk.session.userSlot, 1u) << "the first of a name decides";
}

TEST_F(SignIn, givingUpTakesTheHelpPanelAlong) {
  desk.click(*screen, "image6");
  ASSERT_NE(desk.screens.find("pswhelp"), nullptr);
  desk.session.signedIn = true;
  desk.screens.bringToFront(*screen);
  screen->userCloses();
  EXPECT_FALSE(desk.session.signedIn);
  EXPECT_TRUE(desk.screens.all().empty());
}

}  // namespace
}  // namespace zelvo
