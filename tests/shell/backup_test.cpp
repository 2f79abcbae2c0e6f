// What the office relies on at the end of the day: a backup is whole and right, or there is none.

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "backup_office.h"
#include "data/database_care.h"

namespace zelvo::testing {
namespace {

/// Nobody waits, and nobody gives up.
class Patient : public Progress {
  Result<void> goesOn(std::string_view, double) override { return {}; }
};

TEST_F(BackupOffice, ABackupHoldsWhatTheOfficeHas) {
  folder.write("data/server.old", "kept");
  folder.write("data/.zelvo-new-1-1.tmp", "half a file");
  folder.write("data/db1.mdb-journal.tmp", "another one");
  const auto set = readSet(backUp());
  ASSERT_TRUE(set) << set.error().message;
  EXPECT_EQ(set->user + " " + set->municipality + " " + set->programFolder,
            "BOSS Village of Alder Glen " + folder.file("program"));
  EXPECT_EQ(isoText(set->made), "2026-03-09 10:15:00");
  EXPECT_EQ(set->find("DB1.MDB")->rows, 20u);
  EXPECT_EQ(set->find("sbl.mdb")->rows, 0u);
  EXPECT_EQ(set->find("phi.txt")->rows, std::nullopt);
  EXPECT_EQ(set->find("docs/P26-1~1.pdf")->size, 6u);
  EXPECT_NE(set->find("checklist/BLDG 02 Footing.rtf"), nullptr);
  Patient nobody;
  EXPECT_TRUE(verifySet(*set, nobody));
  auto saved = contentOf(set->folder), original = contentOf(folder.file("data"));
  saved.erase(std::string(kManifestName));
  original.erase(".zelvo-new-1-1.tmp");
  original.erase("db1.mdb-journal.tmp");
  EXPECT_EQ(saved, original);

  desk.pick(folder.file("backups"));
  desk.expect(" Completed", "You will find the backup database on the location you selected:\n" + set->folder +
                                "-2\n\nPlease ensure the safe removal of your\nremovable media and store it in a safe "
                                "place. ");
  desk.click(menu(), "backupto");
  EXPECT_EQ(sets().size(), 2u) << "two backups of the same minute stand side by side";
}

TEST_F(BackupOffice, WithoutItsFolderTheUserPicksOne) {
  desk.session.backupFolder = "/nowhere";
  desk.expect(" Backup",
              "The default backup destination /nowhere cannot be found.\nYou must select the destination "
              "manually.");
  desk.click(menu(), "backr");
  EXPECT_TRUE(nothingLeft()) << "none was picked";
  desk.pick(folder.file("backups"));
  desk.expect(" Backup", "The default backup destination /nowhere ...");
  backUp();
  EXPECT_EQ(sets().size(), 1u);
}

TEST_F(BackupOffice, WhatCannotBeSavedRightIsNoBackup) {
  struct Trial {
    const char* what;
    std::string destination, reason;
    std::function<void()> before;
  };
  const auto nothing = [] {};
  const Trial trials[] = {
      {"a folder that is not there", folder.file("gone"), "The folder \"" + folder.file("gone"), nothing},
      {"a folder without room", "/proc/self", "There is not enough room in \"/proc/self\": ", nothing},
      {"a folder that is saved itself", data("docs"), "The folder \"" + data("docs"), nothing},
      {"a database that is damaged", folder.file("backups"), "The file \"",
       [this] {
         std::string bytes = folder.read("data/db1.mdb");
         std::fill(bytes.begin() + 8192, bytes.end(), 'x');
         folder.write("data/db1.mdb", bytes);
       }},
      {"a database that is none", folder.file("backups"),
       "The file \"" + data("db1.mdb") +
           "\" cannot be read: it is "
           "no database.",
       [this] { folder.write("data/db1.mdb", "The permits, by hand"); }},
      {"a folder without databases", folder.file("backups"), "The data folder \"",
       [this] { std::filesystem::remove_all(folder.file("data")); }},
  };
  for (const Trial& trial : trials) {
    SCOPED_TRACE(trial.what);
    trial.before();
    desk.pick(trial.destination);
    desk.expect(" Backup", trial.reason + "...");
    expectFailure();
    desk.click(menu(), "backupto");
    EXPECT_TRUE(nothingLeft());
    EXPECT_EQ(desk.screens.find("progressfrm"), nullptr);
  }
}

TEST_F(BackupOffice, ADiskThatFillsUpLeavesNothingBehind) {
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlim_t before = limit.rlim_cur;
  for (const rlim_t most : {rlim_t{10'000}, rlim_t{40'000}}) {
    folder.write("data/pics/large.jpg", std::string(50'000, 'p'));
    limit.rlim_cur = most;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    desk.expect(" Backup", "The file \"" + folder.file("backups") + "...");
    expectFailure();
    desk.click(menu(), "backr");
    limit.rlim_cur = before;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_TRUE(nothingLeft()) << most;
  }
}

TEST_F(BackupOffice, CancelledAtAnyFileThereIsNone) {
  for (int file = 0; file < 7; ++file) {
    int told = 0;
    desk.meanwhile = [&] {
      Screen* progress = desk.screens.front();
      EXPECT_EQ(progress->name(), "progressfrm");
      if (told++ != file)
        return;
      EXPECT_FALSE(menu().userClicks(desk.control(menu(), "permits")).ok()) << "the menu waits";
      file % 2 ? desk.click(*progress, "cmdCancel") : progress->userCloses();
    };
    expectFailure();
    desk.click(menu(), "backr");
    EXPECT_TRUE(nothingLeft()) << file;
    EXPECT_EQ(desk.screens.front(), &menu());
  }
  desk.meanwhile = nullptr;
  backUp();
}

/// Another computer, which adds permits without a pause until it is told to stop.
class OtherComputer {
 public:
  explicit OtherComputer(const std::function<void(int)>& addOne) : child_(::fork()) {
    for (int permit = 1000; child_ == 0; ++permit)
      addOne(permit);
  }
  ~OtherComputer() {
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }

 private:
  pid_t child_;
};

TEST_F(BackupOffice, WhileAnotherComputerWritesEachBackupIsOneMomentsState) {
  OtherComputer other([this](int permit) { addPermits(permit, permit); });
  while (permitsIn(data("db1.mdb")) == 20) {
  }
  std::size_t before = 0;
  for (int number = 0; number < 4; ++number) {
    ++desk.time.second;
    desk.session.backupFolder = folder.file("backups/" + std::to_string(number));
    std::filesystem::create_directories(desk.session.backupFolder);
    desk.expect(" Completed", "...");
    desk.click(menu(), "backr");
    const auto folders = findSets(desk.session.backupFolder);
    ASSERT_EQ(folders.size(), 1u);
    const auto set = readSet(folders.front());
    ASSERT_TRUE(set);
    Patient nobody;
    EXPECT_TRUE(verifySet(*set, nobody));
    EXPECT_GE(set->find("db1.mdb")->rows, before);
    before = *set->find("db1.mdb")->rows;
    EXPECT_EQ(permitsIn(folders.front() + "/db1.mdb"), before);
  }
  EXPECT_GT(before, 20u);
}

TEST_F(BackupOffice, TheBackupOnExitIsAsTheSettingsWantIt) {
  struct Trial {
    const char* what;
    bool master;
    int option;
    std::optional<Answer> asked;
    bool saved;
  };
  const Trial trials[] = {{"prompt, yes", true, 0, Answer::Yes, true},
                          {"prompt, no", true, 0, Answer::No, false},
                          {"automatic", true, 1, {}, true},
                          {"manual", true, 2, {}, false},
                          {"field, prompt", false, 0, {}, false},
                          {"field, automatic", false, 1, {}, false}};
  for (const Trial& trial : trials) {
    SCOPED_TRACE(trial.what);
    desk.session.masterComputer = trial.master;
    desk.session.backupOption = trial.option;
    if (trial.asked)
      desk.expect(" Backup database", "Do you want to backup your database?    \nClick 'Yes' to backup.", *trial.asked);
    if (trial.saved)
      desk.expect(" Completed", "...");
    desk.click(menu(), "Quit");
    EXPECT_EQ(sets().size(), trial.saved ? 1u : 0u);
    EXPECT_TRUE(desk.desk.ended() && desk.screens.all().empty());
    desk.session.ended.reset();
    std::filesystem::remove_all(folder.file("backups"));
    std::filesystem::create_directories(folder.file("backups"));
  }
}

TEST_F(BackupOffice, ABackupThatFailsOnExitDoesNotKeepTheProgramOpen) {
  desk.session.backupOption = 1;
  folder.write("data/db1.mdb", "no database");
  desk.expect(" Backup", "The file \"...");
  expectFailure();
  menu().userCloses();
  EXPECT_EQ(desk.session.ended, "quit");
}

TEST_F(BackupOffice, NamesThatAreNoNamesElsewhereAreToldOf) {
  const std::string names[] = {"data/docs/p26-1~1.PDF", "data/docs/a\\b.pdf", "data/docs/a\nb.pdf"};
  for (const std::string& name : names) {
    folder.write(name, "x");
    desk.expect(" Backup", "The file \"...");
    expectFailure();
    desk.click(menu(), "backr");
    EXPECT_TRUE(nothingLeft()) << name;
    std::filesystem::remove(folder.file(name));
  }
}

}  // namespace
}  // namespace zelvo::testing
