#pragma once

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "documents/rtf_reader.h"

namespace zelvo {

/// What to do with the words of one subject.
template <class Target>
using RtfWords = std::unordered_map<std::string_view, void (*)(Target&, const RtfToken&)>;

/// False when the word is of another subject.
template <class Target>
bool takeWord(const RtfWords<Target>& words, Target& target, const RtfToken& token) {
  const auto found = words.find(token.word);
  if (found == words.end())
    return false;
  found->second(target, token);
  return true;
}

/// The length that a word states. Lengths beyond ten metres are slips of a broken file, not wishes.
inline int twipsOf(const RtfToken& token) {
  return std::clamp(token.parameterOr(0), -600000, 600000);
}

}  // namespace zelvo
