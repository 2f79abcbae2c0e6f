#pragma once

#include <span>
#include <string_view>

#include "base/result.h"
#include "form/desk.h"

namespace zelvo {

/// What a record screen starts on when it is opened from the menu.
struct RecordOpening {
  std::string_view screen;  ///< "APermits"
  std::string_view called;  ///< "Building Permits"
  QuerySlot slot;
  std::string_view file;   ///< "db1.mdb"
  std::string_view query;  ///< its whole table, in its order
};
std::span<const RecordOpening> recordOpenings();

/// Puts the database (made from its blank when it is missing, or located by the user) and the query of the screen into
/// its slot of the table of current queries, and opens it. One that is open already comes to the front as it stands.
/// The error says why it cannot be opened.
Result<void> openRecordScreen(Desk& desk, std::string_view screen);

}  // namespace zelvo
