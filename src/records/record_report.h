#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"
#include "documents/reports/report.h"

namespace zelvo {

/// A field of the current row as listings show it: dates as mm/dd/yy, everything else as the screens do.
std::string reportValue(const Recordset& row, std::string_view field);
/// An amount as listings show it: 310 is "310.00".
std::string reportAmount(const Recordset& row, std::string_view field);

/// The rows that a query selected, for a listing. Throws StoreError when the store fails while it reads.
class RecordReportRows : public ReportRows {
 public:
  /// The text of a column for the current row; for what the table does not hold as the listing shows it.
  using Reading = std::function<std::string(const Recordset& row, std::string_view field)>;

  RecordReportRows(Recordset& records, std::span<const ReportColumn> columns, Reading reading = reportValue)
      : records_(records), columns_(columns), reading_(std::move(reading)) {}

  bool next(std::vector<std::string>& values) override;

  /// Rows for which this says no are passed over.
  std::function<bool(const Recordset& row)> wanted;

 private:
  Recordset& records_;
  std::span<const ReportColumn> columns_;
  Reading reading_;
};

/// Few rows that are at hand.
class ListedRows : public ReportRows {
 public:
  explicit ListedRows(std::vector<std::vector<std::string>> rows) : rows_(std::move(rows)) {}
  bool next(std::vector<std::string>& values) override;

 private:
  std::vector<std::vector<std::string>> rows_;
  std::size_t at_ = 0;
};

}  // namespace zelvo
