#include "records/record_query.h"

#include "base/text.h"
#include "data/query_text.h"

namespace zelvo {

RecordQuery::RecordQuery(Session& session, const RecordKind& kind)
    : slot_(session.queryFor(kind.slot)), table_(*findTable(kind.table)) {}

namespace {

std::string queryOf(const Table& table, std::string_view condition, std::string_view order) {
  std::string query = "Select * from " + std::string(table.name);
  if (!condition.empty())
    query += " where " + std::string(condition);
  return query + " order by " + std::string(order);
}

std::string browseOrder(const Table& table) {
  return "[" + std::string(table.browseOrder) + "]";
}

}  // namespace

void RecordQuery::complete() {
  if (slot_.query.empty())
    showWholeTable();
}

bool RecordQuery::showsWholeTable() const {
  return queryParts(slot_.query).condition.empty();
}

std::string RecordQuery::wholeTable() const {
  return queryOf(table_, "", browseOrder(table_));
}

void RecordQuery::showWholeTable() {
  slot_.query = wholeTable();
}

void RecordQuery::showMatching(std::string_view condition) {
  condition = trim(condition);
  if (condition.ends_with("AND"))
    condition = trim(condition.substr(0, condition.size() - 3));
  slot_.query = queryOf(table_, condition, browseOrder(table_));
}

void RecordQuery::arrange(std::string_view filter, std::string_view column, bool descending) {
  if (slot_.query != arranged_)
    askedFor_ = slot_.query;
  const QueryParts parts = queryParts(askedFor_);
  std::string condition = parts.condition;
  if (!filter.empty())
    condition = condition.empty() ? std::string(filter) : "(" + condition + ") and (" + std::string(filter) + ")";
  std::string order = parts.order.empty() ? browseOrder(table_) : parts.order;
  if (!column.empty())
    order = "[" + std::string(column) + "]" + (descending ? " desc" : "");
  slot_.query = arranged_ = filter.empty() && column.empty() ? askedFor_ : queryOf(table_, condition, order);
}

}  // namespace zelvo
