#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "data/value.h"

namespace zelvo::dialect {

// What a query of the office's dialect says, free of any engine: names as they were written, values as values.

/// A table or column as it was named, and where, so that an unknown one can be pointed out.
struct Name {
  std::string text;
  std::size_t at = 0;  ///< the byte of the query where it begins
};

enum class Relation { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual };

/// [COL] = 'x', [COL] < 3, [COL] > #01/31/2025#; a null value compares as unknown.
struct Comparison {
  Name column;
  Relation relation = Relation::Equal;
  Value value;
};

/// [COL] like '%x%'
struct Like {
  Name column;
  std::string pattern;
};

/// [COL] is null
struct NullTest {
  Name column;
};

struct Test;

enum class Join { And, Or, Not };

/// Tests joined by "and" or by "or" (two or more), or the one test that "not" turns round.
struct Group {
  Join join = Join::And;
  std::vector<Test> parts;
};

struct Test {
  std::variant<Comparison, Like, NullTest, Group> is;
};

/// A condition by itself, as Find and look-ups are given it.
struct Condition {
  std::string text;  ///< as it was written, for messages
  Test test;
};

struct OrderTerm {
  Name column;
  bool descending = false;
};

/// A whole query: Select * from TABLE [where CONDITION] [order by COLUMN[, COLUMN]]
struct Select {
  std::string text;  ///< as it was written, for messages
  Name table;
  std::optional<Test> where;
  std::vector<OrderTerm> order;
};

}  // namespace zelvo::dialect
