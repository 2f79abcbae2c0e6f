#include "documents/reports/report_frm.h"

#include <algorithm>

#include "base/date_names.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

const std::vector<std::string> kOwnerOutputs = {"Mailing labels", "Form letters"};
constexpr std::string_view kAll = "(all)";
constexpr int kCentury = 2000;
constexpr int kFirstYear = 1900, kLastYear = 2299;

int placeOf(const Combo& combo) {
  return static_cast<int>(std::find(combo.items.begin(), combo.items.end(), combo.text) - combo.items.begin());
}

void offer(Combo& combo, std::vector<std::string> entries) {
  combo.items = std::move(entries);
  if (std::ranges::find(combo.items, combo.text) == combo.items.end())
    combo.text = combo.items.empty() ? "" : combo.items.front();
}

std::string chosenOf(const Combo& combo) {
  return combo.text == kAll ? "" : std::string(trim(combo.text));
}

}  // namespace

ReportFrm::ReportFrm(Desk& theDesk, std::string_view report) : ReportFrm(theDesk, report, {{report}}, report, {}, {}) {}

ReportFrm::ReportFrm(Desk& theDesk, std::string_view itsCaption, std::vector<ReportOffer> offers,
                     std::string_view chosen, std::vector<std::string> types, std::vector<std::string> uses)
    : Screen(theDesk, "ReportFrm", itsCaption), offers_(std::move(offers)) {
  const Date today = desk.clock.now().date;
  for (const ReportOffer& one : offers_)
    Combo3.items.emplace_back(one.name);
  Combo3.text = chosen;
  Combo3.visible = offers_.size() > 1;
  for (auto& [combo, entries] : {std::pair(&Combo4, &types), std::pair(&Combo5, &uses)}) {
    entries->insert(entries->begin(), std::string(kAll));
    offer(*combo, *entries);
  }
  offerMonths(false);
  Combo1.text = monthNames[static_cast<std::size_t>(today.month) - 1];
  Text1.text = std::to_string(today.year);
  Text1.maxLength = 4;
  DTPicker1.date = addDays({today.year, 1, 1}, -1);  // the bounds themselves are not meant
  DTPicker2.date = today;
  for (Combo* combo : {&Combo1, &Combo2, &Combo3})
    combo->freeText = false;
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  showQuestions();
  onEdit(Combo3, [this] { showQuestions(); });
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
}

unsigned ReportFrm::asks() const {
  const auto found = std::ranges::find(offers_, Combo3.text, &ReportOffer::name);
  return found == offers_.end() ? 0 : found->asks;
}

// Only what the chosen listing needs is asked.
void ReportFrm::showQuestions() {
  const auto asked = [this](unsigned what) { return (asks() & what) != 0; };
  Combo1.visible = Text1.visible = asked(kAskMonth | kAskAnyMonth);
  DTPicker1.visible = DTPicker2.visible = asked(kAskDates);
  Combo4.visible = asked(kAskType);
  Combo5.visible = asked(kAskUse);
  offerMonths(asked(kAskAnyMonth));
  offerOutputs(asked(kAskToOwners));
}

void ReportFrm::offerMonths(bool wholeYear) {
  std::vector<std::string> months(monthNames.begin(), monthNames.end());
  if (wholeYear)
    months.insert(months.begin(), std::string(kAll));
  offer(Combo1, std::move(months));
}

void ReportFrm::offerOutputs(bool toOwners) {
  std::vector<std::string> outputs = reportOutputs();
  if (toOwners)
    outputs.insert(outputs.end(), kOwnerOutputs.begin(), kOwnerOutputs.end());
  offer(Combo2, std::move(outputs));
}

ReportOutput ReportFrm::output() const {
  return static_cast<ReportOutput>(placeOf(Combo2));
}

int ReportFrm::month() const {
  const auto found = std::ranges::find(monthNames, std::string_view(Combo1.text));
  return found == monthNames.end() ? 0 : static_cast<int>(found - monthNames.begin()) + 1;
}

int ReportFrm::year() const {
  const int typed = CInt(Val(Text1.text));
  return typed >= 0 && typed < 100 ? kCentury + typed : typed;
}

std::string ReportFrm::type() const {
  return chosenOf(Combo4);
}

std::string ReportFrm::use() const {
  return chosenOf(Combo5);
}

bool ReportFrm::refuse(Control& control, std::string_view text) {
  if (!text.empty())
    desk.messages.tell(" " + caption, text, Icon::Exclamation);
  setFocus(control, true);
  return false;
}

bool ReportFrm::validate() {
  for (Combo* combo : {&Combo3, &Combo1, &Combo2})
    if (combo->visible && combo->text.empty())
      return refuse(*combo, "");
  if (Text1.visible && (!isNumber(trim(Text1.text)) || year() < kFirstYear || year() > kLastYear))
    return refuse(Text1, "\"" + Text1.text + "\" is no year.\nPlease write it with four digits.");
  if (DTPicker1.visible)
    for (DatePicker* day : {&DTPicker1, &DTPicker2})
      if (!day->date)
        return refuse(*day, "Please give both dates.");
  return true;
}

void ReportFrm::cmdOK_Click() {
  accepted_ = validate();
  if (accepted_)
    closeMe();
}

}  // namespace zelvo
