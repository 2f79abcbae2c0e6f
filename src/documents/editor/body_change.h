#pragma once

#include <cstddef>
#include <vector>

#include "documents/document.h"

namespace zelvo {

// A letter may be a report of hundreds of pages, and every key changes it. What is changed is therefore told as the few
// blocks that became others: the work is as large as the change.

/// Some blocks of a body, and what stands in their place.
struct BodyChange {
  std::size_t at = 0;    ///< the first of them
  std::size_t gone = 0;  ///< how many they were
  std::vector<Block> come;

  bool empty() const { return gone == 0 && come.empty(); }
};

/// Leaves out of a change of this body what stays the same at its beginning and its end.
void trimChange(const std::vector<Block>& body, BodyChange& change);
/// What makes one body of the other.
BodyChange changeBetween(const std::vector<Block>& before, const std::vector<Block>& after);
/// Makes a change, and gives the one that takes it back.
BodyChange makeChange(std::vector<Block>& body, BodyChange change);

/// Knows whether a body still is what was stored. It keeps in mind how far both are alike from either end, so that
/// neither is read through again at every change.
class StoredBody {
 public:
  void store(const std::vector<Block>& body);
  /// `come` blocks from `at` on are new in the body.
  void noteChange(const std::vector<Block>& body, std::size_t at, std::size_t come);
  bool differs() const { return differs_; }

 private:
  std::vector<Block> stored_;
  std::size_t front_ = 0, back_ = 0;  // blocks that are alike
  bool differs_ = false;
};

}  // namespace zelvo
