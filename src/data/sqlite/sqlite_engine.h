#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "data/dialect/sqlite_writer.h"
#include "data/engine.h"
#include "data/sqlite/database.h"
#include "data/sqlite/journal.h"

namespace zelvo::sqlite {

/// A database file of ours that is ready for use, and the tables that it holds.
struct OfficeFile {
  std::unique_ptr<Database> database;
  std::vector<const Table*> tables;
};
Result<OfficeFile> openOfficeFile(std::string_view path, std::chrono::milliseconds patience = usualPatience);
/// Opens a database file that is there.
Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience = usualPatience);

/// One database file of SQLite behind the door. Every change begins by taking the file for writing, so that what was
/// read before a change is still so when the change is made.
class SqliteEngine : public Engine {
 public:
  SqliteEngine(std::unique_ptr<Database> database, std::vector<const Table*> tables)
      : Engine(std::move(tables)), database_(std::move(database)) {}

  const std::string& path() const override { return database_->path(); }
  Result<void> inItsPlace() const override;

  Result<Keyset> select(std::string_view query) override;
  Result<std::vector<RowId>> matching(const Table& table, std::string_view condition) override;
  Result<bool> exists(const Table& table, std::string_view condition) override;
  Result<std::vector<Row>> rows(const Table& table, std::span<const RowId> ids) override;
  Result<std::unique_ptr<RowReader>> everyRow(const Table& table) override;

 protected:
  Standing standing() const override;
  Result<void> takeForWriting() override;
  Result<const Table*> join(const std::string& path) override;
  void part() override;
  Result<void> execute(const std::string& sql) override;

  Result<RowId> addRow(const Table& table, const Row& row) override;
  Result<void> changeRow(const Table& table, RowId id, std::span<const std::size_t> positions,
                         const Row& typed) override;
  Result<void> removeRow(const Table& table, RowId id, const Row& read) override;
  Result<void> addRows(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow) override;

 private:
  std::size_t rowsAtMost(const Table& table);
  Result<std::vector<RowId>> ids(const dialect::BoundStatement& statement, std::size_t atMost = 0);
  Result<std::vector<RowId>> sorted(const dialect::BoundStatement& statement, bool descending);
  Result<bool> answer(const std::string& sql, const std::vector<Value>& parameters);
  Result<void> readRows(const Table& table, std::span<const RowId> ids, std::span<Row> rows);
  Result<void> pour(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow);
  Result<void> finish(Statement& statement, const Table& table, const Row& row);
  Error notStored(int code, const Table& table, const Row& row) const;

  std::unique_ptr<Database> database_;
  CommitWitness witness_;
  std::vector<std::string> joined_;  ///< the names that joined files have in statements
};

}  // namespace zelvo::sqlite
