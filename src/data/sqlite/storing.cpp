// Writing: rows added, changed and removed, each seen to be still as it was read.

#include "data/fit.h"
#include "data/sqlite/change.h"
#include "data/sqlite/schema.h"

namespace zelvo::sqlite {

namespace {

/// How a record is named to its user: by its key, where the table has one.
std::string naming(const Table& table, const Row& row) {
  const std::size_t key = table.position(table.key);
  if (key >= row.size())
    return "this record";
  return "the record " + std::string(table.key) + " \"" + row[key].text() + "\"";
}

std::string insertion(const Table& table, std::span<const std::size_t> positions) {
  std::string names, marks;
  for (const std::size_t position : positions) {
    names += (names.empty() ? "" : ", ") + quoted(table.columns[position].name);
    marks += marks.empty() ? "?" : ", ?";
  }
  return "insert into " + quoted(table.name) + " (" + names + ") values (" + marks + ")";
}

std::vector<std::size_t> allPositions(const Table& table) {
  std::vector<std::size_t> positions(table.columns.size());
  for (std::size_t i = 0; i < positions.size(); ++i)
    positions[i] = i;
  return positions;
}

std::vector<std::size_t> differing(const Row& read, const Row& typed) {
  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < typed.size(); ++i)
    if (i >= read.size() || read[i] != typed[i])
      positions.push_back(i);
  return positions;
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
  return fileError(FileDeed::Write, path(), Trouble::Duplicate, naming(table, row) + " is there already",
                   "Give this one another number.");
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
  const std::string what = now->empty() ? " was removed on another computer" : " was changed on another computer";
  return fileError(FileDeed::Write, path(), Trouble::Conflict, naming(table, read) + what + " since it was read",
                   "Nothing was overwritten. Look at it again before you change it.");
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

namespace {

/// The rows that a caller gives, one by one, made to fit and put into one statement.
class Pouring {
 public:
  Pouring(const Table& table, std::span<const std::size_t> positions) : table_(table), positions_(positions) {}

  Result<void> bind(Statement& statement, std::vector<Value>& values) {
    ++count_;
    values.resize(positions_.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (auto fits = makeFit(table_.columns[positions_[i]], values[i]); !fits)
        return fits;
      statement.bind(static_cast<int>(i) + 1, values[i]);
    }
    return {};
  }

  /// The values as a whole row, for messages.
  Row rowOf(const std::vector<Value>& values) const {
    Row row(table_.columns.size());
    for (std::size_t i = 0; i < values.size(); ++i)
      row[positions_[i]] = values[i];
    return row;
  }

 private:
  Result<void> makeFit(const Column& column, Value& value) const {
    if (fits(column, value))
      return {};
    auto fit = fitted(column, value);
    if (!fit)
      return Error{fit.error().trouble, "Row " + std::to_string(count_) + ": " + fit.error().message};
    value = std::move(*fit);
    return {};
  }

  const Table& table_;
  std::span<const std::size_t> positions_;
  std::size_t count_ = 0;
};

}  // namespace

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
  Pouring pouring(table, positions);
  std::vector<Value> values(positions.size());
  while (nextRow(values)) {
    if (auto bound = pouring.bind(*statement, values); !bound)
      return bound;
    if (const int code = statement->step(); code != SQLITE_DONE)
      return notStored(code, table, pouring.rowOf(values));
    statement->reset();
  }
  return {};
}

}  // namespace zelvo::sqlite
