#pragma once

#include <memory>
#include <string>

#include "data/recordset.h"
#include "documents/reports/report_printer.h"
#include "form/desk.h"
#include "form/screen.h"
#include "records/list_columns.h"
#include "records/own_boxes.h"
#include "records/record_query.h"

namespace zelvo {

/// The page of a record screen that lists the records: which columns it shows, what it is filtered by and sorted by.
/// Its controls belong to the screen, which binds their events and reads its records anew when the query changed.
class ListPage {
 public:
  ListPage(Screen& screen, Desk& desk, const RecordKind& kind, RecordQuery& query, const OwnBoxes& ownBoxes);

  /// The records that the list shows from now on.
  void show(std::shared_ptr<Recordset> records);
  void enable(bool browsing);
  /// Puts filter and order into the query. False when nothing changed.
  bool arrange();
  /// Whether there are so few records that a filter may follow each letter.
  bool filtersAtOnce() const;
  /// Something else was asked for: filter and order of the list go.
  void forgetArrangement();
  void chooseColumns();
  /// The widths that the user pulled are kept for the next time.
  void rememberWidths();
  const std::vector<ShownColumn>& columns() const { return columns_; }
  /// The rows that are listed now, in their order and with the shown columns: to the printer, or as comma-separated
  /// values into a file. An error says what stood in the way.
  Result<void> print();
  Result<void> save();

  ListView ListView1;
  TextBox txtFilter;
  Button cmdColumns, cmdPrintList, cmdSaveList;

 private:
  void showColumns();
  Result<void> report(ReportOutput output);
  std::string reportTitle() const;
  std::string filterCondition() const;
  std::string captionOf(const Column& column) const;

  Screen& screen_;
  Desk& desk_;
  const RecordKind& kind_;
  RecordQuery& query_;
  const OwnBoxes& ownBoxes_;
  std::shared_ptr<Recordset> records_;
  std::vector<ShownColumn> columns_;
  std::size_t unfiltered_ = 0;  ///< records, without the list's own filter
  std::string arranged_;        ///< filter and order that the query has now
};

}  // namespace zelvo
