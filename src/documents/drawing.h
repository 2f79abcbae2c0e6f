#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "documents/document.h"

namespace zelvo {

/// A place in a drawing: parts of its width and height, 0 to 1 inside it, y downward.
struct DrawingPoint {
  double x = 0, y = 0;
};

/// Lines through points, or areas between them. Round shapes come as many short lines.
struct DrawnShape {
  std::vector<std::vector<DrawingPoint>> figures;
  bool isClosed = false;
  std::optional<Colour> fill, line;
  double lineWidth = 0;  ///< part of the drawing's width; 0: as thin as can be seen
};

enum class TextHeight { Top, BaseLine, Bottom };

struct DrawnText {
  DrawingPoint at;
  std::string text;
  TextFont font;      ///< its size means nothing
  double height = 0;  ///< of the font, as a part of the drawing's height
  Alignment alignment = Alignment::Left;
  TextHeight place = TextHeight::Top;  ///< what of the text stands at the point
  double angle = 0;                    ///< in degrees, against the clock
  Colour colour;
};

/// What is drawn, from the back to the front.
using Drawing = std::vector<std::variant<DrawnShape, DrawnText>>;

/// The lines, shapes and texts of a Windows metafile, as office programs of old put seals and plans into letters.
/// Records that are neither are left out; a broken file is read as far as it goes. Empty when nothing is drawn.
Drawing drawingOf(std::string_view metafile);

}  // namespace zelvo
