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

/// One database, which is one table, on a server behind the door. Every change begins by taking the table's lock, which
/// readers never ask for, so that what was read before a change is still so when the change is made.
class PostgresEngine : public Engine {
 public:
  PostgresEngine(std::unique_ptr<Server> server, const Table* table) : server_(std::move(server)), table_(table) {}

  const std::string& path() const override { return server_->path(); }
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

  Result<void> goesOn() const;
  Result<Answer> ask(const dialect::BoundStatement& statement, Server::Form form);
  Result<std::vector<RowId>> ids(const Result<dialect::BoundStatement>& statement);
  Result<void> checkUnchanged(const Table& table, RowId id, const Row& read);
  Result<RowId> insertRow(const Table& table, const Row& row);
  Result<void> insertEach(const Table& table, std::span<const std::size_t> positions,
                          const std::function<bool(std::vector<Value>&)>& nextRow);
  Result<void> copyIn(const Table& table, std::span<const std::size_t> positions,
                      const std::function<bool(std::vector<Value>&)>& nextRow);
  Result<void> write(const Table& table, const Row& row, const std::string& sql, const std::vector<Parameter>& values);

  std::unique_ptr<Server> server_;
  const Table* table_;
};

}  // namespace zelvo::postgres
