#include "shell/backup/restore_set.h"

#include <algorithm>
#include <filesystem>

#include "base/checksum.h"
#include "base/files.h"
#include "base/text.h"
#include "data/connection.h"
#include "data/database_care.h"
#include "shell/backup/save_files.h"

namespace zelvo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSetAside = "set-aside";
constexpr std::string_view kBeside = ".restoring";

/// Gives what was saved the place of what is there.
Result<void> swapDatabase(const std::string& from, const std::string& to) {
  const std::string beside = to + std::string(kBeside);
  if (FileExists(beside))
    if (auto removed = deleteFile(beside); !removed)
      return removed;
  if (auto copied = copyDatabase(from, beside); !copied)
    return copied;
  if (auto removed = removeJournal(to); !removed)
    return removed;
  return renameFile(beside, to);
}

// A sound database is refilled where it lies, so that the computers that have it open read on in it. One that is
// damaged, or was saved as the damaged file that it is, is exchanged.
Result<void> placeDatabase(const std::string& from, const std::string& to) {
  if (!FileExists(to))
    return copyDatabase(from, to);
  return checkDatabase(to) ? replaceDatabase(from, to) : swapDatabase(from, to);
}

Result<void> placeFile(const std::string& from, const std::string& to, bool database) {
  if (auto made = makeFolder(folderOf(to)); !made)
    return made;
  return database ? placeDatabase(from, to) : copyFile(from, to);
}

/// One restore: what it replaces, and the way back.
class Restore {
 public:
  Restore(const RestoreOrder& order, Progress& progress) : order_(order), progress_(progress) {}

  Result<void> setAside();
  Result<void> placeAll();
  const std::string& asideFolder() const { return aside_.folder; }

 private:
  std::string inPlace(const SavedFile& file) const { return joinPath(order_.dataFolder, file.name); }
  void collectChanged();
  bool isSame(const SavedFile& file) const;
  std::vector<SourceFile> present() const;
  Result<void> place(const SavedFile& file);
  Result<void> putBack(const SavedFile& file);
  Result<void> putAllBack();
  Result<void> withdraw(const Error& why);

  const RestoreOrder& order_;
  Progress& progress_;
  BackupSet aside_;
  std::vector<SavedFile> changed_;
  std::vector<SavedFile> placed_;
};

// Attachments are many and seldom change. A database is never read as a mere file while it is in place.
bool Restore::isSame(const SavedFile& file) const {
  std::error_code unknown;
  const std::string path = inPlace(file);
  if (file.rows || fs::file_size(path, unknown) != file.size || unknown)
    return false;
  const auto sum = checksumOfFile(path);
  return sum && *sum == file.checksum;
}

void Restore::collectChanged() {
  for (const SavedFile& file : order_.set.files)
    if (!isSame(file))
      changed_.push_back(file);
}

std::vector<SourceFile> Restore::present() const {
  std::vector<SourceFile> files;
  std::error_code unknown;
  for (const SavedFile& file : changed_)
    if (const std::string path = inPlace(file); fs::is_regular_file(path, unknown))
      files.push_back({file.name, file.rows ? tableOfDatabase(file.name) : nullptr, fs::file_size(path, unknown)});
  return files;
}

Result<void> Restore::setAside() {
  collectChanged();
  const std::string folder = joinPath(order_.dataFolder, kSetAside);
  if (auto made = makeFolder(folder); !made)
    return made;
  std::uintmax_t needed = 0;
  for (const SavedFile& file : changed_)
    needed += file.size;
  for (const SourceFile& file : present())
    needed += file.size;
  if (auto refused = refuseWithoutRoom(folder, needed); !refused)
    return refused;
  auto saved = saveFiles({folder, "before-restore", order_.about, true}, present(), progress_);
  if (!saved)
    return saved.error();
  aside_ = std::move(*saved);
  return writeLines(joinPath(order_.dataFolder, kRestoreMark), {aside_.folder});
}

Result<void> Restore::place(const SavedFile& file) {
  placed_.push_back(file);
  return placeFile(joinPath(order_.set.folder, file.name), inPlace(file), file.rows.has_value());
}

Result<void> Restore::placeAll() {
  Stretch stretch(progress_, order_.set.weight());
  for (const SavedFile& file : changed_) {
    if (auto told = stretch.next("Restoring " + file.name, file.size); !told)
      return withdraw(told.error());
    if (auto placed = place(file); !placed)
      return withdraw(placed.error());
  }
  return deleteFile(joinPath(order_.dataFolder, kRestoreMark));
}

// What was not there before goes again.
Result<void> Restore::putBack(const SavedFile& file) {
  const SavedFile* before = aside_.find(file.name);
  if (!before)
    return FileExists(inPlace(file)) ? deleteFile(inPlace(file)) : Result<void>();
  const std::string from = joinPath(aside_.folder, before->name);
  if (file.rows && !before->rows)  // it was damaged
    return copyFile(from, inPlace(file));
  return placeFile(from, inPlace(file), file.rows.has_value());
}

Result<void> Restore::putAllBack() {
  Result<void> all;
  for (const SavedFile& file : placed_)
    if (auto back = putBack(file); !back && all)
      all = back;
  return all;
}

Result<void> Restore::withdraw(const Error& why) {
  if (const auto back = putAllBack(); !back)
    return Error{back.error().trouble, why.message + "\n\nNot everything could be put back: " + back.error().message +
                                           "\nThe data as they were before are in " + aside_.folder + "."};
  static_cast<void>(deleteFile(joinPath(order_.dataFolder, kRestoreMark)));
  return Error{why.trouble, why.message + "\n\nEverything was put back as it was before."};
}

Error nothingDone(const Error& why) {
  return {why.trouble, why.message + "\n\nNothing was restored."};
}

}  // namespace

Result<std::string> restoreSet(const RestoreOrder& order, Progress& progress) {
  if (auto whole = verifySet(order.set, progress); !whole)
    return nothingDone(whole.error());
  if (auto refused = refuseWhileInUse(order.dataFolder); !refused)
    return nothingDone(refused.error());
  Restore restore(order, progress);
  if (auto saved = restore.setAside(); !saved)
    return nothingDone(saved.error());
  if (auto placed = restore.placeAll(); !placed)
    return placed.error();
  return restore.asideFolder();
}

// One that is damaged is no reason to refuse: it is to be replaced.
Result<void> refuseWhileInUse(std::string_view dataFolder) {
  for (const std::string& name : listFiles(dataFolder, "*.mdb")) {
    const auto free = tableOfDatabase(name) ? refuseWhileWritten(joinPath(dataFolder, name)) : Result<void>();
    if (!free && free.error().trouble == Trouble::Busy)
      return free;
  }
  return {};
}

}  // namespace zelvo
