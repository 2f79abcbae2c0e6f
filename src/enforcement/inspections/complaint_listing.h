#pragma once

#include <string_view>

#include "data/recordset.h"
#include "documents/letter.h"
#include "form/desk.h"

namespace zelvo {

/// Prints complaints in full, one block each, under the office's letterhead and the title. Voided ones are left out;
/// where none is left the user is told.
Result<void> printComplaints(Desk& desk, LetterPrinter& letters, Recordset& complaints, std::string_view title);

}  // namespace zelvo
