#include "documents/paragraph_stack.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "documents/page_painter.h"

namespace zelvo {

double edgeRoom(const ParagraphStyle& style, const Border& edge) {
  return edge.width > 0 ? style.borderSpace + edge.width : 0;
}

bool hasBox(const ParagraphStyle& style) {
  return style.shade || style.top.width + style.leftBorder.width + style.bottom.width + style.rightBorder.width > 0;
}

bool shareBox(const ParagraphStyle* a, const ParagraphStyle* b) {
  return a && b && hasBox(*a) && a->left == b->left && a->right == b->right && a->top == b->top &&
         a->leftBorder == b->leftBorder && a->bottom == b->bottom && a->rightBorder == b->rightBorder &&
         a->shade == b->shade;
}

double shiftOf(const TableRow& row, double width) {
  if (row.cells.empty() || (row.alignment != Alignment::Center && row.alignment != Alignment::Right))
    return 0;
  const double room = width - (row.cells.back().right - row.left);
  return (row.alignment == Alignment::Center ? room / 2 : room) - row.left;
}

double spaceAbove(const Cell& cell, double room) {
  if (room <= 0 || cell.place == VerticalPlace::Top)
    return 0;
  return cell.place == VerticalPlace::Middle ? room / 2 : room;
}

bool continuesBelow(const Cell& cell, const TableRow* below) {
  constexpr int nearly = 20;
  return below && std::any_of(below->cells.begin(), below->cells.end(), [&cell](const Cell& other) {
           return other.continuesAbove && std::abs(other.right - cell.right) < nearly;
         });
}

namespace {

// A cell of a table inside the stack, with the text that stands in it.
struct InnerCell {
  const Cell* cell;
  double left, right;
  Stack text;
};

void addCell(Stack& stack, InnerCell& inner, double padding, double height) {
  const double down = stack.height + spaceAbove(*inner.cell, height - inner.text.height);
  for (PlacedLine& placed : inner.text.lines) {
    placed.top += down;
    placed.x += inner.left + padding;
    stack.lines.push_back(std::move(placed));
  }
  for (PlacedBox box : inner.text.boxes) {
    box.top += down;
    box.bottom += down;
    box.x += inner.left + padding;
    if (box.width < 0)
      box.width = inner.right - inner.left - 2 * padding;
    stack.boxes.push_back(box);
  }
}

template <class List>
void sortFrom(List& list, std::size_t first) {
  std::stable_sort(list.begin() + static_cast<std::ptrdiff_t>(first), list.end(),
                   [](const auto& a, const auto& b) { return a.top < b.top; });
}

// Where the part of the list ends that stands in the same row as the first of it, and in the same cell if so wanted.
std::size_t endOfRow(std::span<const Paragraph> paragraphs, std::size_t first, std::size_t depth, bool sameCell) {
  const OuterCell begin = innerCell(paragraphs[first], depth);
  std::size_t end = first + 1;
  for (; end < paragraphs.size(); ++end) {
    const OuterCell other = innerCell(paragraphs[end], depth);
    if (other.row != begin.row || (sameCell && other.cell != begin.cell))
      break;
  }
  return end;
}

void addParagraphs(Stack& stack, std::span<const Paragraph> paragraphs, std::size_t depth, const LineArea& area,
                   const FontMeasure& fonts, double lowest);

std::vector<InnerCell> innerCells(std::span<const Paragraph> paragraphs, std::size_t depth, const LineArea& area,
                                  const FontMeasure& fonts) {
  const TableRow& row = *innerCell(paragraphs.front(), depth).row;
  const double shift = shiftOf(row, area.width);
  std::vector<InnerCell> cells;
  double left = row.left + shift;
  for (const Cell& cell : row.cells) {
    cells.push_back({&cell, left, cell.right + shift, {}});
    left = cell.right + shift;
  }
  for (std::size_t i = 0; i < paragraphs.size();) {
    const std::size_t end = endOfRow(paragraphs, i, depth, true);
    InnerCell& inner = cells[std::min(innerCell(paragraphs[i], depth).cell, cells.size() - 1)];
    LineArea room = area;
    room.width = std::max(kNarrowestCell, inner.right - inner.left - 2.0 * row.padding);
    addParagraphs(inner.text, paragraphs.subspan(i, end - i), depth + 1, room, fonts, kUnbounded);
    i = end;
  }
  return cells;
}

// The row that begins with the paragraph; gives the first paragraph behind it.
std::size_t addRowToStack(Stack& stack, std::span<const Paragraph> paragraphs, std::size_t first, std::size_t depth,
                          const LineArea& area, const FontMeasure& fonts) {
  const auto shape = innerCell(paragraphs[first], depth).row;
  const TableRow& row = *shape;
  const std::size_t end = endOfRow(paragraphs, first, depth, false);
  if (row.cells.empty())
    return end;
  const auto below = end < paragraphs.size() ? innerCell(paragraphs[end], depth).row : nullptr;
  std::vector<InnerCell> cells = innerCells(paragraphs.subspan(first, end - first), depth, area, fonts);
  double height = std::max(0, row.height);
  for (const InnerCell& inner : cells)
    height = std::max(height, inner.text.height);
  if (row.height < 0)
    height = -row.height;
  const std::size_t firstLine = stack.lines.size(), firstBox = stack.boxes.size();
  for (const InnerCell& inner : cells)
    stack.boxes.push_back({nullptr, stack.height, stack.height + height, !inner.cell->continuesAbove,
                           !continuesBelow(*inner.cell, below.get()), inner.left, inner.right - inner.left,
                           inner.cell});
  for (InnerCell& inner : cells)
    addCell(stack, inner, row.padding, height);
  sortFrom(stack.lines, firstLine);
  sortFrom(stack.boxes, firstBox);
  stack.height += height;
  return end;
}

void addParagraphs(Stack& stack, std::span<const Paragraph> paragraphs, std::size_t depth, const LineArea& area,
                   const FontMeasure& fonts, double lowest) {
  const auto styleAt = [&](std::size_t i) { return i < paragraphs.size() ? &paragraphs[i].style : nullptr; };
  for (std::size_t i = 0; i < paragraphs.size() && stack.height <= lowest;) {
    if (innerDepth(paragraphs[i]) > depth)
      i = addRowToStack(stack, paragraphs, i, depth, area, fonts);
    else
      addToStack(stack, paragraphs[i], styleAt(i - 1), styleAt(i + 1), area, fonts), ++i;
  }
}

}  // namespace

Stack stackOf(const std::vector<Paragraph>& paragraphs, const LineArea& area, const FontMeasure& fonts, double lowest) {
  Stack stack;
  addParagraphs(stack, paragraphs, 0, area, fonts, lowest);
  return stack;
}

void addToStack(Stack& stack, const Paragraph& paragraph, const ParagraphStyle* above, const ParagraphStyle* below,
                const LineArea& area, const FontMeasure& fonts) {
  const ParagraphStyle& style = paragraph.style;
  PlacedBox box{&style, stack.height, 0, !shareBox(&style, above), !shareBox(&style, below)};
  stack.height += style.before;
  if (box.withTop) {
    box.top = stack.height;
    stack.height += edgeRoom(style, style.top);
  }
  for (Line& line : layOutLines(paragraph, area, fonts)) {
    const double height = line.height;
    stack.lines.push_back({std::move(line), stack.height});
    stack.height += height;
  }
  stack.height += box.withBottom ? edgeRoom(style, style.bottom) : 0;
  box.bottom = stack.height + (box.withBottom ? 0 : style.after);
  stack.height += style.after;
  if (hasBox(style))
    stack.boxes.push_back(box);
}

void paintBox(Page& page, const PlacedBox& box, double x, double width, double y) {
  x += box.x;
  if (box.width >= 0)
    width = box.width;
  if (box.cell)
    return paintCell(page, *box.cell, {x, y + box.top, x + width, y + box.bottom, box.withTop, box.withBottom});
  const ParagraphStyle& style = *box.style;
  Cell cell;
  cell.top = style.top;
  cell.left = style.leftBorder;
  cell.bottom = style.bottom;
  cell.rightBorder = style.rightBorder;
  cell.shade = style.shade;
  const double left = x + style.left + std::min(0, style.first) - edgeRoom(style, style.leftBorder);
  const double right = x + width - style.right + edgeRoom(style, style.rightBorder);
  paintCell(page, cell, {left, y + box.top, right, y + box.bottom, box.withTop, box.withBottom});
}

}  // namespace zelvo
