// Writing: rows added, changed and removed, each seen to be still as it was read.

#include <algorithm>

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

/// A number that somebody chose himself: the store's own go on behind it.
std::string goingOnBehind(const Table& table, const std::string& id) {
  const std::string name = quotedName(table.name);
  return "select setval(pg_get_serial_sequence('" + name + "', '" + id + "'), (select max(" + quotedName(id) +
         ") from " + name + "))";
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

// ---- the engine's own transaction

Result<void> PostgresEngine::goesOn() const {
  return transaction() && !server_->inTransaction() ? givenUpBefore(path()) : Result<void>();
}

Result<void> PostgresEngine::doBegin() {
  auto begun = server_->execute("begin; " + locking(*server_, *table_));
  if (!begun)
    doRollback();
  return begun;
}

// The server takes the commit of a transaction that failed for a rollback, without a word.
Result<void> PostgresEngine::doCommit() {
  if (!server_->inTransaction()) {
    doRollback();
    return givenUpBefore(path());
  }
  auto committed = server_->execute("commit");
  if (!committed)
    doRollback();
  return committed;
}

void PostgresEngine::doRollback() {
  if (!server_->lost() && !server_->idle())
    (void)server_->execute("rollback").ok();
}

// ---- a single change

/// A change of the table, begun by taking its lock: part of the engine's transaction when one is open, else one of its
/// own. What is not kept is given up whole.
class PostgresEngine::Change {
 public:
  explicit Change(PostgresEngine& engine) : engine_(engine), joined_(engine.transaction() != nullptr) {}
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;
  ~Change() {
    if (open_ && !joined_)
      engine_.doRollback();
    else if (open_ && !engine_.server_->lost())
      (void)engine_.server_->execute("rollback to part; release part").ok();
  }

  Result<void> begin() {
    if (auto going = engine_.goesOn(); !going)
      return going;
    auto begun = joined_ ? engine_.server_->execute("savepoint part") : engine_.doBegin();
    open_ = begun.ok();
    return begun;
  }
  Result<void> keep() {
    open_ = false;
    return joined_ ? engine_.server_->execute("release part") : engine_.doCommit();
  }

 private:
  PostgresEngine& engine_;
  bool joined_;
  bool open_ = false;
};

Result<RowId> PostgresEngine::insert(const Table& table, const Row& row) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun.error();
  auto id = insertRow(table, row);
  if (!id)
    return id;
  if (auto kept = change.keep(); !kept)
    return kept.error();
  return id;
}

Result<RowId> PostgresEngine::insertRow(const Table& table, const Row& row) {
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
  return static_cast<RowId>(std::stoll(std::string(answer->text(0, 0))));
}

Result<void> PostgresEngine::checkUnchanged(const Table& table, RowId id, const Row& read) {
  const auto now = rows(table, std::span(&id, 1));
  if (!now)
    return now.error();
  if (now->front() == asStored(read))
    return {};
  return changedMeanwhile(path(), table, read, now->front());
}

Result<void> PostgresEngine::update(const Table& table, RowId id, const Row& read, const Row& typed) {
  const auto positions = differing(read, typed);
  if (positions.empty())
    return {};
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  if (auto unchanged = checkUnchanged(table, id, read); !unchanged)
    return unchanged;
  std::vector<Parameter> values;
  for (const std::size_t position : positions)
    values.push_back(parameterOf(typed[position]));
  values.push_back(std::to_string(id));
  auto stored = write(table, typed, updating(table, positions), values);
  return stored ? change.keep() : stored;
}

Result<void> PostgresEngine::remove(const Table& table, RowId id, const Row& read) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  if (auto unchanged = checkUnchanged(table, id, read); !unchanged)
    return unchanged;
  auto removed = write(
      table, read,
      "delete from " + quotedName(table.name) + " where " + quotedName(dialect::postgres::rowIdOf(table)) + " = $1",
      {std::to_string(id)});
  return removed ? change.keep() : removed;
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

// The server's way of taking many rows hands no counters out where some are given.
Result<void> PostgresEngine::insertMany(const Table& table, std::span<const std::size_t> positions,
                                        const std::function<bool(std::vector<Value>&)>& nextRow) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  const bool counted = std::find(positions.begin(), positions.end(), counterOf(table)) != positions.end();
  auto stored = counted ? insertEach(table, positions, nextRow) : copyIn(table, positions, nextRow);
  return stored ? change.keep() : stored;
}

Result<void> PostgresEngine::insertEach(const Table& table, std::span<const std::size_t> positions,
                                        const std::function<bool(std::vector<Value>&)>& nextRow) {
  Pouring pouring(table, positions, nextRow);
  for (;;) {
    const auto given = pouring.next();
    if (!given)
      return given.error();
    if (!*given)
      return {};
    if (auto stored = insertRow(table, pouring.row()); !stored)
      return stored.error();
  }
}

namespace {

/// The next lines of a copy, a good many together; none when there are no more rows.
Result<std::string> nextLines(Pouring& pouring) {
  std::string lines;
  while (lines.size() < copiedAtOnce) {
    const auto given = pouring.next();
    if (!given)
      return given.error();
    if (!*given)
      break;
    for (std::size_t i = 0; i < pouring.values().size(); ++i) {
      lines += i == 0 ? "" : "\t";
      appendCopied(lines, pouring.values()[i]);
    }
    lines += '\n';
  }
  return lines;
}

}  // namespace

Result<void> PostgresEngine::copyIn(const Table& table, std::span<const std::size_t> positions,
                                    const std::function<bool(std::vector<Value>&)>& nextRow) {
  const std::string sql = "copy " + quotedName(table.name) + " (" + nameList(table, positions) + ") from stdin";
  if (auto begun = server_->ask(FileDeed::Write, sql); !begun)
    return begun.error();
  Pouring pouring(table, positions, nextRow);
  Result<void> poured;
  for (bool more = true; more && poured;) {
    const auto lines = nextLines(pouring);
    poured = lines ? server_->copy(*lines) : lines.error();
    more = lines.ok() && !lines->empty();
  }
  const auto answer = server_->endCopy(!poured);
  if (!poured)
    return poured;
  if (!answer)
    return answer.error();
  if (answer->ok())
    return {};
  return answer->state() == keyTaken ? keyInUse(path(), table, rowOfKey(table, answer->detail()))
                                     : server_->troubleOf(FileDeed::Write, *answer);
}

}  // namespace zelvo::postgres
