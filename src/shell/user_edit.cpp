#include "shell/user_edit.h"

#include "base/text.h"
#include "shell/user_roster.h"
#include "shell/users.h"

namespace zelvo {

UserBoxes::UserBoxes(Desk& itsDesk, std::string_view itsName, std::string_view title, Keeper keep)
    : Screen(itsDesk, itsName, title), keep_(std::move(keep)) {
  Text1.tip = "User ID used to log in";
  Text1.required = Text2.required = Combo1.required = true;
  Combo1.items = {"INSPECTOR", "ADMIN", "USER"};
  Combo1.freeText = false;
  Command1.isDefault = true;
  Command2.isCancel = true;
  onClick(Command1, [this] { Command1_Click(); });
  onClick(Command2, [this] { closeMe(); });
}

// Blanks around a user ID would have to be typed at every sign-in.
void UserBoxes::Command1_Click() {
  if (missing(Text1, " Missing user ID", "You must give a user ID for the user to log on.") ||
      missing(Text2, " Missing user password", "You must assign an initial password for the user to log on.") ||
      missing(Combo1, " Missing access rights", "You must choose what the user may do: INSPECTOR, ADMIN or USER."))
    return;
  if (const auto kept = keep_(scrambled(User{std::string(trim(Text1.text)), Text2.text, Combo1.text})); kept)
    closeMe();
  else
    desk.messages.tell(" " + caption, kept.error().message, Icon::Exclamation);
}

bool UserBoxes::missing(Control& box, std::string_view title, std::string_view text) {
  if (!trim(box.shown()).empty())
    return false;
  desk.messages.tell(title, text, Icon::Exclamation);
  setFocus(box);
  return true;
}

NewFrm::NewFrm(Desk& itsDesk, Keeper keep) : UserBoxes(itsDesk, "NewFrm", "Add a New User", std::move(keep)) {
  Label1.caption = "New user name:";
  Label2.caption = "Default password:";
  Label3.caption = "Access rights:";
}

UserEdit::UserEdit(Desk& itsDesk, const User& user, Rights rights, Keeper keep)
    : UserBoxes(itsDesk, "UserEdit", "Edit User", std::move(keep)) {
  const User plain = scrambled(user);
  Text1.text = upper(plain.name);
  Text2.text = upper(plain.password);
  Combo1.text = upper(plain.access);
  Combo1.enabled = rights == Rights::MayChange;
}

namespace {

constexpr std::string_view kRemoved =
    "Your user was removed from the list. Please ask an administrator to add it again.";

// Only the one user is changed, so whatever others did to the list meanwhile stands beside it.
Result<void> saveOwn(Session& session, UserRoster roster, const User& user) {
  if (auto changed = roster.change(*roster.own(), user); !changed)
    return changed;
  auto saved = roster.save(session);
  if (saved || saved.error().trouble != Trouble::Conflict)
    return saved;
  if (auto taken = roster.takeInOthers(session); !taken)
    return taken;
  return roster.own() ? roster.save(session) : Error{Trouble::NotFound, std::string(kRemoved)};
}

}  // namespace

void changeOwnPassword(Desk& desk) {
  Session& session = desk.session;
  const auto roster = UserRoster::load(session);
  if (!roster)
    return desk.messages.tell(" Edit User", roster.error().message, Icon::Exclamation);
  if (!roster->own())
    return desk.messages.tell(" Edit User", kRemoved, Icon::Exclamation);
  const auto rights = session.rights == "ADMIN" ? UserEdit::Rights::MayChange : UserEdit::Rights::Keep;
  UserEdit edit(desk, roster->at(*roster->own()), rights,
                [&](const User& user) { return saveOwn(session, *roster, user); });
  desk.screens.showModal(edit);
}

}  // namespace zelvo
