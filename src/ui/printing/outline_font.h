#pragma once

#include "ui/printing/pdf_font.h"

namespace zelvo {

/// A font of which a PDF takes along the outlines of its letters: its file is of another kind, or its maker keeps it to
/// himself.
class OutlineFont : public PdfFont {
 public:
  explicit OutlineFont(QRawFont font) : font_(std::move(font)) {}

  bool namesByNumber() const override { return false; }
  int addTo(PdfFile& file, std::vector<PdfGlyph> glyphs) const override;

 private:
  std::string outlineOf(const PdfGlyph& glyph) const;

  QRawFont font_;
};

}  // namespace zelvo
