#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace zelvo {

enum class RtfTokenKind {
  Open,     ///< {
  Close,    ///< }
  Word,     ///< \par, \fs24
  Symbol,   ///< \~ \* \{ and the like
  Hex,      ///< \'e4
  Binary,   ///< \bin5 with its five bytes
  LineEnd,  ///< line ends of the file, which mean nothing in the letter
  Text
};

/// One piece of a rich-text file. `raw` is the piece as it stands in the file.
struct RtfToken {
  RtfTokenKind kind = RtfTokenKind::Text;
  std::string_view raw;
  std::size_t begin = 0;         ///< where raw stands in the file
  std::string_view word;         ///< Word: its name; Symbol: its character; Text: the text; Binary: the bytes
  std::optional<int> parameter;  ///< of a Word; of a Hex: the byte

  std::size_t end() const { return begin + raw.size(); }
  int parameterOr(int other) const { return parameter.value_or(other); }
  /// A word without a number, or with any but 0: \b switches on, \b0 off.
  bool on() const { return parameterOr(1) != 0; }
};

/// Cuts a rich-text file into tokens. Every byte belongs to exactly one of them, so the raw pieces joined are the file
/// again. Whatever is broken in the file, reading comes to its end.
class RtfReader {
 public:
  explicit RtfReader(std::string_view file) : file_(file) {}

  /// The next token; false at the end of the file.
  bool next(RtfToken& token);

 private:
  void readControl(RtfToken& token);
  void readWord(RtfToken& token);
  void readHex(RtfToken& token);
  void readBinary(RtfToken& token);
  char at(std::size_t position) const { return position < file_.size() ? file_[position] : '\0'; }

  std::string_view file_;
  std::size_t position_ = 0;
};

/// Whether the bytes are a rich-text file.
bool isRichText(std::string_view bytes);

}  // namespace zelvo
