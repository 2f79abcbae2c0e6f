#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo {

/// A column of a listing. Values that are longer than it is wide are cut and end in "...".
struct ReportColumn {
  std::string_view caption;
  std::string_view field;  ///< what the rows know the column by: usually a column of the table
  int width = 10;          ///< in characters
  bool toRight = false;    ///< of numbers and amounts
};

/// A line at the end of a listing: its label and the number of rows, or the sum of the amounts of a column.
struct ReportTotal {
  std::string_view label = "TOTAL = ";
  int sumOf = -1;  ///< a column from 0; below 0 the rows are counted
};
inline constexpr ReportTotal kRowCount[] = {{}};

/// How amounts stand in listings: 310 is "310.00".
inline constexpr std::string_view kReportAmount = "######0.00";

/// A listing as the office knows it: all that one differs from another in, apart from its title and its rows.
struct ReportKind {
  std::string_view header;  ///< its heading in the forms folder, "\permhead.rtf"; empty: the office's report header
  std::span<const ReportColumn> columns;
  std::span<const ReportTotal> totals = kRowCount;
  std::string_view rule = {};  ///< the line above the totals; empty: none
};

/// The rows of a listing, one after the other; there may be more than memory holds.
class ReportRows {
 public:
  virtual ~ReportRows() = default;
  /// The next row, a value a column; false behind the last.
  virtual bool next(std::vector<std::string>& values) = 0;
};

}  // namespace zelvo
