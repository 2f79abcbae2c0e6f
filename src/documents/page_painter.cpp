#include "documents/page_painter.h"

#include <algorithm>

namespace zelvo {

namespace {

constexpr double kTwipsPerPoint = 20;
// A rule under a text grows with its letters: a twentieth of their size, and never thinner than a hair line.
constexpr double kRulePart = 0.05;
constexpr double kThinnestRule = 8;

void paintRules(Page& page, const LinePiece& piece, double x, double baseline, const FontMeasure& fonts) {
  const FontHeights heights = fonts.heights(piece.font);
  const double thick = std::max(kThinnestRule, piece.font.points * kTwipsPerPoint * kRulePart);
  if (piece.style.underline)
    page.rules.push_back({x, baseline + heights.descent / 2 - thick / 2, piece.width, thick, piece.style.colour});
  if (piece.style.strike)
    page.rules.push_back({x, baseline - heights.ascent * 0.3, piece.width, thick, piece.style.colour});
}

void paintEdge(Page& page, const Border& border, double left, double top, double right, double bottom) {
  if (border.width <= 0)
    return;
  const double half = border.width / 2.0;
  page.rules.push_back(
      {left - half, top - half, right - left + border.width, bottom - top + border.width, border.colour});
}

}  // namespace

void paintLine(Page& page, const Line& line, double x, double y, const FontMeasure& fonts) {
  for (const LinePiece& piece : line.pieces) {
    const double left = x + piece.x;
    const double baseline = y + line.baseline - piece.raise;
    if (piece.style.highlight)
      page.shades.push_back({left, y, piece.width, line.height, *piece.style.highlight});
    if (piece.picture) {
      const double height = pictureHeight(*piece.picture, piece.width);
      page.pictures.push_back({left, baseline - height, piece.width, height, piece.picture});
      continue;
    }
    if (piece.text.find_first_not_of(' ') != std::string::npos)
      page.texts.push_back({left, baseline, piece.width, piece.text, piece.font, piece.style.colour});
    paintRules(page, piece, left, baseline, fonts);
  }
}

void paintCell(Page& page, const Cell& cell, const CellFrame& frame) {
  if (cell.shade)
    page.shades.push_back({frame.left, frame.top, frame.right - frame.left, frame.bottom - frame.top, *cell.shade});
  if (frame.withTop)
    paintEdge(page, cell.top, frame.left, frame.top, frame.right, frame.top);
  if (frame.withBottom)
    paintEdge(page, cell.bottom, frame.left, frame.bottom, frame.right, frame.bottom);
  paintEdge(page, cell.left, frame.left, frame.top, frame.left, frame.bottom);
  paintEdge(page, cell.rightBorder, frame.right, frame.top, frame.right, frame.bottom);
}

}  // namespace zelvo
