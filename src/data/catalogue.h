#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo {

// The catalogue: every database, table and column of the office's records, in one place. Blank databases, field
// descriptor lists, the copying between screen and record, and the searches all come from it.

enum class ColumnType {
  Text,     ///< at most `length` characters
  Memo,     ///< text without a limit
  Number,   ///< floating point: money, counts that letters calculate with
  Integer,  ///< small whole numbers: flags
  Date,     ///< date and time of day, to the second
  Counter   ///< whole number that the store hands out by itself
};

/// A field descriptor: a column, the box of its screen that shows it, and its width.
struct Column {
  std::string_view name;
  ColumnType type = ColumnType::Text;
  int box = 0;     ///< index of the screen's input box (2 to 6 are the parcel key); 0: set by code; -2: a date box
  int length = 0;  ///< most characters; -1 without a limit; dates and numbers 8 (their size)
};

struct Table {
  int index = -1;                ///< number of the database; -1 for the parcel files
  std::string_view file;         ///< "db1.mdb"
  std::string_view name;         ///< "BLDGPERM"
  std::string_view logicalName;  ///< 12 characters, blanks kept: "Permits     "
  std::string_view key;          ///< the unique key; empty when rows only belong to another record
  std::string_view browseOrder;  ///< column of "order by" when the whole table is browsed
  std::span<const Column> columns;
  std::span<const std::string_view> indexes;  ///< further indexes: columns separated by commas

  const Column* find(std::string_view column) const;    ///< null when it has no such column; any case
  std::size_t position(std::string_view column) const;  ///< from 0; columns.size() when it has no such column
};

/// All fifteen tables, the numbered ones first, then SBL (its old layout) and RPS.
std::span<const Table> catalogue();
/// By table name, or by the name of its file; null when unknown. Any case.
const Table* findTable(std::string_view name);
const Table* findTableOfFile(std::string_view file);
/// The parcel table in its extended layout of 18 fields ("sbl18.mdb").
const Table& extendedParcelTable();

/// The field descriptor lists: 66 entries for BLDGPERM, 37 for FPARCEL, 91 for ZONEDAT; empty for every other table.
std::span<const Column> fieldDescriptors(std::string_view table);

/// "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + path + ";"
std::string connectionText(std::string_view path);

}  // namespace zelvo
