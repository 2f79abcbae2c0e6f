#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvo::dialect {

/// A pattern of the office's like: % is any run of characters, _ one character, [abc], [a-z] and [!a] one of (or none
/// of) a class. Case-blind for every letter. A "[" without its "]" means itself.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);

  bool matches(std::string_view text) const;

  /// One part of the pattern, for those who write it in another language.
  struct Element {
    enum class Kind { Run, One, Letter, Class } kind;
    char32_t letter = 0;  ///< as searches see it
    bool negated = false;
    std::vector<std::pair<char32_t, char32_t>> ranges = {};  ///< as searches see them, both ends included

    bool takes(char32_t character) const;
  };
  const std::vector<Element>& elements() const { return elements_; }

 private:
  Element classOf(std::string_view inside) const;
  void findNeedle();
  void findSkips();
  bool holdsNeedle(std::string_view text) const;
  bool holdsPlainNeedle(std::string_view text) const;
  bool holdsPlainNeedleWithoutAccents(std::string_view text) const;
  bool needleAt(std::string_view text, std::size_t at) const;

  std::vector<Element> elements_;
  std::u32string needle_;    ///< of a pattern '%needle%', by far the most common: looked for by its first byte
  std::string plainNeedle_;  ///< the same, when all its letters are plain ones: looked for by its last byte
  std::array<std::uint8_t, 256> skips_{};  ///< how far the end of the plain needle moves on from a byte of the text
};

}  // namespace zelvo::dialect
