#include "enforcement/inspections/inspection_report_frm.h"

#include <algorithm>

#include "base/text.h"
#include "enforcement/inspections/inspection_codes.h"
#include "records/picks.h"

namespace zelvo {

namespace {

// In the order of InspectionReport.
const std::vector<std::string> kReports = {"Next inspection dates", "Report by type", "Monthly field inspections",
                                           "Complaints for a period", "Complaints of a month"};

std::size_t placeOf(const Combo& combo) {
  return static_cast<std::size_t>(std::ranges::find(combo.items, combo.text) - combo.items.begin());
}

std::string picked(const Combo& combo) {
  return isUnpicked(combo.text) ? "" : std::string(trim(combo.text));
}

}  // namespace

InspReportFrm::InspReportFrm(Desk& itsDesk) : Screen(itsDesk, "InspReportFrm", "Inspection reports") {
  const Date today = desk.clock.now().date;
  for (Combo* combo : {&Combo1, &Combo2, &Combo5})
    combo->freeText = false;
  Combo1.items = kReports;
  Combo1.text = kReports.front();
  Combo2.items = {"BLDG", "OTHER", "COMPLAINT"};
  Combo2.text = Combo2.items.front();
  Combo4.items = desk.session.inspectors;
  Combo5.items = reportOutputs();
  Combo5.text = Combo5.items.front();
  DTPicker1.date = Date{today.year, today.month, 1};
  DTPicker2.date = addDays(today, 30);
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onEdit(Combo1, [this] { chooseReport(); });
  onEdit(Combo2, [this] { chooseCategory(); });
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
  chooseReport();
  chooseCategory();
}

InspectionReport InspReportFrm::report() const {
  return static_cast<InspectionReport>(placeOf(Combo1));
}

void InspReportFrm::chooseReport() {
  using enum InspectionReport;
  const InspectionReport wanted = report();
  const bool monthly = wanted == Monthly || wanted == MonthlyComplaints;
  DTPicker1.enabled = wanted != ByType;
  DTPicker2.enabled = wanted != ByType && !monthly;
  Combo2.enabled = Combo3.enabled = wanted == ByType;
  Combo4.enabled = wanted == Complaints || wanted == MonthlyComplaints;
  lblHint.caption = monthly ? "Of the month of the first date." : wanted == ByType ? "" : "The days between the dates.";
}

void InspReportFrm::chooseCategory() {
  Combo3.items = inspectionTypes(desk.session, Combo2.text);
  Combo3.text = kSelect;
}

InspectionReportWish InspReportFrm::wish() const {
  return {.report = report(),
          .from = DTPicker1.date.value_or(Date{}),
          .to = DTPicker2.date.value_or(Date{}),
          .category = Combo2.text.substr(0, 1),
          .type = picked(Combo3),
          .investigator = picked(Combo4),
          .output = static_cast<ReportOutput>(placeOf(Combo5))};
}

void InspReportFrm::cmdOK_Click() {
  for (Combo* combo : {&Combo1, &Combo2, &Combo5})
    if (combo->text.empty())
      return setFocus(*combo);
  for (DatePicker* date : {&DTPicker1, &DTPicker2})
    if (date->enabled && !date->date) {
      desk.messages.tell(" " + caption, "Please give the date of the listing.", Icon::Exclamation);
      return setFocus(*date);
    }
  accepted_ = true;
  closeMe();
}

}  // namespace zelvo
