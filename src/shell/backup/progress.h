#pragma once

#include <cstdint>
#include <string_view>

#include "base/result.h"

namespace zelvo {

/// Whoever waits for long work: hears how far it is and may give it up between two files.
class Progress {
 public:
  virtual ~Progress() = default;
  /// What is done next, and the part of the whole that is done, 0 to 1. Trouble::Cancelled when it was given up.
  virtual Result<void> goesOn(std::string_view what, double done) = 0;
};

/// A stretch of work on files, told of by its weight: a small file takes its time as well.
class Stretch {
 public:
  Stretch(Progress& progress, std::uintmax_t whole) : progress_(progress), whole_(whole) {}
  static std::uintmax_t weightOf(std::uintmax_t size) { return size + 20'000; }

  Result<void> next(std::string_view what, std::uintmax_t size) {
    const auto told = progress_.goesOn(what, static_cast<double>(done_) / static_cast<double>(whole_ ? whole_ : 1));
    done_ += weightOf(size);
    return told;
  }

 private:
  Progress& progress_;
  std::uintmax_t whole_, done_ = 0;
};

}  // namespace zelvo
