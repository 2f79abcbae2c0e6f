#include "data/lookup/lookup_rows.h"

#include "base/text.h"

namespace zelvo {

std::string flagWords(std::string_view viol, std::string_view failed, std::string_view other) {
  std::vector<std::string> words;
  if (viol == "1")
    words.emplace_back("open violation");
  if (failed == "1")
    words.emplace_back("failed inspection");
  if (failed == "2")
    words.emplace_back("complaint");
  if (other == "1")
    words.emplace_back("other remark");
  return join(words, ", ");
}

std::string flagsOf(const Recordset& parcels) {
  return flagWords(parcels.text("VIOL"), parcels.text("FAILED"), parcels.text("OTHER"));
}

LookupRows::LookupRows(std::shared_ptr<Recordset> rows, std::span<const LookupKind::Shown> shown)
    : rows_(std::move(rows)) {
  for (const LookupKind::Shown& field : shown)
    columns_.push_back(field.column);
}

std::string LookupRows::text(std::size_t row, std::string_view column) const {
  return rows_->shownCell(row, rows_->table().position(column));
}

std::string LookupRows::cell(std::size_t row, std::size_t column) const {
  if (row >= count() || column >= columns_.size())
    return "";
  if (columns_[column] == kFlagsColumn)
    return flagWords(text(row, "VIOL"), text(row, "FAILED"), text(row, "OTHER"));
  const std::string shown = text(row, columns_[column]);
  return trim(shown).empty() ? "--" : shown;
}

}  // namespace zelvo
