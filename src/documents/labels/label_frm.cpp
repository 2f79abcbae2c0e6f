#include "documents/labels/label_frm.h"

#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "documents/labels/label_places.h"

namespace zelvo {

namespace {

constexpr double kSmallestMargin = 0.4;
constexpr double kLargestMargin = 3;

// Margins are set with a ruler: beyond a thousandth of an inch there is only the noise of the sums.
std::string inches(double length) {
  return numberText(std::round(length * 1000) / 1000);
}

void keep(TextBox& box, std::string_view characters) {
  std::erase_if(box.text, [&](char c) { return characters.find(c) == std::string_view::npos; });
}

// The margins that a layout brings stay as they are; only what the user leaves in a box is held to the limits.
void checkMargin(TextBox& box) {
  const double typed = Val(box.text);
  if (typed < kSmallestMargin)
    box.text = "0.4";
  else if (typed > kLargestMargin)
    box.text = "3";
}

}  // namespace

LabelFrm::LabelFrm(Desk& theDesk, LabelSettings& settings)
    : Screen(theDesk, "LabelFrm", "Mailing Labels"), settings_(settings), layout_(settings.layout) {
  fillCatalogue();
  lblBeside.warning = true;
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  showLayout();
  showStart(settings_.start);
  onEdit(Combo1, [this] { chooseLayout(); });
  for (TextBox* box : margins())
    watchMargin(*box);
  for (TextBox* box : {&Text4, &Text5})
    watchNumber(*box);
  onEdit(Image1, [this] { showStart(Image1.chosen); });
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
}

// Without a catalogue the one sheet that can be had is the built-in one.
void LabelFrm::fillCatalogue() {
  Combo1.freeText = false;
  Combo1.items = labelCatalogue(desk.session.programFolder);
  if (Combo1.items.empty())
    Combo1.items = {LabelLayout{}.description};
  const bool known = std::find(Combo1.items.begin(), Combo1.items.end(), settings_.name) != Combo1.items.end();
  Combo1.text = known ? settings_.name : settings_.layout.description;
}

void LabelFrm::chooseLayout() {
  const auto read = readLabelLayout(desk.session.programFolder, Combo1.text);
  if (!read)
    desk.messages.tell(" " + caption, read.error().message, Icon::Exclamation);
  layout_ = read ? *read : LabelLayout{};
  showLayout();
  takeStart();
}

void LabelFrm::showLayout() {
  lblLayout.caption = describe(layout_);
  Image1.picture = labelPicture(desk.session.programFolder, layout_);
  Text1.text = numberText(layout_.grid.top);
  Text2.text = numberText(layout_.grid.left);
  edited_.clear();
  showSheet();
}

void LabelFrm::showSheet() {
  layout_.grid.top = Val(Text1.text);
  layout_.grid.left = Val(Text2.text);
  Image1.grid = layout_.grid;
  Text3.text = inches(layout_.grid.paperHeight - layout_.grid.top - labelsDown());
  const int beside = layout_.grid.across * layout_.grid.down - LabelPlaces(layout_.grid).count();
  lblBeside.caption = beside > 0 ? std::to_string(beside) + " labels lie beside the paper and stay empty." : "";
}

// From the upper edge of the first label to the lower edge of the last.
double LabelFrm::labelsDown() const {
  const SheetGrid& grid = layout_.grid;
  return grid.down * grid.height + (grid.down - 1) * grid.rowGap;
}

void LabelFrm::watchMargin(TextBox& box) {
  onEdit(box, [this, &box] {
    keep(box, "0123456789.");
    edited_.insert(&box);
  });
  onLeave(box, [this, &box] { leaveMargin(box); });
}

// The labels are as high as they are: a bottom margin is another way to say where they begin.
void LabelFrm::leaveMargin(TextBox& box) {
  if (edited_.erase(&box) == 0)
    return;
  checkMargin(box);
  if (&box == &Text3)
    Text1.text = inches(std::max(0.0, layout_.grid.paperHeight - Val(box.text) - labelsDown()));
  showSheet();
}

void LabelFrm::watchNumber(TextBox& box) {
  onEdit(box, [&box] { keep(box, "0123456789"); });
  onLeave(box, [this] { takeStart(); });
}

// A row or column that the sheet does not have becomes the nearest one that it has.
void LabelFrm::takeStart() {
  const auto nearest = [](const TextBox& box, int count) {
    return static_cast<int>(std::clamp(Val(box.text), 1.0, double(count)));
  };
  showStart({nearest(Text4, layout_.grid.down), nearest(Text5, layout_.grid.across)});
}

void LabelFrm::showStart(SheetPlace start) {
  Text4.text = std::to_string(start.row);
  Text5.text = std::to_string(start.column);
  Image1.chosen = start;
}

// The default button is pressed by Enter, from a box that was not left.
void LabelFrm::cmdOK_Click() {
  for (TextBox* box : margins())
    leaveMargin(*box);
  takeStart();
  settings_.name = Combo1.text;
  settings_.layout = layout_;
  settings_.start = Image1.chosen;
  accepted_ = true;
  closeMe();
}

}  // namespace zelvo
