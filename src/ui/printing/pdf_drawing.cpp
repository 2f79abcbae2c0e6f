#include "ui/printing/pdf_drawing.h"

#include <cmath>
#include <numbers>

namespace zelvo {

namespace {

std::string_view paintingOf(const DrawnShape& shape) {
  if (!shape.line)
    return "f*\n";
  return shape.fill ? "B*\n" : "S\n";
}

void appendTurn(std::string& content, double degrees) {
  const double angle = degrees * std::numbers::pi / 180;
  for (const double number : {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle)})
    appendThousandths(content, std::lround(number * 1000));
}

}  // namespace

void PdfDrawing::write(const Drawing& drawing, const DrawingPlace& place, double pageHeight) {
  pageHeight_ = pageHeight;
  content_ += "2 J 2 j\n";
  for (const auto& item : drawing)
    std::visit([&](const auto& drawn) { write(drawn, place); }, item);
}

void PdfDrawing::write(const DrawnShape& shape, const DrawingPlace& place) {
  if (shape.fill)
    appendInk(content_, *shape.fill, "rg");
  if (shape.line) {
    appendInk(content_, *shape.line, "RG");
    appendLengths(content_, {place.lineWidth(shape)});
    content_ += "w\n";
  }
  for (const auto& figure : shape.figures) {
    for (const DrawingPoint& point : figure) {
      const QPointF at = seen(place, point);
      appendLengths(content_, {at.x(), at.y()});
      content_ += &point == &figure.front() ? "m\n" : "l\n";
    }
    if (shape.isClosed)
      content_ += "h\n";
  }
  content_ += paintingOf(shape);
}

void PdfDrawing::write(const DrawnText& text, const DrawingPlace& place) {
  const TextFont font = place.fontOf(text);
  const QPointF at = seen(place, text.at);
  const QPointF begin = DrawingPlace::beginningOf(text, faces_.of(font), paperScale(font));
  content_ += "q ";
  appendTurn(content_, text.angle);
  appendLengths(content_, {at.x(), at.y()});
  content_ += "cm\n";
  appendInk(content_, text.colour, "rg");
  appendInk(content_, text.colour, "RG");
  texts_.begin();
  texts_.write(text.text, font, begin.x(), -begin.y());
  texts_.end();
  content_ += "Q\n";
}

QPointF PdfDrawing::seen(const DrawingPlace& place, const DrawingPoint& point) const {
  const QPointF at = place.of(point);
  return {at.x(), pageHeight_ - at.y()};
}

void appendInk(std::string& content, const Colour& colour, std::string_view what) {
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue})
    appendThousandths(content, std::lround(part * 1000 / 255.0));
  content += what;
  content += '\n';
}

}  // namespace zelvo
