#include "records/own_boxes.h"

#include <algorithm>

#include "base/text.h"
#include "records/field_copy.h"
#include "records/search_by_example.h"

namespace zelvo {

void OwnBoxes::add(TextBox& box, std::string_view table, std::string_view column) {
  know(box, table, column);
  boxes_.back().copied = &box;
  const Column& described = *boxes_.back().column;
  box.holdsDate = described.type == ColumnType::Date;
  box.maxLength = described.type == ColumnType::Text ? described.length : 0;
}

void OwnBoxes::know(Control& control, std::string_view table, std::string_view column, std::size_t from) {
  boxes_.push_back({&control, nullptr, findTable(table)->find(column), from, ""});
}

void OwnBoxes::show(const Recordset& record) {
  for (Box& box : boxes_)
    if (box.copied)
      box.copied->text = box.shown = shownText(record, *box.column);
}

void OwnBoxes::store(Recordset& record) const {
  for (const Box& box : boxes_)
    if (box.copied && box.copied->text != box.shown)
      storeText(record, *box.column, box.copied->text);
}

void OwnBoxes::clear() {
  for (const Box& box : boxes_)
    if (box.copied)
      box.copied->text.clear();
  beginCopy();
}

void OwnBoxes::beginCopy() {
  for (Box& box : boxes_)
    box.shown.clear();
}

TextBox* OwnBoxes::unreadable() const {
  for (const Box& box : boxes_)
    if (box.copied && box.copied->holdsDate && !trim(box.copied->text).empty() && !parseDate(trim(box.copied->text)))
      return box.copied;
  return nullptr;
}

std::vector<TextBox*> OwnBoxes::amounts() const {
  std::vector<TextBox*> found;
  for (const Box& box : boxes_)
    if (box.copied && box.column->type == ColumnType::Number)
      found.push_back(box.copied);
  return found;
}

std::string OwnBoxes::clauses() const {
  std::string clauses;
  for (const Box& box : boxes_) {
    if (!box.copied)
      continue;
    const auto date = box.copied->holdsDate ? parseDate(trim(box.copied->text)) : std::nullopt;
    clauses += date                                     ? dateClause(box.column->name, *date)
               : box.column->type == ColumnType::Number ? amountClause(box.column->name, box.copied->text)
                                                        : containsClause(box.column->name, box.copied->text);
  }
  return clauses;
}

const OwnBoxes::Box* OwnBoxes::of(const Control& control) const {
  const auto found = std::ranges::find(boxes_, &control, &Box::control);
  return found == boxes_.end() ? nullptr : &*found;
}

const OwnBoxes::Box* OwnBoxes::of(const Column& column) const {
  const auto found = std::ranges::find_if(boxes_, [&](const Box& box) { return box.column->name == column.name; });
  return found == boxes_.end() ? nullptr : &*found;
}

}  // namespace zelvo
