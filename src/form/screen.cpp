#include "form/screen.h"

#include <exception>

#include "form/desk.h"
#include "form/text_menu.h"

namespace zelvo {

Screen::Screen(Desk& itsDesk, std::string_view name, std::string_view title)
    : caption(title), desk(itsDesk), name_(name) {}

Control* Screen::find(std::string_view name, int index) const {
  for (Control* control : controls_)
    if (control->name() == name && control->index() == index)
      return control;
  return nullptr;
}

Control* Screen::findById(std::string_view id) const {
  for (Control* control : controls_)
    if (control->id() == id)
      return control;
  return nullptr;
}

Result<void> Screen::refuseUnreachable(const Control& control) const {
  if (!desk.screens.reachable(*this))
    return Error{Trouble::Failed, "the screen " + name_ + " waits for another one to be closed"};
  if (!control.visible)
    return Error{Trouble::Failed, control.id() + " is not shown at the moment"};
  const auto* entry = dynamic_cast<const MenuEntry*>(&control);
  if (!control.enabled || (entry && !(entry->menu.enabled && entry->menu.visible)))
    return Error{Trouble::Failed, control.id() + " is disabled at the moment"};
  return {};
}

Result<void> Screen::userSets(Control& control, std::string_view value) {
  if (auto refused = refuseUnreachable(control); !refused)
    return refused;
  noteBox(control);
  if (auto entered = control.enter(value); !entered)
    return entered;
  if (control.kind() == ControlKind::CheckBox || control.kind() == ControlKind::Option)
    run(control, Event::Click);
  run(control, Event::Edit);
  return {};
}

Result<void> Screen::userChanges(Control& control, const std::function<void()>& change) {
  if (auto refused = refuseUnreachable(control); !refused)
    return refused;
  change();
  run(control, Event::Edit);
  return {};
}

// A click on a check box or an option changes it as well.
Result<void> Screen::userClicks(Control& control) {
  if (const auto* box = dynamic_cast<CheckBox*>(&control))
    return userSets(control, box->checked ? "0" : "1");
  if (control.kind() == ControlKind::Option)
    return userSets(control, "1");
  if (auto refused = refuseUnreachable(control); !refused)
    return refused;
  if (!handlers_.contains({&control, Event::Click}))
    return Error{Trouble::Failed, control.id() + " is nothing to click on"};
  run(control, Event::Click);
  return {};
}

Result<void> Screen::userLeaves(Control& control) {
  if (auto refused = refuseUnreachable(control); !refused)
    return refused;
  noteBox(control);
  if (auto* box = dynamic_cast<TextBox*>(&control); box && box->holdsDate && !box->locked)
    tidyDate(*box);
  run(control, Event::Leave);
  return {};
}

// What cannot be read stays as it was typed, and the line at the foot says so until it can.
void Screen::tidyDate(TextBox& box) {
  if (!box.tidyDate())
    showStatus("\"" + box.text + "\" is no date: " + std::string(kDateWays) + ".");
  else if (status.find(kDateWays) != std::string::npos)
    showStatus("");
}

Date Screen::today() const {
  return desk.clock.now().date;
}

void Screen::noteBox(Control& control) {
  if (auto* box = dynamic_cast<TextBox*>(&control))
    lastBox_ = box;
}

Result<void> Screen::userPicksFromTextMenu(std::string_view entry, TextBox* box) {
  TextBox* meant = box ? box : lastBox_;
  if (!meant)
    return Error{Trouble::NotFound, "no text box of " + name_ + " was worked in yet"};
  if (!desk.screens.reachable(*this) || !meant->visible)
    return refuseUnreachable(*meant);
  Result<void> done;
  guarded([&] { done = pickFromTextMenu(desk, *meant, entry); });
  if (!done)
    desk.messages.tell(" " + caption, done.error().message, Icon::Exclamation);
  return {};
}

Result<void> Screen::userDrops(const std::vector<std::string>& files) {
  if (!takesFiles() || !desk.screens.reachable(*this))
    return Error{Trouble::BadInput, name_ + " takes no files now"};
  guarded([&] { Form_Drop(files); });
  return {};
}

void Screen::userAsksForHelp() {
  guarded([this] { desk.screens.showHelp(*this); });
}

Result<void> Screen::userChooses(ListView& list, std::size_t row) {
  if (auto refused = refuseUnreachable(list); !refused)
    return refused;
  if (row >= list.count())
    return Error{Trouble::BadInput, list.id() + " has no row " + std::to_string(row + 1)};
  list.selected = row;
  run(list, Event::Choose);
  return {};
}

Result<void> Screen::userOpensRow(ListView& list, std::size_t row) {
  if (auto chosen = userChooses(list, row); !chosen)
    return chosen;
  run(list, Event::OpenRow);
  return {};
}

Result<void> Screen::userSorts(ListView& list, std::size_t column) {
  if (auto refused = refuseUnreachable(list); !refused)
    return refused;
  if (!list.sortable || column >= list.columns.size())
    return Error{Trouble::BadInput, list.id() + " cannot be sorted by column " + std::to_string(column + 1)};
  list.descending = list.sortedBy == column && !list.descending;
  list.sortedBy = column;
  run(list, Event::Sort);
  return {};
}

void Screen::userRests(Control& control) {
  if (refuseUnreachable(control))
    run(control, Event::Rest);
}

// A store that cannot be read now offers nothing: the clerk goes on typing, and hears of it when it matters.
std::vector<std::string> Screen::offersFor(const Control& control) try {
  const bool offers = control.suggests && !control.locked && !control.shown().empty();
  return offers ? typedBefore(control) : std::vector<std::string>();
} catch (const std::exception&) {
  return {};
}

std::vector<std::string> Screen::typedBefore(const Control&) {
  return {};
}

void Screen::userCloses() {
  if (desk.screens.reachable(*this))
    guarded([this] { Form_Close(); });
}

void Screen::shownInFront() {
  const bool first = !wasShown_;
  wasShown_ = true;
  guarded([this, first] { Form_Activate(first); });
}

void Screen::onClick(Control& control, Handler handler) {
  handlers_[{&control, Event::Click}] = std::move(handler);
}

void Screen::onEdit(Control& control, Handler handler) {
  handlers_[{&control, Event::Edit}] = std::move(handler);
}

void Screen::onLeave(Control& control, Handler handler) {
  handlers_[{&control, Event::Leave}] = std::move(handler);
}

void Screen::onRest(Control& control, Handler handler) {
  handlers_[{&control, Event::Rest}] = std::move(handler);
}

void Screen::onChoose(ListView& list, Handler handler) {
  handlers_[{&list, Event::Choose}] = std::move(handler);
}

void Screen::onOpenRow(ListView& list, Handler handler) {
  handlers_[{&list, Event::OpenRow}] = std::move(handler);
}

void Screen::onSort(ListView& list, Handler handler) {
  handlers_[{&list, Event::Sort}] = std::move(handler);
}

void Screen::Form_Activate(bool) {}

void Screen::Form_Close() {
  closeMe();
}

void Screen::setFocus(Control& control, bool all) {
  focus = &control;
  selectAll = all;
}

void Screen::showStatus(std::string_view text) {
  if (status == text)
    return;
  status = text;
  desk.face.status(*this, text);
}

void Screen::closeMe() {
  desk.screens.close(*this);
}

void Screen::run(const Control& control, Event event) {
  const auto handler = handlers_.find({&control, event});
  if (handler != handlers_.end())
    guarded(handler->second);
}

// The edge of the screen: whatever went wrong below ends this one handler, and the user hears of it.
void Screen::guarded(const Handler& handler) {
  try {
    handler();
  } catch (const std::exception& trouble) {
    desk.face.busy(false);
    showStatus("");
    desk.messages.tell(
        " " + caption,
        std::string("This could not be finished:\n\n") + trouble.what() + "\n\nWhat you typed is still on the screen.",
        Icon::Critical);
  }
}

}  // namespace zelvo
