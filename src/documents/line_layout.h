#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "documents/document.h"
#include "documents/page_layout.h"

namespace zelvo {

/// A piece of a line: text, or a picture, or just a width with the style's rules (underlined blanks and tabs). `x`
/// counts from the left edge of the text area; `raise` lifts the text above the line's base line.
struct LinePiece {
  double x = 0, width = 0;
  std::string text;
  TextFont font;
  double raise = 0;
  TextStyle style;
  std::shared_ptr<const Picture> picture;
};

struct Line {
  std::vector<LinePiece> pieces;
  double height = 0;
  double baseline = 0;  ///< from the top of the line
};

/// What a paragraph is laid out into.
struct LineArea {
  double width = 0;   ///< of the text area; the paragraph's indents count from it
  double height = 0;  ///< of the page's text area: no picture is higher
  int defaultTab = 720;
  std::function<std::string(LiveField)> live;  ///< the text of a live number
};

/// The lines of a paragraph, one at least. Breaks at blanks and behind hyphens; a word that is longer than the line is
/// broken where the line ends.
std::vector<Line> layOutLines(const Paragraph& paragraph, const LineArea& area, const FontMeasure& fonts);

/// The height of a picture that is drawn this wide: one that is larger than its area is made smaller.
double pictureHeight(const Picture& picture, double width);

}  // namespace zelvo
