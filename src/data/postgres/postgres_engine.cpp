// Reading: which rows, and what is in them.

#include "data/postgres/postgres_engine.h"

#include <optional>
#include <unordered_map>

#include "base/files.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "data/dialect/parser.h"
#include "data/dialect/postgres_writer.h"
#include "data/postgres/schema.h"
#include "data/row_storing.h"

namespace zelvo::postgres {

namespace {

using dialect::quotedName;

/// What rowOf reads.
std::string idAndColumns(const Table& table) {
  return quotedName(dialect::postgres::rowIdOf(table)) + ", " + columnList(table);
}

Row rowOf(const Answer& answer, int at, const Table& table) {
  Row row;
  row.reserve(table.columns.size());
  int column = 1;
  for (const Column& described : table.columns) {
    row.push_back(answer.isNull(at, column) ? Value() : valueOf(answer.text(at, column), described.type));
    ++column;
  }
  return row;
}

Result<std::unique_ptr<Server>> serverOf(std::string_view path, std::chrono::milliseconds patience) {
  auto place = serverPlace(folderOf(path));
  if (!place)
    return place.error();
  auto server = std::make_unique<Server>(std::string(path), std::move(*place), patience);
  if (auto connected = server->connect(); !connected)
    return connected.error();
  return server;
}

/// Another computer may make it at the same moment. The parcel table is made in the layout that the folder tells.
Result<const Table*> tableMade(Server& server, const Table& table) {
  auto there = tableThere(server, table);
  if (!there || *there)
    return there;
  const bool extended = alike(table.name, extendedParcelTable().name) && parcelLayoutIn(folderOf(server.path())) == 18;
  const auto made = makeTable(server, extended ? extendedParcelTable() : table);
  if (!made && made.error().trouble != Trouble::Duplicate)
    return made.error();
  return tableThere(server, table);
}

}  // namespace

Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience) {
  const Table* named = findTableOfFile(fileNameOf(path));
  if (!named)
    return fileError(FileDeed::Read, path, Trouble::NotFound, "it is none of the office's databases",
                     "Choose another data folder in the preferences.");
  auto server = serverOf(path, patience);
  if (!server)
    return server.error();
  const auto table = tableMade(**server, *named);
  if (!table)
    return table.error();
  return std::unique_ptr<Engine>(std::make_unique<PostgresEngine>(std::move(*server), *table));
}

Result<void> createOnServer(std::string_view path, const Table& table) {
  auto server = serverOf(path, std::chrono::seconds(12));
  return server ? makeTable(**server, table) : server.error();
}

Result<const Table*> PostgresEngine::join(const std::string& path) {
  const Table* named = findTableOfFile(fileNameOf(path));
  const bool here = keepsOnServer(folderOf(path));
  const auto place = here ? serverPlace(folderOf(path)) : Result<ServerPlace>(ServerPlace());
  if (!place)
    return place.error();
  if (!named || !here || place->schema != server_->schema())
    return liesApart(this->path(), path);
  return tableMade(*server_, *named);
}

Result<Keyset> PostgresEngine::select(std::string_view query) {
  const auto read = dialect::parseSelect(query);
  if (!read)
    return read.error();
  // A table that is not here is told of by the writer, who knows the place in the query.
  const Table* named = find(read->table.text);
  const Table* table = named ? named : &mainTable();
  auto rows = ids(dialect::postgres::writeKeyset(*read, *table));
  if (!rows)
    return rows.error();
  return Keyset{table, std::move(*rows)};
}

Result<std::vector<RowId>> PostgresEngine::matching(const Table& table, std::string_view condition) {
  const auto read = dialect::parseCondition(condition);
  if (!read)
    return read.error();
  return ids(dialect::postgres::writeKeysetOf(*read, table));
}

Result<bool> PostgresEngine::exists(const Table& table, std::string_view condition) {
  const auto read = dialect::parseCondition(condition);
  if (!read)
    return read.error();
  const auto statement = dialect::postgres::writeExists(*read, table);
  if (!statement)
    return statement.error();
  const auto answer = ask(*statement, Server::Form::Text);
  if (!answer)
    return answer.error();
  return answer->text(0, 0) == "t";
}

Result<std::vector<RowId>> PostgresEngine::ids(const Result<dialect::BoundStatement>& statement) {
  if (!statement)
    return statement.error();
  const auto answer = ask(*statement, Server::Form::Binary);
  if (!answer)
    return answer.error();
  return idsOf(answer->text(0, 0));
}

Result<Answer> PostgresEngine::ask(const dialect::BoundStatement& statement, Server::Form form) {
  if (auto going = goesOn(); !going)
    return going.error();
  std::vector<Parameter> parameters;
  for (const Value& value : statement.parameters)
    parameters.push_back(parameterOf(value));
  return server_->ask(FileDeed::Read, statement.sql, parameters, form);
}

Result<std::vector<Row>> PostgresEngine::rows(const Table& table, std::span<const RowId> ids) {
  if (auto going = goesOn(); !going)
    return going.error();
  const std::string id = quotedName(dialect::postgres::rowIdOf(table));
  const auto answer = server_->ask(
      FileDeed::Read,
      "select " + idAndColumns(table) + " from " + quotedName(table.name) + " where " + id + " = any($1::bigint[])",
      {arrayText(ids)});
  if (!answer)
    return answer.error();
  std::unordered_map<RowId, int> places;
  for (int at = 0; at < answer->rows(); ++at)
    places[idIn(answer->text(at, 0))] = at;
  std::vector<Row> rows(ids.size());
  for (std::size_t i = 0; i < ids.size(); ++i)
    if (const auto place = places.find(ids[i]); place != places.end())
      rows[i] = rowOf(*answer, place->second, table);
  return rows;
}

// ---- every row

namespace {

/// Reads a snapshot by a cursor: of the transaction that is open, or of one of its own.
class CursorReader : public RowReader {
 public:
  CursorReader(Server& server, const Table& table) : server_(server), table_(table) {}
  CursorReader(const CursorReader&) = delete;
  CursorReader& operator=(const CursorReader&) = delete;
  ~CursorReader() override {
    if (!server_.lost() && !server_.idle())
      (void)server_.execute(alone_ ? "rollback" : "close every_row").ok();
  }

  Result<void> begin() {
    alone_ = !server_.inTransaction();
    return server_.execute(std::string(alone_ ? "begin isolation level repeatable read read only; " : "") +
                           "declare every_row no scroll cursor for select " + idAndColumns(table_) + " from " +
                           quotedName(table_.name) + " order by " + quotedName(dialect::postgres::rowIdOf(table_)));
  }

  Result<bool> next(Row& row) override {
    if (at_ == there())
      if (auto fetched = fetch(); !fetched)
        return fetched.error();
    if (at_ == there())
      return false;
    row = rowOf(*some_, at_++, table_);
    return true;
  }

 private:
  int there() const { return some_ ? some_->rows() : 0; }

  Result<void> fetch() {
    auto answer = server_.ask(FileDeed::Read, "fetch 500 from every_row");
    if (!answer)
      return answer.error();
    some_ = std::move(*answer);
    at_ = 0;
    return {};
  }

  Server& server_;
  const Table& table_;
  bool alone_ = false;
  std::optional<Answer> some_;
  int at_ = 0;
};

}  // namespace

Result<std::unique_ptr<RowReader>> PostgresEngine::everyRow(const Table& table) {
  if (auto going = goesOn(); !going)
    return going.error();
  auto reader = std::make_unique<CursorReader>(*server_, table);
  if (auto begun = reader->begin(); !begun)
    return begun.error();
  return std::unique_ptr<RowReader>(std::move(reader));
}

}  // namespace zelvo::postgres
