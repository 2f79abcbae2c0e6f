#pragma once

#include <string_view>

#include "data/recordset.h"
#include "records/permits/permit_reports.h"

namespace zelvo {

// What goes to the owners of many permits at once. Each says first how much will be printed, and asks.

/// A label for the owner of each permit; asks for the sheet first. The next labels begin where these end.
Result<void> printOwnerLabels(const PermitListing& listing, Recordset& permits, std::string_view title);
/// A letter to the owner of each permit, numbered from 1. The error says how far it came.
Result<void> printOwnerLetters(const PermitListing& listing, Recordset& permits, std::string_view letter,
                               std::string_view title);

}  // namespace zelvo
