#pragma once

#include "documents/reports/report_printer.h"
#include "records/permits/permit_reports.h"

namespace zelvo {

/// Lists the insurance of the permit, one after the other with all that is known of it; says so when it has none.
Result<void> listInsurance(const PermitListing& listing, ReportOutput output);

}  // namespace zelvo
