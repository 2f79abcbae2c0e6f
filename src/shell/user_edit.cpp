#include "shell/user_edit.h"

#include "base/text.h"
#include "shell/users.h"

namespace zelvo {

UserEdit::UserEdit(Desk& itsDesk, const User& user, Rights rights) : Screen(itsDesk, "UserEdit", "Edit User") {
  const User plain = scrambled(user);
  Text1.text = upper(plain.name);
  Text1.tip = "User ID used to log in";
  Text2.text = upper(plain.password);
  Combo1.items = {"INSPECTOR", "ADMIN", "USER"};
  Combo1.freeText = false;
  Combo1.text = upper(plain.access);
  Combo1.enabled = rights == Rights::MayChange;
  Command1.isDefault = true;
  Command2.isCancel = true;
  onClick(Command1, [this] { Command1_Click(); });
  onClick(Command2, [this] { closeMe(); });
}

void UserEdit::Command1_Click() {
  if (missing(Text1, " Missing user ID", "You must give a user ID for the user to log on.") ||
      missing(Text2, " Missing user password", "You must assign an initial password for the user to log on."))
    return;
  accepted_ = true;
  closeMe();
}

bool UserEdit::missing(TextBox& box, std::string_view title, std::string_view text) {
  if (!trim(box.text).empty())
    return false;
  desk.messages.tell(title, text, Icon::Exclamation);
  setFocus(box);
  return true;
}

User UserEdit::user() const {
  return scrambled(User{Text1.text, Text2.text, Combo1.text});
}

void changeOwnPassword(Desk& desk) {
  Session& session = desk.session;
  if (session.userSlot < 1 || session.userSlot > session.users.size())
    return;
  const auto rights = session.rights == "ADMIN" ? UserEdit::Rights::MayChange : UserEdit::Rights::Keep;
  UserEdit edit(desk, session.users[session.userSlot - 1], rights);
  desk.screens.showModal(edit);
  if (!edit.accepted())
    return;
  auto users = session.users;
  users[session.userSlot - 1] = edit.user();
  if (const auto written = writeUsers(session.programFolder, users); !written)
    desk.messages.tell("Zelvo", written.error().message + "\n\nYour user ID and password stay as they were.",
                       Icon::Critical);
  else
    session.users = std::move(users);
}

}  // namespace zelvo
