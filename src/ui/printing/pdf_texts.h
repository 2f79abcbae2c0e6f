#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/printing/pdf_fonts.h"

namespace zelvo {

/// Writes texts into the content of a page, between begin and end.
class PdfTexts {
 public:
  PdfTexts(std::string& content, PdfFonts& fonts, const PaperFaces& faces)
      : content_(content), fonts_(fonts), faces_(faces) {}

  void begin();
  void end();
  /// A text that begins at a place, in twips from the page's lower left corner.
  void write(std::string_view text, const TextFont& font, double x, double y);

 private:
  void moveTo(double x, double y);
  void writeLaidOut(std::string_view text, const PaperFace& face, const TextFont& font, double x, double y);
  void show(const PaperFace& face, const PaperGlyph& glyph);
  void put(const PdfGlyphName& name, double advance);
  void takeFont(const PdfGlyphName& name);
  void thicken(double line);
  void lean(double slant);
  void endGlyphs();
  void beginMarked(std::string_view text);
  void endMarked();

  std::string& content_;
  PdfFonts& fonts_;
  const PaperFaces& faces_;
  const std::string* font_ = nullptr;  // in force
  double points_ = 0, wantedPoints_ = 0;
  double line_ = 0;  // around the letters, as thousandths of a point
  bool inGlyphs_ = false;
  double slant_ = 0;         // in force
  long long x_ = 0, y_ = 0;  // where the last text began, in thousandths of a point
  double pen_ = 0;           // how far the next glyph is from there
  std::vector<const PaperGlyph*> spelled_;
};

}  // namespace zelvo
