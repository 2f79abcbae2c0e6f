#pragma once

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// Edits one user of the list. To be shown modally; afterwards accepted() tells whether user() is to replace the old
/// one.
class UserEdit : public Screen {
 public:
  enum class Rights { MayChange, Keep };

  /// The user comes and goes scrambled. With Rights::Keep the access level is only shown.
  UserEdit(Desk& desk, const User& user, Rights rights);

  void Command1_Click();
  bool accepted() const { return accepted_; }
  User user() const;

 private:
  bool missing(TextBox& box, std::string_view title, std::string_view text);

  Label Label1{*this, "Label1", "User ID:"};
  TextBox Text1{*this, "Text1"};
  Label Label2{*this, "Label2", "Password:"};
  TextBox Text2{*this, "Text2"};
  Label Label3{*this, "Label3", "Access:"};
  Combo Combo1{*this, "Combo1"};
  Button Command1{*this, "Command1", "OK"};
  Button Command2{*this, "Command2", "Cancel"};
  bool accepted_ = false;
};

/// The signed-in user edits the own user record, and the list is written at once. Only an administrator can change the
/// own access level. When the list cannot be written the user hears why, and the old password holds.
void changeOwnPassword(Desk& desk);

}  // namespace zelvo
