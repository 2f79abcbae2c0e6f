#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "data/catalogue.h"
#include "shell/backup/progress.h"

namespace zelvo {

// A backup set is a folder that looks like the data folder that it was made of: databases and lists in it, "docs",
// "pics" and "checklist" below it, and a manifest that tells what belongs to it. The manifest is a text of comma-separated lines:
//
//   Zelvo backup,1
//   made,2026-03-09 10:15:00
//   user,CLERK
//   municipality,Village of Alder Glen
//   program folder,C:\Zelvo
//   data folder,S:\town\data
//   file,db1.mdb,300,1245184,9f86d081...        name, rows of its table ("-" for other files), bytes, SHA-256
//   ...
//   end,5f3c...                                 SHA-256 of all the lines above, each with its line end
//
// A set gets its name when it is whole. What is being written has a name that ends in ".making".

struct SavedFile {
  std::string name;                 ///< below the folder, "/" between its parts: "docs/P26-1~1.pdf"
  std::optional<std::size_t> rows;  ///< of a database
  std::uintmax_t size = 0;
  std::string checksum;
};

struct BackupSet {
  std::string folder;
  DateTime made;
  std::string user, municipality, programFolder, dataFolder;
  std::vector<SavedFile> files;

  std::uintmax_t bytes() const;
  std::uintmax_t weight() const;
  std::size_t databases() const;
  const SavedFile* find(std::string_view name) const;  ///< any case; null when it does not belong to the set
};

inline constexpr std::string_view kManifestName = "backup-manifest.txt";
inline constexpr std::string_view kUnfinished = ".making";

Result<void> writeManifest(const BackupSet& set);
/// The set of a folder, as its manifest tells it. Errors name the manifest and what is wrong with it.
Result<BackupSet> readSet(std::string_view folder);
/// The folders that hold a manifest, readable or not: `folder` itself, or those right below it, the latest name first.
std::vector<std::string> findSets(std::string_view folder);

/// Reads every file of the set and compares it with the manifest. The error names the first one that is damaged or
/// missing.
Result<void> verifySet(const BackupSet& set, Progress& progress);

/// The table of one of the office's database files, its spare parcel files included; null for any other file.
const Table* tableOfDatabase(std::string_view fileName);

}  // namespace zelvo
