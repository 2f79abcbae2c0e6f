#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "documents/document.h"
#include "form/ports.h"

namespace zelvo {

/// Heights of a font in twips: above and below the base line, and the extra space between two lines.
struct FontHeights {
  double ascent = 0, descent = 0, leading = 0;
};

/// Measures text in real fonts; faces stand behind it. All in twips (1440 to the inch), unrounded.
class FontMeasure {
 public:
  virtual ~FontMeasure() = default;
  virtual double advance(const TextFont& font, std::string_view text) const = 0;
  virtual FontHeights heights(const TextFont& font) const = 0;
};

// The pieces of a page, in twips from the upper left corner of the paper. Preview, PDF and printer paint the same
// pieces.

struct TextPiece {
  double x = 0, baseline = 0, width = 0;
  std::string text;
  TextFont font;  ///< with the size at which it is drawn
  Colour colour;
};

struct FilledPiece {
  double x = 0, y = 0, width = 0, height = 0;
  Colour colour;
};

struct PicturePiece {
  double x = 0, y = 0, width = 0, height = 0;
  std::shared_ptr<const Picture> picture;
};

/// Painted in this order: shades, pictures, texts, rules.
struct Page {
  double width = 12240, height = 15840;  ///< of the paper as it is read: wider than high in landscape
  std::vector<FilledPiece> shades;       ///< behind the text
  std::vector<PicturePiece> pictures;
  std::vector<TextPiece> texts;
  std::vector<FilledPiece> rules;  ///< underlines, strikes, borders
};

/// More than any printer is given at once: a broken file may ask for a page with every few bytes.
inline constexpr std::size_t kMostPages = 2000;

struct PagedDocument {
  double width = 12240, height = 15840;  ///< of the first page's paper
  std::vector<Page> pages;               ///< one at least
  bool isCutOff = false;                 ///< there is more of the document than kMostPages
};

/// Lays a document onto pages. Paper and margins are the document's own; where it states none, letter paper and the
/// margins of the options are taken, and margins that the user set count before the document's. Landscape of the
/// options turns the paper. A document of more than kMostPages is cut off behind them.
PagedDocument layOutPages(const Document& document, const PrintOptions& options, const FontMeasure& fonts);

}  // namespace zelvo
