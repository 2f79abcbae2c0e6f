#include "ui/printing/drawing_painter.h"

#include <QPainter>
#include <QPainterPath>

namespace zelvo {

namespace {

class DrawingPainter {
 public:
  DrawingPainter(QPainter& painter, const DrawingPlace& place, const PaperFaces& faces)
      : painter_(painter), place_(place), faces_(faces) {}

  void operator()(const DrawnShape& shape) const {
    QPainterPath path;
    for (const auto& figure : shape.figures) {
      QPolygonF corners;
      for (const DrawingPoint& point : figure)
        corners.append(place_.of(point));
      path.addPolygon(corners);
      if (shape.isClosed)
        path.closeSubpath();
    }
    painter_.setPen(shape.line ? QPen(inkOf(*shape.line), place_.lineWidth(shape)) : QPen(Qt::NoPen));
    painter_.setBrush(shape.fill ? QBrush(inkOf(*shape.fill)) : QBrush(Qt::NoBrush));
    painter_.drawPath(path);
  }

  void operator()(const DrawnText& text) const {
    const TextFont font = place_.fontOf(text);
    const PaperFace& face = faces_.of(font);
    const double scale = paperScale(font);
    const QTransform page = painter_.transform();
    painter_.translate(place_.of(text.at));
    painter_.rotate(-text.angle);
    painter_.translate(DrawingPlace::beginningOf(text, face, scale));
    painter_.scale(scale, scale);
    painter_.setPen(inkOf(text.colour));
    face.draw(painter_, text.text);
    painter_.setTransform(page);
  }

 private:
  QPainter& painter_;
  const DrawingPlace& place_;
  const PaperFaces& faces_;
};

}  // namespace

QColor inkOf(const Colour& colour) {
  return {colour.red, colour.green, colour.blue};
}

void paintDrawing(QPainter& painter, const Drawing& drawing, const DrawingPlace& place, const PaperFaces& faces) {
  const DrawingPainter paint(painter, place, faces);
  for (const auto& item : drawing)
    std::visit(paint, item);
}

}  // namespace zelvo
