#pragma once

#include <optional>

#include "documents/reports/report_printer.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// Asks for the month that a listing is about and where it goes. Begins with the present month and the printer.
class ReportFrm : public Screen {
 public:
  ReportFrm(Desk& desk, std::string_view report);

  bool accepted() const { return accepted_; }
  ReportOutput output() const;
  /// What the user confirmed: 1 to 12, and the year.
  int month() const;
  int year() const;

  Combo Combo1{*this, "Combo1"};
  TextBox Text1{*this, "Text1"};
  Combo Combo2{*this, "Combo2"};
  Button cmdOK{*this, "cmdOK", "&OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void cmdOK_Click();

  bool accepted_ = false;
};

}  // namespace zelvo
