#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "data/dialect/statement_writer.h"
#include "data/engine.h"
#include "data/postgres/server.h"

namespace zelvo::postgres {

/// Opens the table of a database file's name on the server of its folder; makes it when it is not there yet.
Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience);
/// Makes an empty table there. Trouble::Duplicate when it is there.
Result<void> createOnServer(std::string_view path, const Table& table);

/// A database on a server behind the door; mostly it is one table. Every change begins by taking the table's lock,
/// which readers never ask for, so that what was read before a change is still so when the change is made.
class PostgresEngine : public Engine {
 public:
  PostgresEngine(std::unique_ptr<Server> server, const Table* table)
      : PostgresEngine(std::move(server), std::vector<const Table*>{table}) {}
  PostgresEngine(std::unique_ptr<Server> server, std::vector<const Table*> tables)
      : Engine(std::move(tables)), server_(std::move(server)) {}

  const std::string& path() const override { return server_->path(); }
  Result<void> inItsPlace() const override;

  Result<Keyset> select(std::string_view query) override;
  Result<std::vector<RowId>> matching(const Table& table, std::string_view condition) override;
  Result<bool> exists(const Table& table, std::string_view condition) override;
  Result<std::vector<Row>> rows(const Table& table, std::span<const RowId> ids) override;
  Result<std::unique_ptr<RowReader>> everyRow(const Table& table) override;

  Row asStored(Row row) const override { return postgres::asStored(std::move(row)); }

 protected:
  Standing standing() const override;
  Result<void> takeForWriting() override;
  Result<const Table*> join(const std::string& path) override;
  void part() override {}
  Result<void> execute(const std::string& sql) override { return server_->execute(sql); }

  Result<RowId> addRow(const Table& table, const Row& row) override;
  Result<void> changeRow(const Table& table, RowId id, std::span<const std::size_t> positions,
                         const Row& typed) override;
  Result<void> removeRow(const Table& table, RowId id, const Row& read) override;
  Result<void> addRows(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow) override;

  Server& server() { return *server_; }

 private:
  Result<Answer> ask(const dialect::BoundStatement& statement, Server::Form form);
  Result<std::vector<RowId>> ids(const Result<dialect::BoundStatement>& statement);
  Result<RowId> highestId(const Table& table);
  Result<void> write(const Table& table, const Row& row, const std::string& sql, const std::vector<Parameter>& values);

  std::unique_ptr<Server> server_;
};

}  // namespace zelvo::postgres
