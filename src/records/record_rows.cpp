#include "records/record_rows.h"

#include <algorithm>

#include "base/text.h"

namespace zelvo {

namespace {

std::string_view blankOf(const RecordKind& kind, std::string_view column) {
  const auto field = std::ranges::find(kind.list, column, &ListField::column);
  return field == kind.list.end() ? "--" : field->blank;
}

}  // namespace

RecordRows::RecordRows(std::shared_ptr<Recordset> records, const RecordKind& kind,
                       const std::vector<ShownColumn>& columns)
    : records_(std::move(records)), kind_(kind) {
  const Table& table = records_->table();
  for (const ShownColumn& shown : columns) {
    const Column* column = table.find(shown.column);
    columns_.push_back(
        {table.position(shown.column), column && column->type == ColumnType::Date, blankOf(kind, shown.column)});
  }
}

std::string RecordRows::cell(std::size_t row, std::size_t column) const {
  if (row >= count() || column >= columns_.size())
    return "";
  const Cells& cells = columns_[column];
  const std::string text = records_->shownCell(row, cells.column);
  const auto date = cells.dates ? parseDate(text) : std::nullopt;
  if (trim(text).empty() || (date && date == kind_.noDate))
    return std::string(cells.blank);
  return date ? datePicture(*date, "mm/dd/yy") : text;
}

}  // namespace zelvo
