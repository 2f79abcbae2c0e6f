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

/// A store behind the door: one database that is open. Every call is whole: it leaves no statement half read, so that
/// no other computer waits for what somebody looks at. What changes the store joins the open transaction, or is one of
/// its own. Errors name the file, what was wrong and what to do.
class Engine {
 public:
  virtual ~Engine() = default;

  virtual const std::string& path() const = 0;
  /// The table as this database has it.
  virtual Result<const Table*> table(std::string_view name) = 0;

  /// The rows that a query of the office's dialect selects.
  virtual Result<Keyset> select(std::string_view query) = 0;
  /// The rows that answer a condition, in rising ids.
  virtual Result<std::vector<RowId>> matching(const Table& table, std::string_view condition) = 0;
  virtual Result<bool> exists(const Table& table, std::string_view condition) = 0;
  /// The rows of these ids, in their order; one that is gone comes as an empty row.
  virtual Result<std::vector<Row>> rows(const Table& table, std::span<const RowId> ids) = 0;

  /// The values must fit their columns. A counter that is null is handed out; it is the id of its row.
  /// Trouble::Duplicate when the key is in use.
  virtual Result<RowId> insert(const Table& table, const Row& row) = 0;
  /// Writes what `typed` has different from `read`; Trouble::Conflict when the row is no longer as it was read, or
  /// gone.
  virtual Result<void> update(const Table& table, RowId id, const Row& read, const Row& typed) = 0;
  virtual Result<void> remove(const Table& table, RowId id, const Row& read) = 0;
  /// All rows or none. `nextRow` fills the values of the columns at these positions; they are made to fit.
  virtual Result<void> insertMany(const Table& table, std::span<const std::size_t> positions,
                                  const std::function<bool(std::vector<Value>&)>& nextRow) = 0;

  /// One transaction at a time. While it is open no other computer writes.
  Result<void> begin();
  Result<void> commit();
  void rollback();
  /// The open transaction, for those who have to know later what became of what they stored in it; null when none is.
  std::shared_ptr<const Outcome> transaction() const { return transaction_; }

 protected:
  virtual Result<void> doBegin() = 0;
  /// A commit that fails leaves nothing behind, as a rollback does.
  virtual Result<void> doCommit() = 0;
  virtual void doRollback() = 0;

 private:
  void end(Outcome outcome);

  std::shared_ptr<Outcome> transaction_;
};

/// How long a computer waits for the others before it says that the database is locked.
inline constexpr std::chrono::milliseconds usualPatience{12000};

/// Opens the database of a file's path: the file itself, or its table on the server of its folder.
Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience = usualPatience);

}  // namespace zelvo
