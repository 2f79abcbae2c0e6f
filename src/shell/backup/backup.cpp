#include "shell/backup/backup.h"

#include "base/files.h"
#include "base/text.h"
#include "shell/backup/progress_frm.h"
#include "shell/backup/save_files.h"

namespace zelvo {

namespace {

constexpr std::string_view kFailed =
    "The backup operation has failed or canceled.\n"
    "Until successful, you will not have a good set\n"
    "of database files. Please check your source and\n"
    "destination folder locations and try again.     ";

constexpr std::string_view kReminder =
    "Please ensure the safe removal of your\n"
    "removable media and store it in a safe place. ";

std::optional<std::string> pickDestination(Desk& desk) {
  return desk.pickers.folder("Locate the drive and directory to store the backup databases.",
                             desk.session.backupFolder);
}

// Saved among the attachments, one backup would hold all the earlier ones.
Result<void> refuseDestination(const Session& session, std::string_view folder) {
  if (!folderExists(folder))
    return Error{Trouble::NotFound, "The folder \"" + std::string(folder) + "\" is not there."};
  for (const std::string_view saved : {"docs", "pics"}) {
    const std::string inside = joinPath(session.dataFolder, saved) + "/";
    if ((withoutEndSeparator(systemPath(folder)) + "/").starts_with(inside))
      return Error{Trouble::BadInput, "The folder \"" + std::string(folder) +
                                          "\" is one of those that are backed up. Please choose another one."};
  }
  return {};
}

Result<std::string> save(Desk& desk, const std::string& destination) {
  if (auto refused = refuseDestination(desk.session, destination); !refused)
    return refused.error();
  const auto files = filesOf(desk.session.dataFolder);
  if (!files)
    return files.error();
  std::string folder;
  ProgressFrm progress(desk, "Backup", "Backing up to " + destination, [&](Progress& waiting) -> Result<void> {
    const auto set = saveFiles({destination, "Zelvo-backup", manifestHead(desk)}, *files, waiting);
    if (!set)
      return set.error();
    folder = set->folder;
    return {};
  });
  desk.screens.showModal(progress);
  return progress.outcome() ? Result<std::string>(folder) : progress.outcome().error();
}

// The reason comes first: it says what can be done about it.
void tellFailed(Desk& desk, const Error& error) {
  if (error.trouble != Trouble::Cancelled)
    desk.messages.tell(" Backup", error.message, Icon::Exclamation);
  desk.messages.tell(" Backup Failed", kFailed, Icon::Critical);
}

void backUpInto(Desk& desk, const std::string& destination) {
  const auto folder = save(desk, destination);
  if (!folder)
    return tellFailed(desk, folder.error());
  desk.messages.tell(" Completed", "You will find the backup database on the location you selected:\n" + *folder +
                                       "\n\n" + std::string(kReminder));
}

}  // namespace

void backUp(Desk& desk) {
  const std::string& folder = desk.session.backupFolder;
  if (folderExists(folder))
    return backUpInto(desk, folder);
  desk.messages.tell(
      " Backup",
      "The default backup destination " + folder + " cannot be found.\nYou must select the destination manually.",
      Icon::Exclamation);
  backUpTo(desk);
}

void backUpTo(Desk& desk) {
  if (const auto folder = pickDestination(desk))
    backUpInto(desk, *folder);
}

void backUpOnExit(Desk& desk) {
  constexpr int kPrompt = 0, kAutomatic = 1;
  const Session& session = desk.session;
  if (!session.masterComputer)
    return;
  const bool wanted =
      session.backupOption == kAutomatic ||
      (session.backupOption == kPrompt && desk.messages.confirm(" Backup database",
                                                                "Do you want to backup your database?    \n"
                                                                "Click 'Yes' to backup."));
  if (wanted)
    backUp(desk);
}

BackupSet manifestHead(const Desk& desk) {
  const Session& session = desk.session;
  BackupSet head;
  head.made = desk.clock.now();
  head.user = session.userId;
  head.municipality = session.municipality.name;
  head.programFolder = session.programFolder;
  head.dataFolder = session.dataFolder;
  return head;
}

}  // namespace zelvo
