#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "data/engine.h"
#include "data/sqlite/database.h"

namespace zelvo::sqlite {

/// Opens a database file that is there.
Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience = usualPatience);

/// One database file of SQLite behind the door. Every change begins by taking the file for writing, so that what was
/// read before a change is still so when the change is made.
class SqliteEngine : public Engine {
 public:
  SqliteEngine(std::unique_ptr<Database> database, std::vector<const Table*> tables)
      : database_(std::move(database)), tables_(std::move(tables)) {}

  const std::string& path() const override { return database_->path(); }
  Result<const Table*> table(std::string_view name) override;

  Result<Keyset> select(std::string_view query) override;
  Result<std::vector<RowId>> matching(const Table& table, std::string_view condition) override;
  Result<bool> exists(const Table& table, std::string_view condition) override;
  Result<std::vector<Row>> rows(const Table& table, std::span<const RowId> ids) override;

  Result<RowId> insert(const Table& table, const Row& row) override;
  Result<void> update(const Table& table, RowId id, const Row& read, const Row& typed) override;
  Result<void> remove(const Table& table, RowId id, const Row& read) override;
  Result<void> insertMany(const Table& table, std::span<const std::size_t> positions,
                          const std::function<bool(std::vector<Value>&)>& nextRow) override;

 protected:
  Result<void> doBegin() override;
  Result<void> doCommit() override;
  void doRollback() override;

 private:
  class Change;

  const Table* find(std::string_view name) const;
  Result<std::vector<RowId>> ids(const std::string& sql, const std::vector<Value>& parameters);
  Result<void> readRows(const Table& table, std::span<const RowId> ids, std::span<Row> rows);
  Result<Row> readRow(const Table& table, RowId id);
  Result<void> checkUnchanged(const Table& table, RowId id, const Row& read);
  Result<void> pour(const Table& table, std::span<const std::size_t> positions,
                    const std::function<bool(std::vector<Value>&)>& nextRow);
  Result<void> finish(Statement& statement, const Table& table, const Row& row);
  Error notStored(int code, const Table& table, const Row& row) const;

  std::unique_ptr<Database> database_;
  std::vector<const Table*> tables_;
};

}  // namespace zelvo::sqlite
