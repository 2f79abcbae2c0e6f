#pragma once

#include <string>

#include "data/recordset.h"
#include "documents/letter.h"
#include "form/desk.h"

namespace zelvo {

/// Asks which listing of inspections or complaints is wanted, for when and for whom, and lists them where the user
/// wants them. Voided records are left out. An error says what stood in the way.
Result<void> listInspections(Desk& desk, LetterPrinter& letters);

/// A date as the listings show it, mm/dd/yy; the office's date for none is empty.
std::string reportDate(const Recordset& inspection, std::string_view column);
/// The parcel of the current record as it is written.
std::string parcelOf(const Recordset& record);

}  // namespace zelvo
