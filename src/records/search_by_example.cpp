#include "records/search_by_example.h"

#include <algorithm>
#include <set>

#include "base/date.h"
#include "base/number.h"
#include "base/text.h"
#include "data/parcel_key.h"
#include "data/query_text.h"
#include "records/field_copy.h"

namespace zelvo {

namespace {

constexpr int kFirstParcelBox = 2, kLastParcelBox = 6;

bool isParcelBox(int box) {
  return box >= kFirstParcelBox && box <= kLastParcelBox;
}

std::string dateLiteral(const Date& date) {
  return "#" + datePicture(date, "mm/dd/yyyy") + "#";
}

}  // namespace

std::string containsClause(std::string_view column, std::string_view text) {
  text = trim(text);
  return text.empty() ? "" : columnLike(column, "%" + std::string(text) + "%") + " AND ";
}

std::string amountClause(std::string_view column, std::string_view text) {
  text = trim(text);
  return text.empty() ? "" : "[" + std::string(column) + "] = " + numberText(Val(text)) + " AND ";
}

std::string wholeClause(std::string_view column, std::string_view text) {
  text = trim(text);
  if (text.empty() || isNumber(text))
    return amountClause(column, text);
  return columnIs(column, text) + " AND ";
}

std::string dateClause(std::string_view column, const Date& from) {
  return "[" + std::string(column) + "] = " + dateLiteral(from) + " AND ";
}

std::string dateRangeClause(std::string_view column, const Date& after, const Date& before) {
  const std::string name = "[" + std::string(column) + "]";
  return name + " > " + dateLiteral(after) + " AND " + name + " < " + dateLiteral(before) + " AND ";
}

std::string exampleClauses(const Screen& screen, const Table& table, std::span<const std::string_view> whole) {
  std::string clauses = SBLfilled(screen) ? SBL2SQL(screen) + " " : "";
  std::set<int> asked;  // two columns may share a box: what it shows is asked for once
  for (const Column& column : table.columns) {
    if (column.box < 1 || isParcelBox(column.box) || !asked.insert(column.box).second)
      continue;
    const std::string typed = boxText(screen, column.box);
    const bool asWhole = std::ranges::find(whole, column.name) != whole.end();
    clauses += column.type == ColumnType::Number ? amountClause(column.name, typed)
               : asWhole                         ? wholeClause(column.name, typed)
                                                 : containsClause(column.name, typed);
  }
  return clauses;
}

}  // namespace zelvo
