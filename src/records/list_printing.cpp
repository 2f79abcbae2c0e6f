// The list of a record screen on paper and in a file.

#include "base/text.h"
#include "documents/letter.h"
#include "records/list_page.h"

namespace zelvo {

namespace {

// So many rows fill a ream of paper: whoever prints more is asked first.
constexpr std::size_t kManyRows = 5000, kRowsAPage = 50;

/// The listed rows, read without moving the record that the screen shows.
class ListReportRows : public ReportRows {
 public:
  ListReportRows(const Recordset& records, const std::vector<ShownColumn>& columns) : records_(records) {
    for (const ShownColumn& shown : columns)
      columns_.push_back(records.table().position(shown.column));
  }
  bool next(std::vector<std::string>& values) override {
    if (row_ >= records_.RecordCount())
      return false;
    values.clear();
    for (const std::size_t column : columns_)
      values.push_back(records_.cell(row_, column).text());
    ++row_;
    return true;
  }

 private:
  const Recordset& records_;
  std::vector<std::size_t> columns_;
  std::size_t row_ = 0;
};

std::vector<ReportColumn> reportColumns(const Table& table, const std::vector<ShownColumn>& shown) {
  std::vector<ReportColumn> columns;
  for (const ShownColumn& one : shown) {
    const Column* column = table.find(one.column);
    columns.push_back({trim(one.caption), one.column, one.width, column && column->type == ColumnType::Number});
  }
  return columns;
}

}  // namespace

std::string ListPage::reportTitle() const {
  const std::string_view filter = trim(txtFilter.text);
  return screen_.caption + (filter.empty() ? "" : " with \"" + std::string(filter) + "\"");
}

Result<void> ListPage::report(ReportOutput output) {
  const std::vector<ReportColumn> columns = reportColumns(records_->table(), columns_);
  ListReportRows rows(*records_, columns_);
  LetterPrinter letters(desk_);
  return ReportPrinter(desk_, letters).run({.header = "", .columns = columns}, reportTitle(), rows, output);
}

Result<void> ListPage::print() {
  const std::size_t rows = records_->RecordCount();
  if (rows > kManyRows &&
      !desk_.messages.confirm(" Print list",
                              "The list has " + std::to_string(rows) + " rows and fills about " +
                                  std::to_string(rows / kRowsAPage) + " pages.\nDo you want to print all of it?",
                              Icon::Question, Answer::No))
    return {};
  return report(ReportOutput::Printer);
}

Result<void> ListPage::save() {
  return report(ReportOutput::Spreadsheet);
}

}  // namespace zelvo
