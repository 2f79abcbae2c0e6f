#include "shell/backup/backup_set.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "base/checksum.h"
#include "base/comma_record.h"
#include "base/file_trouble.h"
#include "base/files.h"
#include "base/text.h"
#include "data/database_care.h"

namespace zelvo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFormat = "Zelvo backup";
constexpr std::string_view kVersion = "1";
constexpr std::string_view kNoRows = "-";

using Line = std::vector<std::string>;

Error damaged(std::string_view path, std::string_view why) {
  return fileError(FileDeed::Read, path, Trouble::NotOurs, why, "Choose another backup.");
}

std::string checksumOfLines(const std::vector<std::string>& lines) {
  return checksumOf(join(lines, "\r\n") + "\r\n");
}

std::optional<std::uintmax_t> countOf(const std::string& text) {
  std::uintmax_t number = 0;
  const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  return failed == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// A set may come from anywhere: no file of it is looked for, or put, outside of its folder.
bool staysInside(std::string_view name) {
  if (name.empty() || name.front() == '/' || name.find('\\') != std::string_view::npos)
    return false;
  const auto parts = split(name, '/');
  return std::none_of(parts.begin(), parts.end(),
                      [](const std::string& part) { return part.empty() || part == "." || part == ".."; });
}

bool takeFile(BackupSet& set, const Line& line) {
  if (line.size() != 5 || !staysInside(line[1]))
    return false;
  SavedFile file{line[1], std::nullopt, 0, line[4]};
  const auto size = countOf(line[3]);
  const auto rows = countOf(line[2]);
  if (!size || (!rows && line[2] != kNoRows) || file.checksum.size() != 64)
    return false;
  file.size = *size;
  if (rows)
    file.rows = *rows;
  set.files.push_back(std::move(file));
  return true;
}

bool takeMoment(BackupSet& set, const std::string& text) {
  const auto moment = parseIso(text);
  set.made = moment.value_or(DateTime{});
  return moment.has_value();
}

bool takeLine(BackupSet& set, const Line& line) {
  if (line.front() == "file")
    return takeFile(set, line);
  if (line.size() != 2)
    return false;
  if (line.front() == "made")
    return takeMoment(set, line[1]);
  const std::pair<std::string_view, std::string*> texts[] = {{"user", &set.user},
                                                             {"municipality", &set.municipality},
                                                             {"program folder", &set.programFolder},
                                                             {"data folder", &set.dataFolder}};
  for (const auto& [name, text] : texts)
    if (line.front() == name) {
      *text = line[1];
      return true;
    }
  return false;
}

Line valuesOf(const std::string& text) {
  constexpr std::size_t kAll = 100;
  std::size_t position = 0;
  return readCommaValues(text, position, kAll);
}

std::vector<std::string> linesOfSet(const BackupSet& set) {
  std::vector<std::string> lines = {
      writeCommaRecord({std::string(kFormat), std::string(kVersion)}),
      writeCommaRecord({"made", isoText(set.made)}),
      writeCommaRecord({"user", set.user}),
      writeCommaRecord({"municipality", set.municipality}),
      writeCommaRecord({"program folder", set.programFolder}),
      writeCommaRecord({"data folder", set.dataFolder}),
  };
  for (const SavedFile& file : set.files)
    lines.push_back(writeCommaRecord({"file", file.name, file.rows ? std::to_string(*file.rows) : std::string(kNoRows),
                                      std::to_string(file.size), file.checksum}));
  return lines;
}

// The number of rows tells nothing that the checksum does not; it is compared since the office reads it.
Result<void> verifyDatabase(const SavedFile& file, const std::string& path) {
  const Table* table = tableOfDatabase(file.name);
  if (!file.rows && table)
    return damaged(path, "it was damaged already when it was saved");
  if (!table)
    return {};
  if (auto whole = checkDatabase(path); !whole)
    return whole;
  const auto rows = countRows(path, *table);
  if (!rows)
    return rows.error();
  return *rows == *file.rows
             ? Result<void>()
             : damaged(path, "it holds " + std::to_string(*rows) + " records instead of " + std::to_string(*file.rows));
}

Result<void> verifyFile(const BackupSet& set, const SavedFile& file) {
  const std::string path = joinPath(set.folder, file.name);
  const auto sum = checksumOfFile(path);
  if (!sum)
    return sum.error();
  if (*sum != file.checksum)
    return damaged(path, "it was damaged or changed since the backup was made");
  return verifyDatabase(file, path);
}

bool holdsManifest(const std::string& folder) {
  return !folder.ends_with(kUnfinished) && FileExists(joinPath(folder, kManifestName));
}

}  // namespace

std::uintmax_t BackupSet::bytes() const {
  std::uintmax_t sum = 0;
  for (const SavedFile& file : files)
    sum += file.size;
  return sum;
}

std::uintmax_t BackupSet::weight() const {
  std::uintmax_t sum = 0;
  for (const SavedFile& file : files)
    sum += Stretch::weightOf(file.size);
  return sum;
}

std::size_t BackupSet::databases() const {
  return static_cast<std::size_t>(
      std::count_if(files.begin(), files.end(), [](const SavedFile& file) { return file.rows.has_value(); }));
}

const SavedFile* BackupSet::find(std::string_view name) const {
  const auto found =
      std::find_if(files.begin(), files.end(), [&](const SavedFile& file) { return alike(file.name, name); });
  return found == files.end() ? nullptr : &*found;
}

Result<void> writeManifest(const BackupSet& set) {
  auto lines = linesOfSet(set);
  lines.push_back(writeCommaRecord({"end", checksumOfLines(lines)}));
  return writeLines(joinPath(set.folder, kManifestName), lines);
}

Result<BackupSet> readSet(std::string_view folder) {
  const std::string path = joinPath(folder, kManifestName);
  auto lines = readLines(path);
  if (!lines)
    return lines.error();
  if (lines->empty() || valuesOf(lines->front()) != Line{std::string(kFormat), std::string(kVersion)})
    return damaged(path, "it is no manifest of a backup that this program can read");
  const Line last = valuesOf(lines->back());
  lines->pop_back();
  if (last.size() != 2 || last.front() != "end" || last.back() != checksumOfLines(*lines))
    return damaged(path, "it was damaged or changed since the backup was made");
  BackupSet set;
  set.folder = folder;
  for (std::size_t i = 1; i < lines->size(); ++i)
    if (!takeLine(set, valuesOf((*lines)[i])))
      return damaged(path, "its line " + std::to_string(i + 1) + " cannot be read");
  return set;
}

std::vector<std::string> findSets(std::string_view folder) {
  const std::string top = withoutEndSeparator(systemPath(folder));
  if (holdsManifest(top))
    return {top};
  std::vector<std::string> found;
  std::error_code ignored;
  for (fs::directory_iterator entry(top, ignored), end; !ignored && entry != end; entry.increment(ignored))
    if (entry->is_directory(ignored) && holdsManifest(entry->path().string()))
      found.push_back(entry->path().string());
  std::sort(found.rbegin(), found.rend());
  return found;
}

Result<void> verifySet(const BackupSet& set, Progress& progress) {
  Stretch stretch(progress, set.weight());
  for (const SavedFile& file : set.files) {
    if (auto told = stretch.next("Checking " + file.name, file.size); !told)
      return told;
    if (auto whole = verifyFile(set, file); !whole)
      return whole;
  }
  return {};
}

const Table* tableOfDatabase(std::string_view fileName) {
  if (const Table* table = findTableOfFile(fileName))
    return table;
  return alike(fileName, "sbl13.mdb") ? findTable("SBL") : nullptr;
}

}  // namespace zelvo
