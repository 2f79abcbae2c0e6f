#pragma once

#include <string>

#include "documents/drawing.h"
#include "ui/printing/drawing_place.h"
#include "ui/printing/pdf_texts.h"

namespace zelvo {

/// Writes drawings into the content of a page.
class PdfDrawing {
 public:
  PdfDrawing(std::string& content, PdfTexts& texts, const PaperFaces& faces)
      : content_(content), texts_(texts), faces_(faces) {}

  /// Into its place on a page of that height. What lies outside of it is left to the caller's clip, and so is what
  /// inks it leaves behind.
  void write(const Drawing& drawing, const DrawingPlace& place, double pageHeight);

 private:
  void write(const DrawnShape& shape, const DrawingPlace& place);
  void write(const DrawnText& text, const DrawingPlace& place);
  QPointF seen(const DrawingPlace& place, const DrawingPoint& point) const;

  std::string& content_;
  PdfTexts& texts_;
  const PaperFaces& faces_;
  double pageHeight_ = 0;
};

/// Appends the choice of a colour: "rg" for what is filled and written, "RG" for lines.
void appendInk(std::string& content, const Colour& colour, std::string_view what);

}  // namespace zelvo
