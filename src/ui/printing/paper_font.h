#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QRawFont>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "documents/page_layout.h"
#include "ui/printing/pdf_font.h"

class QPainter;

namespace zelvo {

/// The size of real fonts in pixels: the units in which most are designed, so that no width is rounded.
inline constexpr int kPaperFontSize = 2048;

/// The real font behind a font of a letter, in the one size in which it is measured and drawn, so that the computer has
/// to find it only once however many sizes a letter uses: a line is exactly as long on paper as it was laid out.
QFont paperFont(const TextFont& font);
/// What one pixel of that font is in the letter's size, in twips.
double paperScale(const TextFont& font);

/// A real font, measured and drawn character by character where its text is that simple: nearly all text of letters is,
/// and finding out how the characters of a text join takes most of the time that a page takes. Other texts, and
/// characters that the font does not have, are left to the fonts of the system. All in pixels of paperFont().
class PaperFace {
 public:
  struct Glyph {
    quint32 number = 0;  ///< 0: the font has none, or it may join with others
    double advance = 0;
    char32_t character = 0;
  };

  explicit PaperFace(const TextFont& font);

  double advance(std::string_view text) const;
  FontHeights heights() const;
  /// With the pen of the painter, beginning at its origin on the base line.
  void draw(QPainter& painter, std::string_view text) const;

  /// The glyphs of a text one behind the other. False when it cannot be set glyph for glyph.
  bool spell(std::string_view text, std::vector<const Glyph*>& glyphs) const;
  /// The font as PDFs take it along, made once for all letters; null when they cannot.
  const PdfFont* pdfFont() const;

 private:
  const Glyph& glyphOf(char32_t character) const;

  QFont font_;
  QFontMetricsF metrics_;
  QRawFont raw_;
  bool bold_, italic_;
  mutable bool pdfFontKnown_ = false;
  mutable std::shared_ptr<const PdfFont> pdfFont_;
  mutable std::unordered_map<char32_t, Glyph> known_;
};

/// The fonts that letters asked for so far.
class PaperFaces {
 public:
  const PaperFace& of(const TextFont& font) const;

 private:
  using Key = std::tuple<std::string, bool, bool>;
  mutable std::map<Key, PaperFace, std::less<>> known_;
};

/// Measures text in the fonts of this computer. The office's letters are written in Times New Roman, Arial and Courier
/// New; where those are missing, fonts of the same widths (the Liberation fonts) must stand in for them.
class QtFontMeasure : public FontMeasure {
 public:
  double advance(const TextFont& font, std::string_view text) const override;
  FontHeights heights(const TextFont& font) const override;
  /// The fonts that it measures in, to paint with.
  const PaperFaces& faces() const { return faces_; }

 private:
  PaperFaces faces_;
};

}  // namespace zelvo
