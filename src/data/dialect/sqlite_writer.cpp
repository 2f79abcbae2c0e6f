#include "data/dialect/sqlite_writer.h"

#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "data/dialect/lexer.h"

namespace zelvo::dialect {

namespace {

/// SQLite's own reader of statements holds about a hundred open parentheses and operators.
constexpr int deepestGroup = 25;
/// And a row of "and" longer than this has to be halved for it.
constexpr std::size_t longestRow = 100;

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool holdsText(const Column& column) {
  return column.type == ColumnType::Text || column.type == ColumnType::Memo;
}

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

std::string quoted(std::string_view name) {
  return '"' + std::string(name) + '"';
}

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

class Writer {
 public:
  Writer(std::string_view query, const Table& table) : query_(query), table_(table) {}

  Result<BoundStatement> keyset(const Select& query) {
    if (!alike(query.table.text, table_.name))
      refuse(query.table, "there is no table " + query.table.text + " in this database");
    add("select rowid from " + quoted(table_.name));
    where(query.where);
    orderBy(query);
    return finished();
  }

  Result<BoundStatement> keysetOf(const Test& test) {
    add("select rowid from " + quoted(table_.name) + " where ");
    write(test, 0);
    add(" order by rowid");
    return finished();
  }

  Result<BoundStatement> exists(const Test& test) {
    add("select exists(select 1 from " + quoted(table_.name) + " where ");
    write(test, 0);
    add(")");
    return finished();
  }

 private:
  Result<BoundStatement> finished() {
    if (trouble_)
      return *trouble_;
    return std::move(statement_);
  }

  void where(const std::optional<Test>& test) {
    if (!test)
      return;
    add(" where ");
    write(*test, 0);
  }

  // A like reads every row anyway, and reading them in the order of an index, each at another place of the file, takes
  // longer than to sort those that are found: then the index is kept out of it.
  void orderBy(const Select& query) {
    const bool noIndex = query.where && holdsLike(*query.where) && !servedByIndex(*query.where, table_);
    add(" order by ");
    for (const OrderTerm& term : query.order) {
      if (const Column* column = find(term.column))
        add(orderTerm(*column, !noIndex && leadsIndex(table_, column->name)) + (term.descending ? " desc, " : ", "));
    }
    add(!query.order.empty() && query.order.back().descending ? "rowid desc" : "rowid");
  }

  // An index orders plain letters without regard to case, and the columns that have one hold numbers and keys. Where
  // the rows are sorted anyway, letters with accents are ordered so too.
  static std::string orderTerm(const Column& column, bool byIndex) {
    if (byIndex)
      return quoted(column.name);
    return holdsText(column) ? "zfold(" + quoted(column.name) + ")" : "+" + quoted(column.name);
  }

  void write(const Test& test, int depth) {
    if (const auto* compared = std::get_if<Comparison>(&test.is))
      compare(*compared);
    else if (const auto* like = std::get_if<Like>(&test.is))
      writeLike(*like);
    else if (const auto* isNull = std::get_if<NullTest>(&test.is))
      writeNullTest(*isNull);
    else
      writeGroup(std::get<Group>(test.is), depth + 1);
  }

  void writeGroup(const Group& group, int depth) {
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

  void writeRow(const Group& group, std::size_t from, std::size_t to, int depth) {
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

  void writeNullTest(const NullTest& test) {
    if (const Column* column = find(test.column))
      add(quoted(column->name) + " is null");
  }

  void writeLike(const Like& like) {
    const Column* column = find(like.column);
    if (!column)
      return;
    const std::string name = quoted(column->name);
    add("zlike(?, " + (column->type == ColumnType::Date ? "zshown(" + name + ")" : name) + ")");
    bind(like.pattern);
  }

  void compare(const Comparison& compared) {
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

  void compareText(const Column& column, const Comparison& compared) {
    const std::string name = quoted(column.name);
    if (compared.value.isNumber())
      return byValue(name, "znum(" + name + ")", compared);
    if (compared.value.isDate())
      return byValue(name, "zdate(" + name + ")", compared);
    const std::string text = compared.value.text();
    if (isAscii(text))
      plainly(name, compared.relation, text);
    else
      plainly("zfold(" + name + ")", compared.relation, fold(text));
  }

  void compareNumber(const Column& column, const Comparison& compared) {
    const std::string name = quoted(column.name);
    if (compared.value.isDate())
      return refuse(compared.column, "the column " + std::string(column.name) + " holds numbers, not dates");
    if (compared.value.isText() && !isNumber(compared.value.text()))
      return equalsNothing(name, compared.relation);
    plainly(name, compared.relation, compared.value.number());
  }

  void compareDate(const Column& column, const Comparison& compared) {
    const std::string name = quoted(column.name);
    if (compared.value.isNumber())
      return refuse(compared.column, "the column " + std::string(column.name) + " holds dates; a date stands in #");
    if (const auto moment = compared.value.moment())
      plainly(name, compared.relation, *moment);
    else
      equalsNothing(name, compared.relation);
  }

  void plainly(const std::string& left, Relation relation, const Value& value) {
    add(left + " " + std::string(symbolOf(relation)) + " ?");
    bind(value);
  }

  /// A text against a number or a date: one that is none is unequal to every one, and neither less nor greater.
  void byValue(const std::string& name, const std::string& read, const Comparison& compared) {
    if (!onEquality(compared.relation))
      return plainly(read, compared.relation, compared.value);
    const std::string_view is = compared.relation == Relation::Equal ? " is ?" : " is not ?";
    add(unlessNull(name, read + std::string(is)));
    bind(compared.value);
  }

  /// A number or a date against a text that is none.
  void equalsNothing(const std::string& name, Relation relation) {
    add(onEquality(relation) ? unlessNull(name, relation == Relation::Equal ? "0" : "1") : "null");
  }

  static std::string unlessNull(const std::string& name, const std::string& answer) {
    return "case when " + name + " is null then null else " + answer + " end";
  }

  const Column* find(const Name& name) {
    const Column* column = table_.find(name.text);
    if (!column)
      refuse(name, "the table " + std::string(table_.name) + " has no column " + name.text);
    return column;
  }

  void refuse(const Name& name, std::string_view what) {
    if (!trouble_)
      trouble_ = troubleAt(query_, name.at, what);
  }

  void add(std::string_view text) { statement_.sql += text; }
  void bind(Value value) { statement_.parameters.push_back(std::move(value)); }

  std::string_view query_;
  const Table& table_;
  BoundStatement statement_;
  std::optional<Error> trouble_;
};

}  // namespace

Result<BoundStatement> writeKeyset(const Select& query, const Table& table) {
  return Writer(query.text, table).keyset(query);
}

Result<BoundStatement> writeExists(const Condition& condition, const Table& table) {
  return Writer(condition.text, table).exists(condition.test);
}

Result<BoundStatement> writeKeysetOf(const Condition& condition, const Table& table) {
  return Writer(condition.text, table).keysetOf(condition.test);
}

}  // namespace zelvo::dialect
