#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/document.h"

namespace zelvo {

/// The fonts and colours that a letter uses, numbered while it is written. What uses them is written before the tables
/// themselves are known, though it stands behind them.
class RtfTables {
 public:
  int numberOf(std::string_view family);
  int numberOf(const Colour& colour);  ///< from 1: 0 leaves the colour to the reader

  /// Both tables as they stand at the beginning of the letter.
  std::string source() const;

 private:
  std::vector<std::string> fonts_;
  std::vector<Colour> colours_;
};

/// The words of a text's look, with a blank behind the last one.
std::string rtfLook(const TextStyle& style, RtfTables& tables);
/// The words of a paragraph's look.
std::string rtfLook(const ParagraphStyle& style, RtfTables& tables);
/// The words of a border, behind the one that says which. Nothing when there is none.
std::string rtfBorder(std::string_view edge, const Border& border, RtfTables& tables);
/// A word with its number.
std::string rtfWord(std::string_view word, int number);

}  // namespace zelvo
