#include "data/sqlite/schema.h"

#include "base/number.h"
#include "base/text.h"
#include "data/row_storing.h"

namespace zelvo::sqlite {

namespace {

std::string declaration(const Column& column) {
  switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return quoted(column.name) + " TEXT COLLATE NOCASE";
    case ColumnType::Date:
      return quoted(column.name) + " TEXT";
    case ColumnType::Number:
      return quoted(column.name) + " REAL";
    case ColumnType::Integer:
      return quoted(column.name) + " INTEGER";
    case ColumnType::Counter:
      break;
  }
  return quoted(column.name) + " INTEGER PRIMARY KEY";
}

bool isCounter(const Table& table, std::string_view name) {
  const Column* column = table.find(name);
  return column && column->type == ColumnType::Counter;
}

std::string indexName(const Table& table, std::string_view columns) {
  return std::string(table.name) + "_" + replaceAll(columns, ",", "_");
}

std::string index(std::string_view kind, const Table& table, std::string_view columns) {
  return "create " + std::string(kind) + " " + quoted(indexName(table, columns)) + " on " + quoted(table.name) + " (" +
         replaceAll(columns, ",", ", ") + ");";
}

Error notOurs(const Database& database, const std::string& why, std::string_view advice) {
  return fileError(FileDeed::Read, database.path(), Trouble::NotOurs, why, advice);
}

constexpr std::string_view chooseOther =
    "Restore it from the backup, or choose another data folder in the preferences.";

Result<std::vector<std::string>> firstColumn(Database& database, const std::string& sql) {
  auto statement = database.prepare(sql);
  if (!statement)
    return statement.error();
  std::vector<std::string> texts;
  int code = 0;
  while ((code = statement->step()) == SQLITE_ROW)
    texts.push_back(statement->text(0));
  if (code != SQLITE_DONE)
    return database.trouble(FileDeed::Read, code);
  return texts;
}

Result<const Table*> asItIs(Database& database, const Table& table) {
  const auto columns = firstColumn(database, "select name from pragma_table_info('" + std::string(table.name) + "')");
  if (!columns)
    return columns.error();
  return layoutOf(database.path(), table, *columns);
}

}  // namespace

std::string quoted(std::string_view name) {
  return '"' + std::string(name) + '"';
}

std::string columnList(const Table& table) {
  std::string list;
  for (const Column& column : table.columns)
    list += (list.empty() ? "" : ", ") + quoted(column.name);
  return list;
}

std::string indexCreation(const Table& table) {
  std::string sql;
  for (const std::string_view columns : table.indexes)
    sql += index("index", table, columns);
  return sql;
}

std::string indexRemoval(const Table& table) {
  std::string sql;
  for (const std::string_view columns : table.indexes)
    sql += "drop index if exists " + quoted(indexName(table, columns)) + ";";
  return sql;
}

std::string creation(const Table& table) {
  std::string sql = "create table " + quoted(table.name) + " (";
  for (const Column& column : table.columns)
    sql += (&column == &table.columns.front() ? "" : ", ") + declaration(column);
  sql += ");";
  if (!table.key.empty() && !isCounter(table, table.key))
    sql += index("unique index", table, table.key);
  return sql + indexCreation(table) + "pragma application_id = " + std::to_string(applicationMark) +
         ";pragma user_version = " + std::to_string(layoutVersion) + ";";
}

Result<void> checkMark(Database& database) {
  const auto mark = database.ask("pragma application_id");
  const auto version = mark ? database.ask("pragma user_version") : mark;
  if (!version)
    return version.error();
  // Copying a database line by line, as the usual tools do, loses the mark; its tables are looked at all the same.
  if (*mark != "0" && Val(*mark) != applicationMark)
    return notOurs(database, "it is a database of another program", chooseOther);
  if (Val(*version) > layoutVersion)
    return notOurs(database, "it was made by a newer version of this program", "Update the program on this computer.");
  return {};
}

Result<std::vector<const Table*>> tablesOf(Database& database) {
  const auto names = firstColumn(database, "select name from sqlite_master where type = 'table'");
  if (!names)
    return names.error();
  std::vector<const Table*> tables;
  for (const std::string& name : *names) {
    const Table* known = findTable(name);
    if (!known)
      continue;
    const auto table = asItIs(database, *known);
    if (!table)
      return table.error();
    tables.push_back(*table);
  }
  if (tables.empty())
    return notOurs(database, "it holds none of the office's tables", chooseOther);
  return tables;
}

}  // namespace zelvo::sqlite
