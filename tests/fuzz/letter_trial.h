#pragma once

#include <string_view>

namespace zelvo::fuzz {

/// Reads any bytes as a letter and lays it out. What is written of it must read as the same letter.
class ReadLetterTrial {
 public:
  void run(std::string_view bytes) const;
};

/// Merges any bytes as a letter. The first line is the value of every slot, what follows is the letter. A letter
/// without the beginning of a code must stay byte for byte, and a merged one can be read.
class MergeLetterTrial {
 public:
  void run(std::string_view bytes) const;
};

}  // namespace zelvo::fuzz
