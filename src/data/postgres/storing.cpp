// Writing: rows added, changed and removed, each seen to be still as it was read.

#include <algorithm>

#include "base/files.h"
#include "data/dialect/postgres_writer.h"
#include "data/postgres/postgres_engine.h"
#include "data/postgres/schema.h"
#include "data/row_storing.h"

namespace zelvo::postgres {

namespace {

using dialect::quotedName;

constexpr std::string_view keyTaken = "23505";
constexpr std::size_t copiedAtOnce = 1 << 16;

/// Nothing, for a table whose rows are named by a column beside the office's own.
std::size_t counterOf(const Table& table) {
  return table.position(dialect::postgres::rowIdOf(table));
}

std::string nameList(const Table& table, std::span<const std::size_t> positions) {
  std::string names;
  for (const std::size_t position : positions)
    names += (names.empty() ? "" : ", ") + quotedName(table.columns[position].name);
  return names;
}

std::string insertion(const Table& table, std::span<const std::size_t> positions) {
  std::string marks;
  for (std::size_t i = 1; i <= positions.size(); ++i)
    marks.append(i == 1 ? "$" : ", $").append(std::to_string(i));
  return "insert into " + quotedName(table.name) + " (" + nameList(table, positions) + ") values (" + marks +
         ") returning " + quotedName(dialect::postgres::rowIdOf(table));
}

std::string updating(const Table& table, std::span<const std::size_t> positions) {
  std::string sets;
  for (std::size_t i = 0; i < positions.size(); ++i)
    sets += (i == 0 ? "" : ", ") + quotedName(table.columns[positions[i]].name) + " = $" + std::to_string(i + 1);
  return "update " + quotedName(table.name) + " set " + sets + " where " +
         quotedName(dialect::postgres::rowIdOf(table)) + " = $" + std::to_string(positions.size() + 1);
}

/// A number that somebody chose himself: the store's own go on behind it. They never go back, as they would stay back
/// when the change is given up.
std::string goingOnBehind(const Table& table, const std::string& id) {
  const std::string name = quotedName(table.name), numbers = "pg_get_serial_sequence('" + name + "', '" + id + "')";
  return "select setval(" + numbers + ", greatest((select max(" + quotedName(id) + ") from " + name +
         "), pg_sequence_last_value(" + numbers + "::regclass), 1))";
}

/// The key of a row that was refused, as the server tells it: Key ("PERMIT")=(25-1) already exists.
Row rowOfKey(const Table& table, std::string_view detail) {
  Row row(table.columns.size());
  const auto from = detail.find(")=("), to = detail.rfind(')');
  const std::size_t key = table.position(table.key);
  if (key < row.size() && from != std::string_view::npos && to > from + 3)
    row[key] = detail.substr(from + 3, to - from - 3);
  return row;
}

}  // namespace

// ---- transactions

Engine::Standing PostgresEngine::standing() const {
  if (server_->lost() || server_->idle())
    return Standing::NoTransaction;
  return server_->inTransaction() ? Standing::Open : Standing::Failed;
}

Result<void> PostgresEngine::takeForWriting() {
  std::string sql = "begin";
  for (const Table* table : tables())
    sql += "; " + locking(*server_, *table);
  return server_->execute(sql);
}

Result<void> PostgresEngine::inItsPlace() const {
  const std::string folder = folderOf(path());
  if (!keepsOnServer(folder))
    return movedAway(path());
  const auto place = serverPlace(folder);
  if (!place)
    return place.error();
  return place->schema == server_->schema() ? Result<void>() : movedAway(path());
}

// ---- single rows

Result<RowId> PostgresEngine::addRow(const Table& table, const Row& row) {
  std::vector<std::size_t> positions = allPositions(table);
  const std::size_t counter = counterOf(table);
  const bool chosen = counter < row.size() && !row[counter].isNull();
  if (!chosen)
    std::erase(positions, counter);
  std::vector<Parameter> values;
  for (const std::size_t position : positions)
    values.push_back(parameterOf(row[position]));
  const auto answer = server_->tryOut(insertion(table, positions), values);
  if (!answer)
    return answer.error();
  if (!answer->ok())
    return answer->state() == keyTaken ? keyInUse(path(), table, row) : server_->troubleOf(FileDeed::Write, *answer);
  if (chosen)
    if (auto behind = server_->execute(goingOnBehind(table, std::string(table.columns[counter].name))); !behind)
      return behind.error();
  return idIn(answer->text(0, 0));
}

Result<void> PostgresEngine::changeRow(const Table& table, RowId id, std::span<const std::size_t> positions,
                                       const Row& typed) {
  std::vector<Parameter> values;
  for (const std::size_t position : positions)
    values.push_back(parameterOf(typed[position]));
  values.push_back(std::to_string(id));
  return write(table, typed, updating(table, positions), values);
}

Result<void> PostgresEngine::removeRow(const Table& table, RowId id, const Row& read) {
  return write(
      table, read,
      "delete from " + quotedName(table.name) + " where " + quotedName(dialect::postgres::rowIdOf(table)) + " = $1",
      {std::to_string(id)});
}

Result<void> PostgresEngine::write(const Table& table, const Row& row, const std::string& sql,
                                   const std::vector<Parameter>& values) {
  const auto answer = server_->tryOut(sql, values);
  if (!answer)
    return answer.error();
  if (answer->ok())
    return {};
  return answer->state() == keyTaken ? keyInUse(path(), table, row) : server_->troubleOf(FileDeed::Write, *answer);
}

// ---- many rows at once

namespace {

/// The lines of a copy, for the rows that an importer gives. Where some of them bring their counters the server hands
/// out none, so those left open are counted on here, behind the highest that there is.
class CopyLines {
 public:
  CopyLines(Pouring& pouring, std::span<const std::size_t> positions, std::size_t counter, RowId highest)
      : pouring_(pouring), highest_(highest) {
    counterAt_ = static_cast<std::size_t>(std::find(positions.begin(), positions.end(), counter) - positions.begin());
  }

  /// A good many lines together; none when there are no more rows.
  Result<std::string> next() {
    std::string lines;
    while (lines.size() < copiedAtOnce) {
      const auto given = pouring_.next();
      if (!given)
        return given.error();
      if (!*given)
        break;
      appendRow(lines);
    }
    return lines;
  }

 private:
  void appendRow(std::string& lines) {
    const std::vector<Value>& values = pouring_.values();
    for (std::size_t i = 0; i < values.size(); ++i) {
      lines += i == 0 ? "" : "\t";
      appendCopied(lines, i == counterAt_ ? counted(values[i]) : values[i]);
    }
    lines += '\n';
  }
  Value counted(const Value& counter) {
    const RowId id = counter.isNull() ? highest_ + 1 : static_cast<RowId>(counter.number());
    highest_ = std::max(highest_, id);
    return counter.isNull() ? Value(id) : counter;
  }

  Pouring& pouring_;
  std::size_t counterAt_;
  RowId highest_;
};

/// All lines to the server, unless it or the importer gives up.
Result<void> pour(CopyLines& lines, Server& server) {
  for (;;) {
    const auto some = lines.next();
    if (!some || some->empty())
      return some ? Result<void>() : some.error();
    if (auto poured = server.copy(*some); !poured)
      return poured;
  }
}

}  // namespace

Result<RowId> PostgresEngine::highestId(const Table& table) {
  const auto answer =
      server_->ask(FileDeed::Read, "select coalesce(max(" + quotedName(dialect::postgres::rowIdOf(table)) +
                                       "), 0) from " + quotedName(table.name));
  if (!answer)
    return answer.error();
  return idIn(answer->text(0, 0));
}

Result<void> PostgresEngine::addRows(const Table& table, std::span<const std::size_t> positions,
                                     const NextRow& nextRow) {
  const auto highest = highestId(table);
  if (!highest)
    return highest.error();
  if (auto begun = server_->ask(FileDeed::Write,
                                "copy " + quotedName(table.name) + " (" + nameList(table, positions) + ") from stdin");
      !begun)
    return begun.error();
  Pouring pouring(table, positions, nextRow);
  CopyLines lines(pouring, positions, counterOf(table), *highest);
  const auto poured = pour(lines, *server_);
  const auto answer = server_->endCopy(!poured);
  if (!poured)
    return poured;
  if (!answer)
    return answer.error();
  if (!answer->ok())
    return answer->state() == keyTaken ? keyInUse(path(), table, rowOfKey(table, answer->detail()))
                                       : server_->troubleOf(FileDeed::Write, *answer);
  const bool counted = std::find(positions.begin(), positions.end(), counterOf(table)) != positions.end();
  return counted ? server_->execute(goingOnBehind(table, dialect::postgres::rowIdOf(table))) : Result<void>();
}

}  // namespace zelvo::postgres
