#include "data/dialect/statement_writer.h"

#include "base/number.h"
#include "base/text.h"
#include "data/dialect/lexer.h"

namespace zelvo::dialect {

namespace {

/// SQLite's own reader of statements holds about a hundred open parentheses and operators.
constexpr int deepestGroup = 25;
/// And a row of "and" longer than this has to be halved for it.
constexpr std::size_t longestRow = 100;

bool onEquality(Relation relation) {
  return relation == Relation::Equal || relation == Relation::NotEqual;
}

std::string_view symbolOf(Relation relation) {
  switch (relation) {
    case Relation::Equal:
      return "=";
    case Relation::NotEqual:
      return "<>";
    case Relation::Less:
      return "<";
    case Relation::Greater:
      return ">";
    case Relation::LessOrEqual:
      return "<=";
    case Relation::GreaterOrEqual:
      break;
  }
  return ">=";
}

std::string unlessNull(const std::string& name, const std::string& answer) {
  return "case when " + name + " is null then null else " + answer + " end";
}

}  // namespace

bool holdsText(const Column& column) {
  return column.type == ColumnType::Text || column.type == ColumnType::Memo;
}

std::string quotedName(std::string_view name) {
  return '"' + std::string(name) + '"';
}

// ---- whole statements

Result<BoundStatement> StatementWriter::keyset(const Select& query) {
  if (!alike(query.table.text, table_.name))
    refuse(query.table, "there is no table " + query.table.text + " in this database");
  selectRows();
  where(query);
  orderBy(query);
  return finished();
}

Result<BoundStatement> StatementWriter::unsorted(const Select& query, const Column& beside) {
  selectRows(", " + quotedName(beside.name));
  where(query);
  return finished();
}

void StatementWriter::where(const Select& query) {
  if (!query.where)
    return;
  add(" where ");
  write(*query.where, 0);
}

Result<BoundStatement> StatementWriter::keysetOf(const Test& test) {
  selectRows();
  add(" where ");
  write(test, 0);
  add(" order by " + rowId());
  return finished();
}

Result<BoundStatement> StatementWriter::exists(const Test& test) {
  add("select exists(select 1 from " + quotedName(table_.name) + " where ");
  write(test, 0);
  add(")");
  return finished();
}

Result<BoundStatement> StatementWriter::finished() {
  if (trouble_)
    return *trouble_;
  return std::move(statement_);
}

void StatementWriter::selectRows(std::string_view more) {
  add("select " + rowId() + std::string(more) + " from " + quotedName(table_.name));
}

void StatementWriter::orderBy(const Select& query) {
  add(" order by ");
  for (const OrderTerm& term : query.order)
    if (const Column* column = find(term.column))
      add(orderTerm(*column, query, term.descending) + ", ");
  add(rowId());
  if (!query.order.empty() && query.order.back().descending)
    add(" desc");
}

// ---- conditions

void StatementWriter::write(const Test& test, int depth) {
  if (const auto* compared = std::get_if<Comparison>(&test.is))
    return compare(*compared);
  if (const auto* isNull = std::get_if<NullTest>(&test.is))
    return writeNullTest(*isNull);
  if (const auto* group = std::get_if<Group>(&test.is))
    return writeGroup(*group, depth + 1);
  const auto& like = std::get<Like>(test.is);
  if (const Column* column = find(like.column))
    writeLike(*column, like.pattern);
}

void StatementWriter::writeGroup(const Group& group, int depth) {
  if (depth > deepestGroup) {
    if (!trouble_)
      trouble_ = troubleAt(query_, 0, "its conditions are nested too deeply; take it apart into several queries");
    return;
  }
  if (group.join == Join::Not) {
    add("not (");
    write(group.parts.front(), depth);
    return add(")");
  }
  writeRow(group, 0, group.parts.size(), depth);
}

void StatementWriter::writeRow(const Group& group, std::size_t from, std::size_t to, int depth) {
  const std::string_view word = group.join == Join::And ? " and " : " or ";
  add("(");
  if (to - from > longestRow) {
    const std::size_t middle = from + (to - from) / 2;
    writeRow(group, from, middle, depth);
    add(word);
    writeRow(group, middle, to, depth);
  } else {
    for (std::size_t i = from; i < to; ++i) {
      add(i == from ? std::string_view() : word);
      write(group.parts[i], depth);
    }
  }
  add(")");
}

void StatementWriter::writeNullTest(const NullTest& test) {
  if (const Column* column = find(test.column))
    add(quotedName(column->name) + " is null");
}

// ---- comparisons

void StatementWriter::compare(const Comparison& compared) {
  const Column* column = find(compared.column);
  if (!column)
    return;
  if (compared.value.isNull())
    add("null");
  else if (holdsText(*column))
    compareText(*column, compared);
  else if (column->type == ColumnType::Date)
    compareDate(*column, compared);
  else
    compareNumber(*column, compared);
}

void StatementWriter::compareText(const Column& column, const Comparison& compared) {
  const std::string name = quotedName(column.name);
  if (compared.value.isNumber())
    return byValue(name, "znum(" + name + ")", compared);
  if (compared.value.isDate())
    return byValue(name, "zdate(" + name + ")", compared);
  compareTexts(column, compared.relation, compared.value.text());
}

void StatementWriter::compareNumber(const Column& column, const Comparison& compared) {
  const std::string name = quotedName(column.name);
  if (compared.value.isDate())
    return refuse(compared.column, "the column " + std::string(column.name) + " holds numbers, not dates");
  if (compared.value.isText() && !isNumber(compared.value.text()))
    return equalsNothing(name, compared.relation);
  plainly(name, compared.relation, compared.value.number());
}

void StatementWriter::compareDate(const Column& column, const Comparison& compared) {
  const std::string name = quotedName(column.name);
  if (compared.value.isNumber())
    return refuse(compared.column, "the column " + std::string(column.name) + " holds dates; a date stands in #");
  if (const auto moment = compared.value.moment())
    plainly(name, compared.relation, *moment);
  else
    equalsNothing(name, compared.relation);
}

void StatementWriter::plainly(const std::string& left, Relation relation, Value value) {
  add(left + " " + std::string(symbolOf(relation)) + " ");
  bind(std::move(value));
}

/// A text against a number or a date: one that is none is unequal to every one, and neither less nor greater.
void StatementWriter::byValue(const std::string& name, const std::string& read, const Comparison& compared) {
  if (!onEquality(compared.relation))
    return plainly(read, compared.relation, compared.value);
  add("case when " + name + " is null then null else " + read);
  add(compared.relation == Relation::Equal ? " is not distinct from " : " is distinct from ");
  bind(compared.value);
  add(" end");
}

/// A number or a date against a text that is none.
void StatementWriter::equalsNothing(const std::string& name, Relation relation) {
  add(onEquality(relation) ? unlessNull(name, relation == Relation::Equal ? "false" : "true") : "null");
}

// ---- names and values

const Column* StatementWriter::find(const Name& name) {
  const Column* column = table_.find(name.text);
  if (!column)
    refuse(name, "the table " + std::string(table_.name) + " has no column " + name.text);
  return column;
}

void StatementWriter::refuse(const Name& name, std::string_view what) {
  if (!trouble_)
    trouble_ = troubleAt(query_, name.at, what);
}

void StatementWriter::bind(Value value) {
  statement_.parameters.push_back(std::move(value));
  add(mark(statement_.parameters.back(), statement_.parameters.size()));
}

}  // namespace zelvo::dialect
