#include "documents/rtf_table.h"

#include <algorithm>

namespace zelvo {

namespace {

constexpr int kFarthest = 31680;              // an edge beyond is a slip of a broken file
constexpr int kUsualBorder = 10;              // twips
constexpr std::size_t kUsualRowWidth = 9000;  // of a row whose shape the file does not tell

}  // namespace

bool RtfTable::take(const RtfToken& token) {
  return takeRowWord(token) || takeCellWord(token) || takeBorderWord(token);
}

bool RtfTable::takeRowWord(const RtfToken& token) {
  const std::string_view word = token.word;
  if (word == "trowd") {
    row_ = TableRow{};
    shapes_.clear();
    next_ = Shape{};
    rowBorder_ = Border{};
    border_ = nullptr;
  } else if (word == "trleft") {
    row_.left = std::clamp(token.parameterOr(0), -kFarthest, kFarthest);
  } else if (word == "trgaph" || word == "trpaddl" || word == "trpaddr") {
    row_.padding = std::clamp(token.parameterOr(0), 0, 2880);
  } else if (word == "trrh") {
    row_.height = std::clamp(token.parameterOr(0), -31680, 31680);
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
    cell.shade = colours_.at(token.parameterOr(0));
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

bool RtfTable::takeBorderWord(const RtfToken& token) {
  const std::string_view word = token.word;
  if (!word.starts_with("brdr"))
    return false;
  // Borders of paragraphs have words of the same kind; they are told apart by what stood before.
  if (word == "brdrt" || word == "brdrb" || word == "brdrl" || word == "brdrr" || word == "brdrbtw")
    border_ = &ignored_;
  if (!border_)
    return true;
  if (word == "brdrnone" || word == "brdrnil")
    border_->width = 0;
  else if (word == "brdrs" || word == "brdrdb" || word == "brdrth" || word == "brdrdot" || word == "brdrdash")
    border_->width = std::max(border_->width, kUsualBorder);
  else if (word == "brdrw")
    border_->width = std::clamp(token.parameterOr(kUsualBorder), 0, 255);
  else if (word == "brdrcf")
    border_->colour = colours_.at(token.parameterOr(0)).value_or(Colour{});
  return true;
}

void RtfTable::endShape(int right) {
  const int before = shapes_.empty() ? row_.left : shapes_.back().cell.right;
  next_.cell.right = std::max(before, right);
  if (!next_.ownBorders)
    next_.cell.top = next_.cell.left = next_.cell.bottom = next_.cell.rightBorder = rowBorder_;
  shapes_.push_back(next_);
  next_ = Shape{};
  border_ = nullptr;
}

void RtfTable::endCell() {
  cells_.push_back(std::move(cell_));
  cell_.clear();
}

// A row whose shape is missing, or has fewer cells than the row: none of the text may be lost.
void RtfTable::shapeEvenly() {
  if (shapes_.size() >= cells_.size())
    return;
  shapes_.resize(cells_.size());
  for (std::size_t i = 0; i < shapes_.size(); ++i)
    shapes_[i].cell.right = row_.left + static_cast<int>(kUsualRowWidth * (i + 1) / shapes_.size());
}

TableRow RtfTable::endRow() {
  if (!cell_.empty())
    endCell();
  shapeEvenly();
  TableRow row = row_;
  for (std::size_t i = 0; i < shapes_.size(); ++i) {
    Cell cell = shapes_[i].cell;
    if (i < cells_.size())
      cell.paragraphs = std::move(cells_[i]);
    if (shapes_[i].joinsLeft && !row.cells.empty()) {
      row.cells.back().right = cell.right;
      row.cells.back().rightBorder = cell.rightBorder;
    } else {
      row.cells.push_back(std::move(cell));
    }
  }
  cells_.clear();
  return row;
}

}  // namespace zelvo
