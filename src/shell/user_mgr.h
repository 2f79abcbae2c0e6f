#pragma once

#include <optional>

#include "form/desk.h"
#include "form/screen.h"
#include "shell/user_roster.h"

namespace zelvo {

/// The administrator's list of who may sign in. Nothing that is done here holds before Done, which writes the list;
/// when somebody else wrote it meanwhile, their changes can be taken in first.
class UserMgr : public Screen {
 public:
  explicit UserMgr(Desk& desk);

  void Command1_Click();  ///< adds a user
  void Command5_Click();  ///< edits the highlighted one
  void Command2_Click();  ///< removes the highlighted one
  void Command3_Click();  ///< done
  void Command4_Click();  ///< gives the changes up

 protected:
  void Form_Close() override;

 private:
  void loadList();
  void showList(std::optional<std::size_t> selected);
  void showButtons();
  void offerOthersChanges();
  void tell(const Error& error);

  Label Label1{*this, "Label1", "List of authorized users"};
  ListView ListView1{*this, "ListView1"};
  Button Command1{*this, "Command1", "&Add.."};
  Button Command5{*this, "Command5", "&Edit"};
  Button Command2{*this, "Command2", "&Remove"};
  Button Command3{*this, "Command3", "&Done"};
  Button Command4{*this, "Command4", "&Cancel"};
  UserRoster roster_;
};

}  // namespace zelvo
