#include "documents/reports/report_frm.h"

#include <algorithm>

#include "base/date_names.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr int kCentury = 2000;
constexpr int kFirstYear = 1900, kLastYear = 2299;

int placeOf(const Combo& combo) {
  return static_cast<int>(std::find(combo.items.begin(), combo.items.end(), combo.text) - combo.items.begin());
}

}  // namespace

ReportFrm::ReportFrm(Desk& theDesk, std::string_view report) : Screen(theDesk, "ReportFrm", report) {
  const Date today = desk.clock.now().date;
  Combo1.freeText = Combo2.freeText = false;
  Combo1.items.assign(monthNames.begin(), monthNames.end());
  Combo1.text = Combo1.items[static_cast<std::size_t>(today.month) - 1];
  Text1.text = std::to_string(today.year);
  Text1.maxLength = 4;
  Combo2.items = reportOutputs();
  Combo2.text = Combo2.items.front();
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
}

ReportOutput ReportFrm::output() const {
  return static_cast<ReportOutput>(placeOf(Combo2));
}

int ReportFrm::month() const {
  return placeOf(Combo1) + 1;
}

int ReportFrm::year() const {
  const int typed = CInt(Val(Text1.text));
  return typed >= 0 && typed < 100 ? kCentury + typed : typed;
}

void ReportFrm::cmdOK_Click() {
  if (Combo1.text.empty() || Combo2.text.empty())
    return setFocus(Combo1.text.empty() ? Combo1 : Combo2);
  if (!isNumber(trim(Text1.text)) || year() < kFirstYear || year() > kLastYear) {
    desk.messages.tell(" " + caption, "\"" + Text1.text + "\" is no year.\nPlease write it with four digits.",
                       Icon::Exclamation);
    return setFocus(Text1, true);
  }
  accepted_ = true;
  closeMe();
}

}  // namespace zelvo
