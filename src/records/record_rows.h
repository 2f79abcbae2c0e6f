#pragma once

#include <memory>
#include <vector>

#include "data/recordset.h"
#include "form/control.h"
#include "records/list_columns.h"
#include "records/record_kind.h"

namespace zelvo {

/// The rows of a list page: a window on the screen's own recordset, so that a list over a million records costs
/// nothing until somebody looks at a row. A blank cell, and the kind's date for none, show as the kind says: "--".
/// Dates are listed as mm/dd/yy.
class RecordRows : public ListRows {
 public:
  RecordRows(std::shared_ptr<Recordset> records, const RecordKind& kind, const std::vector<ShownColumn>& columns);
  std::size_t count() const override { return records_->RecordCount(); }
  std::string cell(std::size_t row, std::size_t column) const override;

 private:
  struct Cells {
    std::size_t column;  ///< of the table
    bool dates;
    std::string_view blank;
  };
  std::shared_ptr<Recordset> records_;
  const RecordKind& kind_;
  std::vector<Cells> columns_;
};

}  // namespace zelvo
