#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/reports/report_printer.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// What a listing needs to know before it is made.
enum ReportAsk : unsigned {
  kAskMonth = 1,      ///< a month of a year
  kAskAnyMonth = 2,   ///< a year, and a month of it or all of them
  kAskDates = 4,      ///< the days that it lies between, neither of them meant
  kAskType = 8,       ///< one of the types, or all
  kAskUse = 16,       ///< one of the uses, or all
  kAskToOwners = 32,  ///< whether labels or letters for the owners are wanted instead
};

/// A listing that the screen offers.
struct ReportOffer {
  std::string_view name;  ///< "Monthly permits"
  unsigned asks = kAskMonth;
};

/// Asks for a listing, for what it is about and for where it goes. Begins with the present month, with the days of this
/// year before today, and with the printer.
class ReportFrm : public Screen {
 public:
  /// One listing, of a month.
  ReportFrm(Desk& desk, std::string_view report);
  /// Several, with that one chosen; the types and uses are what the office's lists offer.
  ReportFrm(Desk& desk, std::string_view caption, std::vector<ReportOffer> offers, std::string_view chosen,
            std::vector<std::string> types, std::vector<std::string> uses);

  bool accepted() const { return accepted_; }
  const std::string& report() const { return Combo3.text; }
  ReportOutput output() const;
  /// What the user confirmed: 1 to 12, 0 for the whole year; and the year.
  int month() const;
  int year() const;
  Date from() const { return *DTPicker1.date; }
  Date to() const { return *DTPicker2.date; }
  /// Empty for all of them.
  std::string type() const;
  std::string use() const;

  Combo Combo3{*this, "Combo3"};
  Combo Combo1{*this, "Combo1"};
  TextBox Text1{*this, "Text1"};
  DatePicker DTPicker1{*this, "DTPicker1"};
  DatePicker DTPicker2{*this, "DTPicker2"};
  Combo Combo4{*this, "Combo4"};
  Combo Combo5{*this, "Combo5"};
  Combo Combo2{*this, "Combo2"};
  Button cmdOK{*this, "cmdOK", "&OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  unsigned asks() const;
  void showQuestions();
  void offerMonths(bool wholeYear);
  void offerOutputs(bool toOwners);
  bool refuse(Control& control, std::string_view text);
  bool validate();
  void cmdOK_Click();

  std::vector<ReportOffer> offers_;
  bool accepted_ = false;
};

}  // namespace zelvo
