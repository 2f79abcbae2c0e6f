#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/mdb.h"
#include "documents/labels/label_printer.h"
#include "documents/letter.h"
#include "documents/reports/report_frm.h"
#include "form/desk.h"

namespace zelvo {

/// The listings that the print menu of permits offers, by name, and what each asks.
std::vector<ReportOffer> permitReports();

/// What the listings work with.
struct PermitListing {
  Desk& desk;
  mdb& parcels;
  LetterPrinter& letters;
  LabelPrinter& labels;
  std::string permit;  ///< the number of the permit on the screen
};

/// Asks what a listing is about, or which other one is wanted, and brings it where the user wants it; types and uses
/// are those of the pick lists. An error says what stood in the way.
Result<void> listPermits(const PermitListing& listing, std::string_view report, const std::vector<std::string>& types,
                         const std::vector<std::string>& uses);

}  // namespace zelvo
