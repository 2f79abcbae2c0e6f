// Reading: which rows, and what is in them.

#include "data/sqlite/sqlite_engine.h"

#include <algorithm>
#include <unordered_map>

#include "base/files.h"
#include "base/text.h"
#include "data/dialect/parser.h"
#include "data/dialect/sqlite_writer.h"
#include "data/sqlite/file_kind.h"
#include "data/sqlite/schema.h"

namespace zelvo::sqlite {

namespace {

/// Rows are fetched together: each statement locks and unlocks the file, and over a network that takes longer than the
/// rows.
constexpr std::size_t rowsAtOnce = 100;

/// A file that keeps its changes in a second one is set back, or refused: computers cannot share such a file.
Result<void> leaveWriteAhead(Database& database) {
  if (!writesAhead(database))
    return {};
  const auto changed = database.ask("pragma journal_mode = delete");
  if (changed && *changed == "delete")
    return {};
  return fileError(FileDeed::Read, database.path(), Trouble::Busy,
                   "another program set it to a way of writing that computers cannot share",
                   "Close that program, make sure the file is not read-only, and open it again.");
}

std::string selectOf(const Table& table, std::size_t count) {
  std::string marks = "?";
  for (std::size_t i = 1; i < count; ++i)
    marks += ",?";
  return "select rowid, " + columnList(table) + " from " + quoted(table.name) + " where rowid in (" + marks + ")";
}

Row rowOf(const Statement& statement, const Table& table) {
  Row row;
  row.reserve(table.columns.size());
  int column = 1;
  for (const Column& described : table.columns)
    row.push_back(statement.value(column++, described.type));
  return row;
}

}  // namespace

Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience) {
  const std::string name = systemPath(path);
  const auto mode = modeOf(name);
  if (!mode)
    return mode.error();
  auto database = Database::open(name, *mode, patience);
  if (!database)
    return database.error();
  if (auto checked = checkMark(**database); !checked)
    return checked.error();
  auto tables = tablesOf(**database);
  if (!tables)
    return tables.error();
  if (auto left = leaveWriteAhead(**database); !left)
    return left.error();
  return std::unique_ptr<Engine>(std::make_unique<SqliteEngine>(std::move(*database), std::move(*tables)));
}

const Table* SqliteEngine::find(std::string_view name) const {
  const auto found =
      std::find_if(tables_.begin(), tables_.end(), [&](const Table* table) { return alike(table->name, name); });
  return found == tables_.end() ? nullptr : *found;
}

Result<const Table*> SqliteEngine::table(std::string_view name) {
  if (const Table* found = find(name))
    return found;
  return fileError(FileDeed::Read, path(), Trouble::NotFound, "it holds no table " + std::string(name),
                   "Choose another data folder in the preferences.");
}

Result<Keyset> SqliteEngine::select(std::string_view query) {
  const auto read = dialect::parseSelect(query);
  if (!read)
    return read.error();
  // A table that is not here is told of by the writer, who knows the place in the query.
  const Table* named = find(read->table.text);
  const Table* table = named ? named : tables_.front();
  const auto statement = dialect::writeKeyset(*read, *table);
  if (!statement)
    return statement.error();
  auto rows = ids(statement->sql, statement->parameters);
  if (!rows)
    return rows.error();
  return Keyset{table, std::move(*rows)};
}

Result<std::vector<RowId>> SqliteEngine::matching(const Table& table, std::string_view condition) {
  const auto read = dialect::parseCondition(condition);
  if (!read)
    return read.error();
  const auto statement = dialect::writeKeysetOf(*read, table);
  if (!statement)
    return statement.error();
  return ids(statement->sql, statement->parameters);
}

Result<bool> SqliteEngine::exists(const Table& table, std::string_view condition) {
  const auto read = dialect::parseCondition(condition);
  if (!read)
    return read.error();
  const auto statement = dialect::writeExists(*read, table);
  if (!statement)
    return statement.error();
  const auto answer = ids(statement->sql, statement->parameters);
  if (!answer)
    return answer.error();
  return answer->front() != 0;
}

Result<std::vector<RowId>> SqliteEngine::ids(const std::string& sql, const std::vector<Value>& parameters) {
  auto statement = database_->prepare(sql);
  if (!statement)
    return statement.error();
  for (std::size_t i = 0; i < parameters.size(); ++i)
    statement->bind(static_cast<int>(i) + 1, parameters[i]);
  std::vector<RowId> found;
  int code = 0;
  while ((code = statement->step()) == SQLITE_ROW)
    found.push_back(statement->integer(0));
  if (code != SQLITE_DONE)
    return database_->trouble(FileDeed::Read, code);
  return found;
}

Result<std::vector<Row>> SqliteEngine::rows(const Table& table, std::span<const RowId> ids) {
  std::vector<Row> rows(ids.size());
  for (std::size_t from = 0; from < ids.size(); from += rowsAtOnce) {
    const std::size_t count = std::min(rowsAtOnce, ids.size() - from);
    if (auto read = readRows(table, ids.subspan(from, count), std::span(rows).subspan(from, count)); !read)
      return read.error();
  }
  return rows;
}

// The places that a shorter list leaves open hold nulls, so that there are two statements a table and no more.
Result<void> SqliteEngine::readRows(const Table& table, std::span<const RowId> ids, std::span<Row> rows) {
  auto statement = database_->prepare(selectOf(table, ids.size() == 1 ? 1 : rowsAtOnce));
  if (!statement)
    return statement.error();
  std::unordered_map<RowId, std::size_t> places;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    places[ids[i]] = i;
    statement->bind(static_cast<int>(i) + 1, ids[i]);
  }
  int code = 0;
  while ((code = statement->step()) == SQLITE_ROW)
    rows[places.at(statement->integer(0))] = rowOf(*statement, table);
  return code == SQLITE_DONE ? Result<void>() : database_->trouble(FileDeed::Read, code);
}

Result<Row> SqliteEngine::readRow(const Table& table, RowId id) {
  Row row;
  if (auto read = readRows(table, std::span(&id, 1), std::span(&row, 1)); !read)
    return read.error();
  return row;
}

}  // namespace zelvo::sqlite
