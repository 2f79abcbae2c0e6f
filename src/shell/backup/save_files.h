#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/backup/backup_set.h"

namespace zelvo {

/// A file that is to be saved.
struct SourceFile {
  std::string name;              ///< below the data folder: "db1.mdb", "docs/P26-1~1.pdf"
  const Table* table = nullptr;  ///< of a database, which is copied by the store itself
  std::uintmax_t size = 0;       ///< as far as it is known before
};

/// What a data folder holds: its databases, what lies in "docs" and "pics" and below, and its lists. The lists come
/// last, so that the next numbers of a backup are never behind its records. How a server is reached stays where it is.
Result<std::vector<SourceFile>> filesOf(std::string_view dataFolder);

struct SaveOrder {
  std::string into;  ///< the folder that the set is to stand in; it must be there
  std::string name;  ///< "Zelvo-backup"; the date and time are put behind it
  BackupSet about;   ///< who saves what, and when; its files are not looked at
  /// A database that is damaged is saved as the file that it is: before a restore it is to be kept whatever it holds.
  bool evenDamaged = false;
};

/// Makes a set of these files: copied, read back and compared, with a manifest, and given its name as the very last
/// thing. Whatever happens before leaves nothing behind but, at worst, a folder whose name ends in ".making". Gives the
/// set as it stands.
Result<BackupSet> saveFiles(const SaveOrder& order, const std::vector<SourceFile>& files, Progress& progress);

/// Copies one file that is no database, and reads it back.
Result<SavedFile> copyAndCompare(const std::string& from, const std::string& to, const std::string& name);

/// Refuses when the disk of the folder has less room than that.
Result<void> refuseWithoutRoom(std::string_view folder, std::uintmax_t needed);

/// "3.4 MB"
std::string sizeText(std::uintmax_t bytes);

}  // namespace zelvo
