#pragma once

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "ui/printing/paper_font.h"
#include "ui/printing/pdf_file.h"

namespace zelvo {

/// How a text of a PDF names a glyph.
struct PdfGlyphName {
  const std::string* font = nullptr;  ///< that is to be chosen for it
  unsigned code = 0;
  int digits = 4;
  bool readsBack = true;  ///< as its character; else that has to be said beside it
  double slant = 0;       ///< that it is to be given
  double thickening = 0;  ///< likewise
};

/// The fonts that a PDF is written with, and what of them it is written with.
class PdfFonts {
 public:
  /// A glyph of the face, which stands for its character unless that is 0.
  PdfGlyphName nameOf(const PaperFace& face, const PaperGlyph& glyph);
  /// Writes the fonts; gives them as entries of a PDF's resources.
  std::string addTo(PdfFile& file) const;

 private:
  class UsedFont {
   public:
    UsedFont(const RealFont& font, const PaperFace& face, std::string name);
    PdfGlyphName nameOf(const PaperGlyph& glyph);
    std::string addTo(PdfFile& file) const;

   private:
    struct Part {
      std::string name;
      std::vector<PdfGlyph> glyphs;
    };
    std::size_t add(const PaperGlyph& glyph);

    const PdfFont* font_;
    std::string name_;
    std::size_t mostAPart_;
    std::deque<Part> parts_;
    std::vector<std::uint32_t> places_;  // of each glyph by its number, from 1; 0: not used
  };

  std::deque<UsedFont> fonts_;
  std::unordered_map<const RealFont*, UsedFont*> known_;
  const RealFont* last_ = nullptr;
  UsedFont* lastUsed_ = nullptr;
};

}  // namespace zelvo
