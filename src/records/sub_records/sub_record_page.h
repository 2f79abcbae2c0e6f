#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/recordset.h"
#include "form/desk.h"
#include "form/screen.h"
#include "form/screen_values.h"
#include "records/sub_records/sub_record_kind.h"

namespace zelvo {

/// A page of a record screen with the rows that belong to the record, such as its insurance: a list of them, the boxes
/// of the one that is chosen, and the means to add and change them. Rows that are entered while the record itself is
/// not stored yet wait on the page and are stored with it. Its controls belong to the screen, which binds their events.
class SubRecordPage {
 public:
  SubRecordPage(Screen& screen, Desk& desk, const SubRecordKind& kind);

  /// The rows of the stored record with that key; of none when it is empty.
  void show(std::string_view key);
  /// A record that is not stored yet: its rows wait.
  void begin();
  /// No record is at hand, as while one is looked for.
  void close();
  /// A row is typed and neither added nor given up.
  bool typing() const { return mode_ == Mode::New || mode_ == Mode::Edit; }
  const SubRecordKind& kind() const { return kind_; }

  void iNew_Click();
  void iAdd_Click();
  void iEdit_Click();
  void iSave_Click();
  void iCancel_Click();
  void choose();      ///< the row that the list has selected
  void chooseType();  ///< another type needs other items
  /// The chosen row to the boxes, and the boxes into the current row of the table.
  void getData();
  void moveFieldsIntoDb(Recordset& rows) { moveFieldsIntoDb(rows, typed()); }

  /// Rows wait for their record to be stored.
  bool waits() const { return waiting_ && !rows_.empty(); }
  /// The connection text of the database that they lie in.
  Result<std::string> database() const;
  /// Writes the waiting rows under the key of their record, as part of the transaction that stores it.
  Result<void> storeWaiting(const std::shared_ptr<Connection>& connection, std::string_view key);

  Button iNew, iAdd, iEdit, iSave, iCancel;
  ListView list;
  ControlArray<TextBox> text;
  Combo type;
  DatePicker from, to;

 private:
  enum class Mode { Closed, Browse, New, Edit };
  struct Row {
    Recordset::Bookmark stored = -1;  ///< -1: it waits
    std::string sequence;
    ScreenValues values;
  };

  std::string title() const;
  void enter(Mode mode);
  void fillTypes();
  void markRequired();
  void clearBoxes();
  std::vector<Control*> boxes();
  ScreenValues typed();
  void readRows();
  Row waitingRow();
  void listRows();
  void select(std::optional<std::size_t> row);
  bool isExempt() const;
  bool validate();
  bool datesInOrder();
  bool store(Row& row);
  Result<void> writeRow(Recordset& rows, const Row& row, std::string_view key);
  Result<void> openRows();
  void moveFieldsIntoDb(Recordset& rows, const ScreenValues& values) const;
  bool resolveConflict(Row& row);
  void tellNotStored(const Error& error);

  Desk& desk_;
  Screen& screen_;
  const SubRecordKind& kind_;
  Mode mode_ = Mode::Closed;
  bool waiting_ = false;  ///< the record itself is not stored yet
  std::string key_;
  std::vector<Row> rows_;
  std::unique_ptr<Recordset> records_;
  ScreenValues asRead_;
  bool conflict_ = false;  ///< someone else changed the row, and it is not settled yet what stands
};

}  // namespace zelvo
