#pragma once

#include <memory>
#include <vector>

#include "data/recordset.h"
#include "form/control.h"
#include "records/list_columns.h"

namespace zelvo {

/// The rows of a list page: a window on the screen's own recordset, so that a list over a million records costs
/// nothing until somebody looks at a row. A blank cell shows as "--".
class RecordRows : public ListRows {
 public:
  RecordRows(std::shared_ptr<Recordset> records, const std::vector<ShownColumn>& columns);
  std::size_t count() const override { return records_->RecordCount(); }
  std::string cell(std::size_t row, std::size_t column) const override;

 private:
  std::shared_ptr<Recordset> records_;
  std::vector<std::size_t> columns_;
};

}  // namespace zelvo
