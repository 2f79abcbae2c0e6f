// Standing, moving and reading. What changes rows is in recordset_changes.cpp.

#include "data/recordset.h"

#include <algorithm>
#include <functional>

#include "data/recordset_inside.h"

namespace zelvo {

namespace {

StoreError notOnRow(const Table& table) {
  return StoreError({Trouble::NotFound, "There is no current record in " + std::string(table.name) +
                                            " to read or change. Choose a record first."});
}

}  // namespace

Recordset::Inside::Inside(std::shared_ptr<Connection> opened, std::string text, Keyset keyset)
    : connection(std::move(opened)),
      query(std::move(text)),
      table(*keyset.table),
      keys(std::move(keyset.rows)),
      pages(connection->engine(), table) {}

Result<std::unique_ptr<Recordset>> Recordset::open(std::shared_ptr<Connection> connection, std::string_view query) {
  auto keyset = connection->engine().select(query);
  if (!keyset)
    return keyset.error();
  auto inside = std::make_unique<Inside>(std::move(connection), std::string(query), std::move(*keyset));
  return std::unique_ptr<Recordset>(new Recordset(std::move(inside)));
}

Recordset::Recordset(std::unique_ptr<Inside> inside) : inside_(std::move(inside)) {}
Recordset::~Recordset() = default;

const Table& Recordset::table() const {
  return inside_->table;
}

std::size_t Recordset::fieldCount() const {
  return inside_->table.columns.size();
}

// ---- where it stands

bool Recordset::Eof() const {
  inside_->settle();
  return !inside_->adding && (inside_->place >= inside_->end() || inside_->keys.empty());
}

bool Recordset::Bof() const {
  inside_->settle();
  return !inside_->adding && (inside_->place < 0 || inside_->keys.empty());
}

std::size_t Recordset::RecordCount() const {
  inside_->settle();
  return inside_->keys.size();
}

std::size_t Recordset::AbsolutePosition() const {
  inside_->settle();
  return inside_->adding || !inside_->onRow() ? 0 : static_cast<std::size_t>(inside_->place) + 1;
}

Recordset::Bookmark Recordset::bookmark() const {
  inside_->settle();
  return inside_->adding ? Inside::noRow : inside_->key();
}

// ---- moving

void Recordset::Inside::dropTyped() {
  typed.reset();
  adding = false;
  stayed = false;
}

void Recordset::Inside::leaveTo(std::ptrdiff_t position) {
  dropTyped();
  current.reset();
  place = std::clamp<std::ptrdiff_t>(position, -1, end());
}

std::ptrdiff_t Recordset::Inside::placeOf(RowId row, std::ptrdiff_t from) const {
  return std::find(keys.begin() + from, keys.end(), row) - keys.begin();
}

bool Recordset::goTo(Bookmark row) {
  inside_->settle();
  const auto found = inside_->placeOf(row);
  if (found == inside_->end())
    return false;
  inside_->leaveTo(found);
  return true;
}

bool Recordset::goToPosition(std::size_t position) {
  inside_->settle();
  if (position == 0 || position > inside_->keys.size())
    return false;
  inside_->leaveTo(static_cast<std::ptrdiff_t>(position) - 1);
  return true;
}

void Recordset::MoveFirst() {
  inside_->settle();
  inside_->leaveTo(0);
}

void Recordset::MoveLast() {
  inside_->settle();
  inside_->leaveTo(std::max<std::ptrdiff_t>(inside_->end() - 1, 0));
}

void Recordset::MoveNext() {
  inside_->settle();
  inside_->leaveTo(inside_->place + 1);
}

void Recordset::MovePrevious() {
  inside_->settle();
  inside_->leaveTo(inside_->place - 1);
}

Result<bool> Recordset::Find(std::string_view criterion) {
  Inside& in = *inside_;
  in.settle();
  const auto answers = in.engine().matching(in.table, criterion);
  if (!answers)
    return answers.error();
  const auto from = std::max<std::ptrdiff_t>(in.place, 0);
  const auto answering = [&](RowId row) { return std::binary_search(answers->begin(), answers->end(), row); };
  const auto found = answers->size() == 1
                         ? in.placeOf(answers->front(), from)
                         : std::find_if(in.keys.begin() + from, in.keys.end(), answering) - in.keys.begin();
  in.leaveTo(found);
  if (!in.onRow())
    return false;
  // The store has just been asked: what is shown of the row should be what answered.
  in.pages.forget(static_cast<std::size_t>(in.place));
  return true;
}

Result<void> Recordset::Refresh() {
  Inside& in = *inside_;
  in.settle();
  auto keyset = in.engine().select(in.query);
  if (!keyset)
    return keyset.error();
  const RowId row = in.key();
  const bool atEnd = in.place >= in.end();
  in.keys = std::move(keyset->rows);
  in.pages.forgetAll();
  const std::ptrdiff_t found = row == Inside::noRow ? in.end() : in.placeOf(row);
  if (!in.typed || in.adding)
    in.current.reset();
  else if (found == in.end())
    in.dropTyped();
  if (found < in.end())
    in.place = found;
  else if (atEnd && in.place > 0)
    in.place = in.end();
  else
    in.place = std::min(in.place, std::max<std::ptrdiff_t>(in.end() - 1, 0));
  return {};
}

// ---- reading

std::size_t Recordset::Inside::columnOf(std::string_view field) const {
  const std::size_t column = table.position(field);
  if (column == table.columns.size())
    throw StoreError({Trouble::NotFound, "The table " + std::string(table.name) + " of \"" + connection->path() +
                                             "\" has no field " + std::string(field) + "."});
  return column;
}

const Row& Recordset::Inside::read() {
  if (adding || !onRow())
    throw notOnRow(table);
  if (!current)
    current = pages.row(keys, static_cast<std::size_t>(place));
  if (current->empty()) {
    current.reset();
    throw StoreError({Trouble::NotFound, "This record of " + std::string(table.name) +
                                             " was removed on another computer. Go on to another record."});
  }
  return *current;
}

Value Recordset::get(std::string_view field) const {
  Inside& in = *inside_;
  in.settle();
  const std::size_t column = in.columnOf(field);
  return in.typed ? (*in.typed)[column] : in.read()[column];
}

Value Recordset::cell(std::size_t position, std::size_t column) const {
  Inside& in = *inside_;
  in.settle();
  if (position >= in.keys.size())
    return {};
  const Row& row = in.pages.row(in.keys, position);
  return column < row.size() ? row[column] : Value();
}

// Rows get rising ids as they are added.
std::vector<Row> Recordset::newest(std::size_t count) const {
  Inside& in = *inside_;
  in.settle();
  std::vector<RowId> ids(std::min(count, in.keys.size()));
  std::partial_sort_copy(in.keys.begin(), in.keys.end(), ids.begin(), ids.end(), std::greater<>());
  auto read = in.engine().rows(in.table, ids);
  if (!read)
    throw StoreError(read.error());
  std::erase_if(*read, [](const Row& row) { return row.empty(); });
  return std::move(*read);
}

std::string Recordset::shownCell(std::size_t position, std::size_t column) const {
  Inside& in = *inside_;
  in.settle();
  if (position >= in.keys.size())
    return "";
  const Row* row = in.pages.rowIfReadable(in.keys, position);
  return row && column < row->size() ? (*row)[column].text() : "";
}

}  // namespace zelvo
