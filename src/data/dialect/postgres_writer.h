#pragma once

#include <string>

#include "data/dialect/statement_writer.h"

namespace zelvo::dialect::postgres {

// Queries of the office written for PostgreSQL. How columns lie there: Text and Memo as text in a case-blind collation,
// Number as double precision, Integer and Counter as bigint, Date as timestamp. The functions that the statements call
// lie in the schema beside the tables. Each "$1" of a statement says the type of what is bound to it as text.

/// The column that names the rows of a table: its counter, or one that stands beside the office's columns.
std::string rowIdOf(const Table& table);

/// As writeKeyset and writeKeysetOf for SQLite; both are written as an expression of all ids in their order, as one
/// array: select array(...).
Result<BoundStatement> writeKeyset(const Select& query, const Table& table);
Result<BoundStatement> writeKeysetOf(const Condition& condition, const Table& table);
/// select exists(...)
Result<BoundStatement> writeExists(const Condition& condition, const Table& table);

}  // namespace zelvo::dialect::postgres
