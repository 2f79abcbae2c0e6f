// Reading: which rows, and what is in them.

#include "data/sqlite/sqlite_engine.h"

#include <algorithm>
#include <unordered_map>

#include "base/files.h"
#include "base/number.h"
#include "data/dialect/parser.h"
#include "data/dialect/sqlite_writer.h"
#include "data/sqlite/file_kind.h"
#include "data/sqlite/journal.h"
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

Result<OfficeFile> openOfficeFile(std::string_view path, std::chrono::milliseconds patience) {
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
  if (auto kept = keepJournal(**database); !kept)
    return kept.error();
  return OfficeFile{std::move(*database), std::move(*tables)};
}

Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience) {
  auto file = openOfficeFile(path, patience);
  if (!file)
    return file.error();
  return std::unique_ptr<Engine>(std::make_unique<SqliteEngine>(std::move(file->database), std::move(file->tables)));
}

Result<Keyset> SqliteEngine::select(std::string_view query) {
  const auto read = dialect::parseSelect(query);
  if (!read)
    return read.error();
  // A table that is not here is told of by the writer, who knows the place in the query.
  const Table* named = find(read->table.text);
  const Table* table = named ? named : &mainTable();
  const auto* sorting = dialect::sortedBy(*read, *table);
  const auto statement = sorting ? dialect::writeUnsorted(*read, *table) : dialect::writeKeyset(*read, *table);
  if (!statement)
    return statement.error();
  auto rows = sorting ? sorted(*statement, sorting->descending) : ids(*statement, read->where ? 0 : rowsAtMost(*table));
  if (!rows)
    return rows.error();
  return Keyset{table, std::move(*rows)};
}

/// Of a table: what room is made for beforehand need not be moved as the keys become more. Nothing for one that has
/// rows of far higher numbers than an office has records.
std::size_t SqliteEngine::rowsAtMost(const Table& table) {
  constexpr double mostRows = 1 << 23;
  const double last = Val(database_->ask("select max(rowid) from " + quoted(table.name)).valueOr(""));
  return last > 0 && last <= mostRows ? static_cast<std::size_t>(last) : 0;
}

Result<std::vector<RowId>> SqliteEngine::matching(const Table& table, std::string_view condition) {
  const auto read = dialect::parseCondition(condition);
  if (!read)
    return read.error();
  const auto statement = dialect::writeKeysetOf(*read, table);
  if (!statement)
    return statement.error();
  return ids(*statement);
}

Result<bool> SqliteEngine::exists(const Table& table, std::string_view condition) {
  const auto read = dialect::parseCondition(condition);
  if (!read)
    return read.error();
  const auto statement = dialect::writeExists(*read, table);
  if (!statement)
    return statement.error();
  return answer(statement->sql, statement->parameters);
}

Result<std::vector<RowId>> SqliteEngine::ids(const dialect::BoundStatement& statement, std::size_t atMost) {
  std::vector<RowId> found;
  found.reserve(atMost);
  database_->gathering().gatherInto(&found);
  const auto gathered = answer("select zgather(rowid) from (" + statement.sql + ")", statement.parameters);
  database_->gathering().gatherInto(nullptr);
  if (!gathered)
    return gathered.error();
  return found;
}

Result<std::vector<RowId>> SqliteEngine::sorted(const dialect::BoundStatement& statement, bool descending) {
  KeySorting& sorting = database_->sorting();
  sorting.begin();
  const auto read = answer("with read(line, beside) as (" + statement.sql + ") select zsort(line, beside) from read",
                           statement.parameters);
  auto rows = sorting.sorted(descending);
  return read ? Result<std::vector<RowId>>(std::move(rows)) : read.error();
}

/// Steps a statement that gives one row; gives whether what it holds is true.
Result<bool> SqliteEngine::answer(const std::string& sql, const std::vector<Value>& parameters) {
  auto statement = database_->prepare(sql);
  if (!statement)
    return statement.error();
  for (std::size_t i = 0; i < parameters.size(); ++i)
    statement->bind(static_cast<int>(i) + 1, parameters[i]);
  const int code = statement->step();
  if (code != SQLITE_ROW)
    return database_->trouble(FileDeed::Read, code);
  return statement->integer(0) != 0;
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

namespace {

class StatementReader : public RowReader {
 public:
  StatementReader(const Database& database, Statement statement, const Table& table)
      : database_(database), statement_(std::move(statement)), table_(table) {}

  Result<bool> next(Row& row) override {
    const int code = statement_.step();
    if (code == SQLITE_ROW)
      row = rowOf(statement_, table_);
    else if (code != SQLITE_DONE)
      return database_.trouble(FileDeed::Read, code);
    return code == SQLITE_ROW;
  }

 private:
  const Database& database_;
  Statement statement_;
  const Table& table_;
};

}  // namespace

Result<std::unique_ptr<RowReader>> SqliteEngine::everyRow(const Table& table) {
  auto statement =
      database_->prepareAlone("select rowid, " + columnList(table) + " from " + quoted(table.name) + " order by rowid");
  if (!statement)
    return statement.error();
  return std::unique_ptr<RowReader>(std::make_unique<StatementReader>(*database_, std::move(*statement), table));
}

}  // namespace zelvo::sqlite
