#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/printing/font_program.h"
#include "ui/printing/pdf_file.h"

namespace zelvo {

/// A character that a letter is written with, as its font has it.
struct PdfGlyph {
  quint32 number = 0;
  double width = 0;  ///< in thousandths of the size of the font
  char32_t character = 0;
  bool operator==(const PdfGlyph&) const = default;
};

/// A real font as it goes into PDFs. Letters are written in the same characters, so the packed part of the font is kept
/// for the next one.
class PdfFont {
 public:
  /// Null when a PDF cannot take the font along.
  static std::shared_ptr<const PdfFont> of(const QRawFont& font, bool bold, bool italic);

  /// Adds the font with these glyphs, in the order of their numbers; gives the number of its object.
  int addTo(PdfFile& file, const std::vector<PdfGlyph>& glyphs) const;

 private:
  explicit PdfFont(FontProgram program) : program_(std::move(program)) {}
  void pack(const std::vector<PdfGlyph>& glyphs) const;
  int addDescriptor(PdfFile& file, const std::string& name) const;

  FontProgram program_;
  std::string name_;
  bool italic_ = false;
  mutable std::vector<PdfGlyph> packedGlyphs_;  // that the rest is made for
  mutable std::string file_, characters_, widths_;
  mutable std::size_t fileSize_ = 0;  // unpacked
};

}  // namespace zelvo
