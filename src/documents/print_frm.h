#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "form/control.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// Whether what is printed can be kept: with the record that it is printed from.
enum class PrintFrom { List, Record };

/// The print options: which printout of the record is wanted, and how it goes to paper. Starts from the session's
/// options and stores them there on "&Print" and "Pre&view"; what is printed is the calling screen's part. A type with
/// margins of its own brings those under which it was printed last.
class PrintFrm : public Screen {
 public:
  PrintFrm(Desk& desk, std::string_view title, std::vector<std::string> printoutTypes,
           PrintFrom from = PrintFrom::List);

  /// Whether to print: the options were stored, with the chosen type in session.print.type.
  bool accepted() const { return accepted_; }

  Label typeCaption{*this, "Label1", " Select printout type"};
  Combo Combo1{*this, "Combo1"};
  CheckBox Check1{*this, "Check1", "Allow me to view and edit form"};
  CheckBox Check2{*this, "Check2", "Force Landscape Printing"};
  CheckBox Check3{*this, "Check3", "Let me select before printing"};
  CheckBox Check4{*this, "Check4", "&Keep a copy with the record"};
  Label leftCaption{*this, "Label2", " Left margin in inches"};
  TextBox Text1{*this, "Text1"};
  Label topCaption{*this, "Label3", " Top margin in inches"};
  TextBox Text2{*this, "Text2"};
  Label rightCaption{*this, "Label4", " Right margin in inches"};
  TextBox Text3{*this, "Text3"};
  Label bottomCaption{*this, "Label5", " Bottom margin in inches"};
  TextBox Text4{*this, "Text4"};
  Label sizeCaption{*this, "Label6", "Default Font Size:"};
  Combo Combo2{*this, "Combo2"};
  Button cmdHeader{*this, "cmdHeader", " Set report default header"};
  Button cmdPreview{*this, "cmdPreview", "Pre&view"};
  Button cmdPrint{*this, "cmdPrint", "&Print"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void show(const PrintOptions& options);
  void showPage(const PrintOptions& options);
  void chooseType();
  void watchMargin(TextBox& box);
  void checkMargins(TextBox& box);
  void cmdHeader_Click();
  void accept(bool preview);
  PrintOptions entered() const;

  bool marginsTouched_ = false;
  bool accepted_ = false;
};

}  // namespace zelvo
