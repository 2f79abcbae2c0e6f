#include "shell/user_edit.h"

#include <algorithm>

#include "base/text.h"
#include "shell/users.h"

namespace zelvo {

UserEdit::UserEdit(Desk& itsDesk, const User& user, Rights rights, Keeper keep)
    : Screen(itsDesk, "UserEdit", "Edit User"), keep_(std::move(keep)) {
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
  if (const auto kept = keep_(scrambled(User{Text1.text, Text2.text, Combo1.text})); kept)
    closeMe();
  else
    desk.messages.tell(" " + caption, kept.error().message, Icon::Exclamation);
}

bool UserEdit::missing(TextBox& box, std::string_view title, std::string_view text) {
  if (!trim(box.text).empty())
    return false;
  desk.messages.tell(title, text, Icon::Exclamation);
  setFocus(box);
  return true;
}

namespace {

bool isAdministrator(const User& user) {
  return alike(scrambled(user.access), "ADMIN");
}

// Two users of one name would leave the second one without a way in; an office without an administrator, without a way
// to make one.
Result<void> refuseLockOut(const std::vector<User>& before, const std::vector<User>& users, std::size_t changed) {
  for (std::size_t other = 0; other < users.size(); ++other)
    if (other != changed && alike(scrambled(users[other].name), scrambled(users[changed].name)))
      return Error{Trouble::Duplicate, "There is another user with this user ID. Please choose a different one."};
  if (isAdministrator(before[changed]) && std::none_of(users.begin(), users.end(), isAdministrator))
    return Error{Trouble::BadInput, "You are the only administrator. Please make another user one first."};
  return {};
}

}  // namespace

void changeOwnPassword(Desk& desk) {
  Session& session = desk.session;
  if (session.userSlot < 1 || session.userSlot > session.users.size())
    return;
  const std::size_t own = session.userSlot - 1;
  const auto keep = [&session, own](const User& user) -> Result<void> {
    auto users = session.users;
    users[own] = user;
    if (auto refused = refuseLockOut(session.users, users, own); !refused)
      return refused;
    if (auto written = writeUsers(session.programFolder, users); !written)
      return written;
    session.users = std::move(users);
    return {};
  };
  const auto rights = session.rights == "ADMIN" ? UserEdit::Rights::MayChange : UserEdit::Rights::Keep;
  UserEdit edit(desk, session.users[own], rights, keep);
  desk.screens.showModal(edit);
}

}  // namespace zelvo
