#include "documents/print_frm.h"

#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "documents/print_types.h"

namespace zelvo {

namespace {

constexpr double kSmallestMargin = 0.5;
constexpr double kLargestMargin = 3;
constexpr double kSmallestSize = 6;
constexpr double kLargestSize = 24;

double margin(const TextBox& box) {
  return std::clamp(Val(box.text), kSmallestMargin, kLargestMargin);
}

}  // namespace

PrintFrm::PrintFrm(Desk& theDesk, std::string_view title, std::vector<std::string> printoutTypes, PrintFrom from)
    : Screen(theDesk, "PrintFrm", title) {
  Combo1.items = std::move(printoutTypes);
  Combo1.freeText = false;
  Combo2.items = {"8", "9", "10", "11", "12", "14"};
  Check1.tip = "The merged document is opened in the editor, and printed from there.";
  Check4.visible = from == PrintFrom::Record;
  Check4.tip = "What is printed is kept among the documents of the record.";
  cmdPrint.isDefault = true;
  cmdCancel.isCancel = true;
  show(desk.session.print);
  for (TextBox* box : {&Text1, &Text2, &Text3, &Text4})
    watchMargin(*box);
  onEdit(Combo1, [this] { chooseType(); });
  onClick(cmdHeader, [this] { cmdHeader_Click(); });
  onClick(cmdPreview, [this] { accept(true); });
  onClick(cmdPrint, [this] { accept(false); });
  onClick(cmdCancel, [this] { closeMe(); });
}

void PrintFrm::show(const PrintOptions& options) {
  if (std::find(Combo1.items.begin(), Combo1.items.end(), options.type) != Combo1.items.end())
    Combo1.text = options.type;
  Check1.checked = options.viewFirst;
  Check2.checked = options.landscape;
  Check3.checked = options.choosePrinter;
  Check4.checked = Check4.visible && options.keepCopy;
  showPage(options);
}

void PrintFrm::showPage(const PrintOptions& options) {
  Text1.text = numberText(options.left);
  Text2.text = numberText(options.top);
  Text3.text = numberText(options.right);
  Text4.text = numberText(options.bottom);
  Combo2.text = std::to_string(options.fontSize);
}

void PrintFrm::chooseType() {
  if (!hasOwnMargins(Combo1.text))
    return;
  const auto own = optionsOfType(desk.session.programFolder, Combo1.text, desk.session.print);
  if (!own)
    return;
  showPage(*own);
  for (TextBox* box : {&Text1, &Text2, &Text3, &Text4})
    checkMargins(*box);
  marginsTouched_ = true;
}

void PrintFrm::watchMargin(TextBox& box) {
  onEdit(box, [this] { marginsTouched_ = true; });
  onLeave(box, [this, &box] { checkMargins(box); });
}

void PrintFrm::checkMargins(TextBox& box) {
  const double inches = Val(box.text);
  if (inches < kSmallestMargin)
    box.text = "0.5";
  else if (inches > kLargestMargin)
    box.text = "3";
}

PrintOptions PrintFrm::entered() const {
  PrintOptions options = desk.session.print;
  options.type = Combo1.text;
  options.viewFirst = Check1.checked;
  options.landscape = Check2.checked;
  options.choosePrinter = Check3.checked;
  if (Check4.visible)
    options.keepCopy = Check4.checked;
  options.left = margin(Text1);
  options.top = margin(Text2);
  options.right = margin(Text3);
  options.bottom = margin(Text4);
  options.marginsSet = options.marginsSet || marginsTouched_;
  options.fontSize = static_cast<int>(std::clamp(Val(Combo2.text), kSmallestSize, kLargestSize));
  return options;
}

void PrintFrm::cmdHeader_Click() {
  if (!desk.screens.showModal("HeaderFrm"))
    desk.messages.tell(" " + caption, "The report header cannot be set here.", Icon::Exclamation);
}

void PrintFrm::accept(bool preview) {
  if (trim(Combo1.text).empty()) {
    desk.messages.tell("Zelvo", "You must select a report type from the pop down list prior to proceeding.",
                       Icon::Exclamation);
    return setFocus(Combo1);
  }
  PrintOptions options = entered();
  options.preview = preview;
  if (options.choosePrinter && !desk.printing.choosePrinter(options))
    return;
  desk.session.print = options;
  if (hasOwnMargins(options.type))
    if (const auto kept = keepOptionsOfType(desk.session.programFolder, options); !kept)
      desk.messages.tell(" " + caption, kept.error().message, Icon::Exclamation);
  accepted_ = true;
  closeMe();
}

}  // namespace zelvo
