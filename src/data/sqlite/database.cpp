#include "data/sqlite/database.h"

#include <cerrno>

#include "data/dialect/sqlite_functions.h"
#include "data/sqlite/file_kind.h"
#include "data/sqlite/trouble.h"

namespace zelvo::sqlite {

namespace {

/// More than any screen uses again and again; searches by example bring ever new ones.
constexpr std::size_t mostStatements = 64;

int flagsOf(Database::Mode mode) {
  constexpr int common = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  switch (mode) {
    case Database::Mode::ReadOnly:
      return common | SQLITE_OPEN_READONLY;
    case Database::Mode::ReadWrite:
      return common | SQLITE_OPEN_READWRITE;
    case Database::Mode::Create:
      break;
  }
  return common | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
}

}  // namespace

Result<std::unique_ptr<Database>> Database::open(std::string path, Mode mode, std::chrono::milliseconds patience) {
  std::unique_ptr<Database> database(new Database(std::move(path), patience));
  const int code = sqlite3_open_v2(database->path_.c_str(), &database->handle_, flagsOf(mode), nullptr);
  if (code != SQLITE_OK)
    return database->trouble(FileDeed::Read, code);
  if (auto ready = database->prepareForUse(mode); !ready)
    return ready.error();
  return database;
}

Result<void> Database::prepareForUse(Mode mode) {
  waiting_.attend(handle_);
  if (auto looked = mode == Mode::Create ? Result<void>() : checkHead(*this); !looked)
    return looked;
  for (const int code :
       {dialect::registerDialectFunctions(handle_), gathering_.attend(handle_), sorting_.attend(handle_)})
    if (code != SQLITE_OK)
      return trouble(FileDeed::Read, code);
  // Extra: the folder is flushed too when the journal is gone. A cut of the power could bring the journal back, and the
  // next computer would then take back what was stored and acknowledged.
  return execute("pragma synchronous = extra; pragma mmap_size = 0; pragma page_size = 8192");
}

Database::~Database() {
  forgetStatements();
  sqlite3_close(handle_);
}

void Database::forgetStatements() {
  for (const auto& [sql, statement] : statements_)
    sqlite3_finalize(statement);
  statements_.clear();
}

Result<void> Database::execute(const std::string& sql) {
  if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    return trouble(FileDeed::Write);
  return {};
}

Result<sqlite3_stmt*> Database::compile(const std::string& sql, unsigned flags) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(handle_, sql.c_str(), static_cast<int>(sql.size()), flags, &statement, nullptr) != SQLITE_OK)
    return trouble(FileDeed::Read);
  return statement;
}

Result<Statement> Database::prepare(const std::string& sql) {
  if (const auto known = statements_.find(sql); known != statements_.end())
    return Statement(known->second);
  if (statements_.size() >= mostStatements)
    forgetStatements();
  const auto statement = compile(sql, SQLITE_PREPARE_PERSISTENT);
  if (!statement)
    return statement.error();
  statements_.emplace(sql, *statement);
  return Statement(*statement);
}

Result<Statement> Database::prepareAlone(const std::string& sql) {
  const auto statement = compile(sql, 0);
  if (!statement)
    return statement.error();
  return Statement(*statement, Statement::After::Finalize);
}

Result<std::string> Database::ask(const std::string& sql) {
  auto statement = prepare(sql);
  if (!statement)
    return statement.error();
  const int code = statement->step();
  if (code != SQLITE_ROW && code != SQLITE_DONE)
    return trouble(FileDeed::Read, code);
  return code == SQLITE_ROW ? statement->text(0) : std::string();
}

// A file whose disk was made read-only while it was open fails like one whose disk is broken; only the system knows.
Error Database::trouble(FileDeed deed, int code) const {
  if (handle_ && (code & 0xff) == SQLITE_IOERR && sqlite3_system_errno(handle_) == EROFS)
    code = SQLITE_READONLY;
  return storeError(deed, path_, code, handle_ ? sqlite3_errmsg(handle_) : sqlite3_errstr(code));
}

}  // namespace zelvo::sqlite
