#pragma once

#include "data/mdb.h"
#include "documents/letter.h"
#include "form/desk.h"

namespace zelvo {

/// The entry of the print menu under which the permits of a month are listed.
inline constexpr std::string_view kMonthlyPermits = "Monthly permits";

/// Asks for a month and lists the permits that were filed in it, where the user wants them. An error says what stood in
/// the way.
Result<void> listMonthlyPermits(Desk& desk, mdb& parcels, LetterPrinter& letters);

}  // namespace zelvo
