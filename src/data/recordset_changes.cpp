// Adding, changing, storing and removing rows.

#include <algorithm>

#include "data/fit.h"
#include "data/recordset_inside.h"

namespace zelvo {

namespace {

Error goneFrom(const Table& table) {
  return {Trouble::Conflict,
          "This record of " + std::string(table.name) + " was removed on another computer. Go on to another record."};
}

std::size_t counterOf(const Table& table) {
  const auto is = [](const Column& column) { return column.type == ColumnType::Counter; };
  return static_cast<std::size_t>(std::find_if(table.columns.begin(), table.columns.end(), is) - table.columns.begin());
}

}  // namespace

void Recordset::AddNew() {
  Inside& in = *inside_;
  in.settle();
  in.dropTyped();
  in.adding = true;
  in.typed = Row(in.table.columns.size());
}

void Recordset::set(std::string_view field, const Value& value) {
  Inside& in = *inside_;
  in.settle();
  const std::size_t column = in.columnOf(field);
  if (in.table.columns[column].type == ColumnType::Counter && !in.adding)
    throw StoreError({Trouble::BadInput, std::string(field) + " was handed out by the store and cannot be changed."});
  const auto fits = fitted(in.table.columns[column], value);
  if (!fits)
    throw StoreError(fits.error());
  if (!in.typed)
    in.typed = in.read();
  in.stayed = false;
  (*in.typed)[column] = *fits;
}

bool Recordset::adding() const {
  inside_->settle();
  return inside_->adding;
}

void Recordset::CancelUpdate() {
  inside_->settle();
  inside_->dropTyped();
}

Result<void> Recordset::Update() {
  Inside& in = *inside_;
  in.settle();
  if (!in.typed)
    return {};
  return in.adding ? in.storeAdded() : in.storeChanged();
}

Result<void> Recordset::Inside::storeAdded() {
  const auto row = engine().insert(table, *typed);
  if (!row)
    return row.error();
  note({Change::Kind::Added, *row, place, {}, *typed});
  keys.push_back(*row);
  place = end() - 1;
  current = std::move(typed);
  if (const std::size_t counter = counterOf(table); counter < current->size())
    (*current)[counter] = *row;
  typed.reset();
  adding = false;
  return {};
}

Result<void> Recordset::Inside::storeChanged() {
  if (auto stored = engine().update(table, key(), *current, *typed); !stored)
    return stored;
  note({Change::Kind::Changed, key(), place, *current, *typed});
  pages.forget(static_cast<std::size_t>(place));
  current = std::move(typed);
  typed.reset();
  return {};
}

Result<void> Recordset::Delete() {
  Inside& in = *inside_;
  in.settle();
  const Row row = in.read();
  if (auto removed = in.engine().remove(in.table, in.key(), row); !removed)
    return removed;
  in.note({Inside::Change::Kind::Removed, in.key(), in.place, row, {}});
  in.dropTyped();
  in.current.reset();
  in.keys.erase(in.keys.begin() + in.place);
  in.pages.forgetAll();
  return {};
}

Result<std::vector<Value>> Recordset::currentInStore() const {
  Inside& in = *inside_;
  in.settle();
  if (!in.onRow() || in.adding)
    return goneFrom(in.table);
  const RowId row = in.key();
  auto rows = in.engine().rows(in.table, std::span(&row, 1));
  if (!rows)
    return rows.error();
  if (rows->front().empty())
    return goneFrom(in.table);
  return std::move(rows->front());
}

// ---- transactions that are given up

void Recordset::Inside::note(Change change) {
  const auto open = engine().transaction();
  if (!open)
    return;
  transaction = open;
  changes.push_back(std::move(change));
  stayed = true;
}

void Recordset::Inside::settle() {
  if (!transaction || *transaction == Outcome::Open)
    return;
  if (*transaction == Outcome::GivenUp)
    takeBack();
  transaction.reset();
  changes.clear();
  stayed = false;
}

void Recordset::Inside::takeBack() {
  const RowId here = key();
  for (auto change = changes.rbegin(); change != changes.rend(); ++change)
    takeBackKey(*change);
  pages.forgetAll();
  if (typed && !adding && here != noRow)
    return typeAgain(here, std::move(*typed));
  if (stayed && changes.back().kind != Change::Kind::Removed)
    return typeAgain(changes.back().key, changes.back().typed);
  current.reset();
  const std::ptrdiff_t found = here == noRow ? end() : placeOf(here);
  place = found < end() ? found : std::min(place, end());
}

void Recordset::Inside::takeBackKey(const Change& change) {
  const std::ptrdiff_t at = placeOf(change.key);
  if (change.kind == Change::Kind::Added && at < end())
    keys.erase(keys.begin() + at);
  if (change.kind == Change::Kind::Removed && at == end())
    keys.insert(keys.begin() + std::min(change.place, end()), change.key);
}

// Whoever stored a row and stands on it still finds it as it was typed, to be stored again: as a new row when it was
// one, else as a change of the row that was read.
void Recordset::Inside::typeAgain(RowId row, Row values) {
  const auto first = std::find_if(changes.begin(), changes.end(), [&](const Change& own) { return own.key == row; });
  typed = std::move(values);
  if (first == changes.end()) {
    place = placeOf(row);  // rows that were removed before it are back
    return;
  }
  adding = first->kind == Change::Kind::Added;
  if (!adding) {
    place = placeOf(row);
    current = std::move(first->before);
    return;
  }
  current.reset();
  place = std::min(first->place, end());
  if (const std::size_t counter = counterOf(table); counter < typed->size())
    (*typed)[counter] = first->typed[counter];
}

}  // namespace zelvo
