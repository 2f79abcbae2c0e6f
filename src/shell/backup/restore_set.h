#pragma once

#include <string>

#include "shell/backup/backup_set.h"

namespace zelvo {

/// A file of the data folder that tells of a restore that has not come to its end; its line names the set that holds
/// the data as they were before.
inline constexpr std::string_view kRestoreMark = "restore-unfinished.txt";

struct RestoreOrder {
  BackupSet set;
  std::string dataFolder;
  BackupSet about;  ///< who restores, and when
};

/// Puts the files of a set into the data folder. First the set is read from end to end and compared with its manifest;
/// then what it is to replace is saved, as a set of its own, in the folder "set-aside" of the data folder, where it
/// stays. Each database is then replaced as a whole. What the set does not hold stays as it is. When anything fails, or
/// the user gives up, everything that was replaced is put back, and the error says what was wrong. Gives the folder of
/// what was set aside.
Result<std::string> restoreSet(const RestoreOrder& order, Progress& progress);

/// The databases of the data folder that another computer is writing to, or that cannot be opened, refuse a restore.
Result<void> refuseWhileInUse(std::string_view dataFolder);

}  // namespace zelvo
