#include "shell/backup/save_files.h"

#include <algorithm>
#include <filesystem>

#include "base/checksum.h"
#include "base/file_trouble.h"
#include "base/files.h"
#include "base/number.h"
#include "base/open_file.h"
#include "base/text.h"
#include "data/connection.h"
#include "data/database_care.h"

namespace zelvo {

namespace {

namespace fs = std::filesystem;

constexpr int kTries = 3;

std::string stampOf(const DateTime& moment) {
  return datePicture(moment, "yyyy-mm-dd") + "-" + replaceAll(datePicture(moment, "hh:mm"), ":", "");
}

Error notTheSame(const std::string& path) {
  return fileError(FileDeed::Copy, path, Trouble::Failed, "what was read back is not what was written",
                   "Use another disk.");
}

/// A set in the making; gone with all that is in it unless it is finished.
class Making {
 public:
  Making(std::string folder, std::string stem) : into_(std::move(folder)), stem_(std::move(stem)) {}
  Making(const Making&) = delete;
  Making& operator=(const Making&) = delete;
  ~Making() {
    std::error_code ignored;
    if (!folder_.empty())
      fs::remove_all(folder_, ignored);
  }

  const std::string& folder() const { return folder_; }

  /// Two backups of the same minute, or of two computers, stand side by side.
  Result<void> begin() {
    std::error_code failed;
    for (int number = 1; !failed; ++number) {
      name_ = into_ + "/" + stem_ + (number > 1 ? "-" + std::to_string(number) : "");
      if (!fs::exists(name_, failed) && !failed && fs::create_directory(name_ + std::string(kUnfinished), failed)) {
        folder_ = name_ + std::string(kUnfinished);
        return {};
      }
    }
    return fileError(FileDeed::MakeFolder, name_, failed.value());
  }

  Result<std::string> finish() {
    std::error_code failed;
    fs::rename(folder_, name_, failed);
    if (failed)
      return fileError(FileDeed::Rename, folder_, failed.value());
    folder_.clear();
    if (OpenFile parent(into_, O_RDONLY | O_DIRECTORY); parent.isOpen() && parent.flush() == EIO)
      return fileError(FileDeed::Write, name_, EIO);
    return name_;
  }

 private:
  std::string into_, stem_, name_, folder_;
};

Result<SavedFile> described(const std::string& path, const std::string& name, std::optional<std::size_t> rows) {
  const auto sum = checksumOfFile(path);
  if (!sum)
    return sum.error();
  std::error_code unknown;
  return SavedFile{name, rows, fs::file_size(path, unknown), *sum};
}

// Others work on while the database is copied: the copy was made between the two counts.
Result<bool> copyOnce(const std::string& from, const std::string& to, const Table& table, std::size_t& rows) {
  const auto before = countRows(from, table);
  if (!before)
    return before.error();
  if (auto copied = copyDatabase(from, to); !copied)
    return copied.error();
  if (auto whole = checkDatabase(to); !whole)
    return whole.error();
  const auto held = countRows(to, table);
  const auto after = countRows(from, table);
  if (!held || !after)
    return (held ? after : held).error();
  rows = *held;
  return std::min(*before, *after) <= rows && rows <= std::max(*before, *after);
}

Result<SavedFile> saveDatabase(const std::string& from, const std::string& to, const SourceFile& file) {
  for (int tries = 0; tries < kTries; ++tries) {
    std::size_t rows = 0;
    const auto good = copyOnce(from, to, *file.table, rows);
    if (!good)
      return good.error();
    if (*good)
      return described(to, file.name, rows);
    if (auto removed = deleteFile(to); !removed)
      return removed.error();
  }
  return notTheSame(to);
}

Result<SavedFile> saveDamaged(const std::string& from, const std::string& to, const SourceFile& file) {
  if (FileExists(to))
    if (auto removed = deleteFile(to); !removed)
      return removed.error();
  return copyAndCompare(from, to, file.name);
}

Result<SavedFile> saveOne(const std::string& from, const std::string& to, const SourceFile& file, bool evenDamaged) {
  if (!file.table)
    return copyAndCompare(from, to, file.name);
  auto saved = saveDatabase(from, to, file);
  if (saved || !evenDamaged || saved.error().trouble == Trouble::Full || saved.error().trouble == Trouble::Busy)
    return saved;
  return saveDamaged(from, to, file);
}

std::uintmax_t weightOf(const std::vector<SourceFile>& files) {
  std::uintmax_t sum = 0;
  for (const SourceFile& file : files)
    sum += Stretch::weightOf(file.size);
  return sum;
}

bool isGone(const SourceFile& file, const std::string& path) {
  std::error_code unknown;
  return !file.table && !fs::exists(path, unknown) && !unknown;
}

Result<void> saveAll(const SaveOrder& order, const std::vector<SourceFile>& files, BackupSet& set, Progress& progress) {
  Stretch stretch(progress, weightOf(files));
  for (const SourceFile& file : files) {
    if (auto told = stretch.next("Saving " + file.name, file.size); !told)
      return told;
    const std::string from = joinPath(order.about.dataFolder, file.name);
    if (isGone(file, from))  // an attachment that somebody removed meanwhile
      continue;
    const std::string to = joinPath(set.folder, file.name);
    if (auto made = makeFolder(folderOf(to)); !made)
      return made;
    auto saved = saveOne(from, to, file, order.evenDamaged);
    if (!saved)
      return saved.error();
    set.files.push_back(std::move(*saved));
  }
  return progress.goesOn("Finishing", 1);
}

}  // namespace

// A list that another computer changes just then is copied anew.
Result<SavedFile> copyAndCompare(const std::string& from, const std::string& to, const std::string& name) {
  for (int tries = 0; tries < kTries; ++tries) {
    if (auto copied = copyFile(from, to); !copied)
      return copied.error();
    const auto original = checksumOfFile(from);
    auto copy = described(to, name, std::nullopt);
    if (!original || !copy)
      return original ? copy.error() : original.error();
    if (*original == copy->checksum)
      return copy;
  }
  return notTheSame(to);
}

Result<BackupSet> saveFiles(const SaveOrder& order, const std::vector<SourceFile>& files, Progress& progress) {
  std::uintmax_t needed = 0;
  for (const SourceFile& file : files)
    needed += file.size;
  if (auto refused = refuseWithoutRoom(order.into, needed); !refused)
    return refused.error();
  Making making(withoutEndSeparator(systemPath(order.into)), order.name + "-" + stampOf(order.about.made));
  if (auto begun = making.begin(); !begun)
    return begun.error();
  BackupSet set = order.about;
  set.folder = making.folder();
  set.files.clear();
  if (auto saved = saveAll(order, files, set, progress); !saved)
    return saved.error();
  if (auto written = writeManifest(set); !written)
    return written.error();
  const auto finished = making.finish();
  if (!finished)
    return finished.error();
  set.folder = *finished;
  return set;
}

Result<void> refuseWithoutRoom(std::string_view folder, std::uintmax_t needed) {
  constexpr std::uintmax_t kSpare = 2u << 20;
  std::error_code unknown;
  const auto room = fs::space(systemPath(folder), unknown);
  if (unknown || room.available >= needed + kSpare)
    return {};
  return Error{Trouble::Full, "There is not enough room in \"" + std::string(folder) + "\": " + sizeText(needed) +
                                  " are needed and " + sizeText(room.available) +
                                  " are free. Make room on the disk, or choose another one."};
}

std::string sizeText(std::uintmax_t bytes) {
  constexpr double kKilo = 1024, kMega = kKilo * kKilo;
  const double size = static_cast<double>(bytes);
  return size < kMega ? numberPicture(size / kKilo, "#0") + " KB" : numberPicture(size / kMega, "#,##0.0") + " MB";
}

}  // namespace zelvo
