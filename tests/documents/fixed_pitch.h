#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "base/text.h"
#include "documents/document_reader.h"
#include "documents/page_layout.h"

namespace zelvo {

/// Every letter 12 twips a point wide, so 120 at 10 points; lines 20 twips a point high.
class FixedPitch : public FontMeasure {
 public:
  double advance(const TextFont& font, std::string_view text) const override {
    return font.points * 12 * static_cast<double>(length(text));
  }
  FontHeights heights(const TextFont& font) const override { return {font.points * 16, font.points * 4, 0}; }
};

inline PrintOptions inchMargins() {
  PrintOptions options;
  options.left = options.top = options.right = options.bottom = 1;
  return options;
}

/// Letter paper with margins of an inch at 10 points: 78 letters a line, 64 lines a page.
inline PagedDocument pages(const std::string& body, const PrintOptions& options = inchMargins()) {
  return layOutPages(readDocument("{\\rtf1{\\fonttbl{\\f0 Courier New;}}\\fs20 " + body + "}"), options, FixedPitch());
}

using Lines = std::vector<std::string>;

/// The texts of a page, a line a base line: "x:text" in twips from the left margin of an inch.
inline Lines linesOfPage(const Page& page) {
  Lines lines;
  double baseline = -1;
  for (const TextPiece& piece : page.texts) {
    if (std::abs(piece.baseline - baseline) > 0.5)
      lines.emplace_back();
    baseline = piece.baseline;
    lines.back() += (lines.back().empty() ? "" : " ") + std::to_string(std::lround(piece.x) - 1440) + ":" + piece.text;
  }
  return lines;
}

}  // namespace zelvo
