// The storing half of a page of rows that belong to a record: how they lie in their table, and how they come in with
// their record or after it.

#include "base/files.h"
#include "base/text.h"
#include "data/no_dbfound.h"
#include "data/query_text.h"
#include "records/conflict_frm.h"
#include "records/other_records.h"
#include "records/sub_records/sub_record_page.h"

namespace zelvo {

namespace {

std::string rowsOf(const SubRecordKind& kind, std::string_view key) {
  return "Select * from " + std::string(kind.table) + " where " + columnIs("RECNO", key) + " order by SEQ";
}

std::string dateText(const Value& value) {
  const auto moment = value.moment();
  return moment && moment->date != kNoEndDate ? datePicture(moment->date, "mm/dd/yyyy") : "";
}

Value dateOf(std::string_view text) {
  const auto date = parseDate(text);
  return date ? Value(*date) : Value();
}

ScreenValues valuesIn(const Recordset& row, const SubRecordPage& page) {
  const auto held = [](const Control& box) { return const_cast<Control*>(&box); };
  ScreenValues values;
  for (std::size_t i = 0; i < kSubBoxes; ++i)
    values[held(page.text(static_cast<int>(i) + 1))] = row.text(page.kind().columns[i]);
  values[held(page.type)] = row.text(page.kind().type);
  values[held(page.from)] = dateText(row.get(page.kind().from));
  values[held(page.to)] = dateText(row.get(page.kind().to));
  return values;
}

}  // namespace

void SubRecordPage::moveFieldsIntoDb(Recordset& rows, const ScreenValues& values) const {
  const auto value = [&values](const Control& box) { return values.at(const_cast<Control*>(&box)); };
  for (std::size_t i = 0; i < kSubBoxes; ++i)
    rows.set(kind_.columns[i], value(text(static_cast<int>(i) + 1)));
  rows.set(kind_.type, trim(value(type)));
  rows.set(kind_.from, dateOf(value(from)));
  const std::string end = value(to);
  rows.set(kind_.to, end.empty() ? Value(kNoEndDate) : dateOf(end));
  if (!kind_.mark.empty())
    rows.set("EXTRA1", kind_.mark);
}

// ---- reading

// An office that has had no such rows yet may have no database for them: that is made with the first row.
void SubRecordPage::readRows() {
  rows_.clear();
  records_.reset();
  if (key_.empty())
    return;
  const Table& table = *findTable(kind_.table);
  const std::string& located = desk_.session.connections[static_cast<std::size_t>(table.index)];
  const auto connection =
      Connection::open(located.empty() ? connectionText(joinPath(desk_.session.dataFolder, table.file)) : located);
  if (!connection) {
    if (connection.error().trouble != Trouble::NotFound)
      screen_.status = connection.error().message;
    return;
  }
  auto read = Recordset::open(*connection, rowsOf(kind_, key_));
  if (!read)
    throw StoreError(read.error());
  records_ = std::move(*read);
  for (; !records_->Eof(); records_->MoveNext())
    rows_.push_back({records_->bookmark(), records_->text("SEQ"), valuesIn(*records_, *this)});
}

// ---- storing

SubRecordPage::Row SubRecordPage::waitingRow() {
  Row row;
  row.values = typed();
  return row;
}

Result<void> SubRecordPage::openRows() {
  if (records_)
    return {};
  auto read = otherRows(desk_, findTable(kind_.table)->file, rowsOf(kind_, key_));
  if (!read)
    return read.error();
  records_ = std::move(*read);
  return {};
}

Result<void> SubRecordPage::writeRow(Recordset& rows, const Row& row, std::string_view key) {
  if (row.stored < 0) {
    rows.AddNew();
    rows.set("RECNO", key);
  } else if (!rows.goTo(row.stored)) {
    return Error{Trouble::NotFound, "It was removed on another computer."};
  }
  moveFieldsIntoDb(rows, row.values);
  return rows.Update();
}

// Stores a row of a record that is stored; false, with the typing as it was, when it is not.
bool SubRecordPage::store(Row& row) {
  auto stored = openRows();
  if (!stored) {
    tellNotStored(stored.error());
    return false;
  }
  do {
    if (conflict_ && !resolveConflict(row))
      return false;
    stored = writeRow(*records_, row, key_);
    conflict_ = !stored && stored.error().trouble == Trouble::Conflict;
  } while (conflict_);
  if (!stored) {
    records_->CancelUpdate();
    tellNotStored(stored.error());
    return false;
  }
  row.stored = records_->bookmark();
  row.sequence = records_->text("SEQ");
  return true;
}

bool SubRecordPage::resolveConflict(Row& row) {
  const ScreenValues mine = typed();
  records_->CancelUpdate();
  if (const auto read = records_->Refresh(); !read)
    throw StoreError(read.error());
  if (!records_->goTo(row.stored))
    return false;
  const ScreenValues theirs = valuesIn(*records_, *this);
  const bool settled =
      settleConflict(desk_, "Someone else changed this " + std::string(kind_.noun), asRead_, theirs, mine);
  if (settled) {
    asRead_ = theirs;
    row.values = typed();
  }
  return settled;
}

Result<std::string> SubRecordPage::database() const {
  return databaseConnection(desk_, findTable(kind_.table)->file);
}

Result<void> SubRecordPage::storeWaiting(const std::shared_ptr<Connection>& connection, std::string_view key) {
  if (!waits())
    return {};
  auto rows = Recordset::open(connection, rowsOf(kind_, key));
  if (!rows)
    return rows.error();
  for (const Row& row : rows_)
    if (auto written = writeRow(**rows, row, key); !written)
      return written;
  return {};
}

}  // namespace zelvo
