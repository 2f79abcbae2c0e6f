#include "data/sqlite/change.h"

namespace zelvo::sqlite {

namespace {

constexpr const char* markPart = "savepoint part";
constexpr const char* keepPart = "release part";
constexpr const char* giveUpPart = "rollback to part; release part";

Error givenUp(const Database& database) {
  return fileError(FileDeed::Write, database.path(), Trouble::Failed,
                   "the changes that go with this one failed before and were given up", "Try them again as a whole.");
}

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
    return givenUp(*database_);
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
    return givenUp(*engine_.database_);
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
