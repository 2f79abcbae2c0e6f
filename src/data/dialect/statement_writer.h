#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "data/catalogue.h"
#include "data/dialect/syntax.h"

namespace zelvo::dialect {

/// A statement and what is bound to its marks, in their order.
struct BoundStatement {
  std::string sql;
  std::vector<Value> parameters;
};

bool holdsText(const Column& column);
/// A name as statements write it.
std::string quotedName(std::string_view name);

/// Writes what the office's queries say as statements of an engine. All engines understand most of it alike; a writer
/// of one states how it differs. Names are checked against the table: an unknown one is Trouble::BadInput with its
/// place and the text of the query. The engine knows these functions:
///   znum(text)    the number that the whole text is; null when it is none
///   zdate(text)   the moment that the text is, as dates are stored; null when it is none
///   zshown(date)  a stored date as the screens show it
class StatementWriter {
 public:
  /// Both must outlive the writer, which writes one statement.
  StatementWriter(std::string_view query, const Table& table) : query_(query), table_(table) {}
  virtual ~StatementWriter() = default;

  Result<BoundStatement> keyset(const Select& query);
  /// The rows of a query without its order, each with what stands in a column.
  Result<BoundStatement> unsorted(const Select& query, const Column& beside);
  Result<BoundStatement> keysetOf(const Test& test);
  Result<BoundStatement> exists(const Test& test);

 protected:
  /// The name of the column that names rows.
  virtual std::string rowId() const = 0;
  /// The mark at which a value is bound, the parameters counted from 1.
  virtual std::string mark(const Value& value, std::size_t parameter) const = 0;
  virtual std::string orderTerm(const Column& column, const Select& query, bool descending) const = 0;
  virtual void writeLike(const Column& column, const std::string& pattern) = 0;
  virtual void compareTexts(const Column& column, Relation relation, const std::string& text) = 0;

  const Table& table() const { return table_; }
  void add(std::string_view text) { statement_.sql += text; }
  /// Writes the mark of the value.
  void bind(Value value);
  void plainly(const std::string& left, Relation relation, Value value);

 private:
  Result<BoundStatement> finished();
  void selectRows(std::string_view more = {});
  void where(const Select& query);
  void orderBy(const Select& query);
  void write(const Test& test, int depth);
  void writeGroup(const Group& group, int depth);
  void writeRow(const Group& group, std::size_t from, std::size_t to, int depth);
  void writeNullTest(const NullTest& test);
  void compare(const Comparison& compared);
  void compareText(const Column& column, const Comparison& compared);
  void compareNumber(const Column& column, const Comparison& compared);
  void compareDate(const Column& column, const Comparison& compared);
  void byValue(const std::string& name, const std::string& read, const Comparison& compared);
  void equalsNothing(const std::string& name, Relation relation);
  const Column* find(const Name& name);
  void refuse(const Name& name, std::string_view what);

  std::string_view query_;
  const Table& table_;
  BoundStatement statement_;
  std::optional<Error> trouble_;
};

}  // namespace zelvo::dialect
