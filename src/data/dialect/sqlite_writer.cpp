#include "data/dialect/sqlite_writer.h"

#include <algorithm>

#include "base/text.h"

namespace zelvo::dialect {

namespace {

/// Whether an index begins with the column.
bool leadsIndex(const Table& table, std::string_view column) {
  const auto begins = [column](std::string_view index) {
    return alike(trim(index.substr(0, index.find(','))), column);
  };
  return begins(table.key) || std::any_of(table.indexes.begin(), table.indexes.end(), begins);
}

bool holdsLike(const Test& test) {
  const auto* group = std::get_if<Group>(&test.is);
  return group ? std::any_of(group->parts.begin(), group->parts.end(), holdsLike)
               : std::holds_alternative<Like>(test.is);
}

/// Whether an index narrows the rows down before the rest of the test is looked at.
bool servedByIndex(const Test& test, const Table& table) {
  const auto served = [&table](const Test& part) { return servedByIndex(part, table); };
  if (const auto* group = std::get_if<Group>(&test.is)) {
    if (group->join == Join::And)
      return std::any_of(group->parts.begin(), group->parts.end(), served);
    return group->join == Join::Or && std::all_of(group->parts.begin(), group->parts.end(), served);
  }
  const auto* compared = std::get_if<Comparison>(&test.is);
  const bool plain = compared && (!compared->value.isText() || isAscii(compared->value.text()));
  return plain && compared->relation != Relation::NotEqual && leadsIndex(table, compared->column.text);
}

/// A like reads every row anyway, and reading them in the order of an index, each at another place of the file, takes
/// longer than to sort those that are found: then the index is kept out of it.
bool orderedByIndex(const Column& column, const Select& query, const Table& table) {
  const bool noIndex = query.where && holdsLike(*query.where) && !servedByIndex(*query.where, table);
  return !noIndex && leadsIndex(table, column.name);
}

class SqliteWriter : public StatementWriter {
 public:
  using StatementWriter::StatementWriter;

 protected:
  std::string rowId() const override { return "rowid"; }
  std::string mark(const Value&, std::size_t) const override { return "?"; }

  std::string orderTerm(const Column& column, const Select& query, bool descending) const override {
    return sorted(column, orderedByIndex(column, query, table())) + (descending ? " desc" : "");
  }

  void writeLike(const Column& column, const std::string& pattern) override {
    const std::string name = quotedName(column.name);
    add("zlike(");
    bind(pattern);
    add(", " + (column.type == ColumnType::Date ? "zshown(" + name + ")" : name) + ")");
  }

  void compareTexts(const Column& column, Relation relation, const std::string& text) override {
    const std::string name = quotedName(column.name);
    if (isAscii(text))
      plainly(name, relation, text);
    else
      plainly("zfold(" + name + ")", relation, fold(text));
  }

 private:
  // An index orders plain letters without regard to case, and the columns that have one hold numbers and keys. Where
  // the rows are sorted anyway, letters with accents are ordered so too.
  static std::string sorted(const Column& column, bool byIndex) {
    if (byIndex)
      return quotedName(column.name);
    return holdsText(column) ? "zfold(" + quotedName(column.name) + ")" : "+" + quotedName(column.name);
  }
};

}  // namespace

Result<BoundStatement> writeKeyset(const Select& query, const Table& table) {
  return SqliteWriter(query.text, table).keyset(query);
}

const OrderTerm* sortedBy(const Select& query, const Table& table) {
  if (query.order.size() != 1 || !alike(query.table.text, table.name))
    return nullptr;
  const Column* column = table.find(query.order.front().column.text);
  return column && !orderedByIndex(*column, query, table) ? &query.order.front() : nullptr;
}

Result<BoundStatement> writeUnsorted(const Select& query, const Table& table) {
  return SqliteWriter(query.text, table).unsorted(query, *table.find(query.order.front().column.text));
}

Result<BoundStatement> writeExists(const Condition& condition, const Table& table) {
  return SqliteWriter(condition.text, table).exists(condition.test);
}

Result<BoundStatement> writeKeysetOf(const Condition& condition, const Table& table) {
  return SqliteWriter(condition.text, table).keysetOf(condition.test);
}

}  // namespace zelvo::dialect
