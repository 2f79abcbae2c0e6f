// Writing: rows added, changed and removed, each seen to be still as it was read.

#include "base/files.h"
#include "data/row_storing.h"
#include "data/server_folder.h"
#include "data/sqlite/schema.h"
#include "data/sqlite/sqlite_engine.h"

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

std::string updating(const Table& table, std::span<const std::size_t> positions) {
  std::string sets;
  for (const std::size_t position : positions)
    sets += (sets.empty() ? "" : ", ") + quoted(table.columns[position].name) + " = ?";
  return "update " + quoted(table.name) + " set " + sets + " where rowid = ?";
}

}  // namespace

// ---- transactions

Engine::Standing SqliteEngine::standing() const {
  return database_->inTransaction() ? Standing::Open : Standing::NoTransaction;
}

// SQLite begins to write to a read-only file without a word, and fails at the first row.
Result<void> SqliteEngine::takeForWriting() {
  if (sqlite3_db_readonly(database_->handle(), "main") == 1)
    return database_->trouble(FileDeed::Write, SQLITE_READONLY);
  auto taken = database_->execute("begin immediate");
  if (taken)
    witness_.begin(*database_);
  return taken;
}

Result<void> SqliteEngine::inItsPlace() const {
  return keepsOnServerNow(folderOf(path())) ? movedAway(path()) : Result<void>();
}

Result<void> SqliteEngine::execute(const std::string& sql) {
  auto done = database_->execute(sql);
  return done || !witness_.stands(*database_) ? done : Result<void>();
}

// ---- single rows

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

Result<RowId> SqliteEngine::addRow(const Table& table, const Row& row) {
  auto statement = database_->prepare(insertion(table, allPositions(table)));
  if (!statement)
    return statement.error();
  for (std::size_t i = 0; i < row.size(); ++i)
    statement->bind(static_cast<int>(i) + 1, row[i]);
  if (auto stored = finish(*statement, table, row); !stored)
    return stored.error();
  return sqlite3_last_insert_rowid(database_->handle());
}

Result<void> SqliteEngine::changeRow(const Table& table, RowId id, std::span<const std::size_t> positions,
                                     const Row& typed) {
  auto statement = database_->prepare(updating(table, positions));
  if (!statement)
    return statement.error();
  int parameter = 0;
  for (const std::size_t position : positions)
    statement->bind(++parameter, typed[position]);
  statement->bind(++parameter, id);
  return finish(*statement, table, typed);
}

Result<void> SqliteEngine::removeRow(const Table& table, RowId id, const Row& read) {
  auto statement = database_->prepare("delete from " + quoted(table.name) + " where rowid = ?");
  if (!statement)
    return statement.error();
  statement->bind(1, id);
  return finish(*statement, table, read);
}

// ---- many rows at once

namespace {

/// More pages in memory for as long as it lives. Keys come in another order than their index has them: with the usual
/// few pages nearly every row would read and write a page of it.
class WideCache {
 public:
  explicit WideCache(Database& database) : database_(database) { set("-65536"); }
  WideCache(const WideCache&) = delete;
  WideCache& operator=(const WideCache&) = delete;
  ~WideCache() { set("-2000"); }

 private:
  void set(const std::string& kilobytes) { (void)database_.execute("pragma cache_size = " + kilobytes).ok(); }
  Database& database_;
};

}  // namespace

// Into an empty table rows go without its further indexes, which are made afterwards from sorted rows: rows that come
// in the order of their key would otherwise fetch and write another place of each index every time.
Result<void> SqliteEngine::addRows(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow) {
  const WideCache cache(*database_);
  const auto first = database_->ask("select rowid from " + quoted(table.name) + " limit 1");
  if (!first)
    return first.error();
  const bool wasEmpty = first->empty();
  if (auto bare = wasEmpty ? database_->execute(indexRemoval(table)) : Result<void>(); !bare)
    return bare;
  if (auto poured = pour(table, positions, nextRow); !poured)
    return poured;
  return wasEmpty ? database_->execute(indexCreation(table)) : Result<void>();
}

Result<void> SqliteEngine::pour(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow) {
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
    statement->again();
  }
}

}  // namespace zelvo::sqlite
