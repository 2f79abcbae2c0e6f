#pragma once

#include <functional>

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The three boxes of a user. To be shown modally; it closes when the user is taken, or given up.
class UserBoxes : public Screen {
 public:
  /// Takes the user, scrambled, or says why it cannot: then the screen stays open with what was typed.
  using Keeper = std::function<Result<void>(const User&)>;

  void Command1_Click();

 protected:
  UserBoxes(Desk& desk, std::string_view name, std::string_view caption, Keeper keep);

  Label Label1{*this, "Label1", "User ID:"};
  TextBox Text1{*this, "Text1"};
  Label Label2{*this, "Label2", "Password:"};
  TextBox Text2{*this, "Text2"};
  Label Label3{*this, "Label3", "Access:"};
  Combo Combo1{*this, "Combo1"};
  Button Command1{*this, "Command1", "OK"};
  Button Command2{*this, "Command2", "Cancel"};

 private:
  bool missing(Control& box, std::string_view title, std::string_view text);

  Keeper keep_;
};

/// A user to be added to the list.
class NewFrm : public UserBoxes {
 public:
  NewFrm(Desk& desk, Keeper keep);
};

/// Edits one user of the list.
class UserEdit : public UserBoxes {
 public:
  enum class Rights { MayChange, Keep };

  /// The user comes scrambled. An access level that is none of those offered stays until another one is picked. With
  /// Rights::Keep the access level is only shown.
  UserEdit(Desk& desk, const User& user, Rights rights, Keeper keep);
};

/// The signed-in user edits the own user record, and the list is written at once. Only an administrator can change the
/// own access level. A user ID that another user has, and the last administrator giving that up, are refused. When the
/// list cannot be written the user hears why, and the old password holds.
void changeOwnPassword(Desk& desk);

}  // namespace zelvo
