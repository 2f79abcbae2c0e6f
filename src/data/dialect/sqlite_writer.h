#pragma once

#include "data/dialect/statement_writer.h"

namespace zelvo::dialect {

// Queries of the office written for SQLite. How columns lie there: Text and Memo as TEXT COLLATE NOCASE, Number as
// REAL, Integer and Counter as INTEGER, Date as the TEXT that isoText gives and nothing else: it has one form for each
// moment, and the order of the texts is the order of the moments ("2025-03-09", midnight, comes before "2025-03-09
// 10:15:00"). The connection must have been given the functions of registerDialectFunctions. What is bound to the "?"
// of a statement: texts as TEXT, numbers as REAL, dates as the TEXT of isoText.
//
// Names are checked against the table: an unknown one is Trouble::BadInput with its place and the text of the query.

/// select rowid from "T" where ... order by ...: the rows of the query in its order; rows that the order leaves equal,
/// and all rows of a query without an order, come as they were added.
Result<BoundStatement> writeKeyset(const Select& query, const Table& table);
/// The one term of a query's order that no index serves, so that all its rows are to be sorted; null when the order is
/// another. Sorting them outside of the store takes a third of the time.
const OrderTerm* sortedBy(const Select& query, const Table& table);
/// select rowid, COL from "T" where ...: the rows of such a query in any order, with what they are sorted by. Texts
/// are ordered by their folded forms.
Result<BoundStatement> writeUnsorted(const Select& query, const Table& table);
/// select exists(...): one row holding 1 or 0.
Result<BoundStatement> writeExists(const Condition& condition, const Table& table);
/// select rowid from "T" where ... order by rowid: the rows that answer the condition, in rising rowids.
Result<BoundStatement> writeKeysetOf(const Condition& condition, const Table& table);

}  // namespace zelvo::dialect
