// What building permits add to the search by example.

#include "records/permits/a_permits.h"
#include "records/search_by_example.h"

namespace zelvo {

// A copy is a permit of today: it has no dates, fees or standing of its own yet.
void APermits::clearForCopy() {
  DTPicker1.date = desk.clock.now().date;
  for (int box : {kExpirationBox, kSecondDateBox, kFeeBox, kCertificateFeeBox})
    Text1(box).text.clear();
  Text2.text.clear();
  Check3.checked = false;
  labexpexpired.caption.clear();
}

void APermits::showSearchControls(bool searching) {
  DTPicker2.visible = searching;
  DTPicker2.date.reset();
  if (searching)
    DTPicker1.date = kNoDateGiven;
}

std::optional<std::string> APermits::ownSearchClauses() {
  std::string clauses = containsClause("MATL", Text4.text) + amountClause("RFEE", Text2.text);
  if (Check1.checked)
    clauses += "[MM2] = '1' AND ";
  if (Check2.checked)
    clauses += "[LINK02] like '%|%' AND ";
  clauses += containsClause("LINK02", Text5.text);
  if (Check3.checked)
    clauses += "[VIOLOPEN] = 'C' AND ";
  if (DTPicker1.date && *DTPicker1.date != kNoDateGiven)
    clauses +=
        DTPicker2.date ? dateRangeClause("VD3", *DTPicker1.date, *DTPicker2.date) : dateClause("VD3", *DTPicker1.date);
  for (const auto& [box, column] : {std::pair(kExpirationBox, "VD4"), std::pair(kSecondDateBox, "VD5")}) {
    if (!isReadableDate(box))
      return std::nullopt;
    if (const auto date = parseDate(boxText(*this, box)))
      clauses += dateClause(column, *date);
  }
  if (!ownDateIsReadable())
    return std::nullopt;
  return clauses;
}

}  // namespace zelvo
