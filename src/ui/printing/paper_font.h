#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "documents/page_layout.h"
#include "ui/printing/real_font.h"

class QPainter;

namespace zelvo {

/// The size of real fonts in pixels: the units in which most are designed, so that no width is rounded.
inline constexpr int kPaperFontSize = 2048;

/// The real font behind a font of a letter, in the one size in which it is measured and drawn, so that the computer has
/// to find it only once however many sizes a letter uses: a line is exactly as long on paper as it was laid out.
QFont paperFont(const TextFont& font);
/// What one pixel of that font is in the letter's size, in twips.
double paperScale(const TextFont& font);

/// A character as it is drawn.
struct PaperGlyph {
  const RealFont* font = nullptr;  ///< null: the character may join with others
  quint32 number = 0;              ///< in that font; 0: the sign for what no font has
  double advance = 0;
  char32_t character = 0;
};

struct PlacedGlyph {
  PaperGlyph glyph;
  double x = 0, y = 0;  ///< from the beginning of its text on the base line, downward
};

/// Characters that join, and the glyphs that they are drawn with.
struct GlyphCluster {
  std::string text;
  std::vector<PlacedGlyph> glyphs;
};

/// A font of letters. Text is measured and drawn character by character where it is that simple: nearly all text of
/// letters is, and finding out how the characters of a text join takes most of the time that a page takes. Characters
/// that the font does not have are taken from the font that the system names for them. All in pixels of paperFont().
class PaperFace {
 public:
  PaperFace(const TextFont& font, const RealFonts& fonts);

  double advance(std::string_view text) const;
  FontHeights heights() const;
  /// With the pen of the painter, beginning at its origin on the base line.
  void draw(QPainter& painter, std::string_view text) const;

  /// The glyphs of a text one behind the other. False when its characters join with one another.
  bool spell(std::string_view text, std::vector<const PaperGlyph*>& glyphs) const;
  /// The glyphs of any text, from the left to the right.
  std::vector<PlacedGlyph> set(std::string_view text) const;
  /// The same, with what they stand for.
  std::vector<GlyphCluster> clusters(std::string_view text) const;
  const PaperGlyph& glyphOf(char32_t character) const;

 private:
  PaperGlyph find(char32_t character) const;
  PaperGlyph lent(char32_t character) const;
  std::vector<PlacedGlyph> laidOut(std::string_view text) const;

  QFont font_;
  QFontMetricsF metrics_;
  bool bold_, italic_;
  const RealFonts& fonts_;
  const RealFont& own_;
  mutable std::unordered_map<char32_t, PaperGlyph> known_;
  mutable std::unordered_map<int, const RealFont*> lenders_;  // of the characters of a script
};

/// The fonts that letters asked for so far.
class PaperFaces {
 public:
  PaperFaces() = default;
  PaperFaces(const PaperFaces&) = delete;
  PaperFaces& operator=(const PaperFaces&) = delete;

  const PaperFace& of(const TextFont& font) const;

 private:
  using Key = std::tuple<std::string, bool, bool>;
  RealFonts fonts_;
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
