// What of a data folder belongs to a backup.

#include <algorithm>
#include <filesystem>

#include "base/file_trouble.h"
#include "base/files.h"
#include "base/text.h"
#include "data/server_folder.h"
#include "shell/backup/save_files.h"

namespace zelvo {

namespace {

namespace fs = std::filesystem;

using Files = std::vector<SourceFile>;

constexpr std::string_view kFolders[] = {"docs", "pics", "checklist"};  // each with all below it
// What is in the making, or is of use on the computer that wrote it alone. What tells how a server is reached may hold
// a password, and leads a restored folder to the tables of the old one.
constexpr std::string_view kLeftOut[] = {"server.txt", "schema.txt", "restore-unfinished.txt", kManifestName};
constexpr std::string_view kLeftOutEndings[] = {".tmp", "-journal", "-wal", "-shm", ".ldb", kUnfinished};

bool isLeftOut(std::string_view name) {
  const std::string small = lower(name);
  return std::ranges::find(kLeftOut, small) != std::ranges::end(kLeftOut) ||
         std::ranges::any_of(kLeftOutEndings, [&](std::string_view ending) { return small.ends_with(ending); });
}

std::uintmax_t sizeOf(const std::string& path) {
  std::error_code unknown;
  const auto size = fs::file_size(path, unknown);
  return unknown ? 0 : size;
}

void addServerTables(Files& files) {
  for (const Table& table : catalogue())
    files.push_back({std::string(table.file), &table, 0});
}

void addDatabases(const std::string& folder, Files& files) {
  for (const std::string& name : listFiles(folder, "*.mdb"))
    if (const Table* table = tableOfDatabase(name))
      files.push_back({name, table, sizeOf(folder + "/" + name)});
}

void addLists(const std::string& folder, bool onServer, Files& files) {
  for (const std::string& name : listFiles(folder, "*.*"))
    if (!isLeftOut(name) && (onServer || !tableOfDatabase(name)))
      files.push_back({name, nullptr, sizeOf(folder + "/" + name)});
}

// A folder that cannot be read to its end would leave attachments out without a word.
Result<void> addFolder(const std::string& dataFolder, std::string_view name, Files& files) {
  const std::string folder = joinPath(dataFolder, name);
  if (!folderExists(folder))
    return {};
  std::error_code failed;
  fs::recursive_directory_iterator entry(folder, failed);
  for (; !failed && entry != fs::recursive_directory_iterator(); entry.increment(failed))
    if (std::error_code gone; entry->is_regular_file(gone) && !isLeftOut(entry->path().filename().string()))
      files.push_back(
          {entry->path().lexically_relative(dataFolder).generic_string(), nullptr, sizeOf(entry->path().string())});
  return failed ? fileError(FileDeed::Read, folder, failed.value()) : Result<void>();
}

Error noDatabases(const std::string& folder, std::string_view why) {
  return {Trouble::NotFound,
          "The data folder \"" + folder + "\" " + std::string(why) + ". Check it in the preferences."};
}

Result<void> refuseNames(const std::string& folder, const Files& files) {
  std::vector<std::string> names;
  for (const SourceFile& file : files) {
    const auto odd = [](char c) { return c == '\\' || static_cast<unsigned char>(c) < ' '; };
    if (std::ranges::any_of(file.name, odd))
      return fileError(FileDeed::Copy, folder + "/" + file.name, Trouble::BadInput,
                       "its name holds a backslash or a line break", "Give it another name.");
    names.push_back(fold(file.name));
  }
  std::ranges::sort(names);
  if (const auto twice = std::ranges::adjacent_find(names); twice != names.end())
    return fileError(FileDeed::Copy, folder + "/" + *twice, Trouble::Duplicate,
                     "there is another file whose name differs in capitals alone", "Give one of them another name.");
  return {};
}

}  // namespace

Result<std::vector<SourceFile>> filesOf(std::string_view dataFolder) {
  const std::string folder = withoutEndSeparator(systemPath(dataFolder));
  if (!folderExists(folder))
    return noDatabases(folder, "is not there");
  Files files;
  const bool onServer = keepsOnServer(folder);
  onServer ? addServerTables(files) : addDatabases(folder, files);
  if (files.empty())
    return noDatabases(folder, "holds no databases");
  for (const std::string_view name : kFolders)
    if (auto added = addFolder(folder, name, files); !added)
      return added.error();
  addLists(folder, onServer, files);
  if (auto refused = refuseNames(folder, files); !refused)
    return refused.error();
  return files;
}

}  // namespace zelvo
