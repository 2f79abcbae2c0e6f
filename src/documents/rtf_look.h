#pragma once

#include <optional>
#include <vector>

#include "documents/document.h"
#include "documents/rtf_decoder.h"

namespace zelvo {

/// The colours of a letter by number; nothing where the letter leaves it to the reader.
struct RtfColours {
  std::vector<std::optional<Colour>> byNumber;
  std::optional<Colour> at(int number) const;
};

/// What words say of the text behind them, up to the end of their group.
struct TextLook {
  int halfPoints = 24;
  bool bold = false, italic = false, underline = false, strike = false;
  Script script = Script::Normal;
  Capitals capitals = Capitals::AsWritten;
  int colour = 0, highlight = 0;  ///< numbers of the colour table

  /// True when the word was one of a text's look.
  bool take(const RtfToken& token);
  TextStyle style(const RtfFont* font, const RtfColours& colours) const;
};

/// What a word says of the border that is spoken of. False when it is of another subject.
bool takeBorderWord(const RtfToken& token, Border& border, const RtfColours& colours);

/// What words say of the paragraph whose end comes next.
struct ParagraphLook {
  ParagraphStyle style;
  bool inTable = false;
  int tableLevel = 1;  ///< 2: of a table inside a cell

  bool take(const RtfToken& token, const RtfColours& colours);
  /// The style with its line spacing, whose two words come in either order, and its tabs in order.
  ParagraphStyle finished() const;

 private:
  void addTab(int position);
  static void settle(ParagraphStyle& result);
  bool takeEdge(std::string_view word);
  bool takeEdgeLine(const RtfToken& token, const RtfColours& colours);
  bool takeShade(const RtfToken& token, const RtfColours& colours);

  TabStop nextTab_;  // kind and leader stand in front of the position
  int spacing_ = 0;
  bool spacingIsMultiple_ = false;
  enum Edge : unsigned { NoEdge = 0, Top = 1, Left = 2, Bottom = 4, Right = 8, Box = 15, Between = 16 };
  unsigned edges_ = NoEdge;  // that the border words speak of
  friend struct ParagraphWords;
};

}  // namespace zelvo
