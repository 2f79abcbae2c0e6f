#include "documents/rtf_table.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace zelvo {

namespace {

constexpr int kFarthest = 31680;              // an edge beyond is a slip of a broken file
constexpr std::size_t kUsualRowWidth = 9000;  // of a row whose shape the file does not tell

using PlacedRows = std::map<const TableRow*, std::shared_ptr<const TableRow>>;

// The row of a table that stands, however deep, in a cell of a row that is known only now.
std::shared_ptr<const TableRow> placeRow(const std::shared_ptr<const TableRow>& row, const OuterCell& outer,
                                         PlacedRows& placed) {
  auto& result = placed[row.get()];
  if (result)
    return result;
  auto copy = std::make_shared<TableRow>(*row);
  if (copy->outer.row)
    copy->outer.row = placeRow(copy->outer.row, outer, placed);
  else
    copy->outer = outer;
  placed[row.get()] = copy;
  return copy;
}

}  // namespace

bool RtfTable::take(const RtfToken& token) {
  return takeRowWord(token) || takeCellWord(token) || (border_ && takeBorderWord(token, *border_, *colours_));
}

bool RtfTable::takeRowWord(const RtfToken& token) {
  const std::string_view word = token.word;
  if (word == "trowd") {
    row_ = TableRow{};
    shapes_.clear();
    shapeUsed_ = false;
    next_ = Shape{};
    rowBorder_ = Border{};
    border_ = nullptr;
  } else if (word == "trleft") {
    row_.left = std::clamp(token.parameterOr(0), -kFarthest, kFarthest);
  } else if (word == "trgaph" || word == "trpaddl" || word == "trpaddr") {
    row_.padding = std::clamp(token.parameterOr(0), 0, 2880);
  } else if (word == "trrh") {
    row_.height = std::clamp(token.parameterOr(0), -31680, 31680);
  } else if (word == "trqc" || word == "trqr" || word == "trql") {
    row_.alignment = word == "trqc" ? Alignment::Center : word == "trqr" ? Alignment::Right : Alignment::Left;
  } else if (word == "trhdr") {
    row_.isHeading = true;
  } else if (word == "cellx") {
    endShape(std::clamp(token.parameterOr(0), -kFarthest, kFarthest));
  } else if (word.starts_with("trbrdr")) {
    border_ = &rowBorder_;
  } else {
    return false;
  }
  return true;
}

bool RtfTable::takeCellWord(const RtfToken& token) {
  const std::string_view word = token.word;
  Cell& cell = next_.cell;
  if (word == "clbrdrt")
    border_ = &cell.top;
  else if (word == "clbrdrl")
    border_ = &cell.left;
  else if (word == "clbrdrb")
    border_ = &cell.bottom;
  else if (word == "clbrdrr")
    border_ = &cell.rightBorder;
  else if (word == "clvertalt")
    cell.place = VerticalPlace::Top;
  else if (word == "clvertalc")
    cell.place = VerticalPlace::Middle;
  else if (word == "clvertalb")
    cell.place = VerticalPlace::Bottom;
  else if (word == "clcbpat")
    cell.shade = colours_->at(token.parameterOr(0));
  else if (word == "clvmrg")
    cell.continuesAbove = true;
  else if (word == "clmrg")
    next_.joinsLeft = true;
  else
    return false;
  if (word.starts_with("clbrdr"))
    next_.ownBorders = true;
  return true;
}

void RtfTable::endShape(int right) {
  const int before = shapes_.empty() ? row_.left : shapes_.back().cell.right;
  next_.cell.right = std::max(before, right);
  if (!next_.ownBorders)
    next_.cell.top = next_.cell.left = next_.cell.bottom = next_.cell.rightBorder = rowBorder_;
  for (Border* border : {&next_.cell.top, &next_.cell.left, &next_.cell.bottom, &next_.cell.rightBorder})
    if (border->width == 0)
      *border = Border{};
  shapes_.push_back(next_);
  next_ = Shape{};
  border_ = nullptr;
}

// A table inside a cell is never the last thing in it: a paragraph ends the cell.
void RtfTable::endCell() {
  if (!cell_.empty() && cell_.back().row)
    cell_.emplace_back();
  cells_.push_back(std::move(cell_));
  cell_.clear();
}

// A row whose shape is missing, or has fewer cells than the row: none of the text may be lost.
void RtfTable::shapeEvenly() {
  if (shapes_.size() >= cells_.size())
    return;
  shapeUsed_ = false;
  shapes_.resize(cells_.size());
  for (std::size_t i = 0; i < shapes_.size(); ++i)
    shapes_[i].cell.right = row_.left + static_cast<int>(kUsualRowWidth * (i + 1) / shapes_.size());
}

// A cell that belongs to the one on its left gives it its room, and the text that should not be in it.
void RtfTable::joinLeft(Cell& left, Cell& cell) {
  left.right = cell.right;
  left.rightBorder = cell.rightBorder;
  for (Paragraph& paragraph : cell.paragraphs)
    if (!paragraph.runs.empty())
      left.paragraphs.push_back(std::move(paragraph));
}

// A row may leave its last cells out; one that takes its shape from a row before only has those that it fills, so that
// a broken file cannot make a page of cells out of a few bytes.
TableRow RtfTable::endRow() {
  if (!cell_.empty())
    endCell();
  shapeEvenly();
  TableRow row = row_;
  const std::size_t count = shapeUsed_ ? cells_.size() : shapes_.size();
  for (std::size_t i = 0; i < count; ++i) {
    Cell cell = shapes_[i].cell;
    if (i < cells_.size())
      cell.paragraphs = std::move(cells_[i]);
    if (cell.paragraphs.empty())
      cell.paragraphs.emplace_back();
    if (shapes_[i].joinsLeft && !row.cells.empty())
      joinLeft(row.cells.back(), cell);
    else
      row.cells.push_back(std::move(cell));
  }
  cells_.clear();
  shapeUsed_ = true;
  return row;
}

std::vector<Paragraph> RtfTable::endInnerRow() {
  const auto row = std::make_shared<TableRow>(endRow());
  std::vector<Paragraph> paragraphs;
  PlacedRows placed;
  for (std::size_t cell = 0; cell < row->cells.size(); ++cell)
    for (Paragraph& paragraph : std::exchange(row->cells[cell].paragraphs, {})) {
      if (paragraph.row)
        paragraph.row = placeRow(paragraph.row, {row, cell}, placed);
      else
        paragraph.row = row, paragraph.cell = cell;
      paragraphs.push_back(std::move(paragraph));
    }
  return paragraphs;
}

}  // namespace zelvo
