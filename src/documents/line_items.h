#pragma once

#include <memory>
#include <string>
#include <vector>

#include "documents/line_layout.h"

namespace zelvo {

enum class ItemKind { Text, Blank, Tab, Break, Picture };

/// The smallest part of a paragraph that a line takes whole.
struct LineItem {
  ItemKind kind = ItemKind::Text;
  std::size_t look = 0;
  std::string text;
  double width = 0;
  bool mayBreakBehind = false;
  std::shared_ptr<const Picture> picture;
};

/// How the text of a run is drawn.
struct LineLook {
  TextStyle style;
  TextFont font;  ///< smaller than the style's for super- and subscript
  double raise = 0;
  FontHeights heights;
};

LineLook lookOf(const TextStyle& style, const FontMeasure& fonts);

/// A paragraph cut into items, each with its width.
struct LineItems {
  std::vector<LineLook> looks;
  std::vector<LineItem> items;
};

LineItems itemsOf(const Paragraph& paragraph, const LineArea& area, const FontMeasure& fonts);

/// The bytes of the text that fit into the width, one character at least.
std::size_t bytesThatFit(const std::string& text, const TextFont& font, double width, const FontMeasure& fonts);

}  // namespace zelvo
