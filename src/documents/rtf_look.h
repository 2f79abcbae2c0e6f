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
  bool bold = false, italic = false, underline = false, strike = false, capitals = false;
  Script script = Script::Normal;
  int colour = 0, highlight = 0;  ///< numbers of the colour table

  /// True when the word was one of a text's look.
  bool take(const RtfToken& token);
  TextStyle style(const RtfFont* font, const RtfColours& colours) const;
};

/// What words say of the paragraph whose end comes next.
struct ParagraphLook {
  ParagraphStyle style;
  bool inTable = false;

  bool take(const RtfToken& token);
  /// The style with its line spacing, whose two words come in either order, and its tabs in order.
  ParagraphStyle finished() const;

 private:
  void addTab(int position);

  TabStop nextTab_;  // kind and leader stand in front of the position
  int spacing_ = 0;
  bool spacingIsMultiple_ = false;
  friend struct ParagraphWords;
};

/// What words say of the paper. False when the word was none of them.
bool takePageWord(const RtfToken& token, Document& document);

}  // namespace zelvo
