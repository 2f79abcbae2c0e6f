#pragma once

#include <string>

#include "base/result.h"

namespace zelvo {

/// Where the town is while it is made, and where it will be. Gone with everything in it unless finish() is reached.
class TownFolders {
 public:
  /// `folder` may be relative; it must not be there yet or be empty.
  static Result<TownFolders> begin(const std::string& folder);
  TownFolders(TownFolders&& other) noexcept;
  TownFolders& operator=(TownFolders&&) = delete;
  ~TownFolders();

  std::string making(const char* part) const { return making_ + "/" + part; }
  std::string final(const char* part) const { return final_ + "/" + part; }
  Result<void> finish();

 private:
  TownFolders(std::string making, std::string final) : making_(std::move(making)), final_(std::move(final)) {}

  std::string making_, final_;
  bool unfinished_ = true;
};

}  // namespace zelvo
