#pragma once

#include "form/desk.h"
#include "shell/backup/backup_set.h"

namespace zelvo {

// What the menu offers, and does at the end of the day. Each tells the user how it ended.

/// Backs the data folder up to the backup folder of the settings, or, when that is not there, to one that the user
/// picks.
void backUp(Desk& desk);
/// Backs it up to a folder that the user picks; nothing happens when none is picked.
void backUpTo(Desk& desk);
/// The backup on exit, as the settings of the master computer want it: by itself, after a question, or not at all.
void backUpOnExit(Desk& desk);

/// Who does it, and when, for a manifest.
BackupSet manifestHead(const Desk& desk);

}  // namespace zelvo
