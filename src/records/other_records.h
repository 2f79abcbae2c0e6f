#pragma once

#include <memory>
#include <string_view>

#include "data/recordset.h"
#include "form/desk.h"

namespace zelvo {

/// A screen of other records, as a record screen asks for it.
struct OtherRecords {
  std::string_view screen;  ///< "BInspections"
  std::string_view called;  ///< "Inspections"
  QuerySlot slot;
  std::string_view file;  ///< "db2.mdb"
};

/// Opens a screen of other records on what a query selects. One that is open already is closed first, so that it asks
/// about what is typed there; if it stays open it comes to the front as it stands. Tells the user when the program has
/// no such screen.
void showOtherRecords(Desk& desk, const OtherRecords& records, std::string_view query);

/// Opens such a screen at the record of a key, or asks the open one to go there. Tells the user when the program has no
/// such screen.
void hopToRecord(Desk& desk, const OtherRecords& records, std::string_view key);

/// A database of the office by its file, which is made or located when it is missing.
Result<std::shared_ptr<Connection>> otherDatabase(Desk& desk, std::string_view file);
/// The rows that a query selects in it.
Result<std::unique_ptr<Recordset>> otherRows(Desk& desk, std::string_view file, std::string_view query);

}  // namespace zelvo
