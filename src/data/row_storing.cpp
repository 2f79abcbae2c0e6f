#include "data/row_storing.h"

#include <algorithm>

#include "base/file_trouble.h"
#include "base/text.h"
#include "data/fit.h"

namespace zelvo {

namespace {

/// How a record is named to its user: by its key, where the table has one.
std::string naming(const Table& table, const Row& row) {
  const std::size_t key = table.position(table.key);
  if (key >= row.size())
    return "this record";
  return "the record " + std::string(table.key) + " \"" + row[key].text() + "\"";
}

/// The first column that a store lacks; null when it has all of them.
const Column* missing(const Table& table, const std::vector<std::string>& columns) {
  const auto has = [&](const Column& column) {
    return std::any_of(columns.begin(), columns.end(), [&](const auto& own) { return alike(own, column.name); });
  };
  const auto lacking = std::find_if_not(table.columns.begin(), table.columns.end(), has);
  return lacking == table.columns.end() ? nullptr : &*lacking;
}

}  // namespace

std::vector<std::size_t> allPositions(const Table& table) {
  std::vector<std::size_t> positions(table.columns.size());
  for (std::size_t i = 0; i < positions.size(); ++i)
    positions[i] = i;
  return positions;
}

std::vector<std::size_t> differing(const Row& read, const Row& typed) {
  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < typed.size(); ++i)
    if (i >= read.size() || read[i] != typed[i])
      positions.push_back(i);
  return positions;
}

Error keyInUse(std::string_view path, const Table& table, const Row& row) {
  return fileError(FileDeed::Write, path, Trouble::Duplicate, naming(table, row) + " is there already",
                   "Give this one another number.");
}

Error changedMeanwhile(std::string_view path, const Table& table, const Row& read, const Row& now) {
  const std::string what = now.empty() ? " was removed on another computer" : " was changed on another computer";
  return fileError(FileDeed::Write, path, Trouble::Conflict, naming(table, read) + what + " since it was read",
                   "Nothing was overwritten. Look at it again before you change it.");
}

Result<void> givenUpBefore(std::string_view path) {
  return fileError(FileDeed::Write, path, Trouble::Failed,
                   "the changes that go with this one failed before and were given up", "Try them again as a whole.");
}

Error liesApart(std::string_view path, std::string_view other) {
  return fileError(FileDeed::Write, other, Trouble::BadInput,
                   "it lies in another store than \"" + std::string(path) + "\", and both are to be stored together",
                   "Store the one first, then the other.");
}

Error movedAway(std::string_view path) {
  return fileError(FileDeed::Write, path, Trouble::Failed,
                   "the office's records were moved to another place since it was opened",
                   "Nothing was stored. Close the screen, open it again, and store it there.");
}

// ---- many rows at once

Result<bool> Pouring::next() {
  done_ = done_ || !nextRow_(values_);
  if (done_)
    return false;
  ++count_;
  values_.resize(positions_.size());
  for (std::size_t i = 0; i < values_.size(); ++i)
    if (auto fits = makeFit(table_.columns[positions_[i]], values_[i]); !fits)
      return fits.error();
  return true;
}

Result<void> Pouring::makeFit(const Column& column, Value& value) const {
  if (fits(column, value))
    return {};
  auto fit = fitted(column, value);
  if (!fit)
    return Error{fit.error().trouble, "Row " + std::to_string(count_) + ": " + fit.error().message};
  value = std::move(*fit);
  return {};
}

Row Pouring::row() const {
  Row row(table_.columns.size());
  for (std::size_t i = 0; i < values_.size(); ++i)
    row[positions_[i]] = values_[i];
  return row;
}

// ---- layouts

Result<const Table*> layoutOf(std::string_view path, const Table& table, const std::vector<std::string>& columns) {
  const Table& extended = extendedParcelTable();
  if (table.name == extended.name && !missing(extended, columns))
    return &extended;
  const Table& usual = table.name == extended.name ? *findTable(table.name) : table;
  if (const Column* lacking = missing(usual, columns))
    return fileError(FileDeed::Read, path, Trouble::NotOurs,
                     "its table " + std::string(table.name) + " lacks the column " + std::string(lacking->name),
                     "Restore it from the backup, or choose another data folder in the preferences.");
  return &usual;
}

}  // namespace zelvo
