#pragma once

#include "ui/printing/font_program.h"
#include "ui/printing/pdf_font.h"

namespace zelvo {

/// A font of which a PDF takes along a part of its file. Letters are written in the same characters, so the packed part
/// is kept for the next one.
class FileFont : public PdfFont {
 public:
  FileFont(FontProgram program, std::string name) : program_(std::move(program)), name_(std::move(name)) {}

  bool namesByNumber() const override { return true; }
  int addTo(PdfFile& file, std::vector<PdfGlyph> glyphs) const override;

 private:
  void pack(std::vector<PdfGlyph> glyphs) const;
  int addDescriptor(PdfFile& file) const;

  FontProgram program_;
  std::string name_;
  mutable std::vector<PdfGlyph> packedGlyphs_;  // that the rest is made for
  mutable std::string file_, characters_, widths_;
  mutable std::size_t fileSize_ = 0;  // unpacked
};

}  // namespace zelvo
