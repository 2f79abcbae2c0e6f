#include "fuzz/dialect_trial.h"

#include <sqlite3.h>

#include <cmath>
#include <memory>

#include "base/date.h"
#include "data/dialect/like_pattern.h"
#include "data/dialect/parser.h"
#include "data/dialect/postgres_writer.h"
#include "data/dialect/sqlite_functions.h"
#include "data/dialect/sqlite_writer.h"
#include "data/dialect_cases.h"
#include "fuzz/promise.h"

namespace zelvo::fuzz {

namespace {

constexpr const char* rows = R"(
create table BLDGPERM (PERMIT text collate nocase, OWNER text collate nocase, MONTH text collate nocase, FEE real,
                       FLAG integer, VD3 text, NOTES text collate nocase);
create unique index key on BLDGPERM(PERMIT);
create index month on BLDGPERM(MONTH, FEE);
insert into BLDGPERM values
  ('25-1', 'O''Brien, Ann', '3', 60, 1, '2025-03-09', 'Garage'), ('25-2', 'É[x]%_', '03', -0.5, 0, null, ''),
  ('', null, 'x', null, null, '2025-03-09 10:15:00', x'ff41');
)";

void checkRefusal(const Error& error, std::string_view text) {
  constexpr std::size_t longestMessage = 300;  // without the query and a name out of it
  promise(error.trouble == Trouble::BadInput, "a query that is refused is bad input");
  promise(error.message.ends_with(text), "the message ends with the query");
  promise(error.message.size() <= 2 * text.size() + longestMessage, "the message is no longer than need be");
}

void checkPattern(std::string_view text) {
  const std::string_view end = text.substr(text.size() / 2);
  (void)dialect::LikePattern(text.substr(0, text.size() / 2)).matches(end);
  if (text.find_first_of("[]%_") != std::string_view::npos || text.find('\xEF') != std::string_view::npos)
    return;
  promise(dialect::LikePattern(text).matches(text), "a text without signs is like itself");
  promise(dialect::LikePattern("%" + std::string(text) + "%").matches("x" + std::string(text)),
          "and found in a longer");
}

void bind(sqlite3_stmt* prepared, int mark, const Value& value) {
  const std::string text = value.isDate() ? isoText(*value.moment()) : std::string(value.heldText());
  promise(!value.isNumber() || std::isfinite(value.number()), "a number of a query is one");
  if (value.isNumber())
    sqlite3_bind_double(prepared, mark, value.number());
  else
    sqlite3_bind_text64(prepared, mark, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

}  // namespace

DialectTrial::DialectTrial() {
  sqlite3_open(":memory:", &database_);
  promise(dialect::registerDialectFunctions(database_) == SQLITE_OK, "the functions are known");
  promise(sqlite3_exec(database_, rows, nullptr, nullptr, nullptr) == SQLITE_OK, "the table is made");
}

DialectTrial::~DialectTrial() {
  sqlite3_close(database_);
}

void DialectTrial::answer(const dialect::BoundStatement& statement) {
  sqlite3_stmt* made = nullptr;
  const int code = sqlite3_prepare_v2(database_, statement.sql.c_str(), -1, &made, nullptr);
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> prepared(made, &sqlite3_finalize);
  promise(code == SQLITE_OK, "the database understands " + statement.sql);
  const int marks = sqlite3_bind_parameter_count(made);
  promise(static_cast<std::size_t>(marks) == statement.parameters.size(), "each mark has its value");
  for (int i = 0; i < marks; ++i)
    bind(made, i + 1, statement.parameters[static_cast<std::size_t>(i)]);
  int answered = SQLITE_ROW;
  while (answered == SQLITE_ROW)
    answered = sqlite3_step(made);
  promise(answered == SQLITE_DONE, "the database answers " + statement.sql);
}

void DialectTrial::check(const Written& file, const Written& server, std::string_view text) {
  promise(file.ok() == server.ok(), "both engines understand the same");
  if (!file)
    return checkRefusal(file.error(), text);
  promise(file->parameters.size() == server->parameters.size(), "both are given as many values");
  answer(*file);
}

void DialectTrial::run(const std::string& text) {
  using namespace dialect;
  if (const auto query = parseSelect(text))
    check(writeKeyset(*query, permits), postgres::writeKeyset(*query, permits), text);
  else
    checkRefusal(query.error(), text);
  if (const auto condition = parseCondition(text)) {
    check(writeKeysetOf(*condition, permits), postgres::writeKeysetOf(*condition, permits), text);
    check(writeExists(*condition, permits), postgres::writeExists(*condition, permits), text);
  } else {
    checkRefusal(condition.error(), text);
  }
  checkPattern(text);
}

}  // namespace zelvo::fuzz
