#include <algorithm>
#include <utility>

#include "base/files.h"
#include "base/text.h"
#include "shell/setting_values.h"
#include "shell/settings.h"

namespace zelvo {

namespace {

using Lines = std::vector<std::string>;

/// The lines of the file that is there now; none when there is none yet. One that cannot be read is not replaced: its
/// lines would be lost.
Result<Lines> linesToKeep(const std::string& path) {
  auto lines = readLines(path, kSettingFileLimit);
  return !lines && lines.error().trouble == Trouble::NotFound ? Result<Lines>(Lines()) : lines;
}

/// Writes the lines before those of the present file from `known` on, which mean something to somebody else.
Result<void> writeBefore(const std::string& path, Lines lines, const Lines& present, std::size_t known) {
  for (std::size_t i = known; i < present.size(); ++i)
    lines.push_back(present[i]);
  return writeLines(path, lines);
}

Result<void> writeFile(const Session& session, const SettingFile& file) {
  const std::string path = joinPath(session.programFolder, file.file);
  const auto present = linesToKeep(path);
  if (!present)
    return present.error();
  Lines lines;
  for (const SettingLine& setting : file.lines)
    lines.push_back(writtenLine(setting, session));
  return writeBefore(path, std::move(lines), *present, file.lines.size());
}

Result<std::string> pathInDataFolder(const Session& session, std::string_view name) {
  if (session.dataFolder.empty())
    return Error{Trouble::NotFound, "There is no data folder to keep " + std::string(name) +
                                        " in. Please name the location of the databases first."};
  return joinPath(session.dataFolder, name);
}

/// A file of the data folder that is to be replaced.
struct SharedFile {
  std::string path;
  Lines present;
};
Result<SharedFile> sharedFile(const Session& session, std::string_view name) {
  auto path = pathInDataFolder(session, name);
  if (!path)
    return path.error();
  auto present = linesToKeep(*path);
  if (!present)
    return present.error();
  return SharedFile{std::move(*path), std::move(*present)};
}

/// The place behind the last entry that the program reads from a list whose blank lines do not count.
std::size_t behindEntries(const Lines& lines, std::size_t limit) {
  std::size_t entries = 0;
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (!trim(lines[i]).empty() && ++entries == limit)
      return i + 1;
  return lines.size();
}

Result<void> writeList(const Session& session, const ListFile& file) {
  const auto shared = sharedFile(session, file.file);
  if (!shared)
    return shared.error();
  Lines lines;
  for (const std::string& entry : session.*file.list)
    if (!trim(entry).empty())
      lines.push_back(withoutLineBreaks(file.trimmed ? trim(entry) : entry));
  return writeBefore(shared->path, std::move(lines), shared->present, behindEntries(shared->present, file.limit));
}

// A code keeps its place, so the places up to the lines that are kept stay filled, with blank lines if need be.
Result<void> writeCodes(const Session& session, const CodeFile& file, const Lines& codes) {
  const auto shared = sharedFile(session, file.file);
  if (!shared)
    return shared.error();
  Lines lines;
  for (std::size_t i = 0; i < std::min(codes.size(), file.limit); ++i)
    lines.push_back(withoutLineBreaks(codes[i]));
  if (shared->present.size() > file.limit)
    lines.resize(file.limit);
  else
    while (!lines.empty() && trim(lines.back()).empty())
      lines.pop_back();
  return writeBefore(shared->path, std::move(lines), shared->present, file.limit);
}

Result<void> writeSeed(const Session& session, const SeedFile& file) {
  const auto shared = sharedFile(session, file.file);
  if (!shared)
    return shared.error();
  return writeBefore(shared->path, {withoutLineBreaks(session.seeds.*file.seed)}, shared->present, 1);
}

}  // namespace

Result<void> writeSettings(const Session& session) {
  return writeFile(session, kSettingsFile);
}

Result<void> writeDefaults(const Session& session) {
  return writeFile(session, kDefaultsFile);
}

Result<void> writeBrowserChoice(const Session& session) {
  return writeFile(session, kBrowserFile);
}

Result<void> writeNextNumbers(const Session& session) {
  for (const SeedFile& file : kSeedFiles)
    if (auto written = writeSeed(session, file); !written)
      return written;
  return {};
}

Result<void> writeInspectors(const Session& session) {
  return writeList(session, kInspectorsFile);
}

Result<void> writeInspectionCodes(const Session& session, const InspectionCodes& codes) {
  if (auto written = writeCodes(session, kBuildingCodesFile, codes.building); !written)
    return written;
  return writeCodes(session, kOtherCodesFile, codes.other);
}

}  // namespace zelvo
