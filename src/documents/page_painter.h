#pragma once

#include "documents/line_layout.h"
#include "documents/page_layout.h"

namespace zelvo {

/// Puts a line onto a page: its text area begins at x, its upper edge lies at y.
void paintLine(Page& page, const Line& line, double x, double y, const FontMeasure& fonts);

/// Puts the borders and the shade of a cell onto a page.
struct CellFrame {
  double left = 0, top = 0, right = 0, bottom = 0;
  bool withTop = true, withBottom = true;
};
void paintCell(Page& page, const Cell& cell, const CellFrame& frame);

}  // namespace zelvo
