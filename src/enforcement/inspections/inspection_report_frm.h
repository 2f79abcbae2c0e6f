#pragma once

#include "documents/reports/report_printer.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The listings of the inspections screen, in the order in which they are offered.
enum class InspectionReport { NextDates, ByType, Monthly, Complaints, MonthlyComplaints };

/// What a user wants listed.
struct InspectionReportWish {
  InspectionReport report = InspectionReport::NextDates;
  Date from, to;             ///< both days are outside; of a monthly listing `from` is a day of the month
  std::string category;      ///< "B", "O" or "C"
  std::string type;          ///< empty: every type
  std::string investigator;  ///< a part of the name; empty: everybody
  ReportOutput output = ReportOutput::Printer;
};

/// Asks for that. Shows only what the chosen listing takes.
class InspReportFrm : public Screen {
 public:
  explicit InspReportFrm(Desk& desk);

  bool accepted() const { return accepted_; }
  InspectionReportWish wish() const;

 private:
  InspectionReport report() const;
  void chooseReport();
  void chooseCategory();
  void cmdOK_Click();

  Combo Combo1{*this, "Combo1"};             ///< which
  DatePicker DTPicker1{*this, "DTPicker1"};  ///< from, or a day of the month
  DatePicker DTPicker2{*this, "DTPicker2"};  ///< to
  Combo Combo2{*this, "Combo2"};             ///< category
  Combo Combo3{*this, "Combo3"};             ///< type
  Combo Combo4{*this, "Combo4"};             ///< investigator
  Combo Combo5{*this, "Combo5"};             ///< where it goes
  Label lblHint{*this, "lblHint"};
  Button cmdOK{*this, "cmdOK", "&OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  bool accepted_ = false;
};

}  // namespace zelvo
