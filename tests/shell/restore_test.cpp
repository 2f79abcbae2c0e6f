// A backup is worth what can be restored from it; and what is there now is not given up for it.

#include <functional>

#include "backup_office.h"
#include "data/database_care.h"
#include "shell/backup/restore_frm.h"

namespace zelvo::testing {
namespace {

class RestoreOffice : public BackupOffice {
 protected:
  RestoreOffice() {
    set_ = backUp();
    saved_ = contentOf(folder.file("data"));
    addPermits(21, 25);
    folder.write("data/phi.txt", "26\r\n");
    folder.write("data/docs/P26-1~1.pdf", "the plan as it was changed");
    folder.write("data/docs/P26-22~1.pdf", "a later plan");
    present_ = contentOf(folder.file("data"));
  }

  std::string inSet(std::string_view name) const { return set_ + "/" + std::string(name); }

  /// Restores the latest backup by the screen, which is closed then.
  void restore(bool asked = true, Answer answer = Answer::Yes) {
    desk.when("restorefrm", [=, this](Screen& screen) {
      if (asked)
        desk.expect(" Restore", "Do you want to restore the backup of 03/09/2026 10:15 AM, made by BOSS?\n\n...",
                    answer);
      expectAfter();
      desk.click(screen, "Command1");
      screen.userCloses();
    });
    desk.click(menu(), "restore");
  }
  std::function<void()> expectAfter = [] {};
  void expectRefusal(const std::string& why) {
    expectAfter = [this, why] { desk.expect(" Restore", why + "..."); };
  }
  void expectSuccess() {
    expectAfter = [this] {
      desk.expect(" Completed",
                  "The backup of 03/09/2026 10:15 AM was restored.\nThe data as they were before are kept "
                  "in\n" +
                      data("set-aside") + "/before-restore-2026-03-09-1015...");
    };
  }
  void expectAsBefore() {
    EXPECT_EQ(contentOf(folder.file("data")), present_);
    EXPECT_FALSE(std::filesystem::exists(data("restore-unfinished.txt")));
  }

  std::string set_;
  std::map<std::string, std::string> saved_, present_;
};

TEST_F(RestoreOffice, WhatWasSavedIsThereAgainAndWhatWasThereIsKept) {
  auto open = Connection::open(connectionText(data("db1.mdb")));
  ASSERT_TRUE(open);
  EXPECT_TRUE((*open)->exists("BLDGPERM", "[PERMIT] = '26-23'").valueOr(false));
  desk.session.feeItems = {"old"};
  expectSuccess();
  restore();
  saved_["docs/P26-22~1.pdf"] = "a later plan";
  EXPECT_EQ(contentOf(folder.file("data")), saved_) << "what the backup does not hold stays";
  EXPECT_FALSE((*open)->exists("BLDGPERM", "[PERMIT] = '26-23'").valueOr(true))
      << "who has the database open reads on in the restored one";
  EXPECT_TRUE((*open)->exists("BLDGPERM", "[PERMIT] = '26-20'").valueOr(false));
  EXPECT_TRUE(desk.session.feeItems.empty()) << "the lists are read again";

  const auto aside = findSets(data("set-aside"));
  ASSERT_EQ(aside.size(), 1u);
  desk.session.backupFolder = data("set-aside");
  expectAfter = [this] { desk.expect(" Completed", "..."); };
  restore();
  EXPECT_EQ(contentOf(folder.file("data")), present_) << "what was set aside is a backup as well";
}

TEST_F(RestoreOffice, ShowsWhatASetHoldsBesideWhatIsThere) {
  std::filesystem::create_directories(folder.file("backups/Zelvo-backup-2026-03-10.making"));
  folder.write("backups/Zelvo-backup-2026-03-10.making/backup-manifest.txt", "half");
  desk.when("restorefrm", [this](Screen& screen) {
    EXPECT_EQ(desk.shown(screen, "ListView1"), "1 rows, 5 columns");
    const auto& contents = dynamic_cast<ListView&>(desk.control(screen, "ListView2"));
    ASSERT_EQ(contents.count(), 2u);
    EXPECT_EQ(contents.rows->cell(0, 0) + " " + contents.rows->cell(0, 2) + " " + contents.rows->cell(0, 3),
              "db1.mdb 20 25");
    desk.set(screen, "Text1", "/nowhere");
    desk.leave(screen, "Text1");
    EXPECT_EQ(desk.shown(screen, "lblNote"), "There is no backup in this folder.");
    EXPECT_FALSE(screen.userClicks(desk.control(screen, "Command1")).ok());
    desk.pick(set_);
    desk.click(screen, "Command3");
    EXPECT_EQ(desk.shown(screen, "ListView1"), "1 rows, 5 columns") << "a set itself may be picked";
    screen.userCloses();
  });
  desk.click(menu(), "restore");
  restore(true, Answer::No);
  expectAsBefore();
}

TEST_F(RestoreOffice, ASetThatIsNotAsItWasMadeIsRefusedByName) {
  const auto flip = [](std::string bytes) {
    bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
    return bytes;
  };
  const auto shorter = [](std::string bytes) { return bytes.substr(0, bytes.size() * 3 / 4); };
  struct Trial {
    const char* file;
    std::function<std::string(std::string)> damage;
    bool asked;  // what the manifest tells is seen before anything is asked
  };
  const Trial trials[] = {{"db1.mdb", flip, true},
                          {"sbl.mdb", shorter, true},
                          {"phi.txt", [](const std::string&) { return "1\r\n"; }, true},
                          {"pics/2026/P26-1~1.jpg", nullptr, true},
                          {"backup-manifest.txt", shorter, false},
                          {"backup-manifest.txt", flip, false},
                          {"backup-manifest.txt", [](const std::string&) { return ""; }, false}};
  for (const Trial& trial : trials) {
    SCOPED_TRACE(trial.file);
    const std::string name = inSet(trial.file).substr(folder.path().size() + 1);
    const std::string whole = folder.read(name);
    trial.damage ? folder.write(name, trial.damage(whole)) : (void)std::filesystem::remove(inSet(trial.file));
    expectRefusal("The file \"" + inSet(trial.file) + "\" cannot be read: ");
    restore(trial.asked);
    expectAsBefore();
    EXPECT_FALSE(std::filesystem::exists(data("set-aside")));
    folder.write(name, whole);
  }
  expectSuccess();
  restore();
}

TEST_F(RestoreOffice, NoFileIsPutOutsideOfTheDataFolder) {
  auto set = readSet(set_);
  ASSERT_TRUE(set);
  for (const char* name : {"../program/Users.Set", "/etc/passwd", "docs/../../x", "docs//x", ""}) {
    set->files.back().name = name;
    ASSERT_TRUE(writeManifest(*set));
    EXPECT_FALSE(readSet(set_)) << name;
  }
}

TEST_F(RestoreOffice, WhatFailsHalfwayIsPutBack) {
  std::filesystem::remove_all(data("pics"));
  folder.write("data/pics", "a file where the folder should be");
  std::filesystem::remove(data("Inspectors.txt"));
  present_ = contentOf(folder.file("data"));
  expectRefusal("The f");
  restore();
  expectAsBefore();
  EXPECT_EQ(findSets(data("set-aside")).size(), 1u);
}

TEST_F(RestoreOffice, CancelledAtAnyPointEverythingIsAsBefore) {
  expectRefusal("It was cancelled.");
  for (const std::string step : {"Checking sbl.mdb", "Saving db1.mdb", "Restoring db1.mdb", "Restoring phi.txt"}) {
    bool seen = false;
    desk.meanwhile = [&] {
      Screen* progress = desk.screens.front();
      if (seen || desk.shown(*progress, "lblStep") != step)
        return;
      seen = true;
      desk.click(*progress, "cmdCancel");
    };
    restore();
    EXPECT_TRUE(seen) << step;
    expectAsBefore();
  }
}

TEST_F(RestoreOffice, ADamagedDatabaseIsKeptAndExchanged) {
  folder.write("data/db1.mdb", "nothing of a database");
  expectSuccess();
  restore();
  saved_["docs/P26-22~1.pdf"] = "a later plan";
  EXPECT_EQ(contentOf(folder.file("data")), saved_);
  const auto aside = findSets(data("set-aside"));
  ASSERT_EQ(aside.size(), 1u);
  std::ifstream kept(aside.front() + "/db1.mdb");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "nothing of a database");
}

TEST_F(RestoreOffice, IsRefusedWhereItWouldDisturb) {
  desk.screens.learn("Permits", [](Desk& its) { return std::make_unique<Screen>(its, "Permits", "Building Permits"); });
  Screen* permits = desk.screens.open("Permits");
  expectRefusal("Please close the other screens first: Building Permits.");
  restore(false);
  desk.screens.close(*permits);

  auto other = Connection::open(connectionText(data("db1.mdb")));
  ASSERT_TRUE(other);
  {
    const auto writing = (*other)->begin();
    ASSERT_TRUE(writing);
    expectRefusal("The file \"" + data("db1.mdb") + "\" cannot be");
    restore(false);
  }
  folder.write("data/server.txt", "host=nowhere.invalid dbname=zelvo");
  expectRefusal("The records of this office lie on a server, ");
  restore(false);
  std::filesystem::remove(data("server.txt"));
  expectAfter = [] {};
  desk.session.municipality.name = "Town of Hollis";
  restore(true, Answer::No);
  expectAsBefore();
}

TEST_F(RestoreOffice, OneThatWasBrokenOffIsToldOfAtTheMenu) {
  desk.screens.close(menu());
  folder.write("data/restore-unfinished.txt", data("set-aside/before-restore-1") + "\r\n");
  desk.expect("Zelvo", "A restore was broken off before its end. ...");
  menu();
}

}  // namespace
}  // namespace zelvo::testing
