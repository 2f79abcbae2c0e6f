#pragma once

#include <array>
#include <set>

#include "documents/labels/label_layout.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The label set-up: which sheet lies in the printer, how far in its labels begin, and which label of it is the first
/// free one. Starts from the shared settings and changes them on "&OK" alone.
class LabelFrm : public Screen {
 public:
  LabelFrm(Desk& desk, LabelSettings& settings);

  /// Whether the user confirmed: the settings hold what was chosen.
  bool accepted() const { return accepted_; }

  Combo Combo1{*this, "Combo1"};
  Label lblLayout{*this, "lblLayout"};
  TextBox Text1{*this, "Text1"};
  TextBox Text2{*this, "Text2"};
  TextBox Text3{*this, "Text3"};
  TextBox Text4{*this, "Text4"};
  TextBox Text5{*this, "Text5"};
  Label lblBeside{*this, "lblBeside"};
  SheetPicture Image1{*this, "Image1"};
  Button cmdOK{*this, "cmdOK", "&OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void fillCatalogue();
  void watchMargin(TextBox& box);
  void watchNumber(TextBox& box);
  void chooseLayout();
  void showLayout();
  void showStart(SheetPlace start);
  void showSheet();
  void leaveMargin(TextBox& box);
  std::array<TextBox*, 3> margins() { return {&Text1, &Text2, &Text3}; }
  void takeStart();
  double labelsDown() const;
  void cmdOK_Click();

  LabelSettings& settings_;
  LabelLayout layout_;
  std::set<const TextBox*> edited_;  ///< margins that were typed into and not left yet
  bool accepted_ = false;
};

}  // namespace zelvo
