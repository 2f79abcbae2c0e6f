#include "app/town/town_folders.h"

#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/file_trouble.h"
#include "base/files.h"

namespace zelvo {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 6> kFolders = {"program/memos", "program/pics", "program/labels",
                                                 "data/docs",     "data/pics",    "data/checklist"};

Error notEmpty(const std::string& folder) {
  return {Trouble::Duplicate, "\"" + folder +
                                  "\" is there already and is not empty. Name another folder, or remove this one "
                                  "first: a town is never made over anything."};
}

/// Whether a folder holds nothing but what a town that was broken off leaves behind.
bool isLeftOver(const fs::path& folder) {
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    const std::string name = entry.path().filename().string();
    if (name != "program" && name != "data" && name != "forms" && name != "backup")
      return false;
  }
  return !error;
}

Result<void> clearLeftOver(const std::string& folder) {
  std::error_code error;
  if (!fs::exists(folder, error))
    return {};
  if (!fs::is_directory(folder, error) || !isLeftOver(folder))
    return notEmpty(folder);
  fs::remove_all(folder, error);
  return error ? fileError(FileDeed::Delete, folder, error.value()) : Result<void>();
}

Result<void> makeFolders(const std::string& folder) {
  for (const char* part : kFolders)
    if (auto made = makeFolder(folder + "/" + part); !made)
      return made;
  for (const char* part : {"forms", "backup"})
    if (auto made = makeFolder(folder + "/" + part); !made)
      return made;
  return {};
}

}  // namespace

Result<TownFolders> TownFolders::begin(const std::string& folder) {
  std::error_code error;
  const std::string whole = withoutEndSeparator(fs::absolute(folder, error).lexically_normal().string());
  if (error)
    return fileError(FileDeed::MakeFolder, folder, error.value());
  if (fs::exists(whole, error) && !(fs::is_directory(whole, error) && fs::is_empty(whole, error)))
    return notEmpty(whole);
  TownFolders folders(whole + ".making", whole);
  if (auto cleared = clearLeftOver(folders.making_); !cleared) {
    folders.unfinished_ = false;
    return cleared.error();
  }
  if (auto made = makeFolders(folders.making_); !made)
    return made.error();
  return folders;
}

TownFolders::TownFolders(TownFolders&& other) noexcept
    : making_(std::move(other.making_)),
      final_(std::move(other.final_)),
      unfinished_(std::exchange(other.unfinished_, false)) {}

TownFolders::~TownFolders() {
  std::error_code ignored;
  if (unfinished_)
    fs::remove_all(making_, ignored);
}

Result<void> TownFolders::finish() {
  std::error_code error;
  fs::rename(making_, final_, error);
  if (error)
    return fileError(FileDeed::Rename, final_, error.value());
  unfinished_ = false;
  return {};
}

}  // namespace zelvo
