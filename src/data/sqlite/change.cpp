#include "data/sqlite/change.h"

#include "data/row_storing.h"

namespace zelvo::sqlite {

namespace {

constexpr const char* markPart = "savepoint part";
constexpr const char* keepPart = "release part";
constexpr const char* giveUpPart = "rollback to part; release part";

}  // namespace

// ---- the engine's own transaction

// SQLite begins to write to a read-only file without a word, and fails at the first row.
Result<void> SqliteEngine::doBegin() {
  if (sqlite3_db_readonly(database_->handle(), "main") == 1)
    return database_->trouble(FileDeed::Write, SQLITE_READONLY);
  return database_->execute("begin immediate");
}

Result<void> SqliteEngine::doCommit() {
  if (!database_->inTransaction())
    return givenUpBefore(path());
  auto committed = database_->execute("commit");
  if (!committed)
    doRollback();
  return committed;
}

void SqliteEngine::doRollback() {
  if (database_->inTransaction())
    (void)database_->execute("rollback").ok();
}

// ---- a single change

Result<void> SqliteEngine::Change::begin() {
  if (joined_ && !engine_.database_->inTransaction())
    return givenUpBefore(engine_.path());
  auto begun = joined_ ? engine_.database_->execute(markPart) : engine_.doBegin();
  open_ = begun.ok();
  return begun;
}

Result<void> SqliteEngine::Change::keep() {
  open_ = false;
  return joined_ ? engine_.database_->execute(keepPart) : engine_.doCommit();
}

SqliteEngine::Change::~Change() {
  if (!open_)
    return;
  if (!joined_)
    engine_.doRollback();
  else if (engine_.database_->inTransaction())
    (void)engine_.database_->execute(giveUpPart).ok();
}

}  // namespace zelvo::sqlite
