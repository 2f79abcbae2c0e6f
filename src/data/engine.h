#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "data/catalogue.h"
#include "data/value.h"

namespace zelvo {

/// Names a row for as long as its database lives.
using RowId = std::int64_t;
/// The values of a row, in the order of its table's columns.
using Row = std::vector<Value>;

/// The rows of a query, in its order.
struct Keyset {
  const Table* table = nullptr;
  std::vector<RowId> rows;
};

/// What became of a transaction.
enum class Outcome { Open, Kept, GivenUp };

/// The rows of a table one after the other, for copying it whole: never more than a few of them are in memory. Until it
/// goes, nothing else is stored through its engine outside a transaction, and files keep other computers from storing.
class RowReader {
 public:
  virtual ~RowReader() = default;
  /// Fills the next row; false behind the last one.
  virtual Result<bool> next(Row& row) = 0;
};

/// A store behind the door: one database that is open. Every call is whole: it leaves no statement half read, so that
/// no other computer waits for what somebody looks at. What changes the store joins the open transaction, or is one of
/// its own, and is given up whole when it fails. Errors name the file, what was wrong and what to do.
class Engine {
 public:
  using NextRow = std::function<bool(std::vector<Value>&)>;

  explicit Engine(std::vector<const Table*> tables) : tables_(std::move(tables)), own_(tables_.size()) {}
  virtual ~Engine() = default;

  virtual const std::string& path() const = 0;
  /// An error when the data folder has its records in another store by now.
  virtual Result<void> inItsPlace() const = 0;
  /// The table as this database has it.
  Result<const Table*> table(std::string_view name) const;

  /// The rows that a query of the office's dialect selects.
  virtual Result<Keyset> select(std::string_view query) = 0;
  /// The rows that answer a condition, in rising ids.
  virtual Result<std::vector<RowId>> matching(const Table& table, std::string_view condition) = 0;
  virtual Result<bool> exists(const Table& table, std::string_view condition) = 0;
  /// The rows of these ids, in their order; one that is gone comes as an empty row.
  virtual Result<std::vector<Row>> rows(const Table& table, std::span<const RowId> ids) = 0;
  /// Every row as it stands at this moment, in rising ids.
  virtual Result<std::unique_ptr<RowReader>> everyRow(const Table& table) = 0;

  /// The values must fit their columns. A counter that is null is handed out; it is the id of its row.
  /// Trouble::Duplicate when the key is in use.
  Result<RowId> insert(const Table& table, const Row& row);
  /// Writes what `typed` has different from `read`; Trouble::Conflict when the row is no longer as it was read, or
  /// gone.
  Result<void> update(const Table& table, RowId id, const Row& read, const Row& typed);
  Result<void> remove(const Table& table, RowId id, const Row& read);
  /// All rows or none. `nextRow` fills the values of the columns at these positions; they are made to fit.
  Result<void> insertMany(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow);

  /// The row as this store gives it back once it has stored it.
  virtual Row asStored(Row row) const { return row; }

  /// One transaction at a time. While it is open no other computer writes. Refused when this store is not in its place
  /// any more. Until it ends the tables of the databases `along`, by their paths, are reached through this engine, and
  /// what is stored in them is kept or given up with the rest; Trouble::BadInput when one lies in another store.
  Result<void> begin(std::span<const std::string> along = {});
  /// A commit that fails leaves nothing behind, as a rollback does.
  Result<void> commit();
  void rollback();
  /// The open transaction, for those who have to know later what became of what they stored in it; null when none is.
  std::shared_ptr<const Outcome> transaction() const { return transaction_; }

 protected:
  /// Where the store itself stands; it may have given a transaction up, or lost it.
  enum class Standing { NoTransaction, Open, Failed };
  virtual Standing standing() const = 0;
  /// Begins the store's transaction in such a way that no other computer writes until its end.
  virtual Result<void> takeForWriting() = 0;
  /// Reaches the table of another database of the same store through this one. Outside a transaction.
  virtual Result<const Table*> join(const std::string& path) = 0;
  /// Lets go all that was joined. Outside a transaction.
  virtual void part() = 0;
  /// "commit", "rollback", and those of a savepoint.
  virtual Result<void> execute(const std::string& sql) = 0;

  // Within a change that has begun, and that is given up when they fail.
  virtual Result<RowId> addRow(const Table& table, const Row& row) = 0;
  virtual Result<void> changeRow(const Table& table, RowId id, std::span<const std::size_t> positions,
                                 const Row& typed) = 0;
  virtual Result<void> removeRow(const Table& table, RowId id, const Row& read) = 0;
  virtual Result<void> addRows(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow) = 0;

  /// Null when the database has no such table.
  const Table* find(std::string_view name) const;
  /// The only table of most databases.
  const Table& mainTable() const { return *tables_.front(); }
  /// Its own tables, and behind them those that are joined.
  std::span<const Table* const> tables() const { return tables_; }
  /// What belongs to a transaction that failed before goes on no more.
  Result<void> goesOn() const;

 private:
  class Change;

  Result<void> joinAll(std::span<const std::string> paths);
  void partAll();
  Result<void> open();
  Result<void> keep();
  void giveUp();
  void end(Outcome outcome);
  Result<void> checkUnchanged(const Table& table, RowId id, const Row& read);

  std::vector<const Table*> tables_;
  std::size_t own_;  ///< tables; those behind them are joined
  std::shared_ptr<Outcome> transaction_;
};

/// How long a computer waits for the others before it says that the database is locked.
inline constexpr std::chrono::milliseconds usualPatience{12000};

/// Opens the database of a file's path: the file itself, or its table on the server of its folder.
Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience = usualPatience);

}  // namespace zelvo
