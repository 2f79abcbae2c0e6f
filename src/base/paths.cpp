#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "base/file_trouble.h"
#include "base/files.h"
#include "base/text.h"

namespace zelvo {

namespace {

namespace fs = std::filesystem;

bool isSeparator(char c) {
  return c == '/' || c == '\\';
}

bool there(const std::string& path) {
  struct stat state {};
  return ::lstat(path.c_str(), &state) == 0;
}

bool isKind(const std::string& path, mode_t kind) {
  struct stat state {};
  return ::stat(path.c_str(), &state) == 0 && (state.st_mode & S_IFMT) == kind;
}

/// The names that a folder holds; none for a folder that cannot be read.
std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed))
    names.push_back(entry->path().filename().string());
  return names;
}

/// The name that stands in the folder under another case; of several the first in byte order, so that every computer
/// finds the same one. The name as given when there is none.
std::string nameIn(const std::string& folder, const std::string& name) {
  std::string found;
  for (const std::string& candidate : namesIn(folder)) {
    if (alike(candidate, name) && (found.empty() || candidate < found))
      found = candidate;
  }
  return found.empty() ? name : found;
}

std::string appended(std::string folder, std::string_view name) {
  if (!folder.empty() && folder.back() != '/')
    folder.push_back('/');
  return folder.append(name);
}

/// The path with each part that is not there as written put in the case that is there.
std::string foundPath(const std::string& path) {
  std::string found = path.front() == '/' ? "/" : "";
  bool lost = false;
  for (const std::string& part : split(path, '/')) {
    if (part.empty())
      continue;
    std::string next = appended(found, part);
    if (!lost && !there(next)) {
      next = appended(found, nameIn(found.empty() ? "." : found, part));
      lost = !there(next);
    }
    found = std::move(next);
  }
  return found;
}

/// Whether a name matches a pattern of "*" and "?", both folded.
bool matches(std::string_view name, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t inName = 0;
  std::size_t star = std::string_view::npos;
  std::size_t starName = 0;
  while (inName < name.size()) {
    std::size_t nameNext = inName;
    std::size_t patternNext = at;
    const char32_t wanted = nextCharacter(pattern, patternNext);
    const char32_t character = nextCharacter(name, nameNext);
    if (wanted == U'*') {
      star = at = patternNext;
      starName = inName;
    } else if (wanted == U'?' || (wanted == character && patternNext > at)) {
      at = patternNext;
      inName = nameNext;
    } else if (star != std::string_view::npos) {
      at = star;
      nextCharacter(name, starName);
      inName = starName;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

bool lessInList(const std::string& a, const std::string& b) {
  const int order = compareFolded(a, b);
  return order != 0 ? order < 0 : a < b;
}

}  // namespace

std::string systemPath(std::string_view path) {
  std::string written(path);
  std::replace(written.begin(), written.end(), '\\', '/');
  return written.empty() || there(written) ? written : foundPath(written);
}

std::string joinPath(std::string_view folder, std::string_view name) {
  if (folder.empty())
    return systemPath(name);
  while (!name.empty() && isSeparator(name.front()))
    name.remove_prefix(1);
  std::string path(withoutEndSeparator(folder));
  return systemPath(name.empty() ? path : appended(std::move(path), name));
}

std::string folderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  if (separator == std::string_view::npos)
    return "";
  return std::string(path.substr(0, std::max<std::size_t>(separator, 1)));
}

std::string fileNameOf(std::string_view path) {
  return std::string(path.substr(path.find_last_of("/\\") + 1));
}

std::string fileNameFor(std::string_view title, std::string_view extension) {
  std::string name(trim(title));
  for (char& letter : name)
    if (std::string_view("\\/:*?\"<>|").find(letter) != std::string_view::npos)
      letter = '-';
  return name + std::string(extension);
}

std::string withoutEndSeparator(std::string_view folder) {
  while (folder.size() > 1 && isSeparator(folder.back()))
    folder.remove_suffix(1);
  return std::string(folder);
}

bool FileExists(std::string_view path) {
  const std::string file = systemPath(path);
  return !trim(path).empty() && !isKind(file, S_IFDIR) && ::access(file.c_str(), R_OK) == 0;
}

bool folderExists(std::string_view path) {
  return isKind(systemPath(path), S_IFDIR);
}

Result<void> makeFolder(std::string_view path) {
  const std::string folder = withoutEndSeparator(systemPath(path));
  std::error_code failed;
  fs::create_directories(folder, failed);
  if (failed)
    return fileError(FileDeed::MakeFolder, folder, failed.value());
  return {};
}

std::vector<std::string> listFiles(std::string_view folder, std::string_view pattern) {
  const std::string place = systemPath(folder);
  const std::string wanted = pattern == "*.*" ? "*" : fold(pattern);
  std::vector<std::string> names = namesIn(place);
  std::erase_if(names, [&](const std::string& name) {
    return !matches(fold(name), wanted) || !isKind(appended(place, name), S_IFREG);
  });
  std::sort(names.begin(), names.end(), lessInList);
  return names;
}

}  // namespace zelvo
