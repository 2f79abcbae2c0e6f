#pragma once

#include <sys/types.h>

#include <map>
#include <string>

namespace zelvo::testing {

/// What a folder is found to hold when the power was cut, at its worst: the bytes of each file as they were flushed
/// last, and the names that stood in a folder when the folder was flushed last. Folders themselves are there from the
/// start.
class FlushedDisk {
 public:
  /// All that is there now counts as flushed.
  explicit FlushedDisk(std::string folder);
  /// A file or a folder was flushed.
  void flushed(const std::string& path);
  /// Makes the folder hold that, and no more. To be the last thing that a program does.
  void cutPower() const;

 private:
  void noteNames(const std::string& folder);

  std::string folder_;
  std::map<std::string, ino_t> names_;
  std::map<ino_t, std::string> bytes_;
};

}  // namespace zelvo::testing
