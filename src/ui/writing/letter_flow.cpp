#include "ui/writing/letter_flow.h"

#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <cmath>

#include "ui/writing/text_formats.h"

namespace zelvo {

namespace {

// The lines of a block, from its upper left corner; gives its height.
double layOutBlock(const QTextBlock& block, double width) {
  const QTextBlockFormat format = block.blockFormat();
  QTextOption option = block.document()->defaultTextOption();
  option.setTextDirection(block.textDirection());
  option.setAlignment(format.alignment());
  option.setTabs(format.tabPositions());
  QTextBlock(block).clearLayout();
  QTextLayout& lines = *block.layout();
  lines.setTextOption(option);
  lines.beginLayout();
  double y = format.topMargin();
  double indent = format.textIndent();
  for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
    line.setLeadingIncluded(true);
    line.setLineWidth(std::max(1.0, width - format.leftMargin() - format.rightMargin() - indent));
    const double own = std::ceil(line.ascent() + line.descent() + line.leading());
    const double height = format.lineHeight(own, 1);
    line.setPosition(QPointF(format.leftMargin() + indent, y + height - own));  // more room is room above
    y += height;
    indent = 0;
  }
  lines.endLayout();
  return y + format.bottomMargin();
}

// The empty line that the widget needs before a table takes no room: the letter has none there. The first block of a
// table is the one whose look names the table.
bool isBeforeTable(const QTextBlock& block) {
  return block.length() == 1 && block.next().isValid() && block.next().charFormat().objectIndex() >= 0;
}

// What of a block is selected, and in which look.
QList<QTextLayout::FormatRange> selectedIn(const QTextBlock& block,
                                           const QAbstractTextDocumentLayout::PaintContext& context) {
  QList<QTextLayout::FormatRange> ranges;
  for (const auto& selection : context.selections) {
    const int from = std::max(0, selection.cursor.selectionStart() - block.position());
    const int to = std::min(block.length(), selection.cursor.selectionEnd() - block.position());
    if (from < to)
      ranges.append({from, to - from, selection.format});
  }
  return ranges;
}

void drawBorders(QPainter& painter, const QRectF& area, const QTextTableCellFormat& format) {
  const auto fill = [&](double width, const QRectF& edge) {
    if (width > 0)
      painter.fillRect(edge, format.topBorderBrush());
  };
  const double top = format.topBorder(), bottom = format.bottomBorder();
  const double left = format.leftBorder(), right = format.rightBorder();
  fill(top, QRectF(area.left(), area.top(), area.width(), top));
  fill(bottom, QRectF(area.left(), area.bottom() - bottom, area.width(), bottom));
  fill(left, QRectF(area.left(), area.top(), left, area.height()));
  fill(right, QRectF(area.right() - right, area.top(), right, area.height()));
}

// The line of a block at a height.
QTextLine lineAt(const QTextLayout& lines, double y) {
  for (int i = 0; i + 1 < lines.lineCount(); ++i)
    if (y < lines.lineAt(i + 1).y())
      return lines.lineAt(i);
  return lines.lineAt(lines.lineCount() - 1);
}

}  // namespace

// ---- where everything stands

double LetterFlow::topOf(int number) const {
  double top = margin();
  for (int i = 0; i < number; ++i)
    top += parts_[static_cast<std::size_t>(i)].room;
  return top;
}

// The block, or the first one of the table, at a height; the nearest one above and below all of them.
int LetterFlow::numberAt(double y) const {
  double bottom = margin();
  int number = 0;
  for (int i = 0; i < static_cast<int>(parts_.size()); ++i) {
    const double room = parts_[static_cast<std::size_t>(i)].room;
    if (room > 0)
      number = i;
    bottom += room;
    if (y < bottom)
      break;
  }
  return number;
}

QSizeF LetterFlow::documentSize() const {
  return {document()->pageSize().width(), topOf(static_cast<int>(parts_.size())) + margin()};
}

std::vector<LetterFlow::CellBox> LetterFlow::cellsOf(const QTextTable& table, double top) const {
  std::vector<CellBox> boxes;
  const double height = parts_[static_cast<std::size_t>(spanOf(table).first)].room;
  const auto widths = table.format().columnWidthConstraints();
  double left = margin() + table.format().leftMargin();
  for (int column = 0; column < table.columns(); ++column) {
    const QTextTableCell cell = table.cellAt(0, column);
    const QTextTableCellFormat format = cellFormatOf(table, column);
    CellBox box{QRectF(left, top, widths.value(column).rawValue(), height), top + format.topBorder(),
                cell.firstCursorPosition().block().blockNumber(), cell.lastCursorPosition().block().blockNumber()};
    double text = 0;
    for (int i = box.first; i <= box.last; ++i)
      text += parts_[static_cast<std::size_t>(i)].height;
    const double spare = height - text - format.topBorder() - format.bottomBorder();
    if (format.verticalAlignment() == QTextCharFormat::AlignMiddle)
      box.textTop += spare / 2;
    else if (format.verticalAlignment() == QTextCharFormat::AlignBottom)
      box.textTop += spare;
    left += box.area.width();
    boxes.push_back(box);
  }
  return boxes;
}

QPointF LetterFlow::originOf(const QTextBlock& block) const {
  const int number = block.blockNumber();
  const QTextTable* table = parts_[static_cast<std::size_t>(number)].inTable ? tableOf(block) : nullptr;
  if (!table)
    return {margin(), topOf(number)};
  const auto boxes = cellsOf(*table, topOf(spanOf(*table).first));
  const int column = table->cellAt(block.position()).column();
  const CellBox& box = boxes[static_cast<std::size_t>(column)];
  double y = box.textTop;
  for (int i = box.first; i < number; ++i)
    y += parts_[static_cast<std::size_t>(i)].height;
  return {box.area.left() + cellFormatOf(*table, column).leftPadding(), y};
}

QRectF LetterFlow::frameBoundingRect(QTextFrame* frame) const {
  const auto* table = qobject_cast<QTextTable*>(frame);
  if (!table)
    return QRectF(QPointF(), documentSize());
  const int first = spanOf(*table).first;
  return {margin(), topOf(first), lineWidth(), parts_[static_cast<std::size_t>(first)].room};
}

QRectF LetterFlow::blockBoundingRect(const QTextBlock& block) const {
  const auto number = static_cast<std::size_t>(std::max(0, block.blockNumber()));
  if (!block.isValid() || number >= parts_.size())
    return {};
  const double width = parts_[number].inTable ? block.layout()->boundingRect().right() : lineWidth();
  return {originOf(block), QSizeF(width, parts_[number].height)};
}

// ---- what changes

void LetterFlow::layOutTable(const QTextTable& table, std::vector<Part>& parts) const {
  const std::size_t row = parts.size();
  const auto widths = table.format().columnWidthConstraints();
  double highest = 0;
  for (int column = 0; column < table.columns(); ++column) {
    const QTextTableCell cell = table.cellAt(0, column);
    const QTextTableCellFormat format = cellFormatOf(table, column);
    const double width = widths.value(column).rawValue() - format.leftPadding() - format.rightPadding();
    double height = format.topBorder() + format.bottomBorder();
    for (auto inside = cell.begin(); !inside.atEnd(); ++inside) {
      parts.push_back({0, layOutBlock(inside.currentBlock(), width), true});
      height += parts.back().height;
    }
    highest = std::max(highest, height);
  }
  parts[row].room = highest;
}

void LetterFlow::layOut(BlockSpan span, std::vector<Part>& parts) const {
  const auto block = [&](const QTextBlock& one) {
    const double height = layOutBlock(one, lineWidth());
    parts.push_back({isBeforeTable(one) ? 0 : height, height, false});
  };
  eachPart(*document(), span, block, [&](const QTextTable& table) { layOutTable(table, parts); });
}

void LetterFlow::documentChanged(int from, int, int added) {
  const int count = document()->blockCount();
  const int was = static_cast<int>(parts_.size());
  BlockSpan span = changedSpan(*document(), from, added);
  span.first = std::max(0, span.first - 1);  // it may stand before a table from now on, or no more
  span = withTables(*document(), span);
  int behind = was - (count - 1 - span.last);
  if (behind < span.first || span.first > was) {  // another text
    span = {0, count - 1};
    behind = was;
  }
  std::vector<Part> parts;
  layOut(span, parts);
  const double top = topOf(span.first);
  parts_.erase(parts_.begin() + span.first, parts_.begin() + behind);
  parts_.insert(parts_.begin() + span.first, parts.begin(), parts.end());
  const QSizeF size = documentSize();
  const double bottom = size == told_ ? topOf(span.last + 1) : std::max(size.height(), told_.height());
  if (size != told_)
    emit documentSizeChanged(told_ = size);
  emit update(QRectF(0, top, size.width(), bottom - top));
}

// ---- what is seen

void LetterFlow::resizeInlineObject(QTextInlineObject item, int, const QTextFormat& format) {
  const QTextImageFormat image = format.toImageFormat();
  item.setWidth(image.width());
  item.setAscent(std::max(0.0, image.height() - 1));
  item.setDescent(0);
}

void LetterFlow::drawInlineObject(QPainter* painter, const QRectF& area, QTextInlineObject, int,
                                  const QTextFormat& format) {
  const QUrl name(format.toImageFormat().name());
  painter->drawImage(area, document()->resource(QTextDocument::ImageResource, name).value<QImage>());
}

void LetterFlow::drawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block, QPointF origin,
                           double width) const {
  const QTextBlockFormat format = block.blockFormat();
  const double height = parts_[static_cast<std::size_t>(block.blockNumber())].height;
  if (format.background().style() != Qt::NoBrush)
    painter.fillRect(
        QRectF(origin, QSizeF(width, height))
            .adjusted(format.leftMargin(), format.topMargin(), -format.rightMargin(), -format.bottomMargin()),
        format.background());
  painter.setPen(context.palette.color(QPalette::Text));
  block.layout()->draw(&painter, origin, selectedIn(block, context), context.clip);
  if (block.contains(context.cursorPosition))
    block.layout()->drawCursor(&painter, origin, context.cursorPosition - block.position(), 1);
}

void LetterFlow::drawTable(QPainter& painter, const PaintContext& context, const QTextTable& table, double top) const {
  int column = 0;
  for (const CellBox& box : cellsOf(table, top)) {
    const QTextTableCellFormat format = cellFormatOf(table, column++);
    if (format.background().style() != Qt::NoBrush)
      painter.fillRect(box.area, format.background());
    drawBorders(painter, box.area, format);
    const double width = box.area.width() - format.leftPadding() - format.rightPadding();
    double y = box.textTop;
    for (int i = box.first; i <= box.last; ++i) {
      drawBlock(painter, context, document()->findBlockByNumber(i), {box.area.left() + format.leftPadding(), y}, width);
      y += parts_[static_cast<std::size_t>(i)].height;
    }
  }
}

void LetterFlow::draw(QPainter* painter, const PaintContext& context) {
  const QRectF seen = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
  int number = numberAt(seen.top());
  double top = topOf(number);
  for (QTextBlock block = document()->findBlockByNumber(number); block.isValid() && top < seen.bottom();
       block = block.next()) {
    const Part& part = parts_[static_cast<std::size_t>(number++)];
    if (part.inTable && part.room > 0)
      drawTable(*painter, context, *tableOf(block), top);
    else if (!part.inTable)
      drawBlock(*painter, context, block, {margin(), top}, lineWidth());
    top += part.room;
  }
}

// ---- where the user points

int LetterFlow::hitBlock(int number, QPointF point) const {
  const QTextBlock block = document()->findBlockByNumber(number);
  const QPointF inside = point - originOf(block);
  const QTextLine line = lineAt(*block.layout(), inside.y());
  return block.position() + (line.isValid() ? line.xToCursor(inside.x()) : 0);
}

int LetterFlow::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
  if (parts_.empty() || (accuracy == Qt::ExactHit && !QRectF(QPointF(), documentSize()).contains(point)))
    return -1;
  const int number = numberAt(point.y());
  const QTextTable* table =
      parts_[static_cast<std::size_t>(number)].inTable ? tableOf(document()->findBlockByNumber(number)) : nullptr;
  if (!table)
    return hitBlock(number, point);
  const std::vector<CellBox> boxes = cellsOf(*table, topOf(number));
  const auto box =
      std::find_if(boxes.begin(), boxes.end() - 1, [&](const CellBox& cell) { return point.x() < cell.area.right(); });
  int inCell = box->first;
  for (double y = box->textTop; inCell < box->last; ++inCell)
    if (point.y() < (y += parts_[static_cast<std::size_t>(inCell)].height))
      break;
  return hitBlock(inCell, point);
}

}  // namespace zelvo
