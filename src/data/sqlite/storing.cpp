// Writing: rows added, changed and removed, each seen to be still as it was read.

#include "data/row_storing.h"
#include "data/sqlite/change.h"
#include "data/sqlite/schema.h"

namespace zelvo::sqlite {

namespace {

std::string insertion(const Table& table, std::span<const std::size_t> positions) {
  std::string names, marks;
  for (const std::size_t position : positions) {
    names += (names.empty() ? "" : ", ") + quoted(table.columns[position].name);
    marks += marks.empty() ? "?" : ", ?";
  }
  return "insert into " + quoted(table.name) + " (" + names + ") values (" + marks + ")";
}

std::string updating(const Table& table, const std::vector<std::size_t>& positions) {
  std::string sets;
  for (const std::size_t position : positions)
    sets += (sets.empty() ? "" : ", ") + quoted(table.columns[position].name) + " = ?";
  return "update " + quoted(table.name) + " set " + sets + " where rowid = ?";
}

}  // namespace

Error SqliteEngine::notStored(int code, const Table& table, const Row& row) const {
  if ((code & 0xff) != SQLITE_CONSTRAINT)
    return database_->trouble(FileDeed::Write, code);
  return keyInUse(path(), table, row);
}

Result<void> SqliteEngine::finish(Statement& statement, const Table& table, const Row& row) {
  const int code = statement.step();
  const Result<void> stored = code == SQLITE_DONE ? Result<void>() : notStored(code, table, row);
  statement.reset();
  return stored;
}

Result<RowId> SqliteEngine::insert(const Table& table, const Row& row) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun.error();
  auto statement = database_->prepare(insertion(table, allPositions(table)));
  if (!statement)
    return statement.error();
  for (std::size_t i = 0; i < row.size(); ++i)
    statement->bind(static_cast<int>(i) + 1, row[i]);
  auto stored = finish(*statement, table, row);
  const RowId id = sqlite3_last_insert_rowid(database_->handle());
  if (stored)
    stored = change.keep();
  if (!stored)
    return stored.error();
  return id;
}

Result<void> SqliteEngine::checkUnchanged(const Table& table, RowId id, const Row& read) {
  const auto now = readRow(table, id);
  if (!now)
    return now.error();
  if (*now == read)
    return {};
  return changedMeanwhile(path(), table, read, *now);
}

Result<void> SqliteEngine::update(const Table& table, RowId id, const Row& read, const Row& typed) {
  const auto positions = differing(read, typed);
  if (positions.empty())
    return {};
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  if (auto unchanged = checkUnchanged(table, id, read); !unchanged)
    return unchanged;
  auto statement = database_->prepare(updating(table, positions));
  if (!statement)
    return statement.error();
  int parameter = 0;
  for (const std::size_t position : positions)
    statement->bind(++parameter, typed[position]);
  statement->bind(++parameter, id);
  auto stored = finish(*statement, table, typed);
  return stored ? change.keep() : stored;
}

Result<void> SqliteEngine::remove(const Table& table, RowId id, const Row& read) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  if (auto unchanged = checkUnchanged(table, id, read); !unchanged)
    return unchanged;
  auto statement = database_->prepare("delete from " + quoted(table.name) + " where rowid = ?");
  if (!statement)
    return statement.error();
  statement->bind(1, id);
  auto removed = finish(*statement, table, read);
  return removed ? change.keep() : removed;
}

// ---- many rows at once

// Into an empty table rows go without its further indexes, which are made afterwards from sorted rows: rows that come
// in the order of their key would otherwise fetch and write another place of each index every time.
Result<void> SqliteEngine::insertMany(const Table& table, std::span<const std::size_t> positions,
                                      const std::function<bool(std::vector<Value>&)>& nextRow) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  const auto first = database_->ask("select rowid from " + quoted(table.name) + " limit 1");
  if (!first)
    return first.error();
  const bool wasEmpty = first->empty();
  if (auto bare = wasEmpty ? database_->execute(indexRemoval(table)) : Result<void>(); !bare)
    return bare;
  if (auto poured = pour(table, positions, nextRow); !poured)
    return poured;
  if (auto indexed = wasEmpty ? database_->execute(indexCreation(table)) : Result<void>(); !indexed)
    return indexed;
  return change.keep();
}

Result<void> SqliteEngine::pour(const Table& table, std::span<const std::size_t> positions,
                                const std::function<bool(std::vector<Value>&)>& nextRow) {
  auto statement = database_->prepareAlone(insertion(table, positions));
  if (!statement)
    return statement.error();
  Pouring pouring(table, positions, nextRow);
  for (;;) {
    const auto given = pouring.next();
    if (!given)
      return given.error();
    if (!*given)
      return {};
    int parameter = 0;
    for (const Value& value : pouring.values())
      statement->bind(++parameter, value);
    if (const int code = statement->step(); code != SQLITE_DONE)
      return notStored(code, table, pouring.row());
    statement->reset();
  }
}

}  // namespace zelvo::sqlite
