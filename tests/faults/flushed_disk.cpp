#include "flushed_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace zelvo::testing {

namespace fs = std::filesystem;

namespace {

struct stat stateOf(const std::string& path) {
  struct stat state {};
  ::stat(path.c_str(), &state);
  return state;
}

/// Read through a handle that is never closed: to close it would drop the program's locks, and let the system give the
/// same number to another file.
std::string readAndHold(const std::string& path) {
  std::string bytes(static_cast<std::size_t>(stateOf(path).st_size), '\0');
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const ssize_t count = ::pread(file, bytes.data(), bytes.size(), 0);
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

}  // namespace

FlushedDisk::FlushedDisk(std::string folder) : folder_(std::move(folder)) {
  noteNames(folder_);
  for (const auto& entry : fs::recursive_directory_iterator(folder_))
    if (entry.is_directory())
      noteNames(entry.path().string());
  for (const auto& [name, file] : names_)
    bytes_[file] = readAndHold(name);
}

void FlushedDisk::flushed(const std::string& path) {
  if (fs::is_directory(path))
    noteNames(path);
  else if (fs::exists(path))
    bytes_[stateOf(path).st_ino] = readAndHold(path);
}

/// A file that was never flushed is found empty.
void FlushedDisk::noteNames(const std::string& folder) {
  std::erase_if(names_, [&](const auto& named) { return fs::path(named.first).parent_path() == folder; });
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (!entry.is_regular_file())
      continue;
    const ino_t file = stateOf(entry.path().string()).st_ino;
    names_[entry.path().string()] = file;
    if (bytes_.try_emplace(file).second)
      readAndHold(entry.path().string());
  }
}

void FlushedDisk::cutPower() const {
  for (const auto& entry : fs::recursive_directory_iterator(folder_))
    if (entry.is_regular_file())
      fs::remove(entry.path());
  for (const auto& [name, file] : names_)
    std::ofstream(name, std::ios::binary) << bytes_.at(file);
}

}  // namespace zelvo::testing
