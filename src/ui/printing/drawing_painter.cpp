#include "ui/printing/drawing_painter.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/printing/paper_font.h"

namespace zelvo {

namespace {

constexpr double kHairLine = 10;  // twips: half a point, thin and still seen on paper

class DrawingPainter {
 public:
  DrawingPainter(QPainter& painter, const QRectF& frame, const PaperFaces& faces)
      : painter_(painter), frame_(frame), faces_(faces) {}

  void operator()(const DrawnShape& shape) const {
    QPainterPath path;
    for (const auto& figure : shape.figures) {
      QPolygonF corners;
      for (const DrawingPoint& point : figure)
        corners.append(placeOf(point));
      path.addPolygon(corners);
      if (shape.isClosed)
        path.closeSubpath();
    }
    QPen pen(Qt::NoPen);
    if (shape.line)
      pen = QPen(inkOf(*shape.line), std::max(kHairLine, shape.lineWidth * frame_.width()));
    painter_.setPen(pen);
    painter_.setBrush(shape.fill ? QBrush(inkOf(*shape.fill)) : QBrush(Qt::NoBrush));
    painter_.drawPath(path);
  }

  void operator()(const DrawnText& text) const {
    constexpr double twipsAPoint = 20;
    TextFont font = text.font;
    font.points = std::max(1.0, text.height * frame_.height() / twipsAPoint);
    const PaperFace& face = faces_.of(font);
    const double scale = paperScale(font);
    const QTransform page = painter_.transform();
    painter_.translate(placeOf(text.at));
    painter_.rotate(-text.angle);
    painter_.translate(-partBefore(text.alignment) * face.advance(text.text) * scale, ascentOver(text, face) * scale);
    painter_.scale(scale, scale);
    painter_.setPen(inkOf(text.colour));
    face.draw(painter_, text.text);
    painter_.setTransform(page);
  }

 private:
  static double partBefore(Alignment alignment) {
    return alignment == Alignment::Right ? 1 : alignment == Alignment::Center ? 0.5 : 0;
  }

  // How far the base line lies below the point that the text stands at.
  static double ascentOver(const DrawnText& text, const PaperFace& face) {
    if (text.place == TextHeight::BaseLine)
      return 0;
    return text.place == TextHeight::Top ? face.heights().ascent : -face.heights().descent;
  }

  QPointF placeOf(const DrawingPoint& point) const {
    return {frame_.x() + point.x * frame_.width(), frame_.y() + point.y * frame_.height()};
  }

  QPainter& painter_;
  QRectF frame_;
  const PaperFaces& faces_;
};

}  // namespace

QColor inkOf(const Colour& colour) {
  return {colour.red, colour.green, colour.blue};
}

void paintDrawing(QPainter& painter, const Drawing& drawing, const QRectF& frame, const PaperFaces& faces) {
  const DrawingPainter paint(painter, frame, faces);
  for (const auto& item : drawing)
    std::visit(paint, item);
}

}  // namespace zelvo
