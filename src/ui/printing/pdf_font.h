#pragma once

#include <QRawFont>
#include <memory>
#include <string>
#include <vector>

#include "ui/printing/pdf_file.h"

namespace zelvo {

/// A character that a letter is written with, as its font has it.
struct PdfGlyph {
  quint32 number = 0;
  double width = 0;        ///< in thousandths of the size of the font
  char32_t character = 0;  ///< 0: none that it always stands for
  bool operator==(const PdfGlyph&) const = default;
};

/// A real font as it goes into PDFs: the part of its file that a letter is written with, or, where a PDF cannot take
/// the file along, the outlines of its letters.
class PdfFont {
 public:
  /// The font, as it was found for bold or italic letters.
  static std::shared_ptr<const PdfFont> of(const QRawFont& font, bool bold, bool italic);
  virtual ~PdfFont() = default;

  /// Texts name each glyph by its number in the font, in two bytes. Else by its place in the list of those that are
  /// added, in one byte: no more than kMostOutlines are added at once.
  virtual bool namesByNumber() const = 0;
  static constexpr std::size_t kMostOutlines = 256;

  /// Adds the font with these glyphs; gives the number of its object.
  virtual int addTo(PdfFile& file, std::vector<PdfGlyph> glyphs) const = 0;

  /// What makes bold or italic letters of a font that has none: how thick a line goes around them, as a part of their
  /// size, and how far they lean to the right, as a part of their height.
  double thickening() const { return thickening_; }
  double slant() const { return slant_; }

 private:
  double thickening_ = 0, slant_ = 0;
};

}  // namespace zelvo
