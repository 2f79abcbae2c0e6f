#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "form/screen.h"
#include "form/session.h"

namespace zelvo {

/// What is still open on a parcel: an inspection that failed and did not pass since, under the same permit and type, or
/// a violation that is not closed.
struct ParcelMatter {
  enum class Kind { FailedInspection, Violation };
  Kind kind;
  std::string key;   ///< its number
  std::string date;  ///< mm/dd/yy
  std::string what;
};

/// Those of the parcel that stands in the boxes of a screen, failed inspections first, the latest first, voided records
/// left out; at most 50 of each. None while section, block or lot is blank. `but` is the number of the inspection at
/// hand. A database that cannot be reached has none: they are there to be seen, not to be in the way.
std::vector<ParcelMatter> openMatters(const Session& session, const Screen& screen, std::string_view but);

}  // namespace zelvo
