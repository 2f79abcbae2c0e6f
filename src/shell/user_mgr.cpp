#include "shell/user_mgr.h"

#include <memory>
#include <stdexcept>

#include "shell/user_edit.h"
#include "shell/users.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = " User Management";

}  // namespace

UserMgr::UserMgr(Desk& itsDesk) : Screen(itsDesk, "UserMgr", "User Management") {
  ListView1.tip = "List of authorized users";
  ListView1.columns = {{" User ", 19}, {" Password ", 15}, {" Access ", 12}};
  Command1.tip = "Add a new user";
  Command5.tip = "Edit highlighted user";
  Command2.tip = "Delete highlighted user";
  Command3.tip = "Exit and save list";
  Command4.tip = "Cancel changes";
  onClick(Command1, [this] { Command1_Click(); });
  onClick(Command5, [this] { Command5_Click(); });
  onClick(Command2, [this] { Command2_Click(); });
  onClick(Command3, [this] { Command3_Click(); });
  onClick(Command4, [this] { Command4_Click(); });
  onChoose(ListView1, [this] { showButtons(); });
  onOpenRow(ListView1, [this] { Command5_Click(); });
  loadList();
}

void UserMgr::loadList() {
  auto roster = UserRoster::load(desk.session);
  if (!roster)
    throw std::runtime_error(roster.error().message);
  roster_ = std::move(*roster);
  showList(std::nullopt);
}

void UserMgr::showList(std::optional<std::size_t> selected) {
  auto rows = std::make_shared<MemoryRows>();
  for (std::size_t i = 0; i < roster_.count(); ++i) {
    const User user = scrambled(roster_.at(i));
    rows->rows.push_back({user.name, user.password, user.access});
  }
  ListView1.rows = rows;
  ListView1.selected = selected && *selected < roster_.count() ? selected : std::nullopt;
  ListView1.rowsChanged();
  showButtons();
}

void UserMgr::showButtons() {
  Command5.enabled = Command2.enabled = ListView1.selected.has_value();
}

void UserMgr::Command1_Click() {
  NewFrm form(desk, [this](const User& user) { return roster_.add(user); });
  const std::size_t before = roster_.count();
  desk.screens.showModal(form);
  if (roster_.count() > before)
    showList(before);
}

void UserMgr::Command5_Click() {
  if (!ListView1.selected)
    return;
  const std::size_t row = *ListView1.selected;
  UserEdit form(desk, roster_.at(row), UserEdit::Rights::MayChange,
                [this, row](const User& user) { return roster_.change(row, user); });
  desk.screens.showModal(form);
  showList(row);
}

void UserMgr::Command2_Click() {
  if (!ListView1.selected)
    return;
  if (const auto removed = roster_.remove(*ListView1.selected); !removed)
    return tell(removed.error());
  showList(std::nullopt);
}

void UserMgr::Command3_Click() {
  const auto saved = roster_.save(desk.session);
  if (saved)
    closeMe();
  else if (saved.error().trouble == Trouble::Conflict)
    offerOthersChanges();
  else
    tell(saved.error());
}

// The list that comes of both is shown before it is written: who removed or added whom is for people to settle.
void UserMgr::offerOthersChanges() {
  if (!desk.messages.confirm(kTitle,
                             "Someone else changed the list of users while you worked on it.\n\nDo you want to take "
                             "their changes into your list? Nothing is saved yet: please look the list over and "
                             "click 'Done' again."))
    return;
  if (const auto taken = roster_.takeInOthers(desk.session); !taken)
    tell(taken.error());
  showList(std::nullopt);
}

void UserMgr::Command4_Click() {
  closeMe();
}

void UserMgr::Form_Close() {
  if (!roster_.changed() || desk.messages.confirm(kTitle,
                                                  "You changed the list of users and did not save it.\n\nDo you want "
                                                  "to close it without saving?",
                                                  Icon::Question, Answer::No))
    closeMe();
}

void UserMgr::tell(const Error& error) {
  desk.messages.tell(kTitle, error.message, Icon::Exclamation);
}

}  // namespace zelvo
