#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "documents/reports/report.h"
#include "form/ports.h"

namespace zelvo {

/// A listing that was made, and how many rows it has.
struct MadeReport {
  std::string text;
  std::size_t rows = 0;
};

/// The listing as a rich-text document in "Courier New": the office's heading (rich text, merged; may be empty), the
/// title, the heads of the columns, one line a row, the totals. The heads are repeated on every page, and pages are
/// numbered. Size of the letters, margins and landscape are those of the options, as far as the columns have room.
/// Takes the rows one by one, in time and memory proportional to the document.
MadeReport makeReport(const ReportKind& kind, std::string_view title, std::string_view heading, ReportRows& rows,
                      const PrintOptions& options);

/// The rows as comma-separated values for a spreadsheet: UTF-8 with its mark, the captions first. A text that a
/// spreadsheet would take for a formula has an apostrophe before it.
MadeReport makeSpreadsheet(const ReportKind& kind, ReportRows& rows);

}  // namespace zelvo
