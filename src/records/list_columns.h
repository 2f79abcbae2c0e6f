#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/catalogue.h"
#include "form/session.h"
#include "records/record_kind.h"

namespace zelvo {

/// A column that the list page of a record screen shows.
struct ShownColumn {
  std::string column;   ///< of the table
  std::string caption;  ///< " Permit ", with its blanks
  int width = 12;       ///< in average characters
};

/// The columns as the office hands them out.
std::vector<ShownColumn> usualColumns(const RecordKind& kind);
/// The columns that were chosen on this computer last, else the usual ones. They are kept in "\lists\APermits.txt" of
/// the program folder: a line a column, its name, width and caption separated by commas. A line that names no column of
/// the table is passed over.
std::vector<ShownColumn> rememberedColumns(const Session& session, const RecordKind& kind, const Table& table);
Result<void> rememberColumns(const Session& session, const RecordKind& kind, const std::vector<ShownColumn>& columns);

}  // namespace zelvo
