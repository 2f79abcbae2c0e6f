// What inspections add to the search by example: their dates, and the search for a permit whose inspections are shown.

#include "base/text.h"
#include "data/query_text.h"
#include "enforcement/inspections/b_inspections.h"
#include "enforcement/inspections/permit_rows.h"
#include "records/search_by_example.h"

namespace zelvo {

using namespace inspection_box;

void BInspections::showSearchControls(bool searching) {
  Option1.visible = Option2.visible = searching;
  if (!searching)
    return;
  Option1.chosen = true;
  Option2.chosen = false;
  for (DatePicker* date : {&DTPicker1, &DTPicker2, &DTPicker3})
    date->date.reset();
}

std::optional<std::string> BInspections::ownSearchClauses() {
  std::string clauses;
  for (const auto& [picker, column] :
       {std::pair(&DTPicker1, "DATEINSP"), {&DTPicker2, "INSPDATE"}, {&DTPicker3, "NRECNO"}})
    if (picker->date && *picker->date != kNoDateGiven)
      clauses += dateClause(column, *picker->date);
  return clauses;
}

bool BInspections::findElsewhere() {
  if (!Option2.chosen)
    return false;
  const std::string condition = permitCondition(*this);
  if (condition.empty()) {
    desk.messages.tell(" " + caption, "Please fill in the permit, the owner, the location or the parcel.");
    return true;
  }
  auto found = permitsWith(desk, condition);
  if (!found) {
    desk.messages.tell(" " + caption, found.error().message, Icon::Exclamation);
    return true;
  }
  const std::shared_ptr<Recordset> permits = std::move(*found);
  if (permits->RecordCount() == 0) {
    desk.messages.tell(" Record not Found",
                       "Unable to locate a matching record.\nPlease check info for accuracy and try again.",
                       Icon::Critical);
  } else if (permits->RecordCount() == 1) {
    locatePermit(permits->text("PERMIT"));
  } else {
    PermitChoice which(desk, permits);
    desk.screens.showModal(which);
    if (!which.chosen().empty())
      locatePermit(which.chosen());
  }
  return true;
}

void BInspections::locatePermit(const std::string& number) {
  showRecords(columnIs("PERMIT", number));
  browse();
}

}  // namespace zelvo
