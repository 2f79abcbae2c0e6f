#pragma once

#include <vector>

#include "documents/line_layout.h"

namespace zelvo {

inline constexpr double kUnbounded = 1e12;     ///< lower than any paper
inline constexpr double kNarrowestCell = 100;  ///< however a table is set, a cell takes some letters

struct PlacedLine {
  Line line;
  double top = 0;
  double x = 0;  ///< of its text area, from the stack's left edge
};

/// The ground and borders of a paragraph, or a part of it; or those of a cell of a table in the stack.
struct PlacedBox {
  const ParagraphStyle* style = nullptr;
  double top = 0, bottom = 0;
  bool withTop = true, withBottom = true;
  double x = 0, width = -1;  ///< of its text area; below 0: as wide as the stack
  const Cell* cell = nullptr;
};

/// Paragraphs laid out one below the other, with the space above and below each, and tables among them. Heights count
/// from the stack's top; lines and boxes come in the order in which they begin.
struct Stack {
  std::vector<PlacedLine> lines;
  std::vector<PlacedBox> boxes;
  double height = 0;
  double width = -1;  ///< of the area that it was made for, where that is kept
};

/// The room that a border keeps from the text of its paragraph.
double edgeRoom(const ParagraphStyle& style, const Border& edge);
bool hasBox(const ParagraphStyle& style);
/// Paragraphs of the same borders and indents stand in one box.
bool shareBox(const ParagraphStyle* a, const ParagraphStyle* b);

/// How far a table's row is moved from where its edges are stated, in a text area of that width.
double shiftOf(const TableRow& row, double width);
/// How far the text of a cell is moved down in a row that is higher than it by `room`.
double spaceAbove(const Cell& cell, double room);
/// Whether the cell is one with the cell below it.
bool continuesBelow(const Cell& cell, const TableRow* below);

/// The paragraphs refer to their styles and must outlive the stack. None of them begins below `lowest`.
Stack stackOf(const std::vector<Paragraph>& paragraphs, const LineArea& area, const FontMeasure& fonts,
              double lowest = kUnbounded);
void addToStack(Stack& stack, const Paragraph& paragraph, const ParagraphStyle* above, const ParagraphStyle* below,
                const LineArea& area, const FontMeasure& fonts);

/// Puts the box onto a page: its text area begins at x and is so wide; its own heights count from y.
void paintBox(Page& page, const PlacedBox& box, double x, double width, double y);

}  // namespace zelvo
