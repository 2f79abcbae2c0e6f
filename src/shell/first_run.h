#pragma once

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The very first start on a fresh program folder asks for what an office cannot begin without, and for nothing else.
/// It closes when all of it is made, or when the user gives up; then nothing was written.
class FirstRun : public Screen {
 public:
  FirstRun(Desk& desk, std::string_view programFolder);

  bool begun() const { return begun_; }
  void Command3_Click();  ///< chooses the data folder
  void cmdOK_Click();

 private:
  bool refuse(Control& box, std::string_view why);
  bool lacksSomething();

  Label Label1{*this, "Label1", "Welcome to Zelvo"};
  Label Label2{*this, "Label2",
               "Nobody has worked here yet. Please fill in these few lines; everything else can be set later, under "
               "Preferences in the Admin menu."};
  TextBox Text1{*this, "Text1"};
  TextBox Text2{*this, "Text2"};
  Button Command3{*this, "Command3", "&Browse.."};
  TextBox Text3{*this, "Text3"};
  TextBox Text4{*this, "Text4"};
  TextBox Text5{*this, "Text5"};
  Button cmdOK{*this, "cmdOK", "Begin &work"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  std::string programFolder_;
  bool begun_ = false;
};

}  // namespace zelvo
