#include "records/record_rows.h"

#include "base/text.h"

namespace zelvo {

RecordRows::RecordRows(std::shared_ptr<Recordset> records, const std::vector<ShownColumn>& columns)
    : records_(std::move(records)) {
  for (const ShownColumn& shown : columns)
    columns_.push_back(records_->table().position(shown.column));
}

std::string RecordRows::cell(std::size_t row, std::size_t column) const {
  if (row >= count() || column >= columns_.size())
    return "";
  const std::string text = records_->shownCell(row, columns_[column]);
  return trim(text).empty() ? "--" : text;
}

}  // namespace zelvo
