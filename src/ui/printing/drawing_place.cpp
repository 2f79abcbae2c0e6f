#include "ui/printing/drawing_place.h"

#include <algorithm>

namespace zelvo {

namespace {

constexpr double kHairLine = 10;  // twips: half a point, thin and still seen on paper

double partBefore(Alignment alignment) {
  return alignment == Alignment::Right ? 1 : alignment == Alignment::Center ? 0.5 : 0;
}

// How far the base line lies below the point that the text stands at.
double ascentOver(const DrawnText& text, const FontHeights& heights) {
  if (text.place == TextHeight::BaseLine)
    return 0;
  return text.place == TextHeight::Top ? heights.ascent : -heights.descent;
}

}  // namespace

DrawingPlace::DrawingPlace(const PicturePiece& piece) {
  const Picture& picture = *piece.picture;
  const double width = piece.width / (1 - picture.cropLeft - picture.cropRight);
  const double height = piece.height / (1 - picture.cropTop - picture.cropBottom);
  frame_ = QRectF(piece.x - width * picture.cropLeft, piece.y - height * picture.cropTop, width, height);
}

QPointF DrawingPlace::of(const DrawingPoint& point) const {
  return {frame_.x() + point.x * frame_.width(), frame_.y() + point.y * frame_.height()};
}

double DrawingPlace::lineWidth(const DrawnShape& shape) const {
  return std::max(kHairLine, shape.lineWidth * frame_.width());
}

TextFont DrawingPlace::fontOf(const DrawnText& text) const {
  constexpr double twipsAPoint = 20;
  TextFont font = text.font;
  font.points = std::max(1.0, text.height * frame_.height() / twipsAPoint);
  return font;
}

QPointF DrawingPlace::beginningOf(const DrawnText& text, const PaperFace& face, double scale) {
  return {-partBefore(text.alignment) * face.advance(text.text) * scale, ascentOver(text, face.heights()) * scale};
}

}  // namespace zelvo
