#include <gtest/gtest.h>
#include <sqlite3.h>

#include <random>

#include "base/date.h"
#include "base/text.h"
#include "data/dialect/parser.h"
#include "data/dialect/sqlite_functions.h"
#include "data/dialect/sqlite_writer.h"
#include "dialect_cases.h"

namespace zelvo::dialect {
namespace {

constexpr const char* someRows = R"(
create table BLDGPERM (PERMIT text collate nocase, OWNER text collate nocase, MONTH text collate nocase, FEE real,
                       FLAG integer, VD3 text, NOTES text collate nocase);
create unique index key on BLDGPERM(PERMIT);
create index month on BLDGPERM(MONTH, FEE);
insert into BLDGPERM values
  ('25-1',  'O''Brien, Ann', '3',    60,    1,    '2025-03-09', 'Garage'),
  ('25-2',  'smith, john',   '03',   100.5, 0,    '2025-03-09 10:15:00', 'deck, 100% wood'),
  ('25-3',  'DÉSIR',         ' 3.0', 0,     null, '1999-12-31', ''),
  ('25-10', 'Désirée',       'x',    null,  2,    null,                  null),
  ('A-5',   null,            '',     -3.2,  0,    '2025-12-31', '[draft] pool_house'),
  ('a-6',   'étienne',       null,   7,     0,    '2026-01-01', 'see 12/31/2025');
)";

constexpr const char* numbers[] = {"25-1", "25-2", "25-3", "25-10", "A-5", "a-6"};

/// A database of six permits, asked in the office's dialect.
class DialectTest : public ::testing::Test {
 protected:
  DialectTest() {
    sqlite3_open(":memory:", &database_);
    EXPECT_EQ(registerDialectFunctions(database_), SQLITE_OK);
    run(someRows);
  }
  ~DialectTest() override { sqlite3_close(database_); }

  void run(const char* sql) { ASSERT_EQ(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr), SQLITE_OK); }

  /// The first column of the answer, its rows separated by blanks.
  std::string answer(const BoundStatement& statement) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(database_, statement.sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
      return std::string("refused: ") + sqlite3_errmsg(database_) + "\n" + statement.sql;
    for (std::size_t i = 0; i < statement.parameters.size(); ++i)
      bind(prepared, static_cast<int>(i) + 1, statement.parameters[i]);
    std::vector<std::string> rows;
    while (sqlite3_step(prepared) == SQLITE_ROW)
      rows.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(prepared, 0)));
    sqlite3_finalize(prepared);
    return join(rows, " ");
  }

  static void bind(sqlite3_stmt* prepared, int index, const Value& value) {
    if (value.isNumber())
      sqlite3_bind_double(prepared, index, value.number());
    else
      sqlite3_bind_text(prepared, index, (value.isDate() ? isoText(*value.moment()) : value.text()).c_str(), -1,
                        SQLITE_TRANSIENT);
  }

  /// The permits that a query selects, in its order.
  std::string found(std::string_view query) {
    const auto parsed = parseSelect(query);
    if (!parsed)
      return "trouble: " + parsed.error().message;
    const auto statement = writeKeyset(*parsed, permits);
    if (!statement)
      return "trouble: " + statement.error().message;
    std::vector<std::string> rows = split(answer(*statement), ' ');
    for (std::string& row : rows)
      if (row.size() == 1)
        row = numbers[row[0] - '1'];
    return join(rows, " ");
  }
  std::string where(std::string_view condition) {
    return found("Select * from BLDGPERM where " + std::string(condition));
  }

  std::string plan(std::string_view query) {
    auto statement = writeKeyset(*parseSelect(query), permits);
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(database_, ("explain query plan " + statement->sql).c_str(), -1, &prepared, nullptr);
    std::string steps;
    while (sqlite3_step(prepared) == SQLITE_ROW)
      steps.append(reinterpret_cast<const char*>(sqlite3_column_text(prepared, 3))).append("; ");
    sqlite3_finalize(prepared);
    return steps;
  }

 private:
  sqlite3* database_ = nullptr;
};

TEST_F(DialectTest, SelectsWhatAConditionSays) {
  for (const Case& row : conditionCases)
    EXPECT_EQ(where(row.query), row.permits) << row.query;
  EXPECT_EQ(where("[OWNER] > 'É'"), "a-6") << "letters with accents come behind all others";
}

TEST_F(DialectTest, OrdersWithoutRegardToCase) {
  const Case cases[] = {
      {"Select * from BLDGPERM", "25-1 25-2 25-3 25-10 A-5 a-6"},
      {"SELECT * FROM [BLDGPERM] ORDER BY [PERMIT]", "25-1 25-10 25-2 25-3 A-5 a-6"},
      {"select*from bldgperm order by PERMIT desc", "a-6 A-5 25-3 25-2 25-10 25-1"},
      {"select * from BLDGPERM where [OWNER] is not null order by OWNER", "25-3 25-10 25-1 25-2 a-6"},
      {"select * from BLDGPERM order by FLAG desc, FEE", "25-10 25-1 A-5 a-6 25-2 25-3"},
      {"select * from BLDGPERM where [OWNER] like '%s%' order by [PERMIT]", "25-10 25-2 25-3"},
  };
  for (const Case& row : cases)
    EXPECT_EQ(found(row.query), row.permits) << row.query;
}

TEST_F(DialectTest, RefusesWithThePlaceAndTheQuery) {
  const Case cases[] = {
      {"", "select should stand here (at its end)"},
      {"Update BLDGPERM set FEE = 0", "at character 1, near \"Update"},
      {"Select PERMIT from BLDGPERM", "* should stand here (at character 8"},
      {"Select * from", "the name of a table should stand here (at its end)"},
      {"Select * from NOSUCH", "no table NOSUCH in this database (at character 15"},
      {"Select * from BLDGPERM where", "(at its end)"},
      {"Select * from BLDGPERM where [NOSUCH] = 1", "no column NOSUCH (at character 30"},
      {"Select * from BLDGPERM where [OWNER] = 'É' and nosuch = 1", "no column nosuch (at character 48"},
      {"Select * from BLDGPERM where [PERMIT] =", "(at its end)"},
      {"Select * from BLDGPERM where [PERMIT] = 25-1", "the query should end here (at character 43"},
      {"Select * from BLDGPERM where [PERMIT] = '25", "is not ended by another one"},
      {"Select * from BLDGPERM where [PERMIT = '25'", "not ended by ]"},
      {"Select * from BLDGPERM where [] = '25'", "no name between"},
      {"Select * from BLDGPERM where [VD3] > #03/09/2025", "a date begins with #"},
      {"Select * from BLDGPERM where [VD3] > #02/29/2025#", "is no date of the form mm/dd/yyyy (at character 38"},
      {"Select * from BLDGPERM where [VD3] = 3", "a date stands in #"},
      {"Select * from BLDGPERM where [FEE] = #03/09/2025#", "holds numbers, not dates"},
      {"Select * from BLDGPERM where ([FEE] = 1", ") should stand here (at its end)"},
      {"Select * from BLDGPERM where [FEE] = 1)", "the query should end here"},
      {"Select * from BLDGPERM where [FEE] = 1 AND", "the name of a column should stand here (at its end)"},
      {"Select * from BLDGPERM where [FEE] = 1 AND order by [PERMIT]", "at character 44, near \"order by"},
      {"Select * from BLDGPERM where [FEE] = 1 [PERMIT]", "the query should end here"},
      {"Select * from BLDGPERM where [OWNER] like smith", "a text in ' should follow like"},
      {"Select * from BLDGPERM where [OWNER] = 'x'; drop table BLDGPERM", "the query should end here"},
      {"Select * from BLDGPERM where [OWNER] is 'x'", "null should stand here"},
      {"Select * from BLDGPERM where [OWNER] = \"x\"", "has no meaning"},
      {"Select * from BLDGPERM order by", "the name of a column should stand here (at its end)"},
      {"Select * from BLDGPERM order by [NOSUCH]", "no column NOSUCH"},
      {"Select * from BLDGPERM order [PERMIT]", "by should stand here"},
  };
  for (const Case& row : cases) {
    const std::string message = found(row.query);
    EXPECT_TRUE(message.starts_with("trouble: ")) << row.query;
    EXPECT_NE(message.find(row.permits), std::string::npos) << row.query << "\n" << message;
    EXPECT_TRUE(message.ends_with(row.query)) << message;
  }
}

TEST_F(DialectTest, TypedQuotesAndSignsStayText) {
  EXPECT_EQ(where("[OWNER] = 'x'' or ''1''=''1'"), "");
  EXPECT_EQ(where("[OWNER] = '?' or [OWNER] = '; drop table BLDGPERM --' or [PERMIT] = '25-2'"), "25-2");
  EXPECT_EQ(where("[OWNER] = 'O''Brien, Ann'"), "25-1");
}

TEST_F(DialectTest, LooksUpAConditionByItself) {
  const auto ask = [this](std::string_view condition, auto write) {
    return answer(*write(*parseCondition(condition), permits));
  };
  EXPECT_EQ(ask("[PERMIT] = '25-2'", writeExists), "1");
  EXPECT_EQ(ask("[PERMIT] = '25-9'", writeExists), "0");
  EXPECT_EQ(ask("[PERMIT] = 'a-6' or [PERMIT] = '25-2'", writeKeysetOf), "2 6");
  for (const char* condition : {"", "[PERMIT]", "[PERMIT] = '25-2' order by [PERMIT]"})
    EXPECT_EQ(parseCondition(condition).ok(), false) << condition;
  const auto unknown = writeExists(*parseCondition("[NOSUCH] = 'x'"), permits);
  ASSERT_FALSE(unknown.ok());
  EXPECT_EQ(unknown.error().trouble, Trouble::BadInput);
}

TEST_F(DialectTest, IndexesServeKeysAndOrdersButNoSearch) {
  EXPECT_EQ(plan("Select * from BLDGPERM where [PERMIT] = '25-1'"),
            "SEARCH BLDGPERM USING COVERING INDEX key (PERMIT=?); ");
  EXPECT_EQ(plan("Select * from BLDGPERM order by [PERMIT]"), "SCAN BLDGPERM USING COVERING INDEX key; ");
  EXPECT_EQ(plan("Select * from BLDGPERM where [OWNER] like '%x%' order by [PERMIT]"),
            "SCAN BLDGPERM; USE TEMP B-TREE FOR ORDER BY; ");
  EXPECT_EQ(plan("Select * from BLDGPERM where [NOTES] like '%x%' and [MONTH] = '3' order by [PERMIT]").substr(0, 35),
            "SEARCH BLDGPERM USING INDEX month (");
}

std::string repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

TEST_F(DialectTest, DeepAndLongConditionsAreAnsweredOrRefused) {
  EXPECT_EQ(where(repeated("(", 90) + "[FLAG] = 1" + repeated(")", 90)), "25-1");
  EXPECT_EQ(where(repeated("([FEE] = 1 or ([FLAG] = 1 and ", 12) + "[FLAG] = 1" + repeated("))", 12)), "25-1");
  EXPECT_EQ(where(repeated("[FLAG] = 1 and ", 2000) + "[FLAG] = 1"), "25-1");
  EXPECT_EQ(where(repeated("[FLAG] = 9 or ", 2000) + "[FLAG] = 1"), "25-1");
  const std::string deeper[] = {repeated("(", 200000), repeated("not ", 200000) + "[FLAG] = 1",
                                repeated("([FEE] = 1 or ([FLAG] = 1 and ", 40) + "[FLAG] = 1" + repeated("))", 40)};
  for (const std::string& condition : deeper)
    EXPECT_TRUE(where(condition).starts_with("trouble: ")) << condition.substr(0, 40);
}

TEST_F(DialectTest, AnyTextAtAllIsAnsweredOrRefused) {
  constexpr std::string_view pieces[] = {
      "[PERMIT]", "[VD3]", "FEE",      "MONTH", " and ", "or",    "not ",     "(", ")",         "=",  "<>", "'",
      "'x'",      "''",    "#",        "like",  "is",    " null", "#1/2/25#", "3", "-",         ".5", "%",  "[!a]",
      "[",        "]",     "\xC3\x89", "\xFF",  " ",     "'[z'",  "12e",      ",", "order by ", "\n"};
  std::mt19937 dice(20250309);
  int answered = 0;
  for (int i = 0; i < 10000; ++i) {
    std::string condition = i % 2 ? "[OWNER] like '%x%' or " : "[FLAG] = 1 ";
    for (std::size_t count = dice() % 8; count > 0; --count)
      condition += pieces[dice() % std::size(pieces)];
    const std::string outcome = where(condition);
    EXPECT_EQ(outcome.find("refused"), std::string::npos) << condition << "\n" << outcome;
    answered += outcome.starts_with("trouble: ") ? 0 : 1;
  }
  EXPECT_GT(answered, 500);
}

}  // namespace
}  // namespace zelvo::dialect
