#include "shell/start_up.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/files.h"
#include "base/text.h"
#include "shell/shell_screens.h"
#include "shell/start_up_files.h"
#include "shell/users.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

class Start : public ::testing::Test {
 protected:
  Start() {
    learnShellScreens(desk.screens);
    desk.session.programFolder = folder.path();
    desk.temporary = folder.file("tmp");
    std::filesystem::create_directories(desk.temporary);
    EXPECT_TRUE(
        writeUsers(folder.path(), {scrambled(User{"Smith", "Abc", "ADMIN"}), scrambled(User{"Kim", "k", "USER"})}));
    writeSettings("0", "0");
    for (const char* file : {"db1", "db2", "db3", "db4", "db5", "db6", "db7", "sbl"})
      folder.write("data/" + std::string(file) + ".mdb", "");
    signInAs("smith", "abc");
  }
  void writeSettings(std::string_view master, std::string_view checkSize, std::string_view hide = "0") {
    folder.write("Zelvo.ini", folder.file("data") + "\r\nAlder Glen\r\n\r\n\r\n\r\n\r\n\r\n0\r\n" +
                                  std::string(master) + "\r\n" + std::string(hide) + "\r\n255\r\nNone\r\n\r\n\r\n" +
                                  std::string(checkSize) + "\r\n");
  }
  void signInAs(std::string name, std::string password) {
    desk.when("PswFrm", [=, this](Screen& login) {
      EXPECT_EQ(desk.screens.find("frmAbout"), nullptr) << "the splash is gone by now";
      desk.set(login, "Text1", name);
      desk.set(login, "Text2", password);
      desk.click(login, "cmdOK");
    });
  }
  std::vector<std::string> logLines() { return linesOf(folder.read("session.log")); }
  void run() { StartUp(desk.desk, folder.path()).Main(); }
  bool there(std::string_view name) { return FileExists(folder.file(name)); }

  TempFolder folder;
  testing::ScriptedDesk desk;
};

TEST_F(Start, leadsToTheMenuAndLogsEachStep) {
  folder.write("session.log", "of the run before\r\n");
  run();
  const std::string program = folder.path();
  EXPECT_EQ(logLines(),
            (std::vector<std::string>{
                "*** GetBrowser", "*** Back from GetBrowser", "**** Checking if " + program + "/Updater1.exe exists",
                "***** Checking if " + program + "/runonce.bat exists",
                "****** Checking if " + program + "/updated.fl exists", "******* Going to GetUserID",
                "******** Checking if " + program + "/browser.txt exists", "****** Going to set menus",
                "******* Going to Main Menu"}));
  EXPECT_EQ(desk.screens.front()->name(), "MenuFrm");
  EXPECT_EQ(desk.screens.all().size(), 1u);
  EXPECT_TRUE(desk.session.administrator);
  EXPECT_FALSE(desk.session.restrictedUser);
  EXPECT_EQ(desk.session.userId, "smith");
  EXPECT_EQ(desk.session.defaultBrowser, "/bin/true ");
  EXPECT_FALSE(std::filesystem::exists(folder.file("tmp/dummy.html")));
  EXPECT_EQ(std::filesystem::current_path(), folder.path());
}

TEST_F(Start, givingUpTheSignInEndsBeforeTheMenu) {
  desk.user = "maximilian";
  desk.when("PswFrm", [this](Screen& login) {
    EXPECT_EQ(desk.session.userId, "maximili");
    desk.click(login, "cmdCancel");
  });
  run();
  EXPECT_EQ(desk.session.ended, "sign-in given up");
  EXPECT_EQ(logLines().back(), "******* Going to GetUserID");
  EXPECT_EQ(desk.screens.find("MenuFrm"), nullptr);
}

TEST_F(Start, updaterLeavesAreTidiedAndTheMasterComputerIsTold) {
  writeSettings("1", "0");
  folder.write("Updater1.exe", "new");
  folder.write("Updater.exe", "old");
  folder.write("runonce.bat", "x");
  folder.write("updated.fl", "x");
  desk.expect("Zelvo",
              "Your program was recently updated. If you have mobile computers\nor computers not having having access "
              "to the Internet, please\ndon't forget to update them manually by selecting 'Check for Updates'\nand "
              "using the 'Local Update' option.");
  run();
  EXPECT_EQ(folder.read("Updater.exe"), "new");
  EXPECT_FALSE(there("Updater1.exe") || there("runonce.bat") || there("updated.fl"));
  const std::string updater = folder.file("Updater.exe");
  EXPECT_EQ(logLines()[3], "**** Killing " + updater);
  EXPECT_EQ(logLines()[4], "**** Killed. Renaming " + folder.file("Updater1.exe") + " to " + updater);
}

TEST_F(Start, screenSizeIsQuestionedOnlyWhenBothMeasuresDiffer) {
  writeSettings("0", "1");
  for (const ScreenSize size : {ScreenSize{1024, 600}, {800, 768}, {800, 600}, {1024, 768}}) {
    const bool asked = size.width == 1024 && size.height == 768;
    desk.screens.sweep();
    for (Screen* screen : desk.screens.all())
      desk.screens.close(*screen);
    desk.display = size;
    if (asked)
      desk.expect(
          "  Not optimum size",
          "Your current screen resolution does not allow this program to be viewed at its optimal size.\nIf "
          "allowed, the program can change your screen size temporarily for easier viewing and\nrestore it when "
          "it exits.\n\nWould you allow the program to change your screen size? (Click 'Yes' to allow)",
          Answer::Yes);
    run();
    EXPECT_TRUE(desk.displaySwitched == asked && desk.session.screenChanged == asked) << size.width;
  }
}

TEST_F(Start, missingFilesLeadToTheFallbackWithItsLists) {
  std::filesystem::remove(folder.file("Zelvo.ini"));
  folder.write("databases/Inspectors.txt", "A. Brown\r\n");
  folder.write("databases/sblversion.txt", "18");
  desk.user.reset();
  desk.browser.reset();
  desk.expect("Zelvo", "One or more database pointed by your preferences cannot be located. ...");
  desk.when("PswFrm", [this](Screen& login) {
    EXPECT_EQ(desk.session.userId, "Unknown");
    desk.click(login, "cmdCancel");
  });
  run();
  EXPECT_EQ(desk.session.inspectors, std::vector<std::string>{"A. Brown"});
  EXPECT_EQ(desk.session.defaultBrowser, "");
  EXPECT_FALSE(desk.session.defaultBrowserFound);
}

TEST_F(Start, coverHidesTheDesktopBehindTheMenuOfARestrictedUser) {
  writeSettings("0", "0", "1");
  signInAs("KIM", "K");
  run();
  EXPECT_TRUE(desk.session.restrictedUser && !desk.session.administrator);
  ASSERT_EQ(desk.screens.all().size(), 2u);
  EXPECT_EQ(desk.screens.all()[1]->name(), "Preview");
  EXPECT_EQ(desk.session.desktopPicture, "");
}

TEST_F(Start, secondCopyCallsTheFirstAndTouchesNothing) {
  int called = 0;
  SingleInstance* guard = nullptr;
  StartUp first(desk.desk, folder.path());
  first.watchGuard = [&](SingleInstance& held) {
    guard = &held;
    held.onActivate = [&] { ++called; };
  };
  first.Main();
  folder.write("updated.fl", "x");
  const std::string log = folder.read("session.log");

  testing::ScriptedDesk other;
  learnShellScreens(other.screens);
  other.expect("Zelvo", "Zelvo is already running.");
  StartUp second(other.desk, folder.path() + "/./");
  second.Main();
  EXPECT_EQ(other.session.ended, "a second copy");
  EXPECT_TRUE(other.came.empty());
  EXPECT_EQ(folder.read("session.log"), log);
  EXPECT_TRUE(there("updated.fl"));

  guard->poll();
  guard->poll();
  EXPECT_EQ(called, 1);
}

TEST(Guard, doesNotWaitForABusyFirstCopy) {
  TempFolder folder;
  SingleInstance first(folder.path());
  for (int i = 0; i < 50; ++i) {
    const SingleInstance later(folder.path());
    ASSERT_FALSE(later.isFirst()) << i;
    later.callFirst();
  }
  int called = 0;
  first.onActivate = [&] { ++called; };
  first.poll();
  EXPECT_EQ(called, 1);
}

TEST(Guard, isFreeOnceItsCopyIsKilledAndWhileItsChildLives) {
  TempFolder folder;
  int ready[2], hold[2];
  ASSERT_EQ(::pipe(ready) | ::pipe(hold), 0);
  const pid_t copy = ::fork();
  if (copy == 0) {
    SingleInstance guard(folder.path());
    if (::fork() == 0) {
      ::dup2(hold[0], 0);
      ::close(hold[1]);
      ::execlp("cat", "cat", nullptr);
    }
    (void)!::write(ready[1], guard.isFirst() ? "1" : "0", 1);
    ::pause();
  }
  char first = 0;
  ASSERT_EQ(::read(ready[0], &first, 1), 1);
  EXPECT_EQ(first, '1');
  EXPECT_FALSE(SingleInstance(folder.path()).isFirst());
  EXPECT_TRUE(SingleInstance(folder.path() + "/other").isFirst());
  ::usleep(100'000);  // the child becomes its program, and so lets go
  ::kill(copy, SIGKILL);
  ::waitpid(copy, nullptr, 0);
  EXPECT_TRUE(SingleInstance(folder.path()).isFirst());
  ::close(hold[1]);
}

}  // namespace
}  // namespace zelvo
