#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "data/engine.h"

namespace zelvo {

// What every engine does alike when it stores rows: what is stored, and how troubles with it are told.

std::vector<std::size_t> allPositions(const Table& table);
/// The positions at which the typed row is no longer as it was read.
std::vector<std::size_t> differing(const Row& read, const Row& typed);

/// The record's key is in use.
Error keyInUse(std::string_view path, const Table& table, const Row& row);
/// The record is not as it was read; `now` is the row in the store, empty when it is gone.
Error changedMeanwhile(std::string_view path, const Table& table, const Row& read, const Row& now);
/// A change belongs to a transaction that failed before.
Result<void> givenUpBefore(std::string_view path);
/// What is to be stored together lies in different stores.
Error liesApart(std::string_view path, std::string_view other);
/// The office keeps its records elsewhere since the database was opened.
Error movedAway(std::string_view path);

/// The rows that an importer gives one by one, made to fit their columns.
class Pouring {
 public:
  using NextRow = std::function<bool(std::vector<Value>&)>;
  Pouring(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow)
      : table_(table), positions_(positions), nextRow_(nextRow), values_(positions.size()) {}

  /// Takes the next row; false when there is none, and no more is asked for. A value that does not fit is an error that
  /// names the row.
  Result<bool> next();
  const std::vector<Value>& values() const { return values_; }
  /// The values as a whole row.
  Row row() const;

 private:
  Result<void> makeFit(const Column& column, Value& value) const;

  const Table& table_;
  std::span<const std::size_t> positions_;
  const NextRow& nextRow_;
  std::vector<Value> values_;
  std::size_t count_ = 0;
  bool done_ = false;
};

/// The table in the layout that a store has it in, known by the columns that are there. A store that lacks a column is
/// Trouble::NotOurs.
Result<const Table*> layoutOf(std::string_view path, const Table& table, const std::vector<std::string>& columns);

}  // namespace zelvo
