#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include <stdlib.h>

namespace zelvo {

/// A folder of a test's own, empty at first and gone with everything in it when the test ends.
class TempFolder {
 public:
  TempFolder() : path_((std::filesystem::temp_directory_path() / "zelvo-test-XXXXXX").string()) {
    if (::mkdtemp(path_.data()) == nullptr)
      throw std::runtime_error("no temporary folder " + path_);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    openUp();
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& path() const { return path_; }
  /// The path of a file in the folder, there or not; `name` may lead into folders below ("docs/0001.rtf").
  std::string file(std::string_view name) const { return path_ + "/" + std::string(name); }

  /// Makes the file, with the folders above it, of just these bytes.
  void write(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories(std::filesystem::path(file(name)).parent_path());
    std::ofstream out(file(name), std::ios::binary | std::ios::trunc);
    if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
      throw std::runtime_error("cannot write " + file(name));
  }

  /// The bytes of the file; a file that is not there fails the test.
  std::string read(std::string_view name) const {
    std::ifstream in(file(name), std::ios::binary);
    if (!in)
      throw std::runtime_error("cannot read " + file(name));
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  /// A test may have locked folders up; what cannot be read cannot be removed.
  void openUp() {
    namespace fs = std::filesystem;
    std::error_code ignored;
    fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ignored);
    for (fs::recursive_directory_iterator entry(path_, ignored), end; entry != end; entry.increment(ignored)) {
      if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
        fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }

  std::string path_;
};

}  // namespace zelvo
