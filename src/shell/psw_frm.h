#pragma once

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The sign-in. Closes when a user has signed in, and when the user gives up; the session's signed-in flag tells which.
class PswFrm : public Screen {
 public:
  explicit PswFrm(Desk& desk);

  void cmdOK_Click();
  void cmdCancel_Click();
  void image6_Click();

 protected:
  void Form_Activate(bool first) override;
  void Form_Close() override { cmdCancel_Click(); }

 private:
  void closeWithHelp();

  Label Label1{*this, "Label1", "Login name"};
  TextBox Text1{*this, "Text1"};
  Label Label2{*this, "Label2", "Login password"};
  TextBox Text2{*this, "Text2"};
  Button cmdOK{*this, "cmdOK", "Continue login"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  Button image6{*this, "image6", "Help"};
};

/// The help panel beside the sign-in.
class pswhelp : public Screen {
 public:
  explicit pswhelp(Desk& desk);

 private:
  Label Label1{*this, "Label1",
               "Enter the user name and password which have been assigned to you by your system administrator."};
  Button cmdOK{*this, "cmdOK", "OK"};
};

}  // namespace zelvo
