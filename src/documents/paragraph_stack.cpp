#include "documents/paragraph_stack.h"

#include <algorithm>
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

Stack stackOf(const std::vector<Paragraph>& paragraphs, const LineArea& area, const FontMeasure& fonts, double lowest) {
  Stack stack;
  const auto styleAt = [&](std::size_t i) { return i < paragraphs.size() ? &paragraphs[i].style : nullptr; };
  for (std::size_t i = 0; i < paragraphs.size() && stack.height <= lowest; ++i)
    addToStack(stack, paragraphs[i], styleAt(i - 1), styleAt(i + 1), area, fonts);
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
