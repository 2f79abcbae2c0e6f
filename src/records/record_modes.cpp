// The modes of the record pattern: what may be done when, and how a record is begun, changed and left.

#include "records/record_screen.h"

namespace zelvo {

// ---- modes

void RecordScreen::enter(Mode mode) {
  mode_ = mode;
  newParcel_.clear();
  offer_.forget();
  readBefore_ = readBefore_ || query_.showsWholeTable();
  showSearchControls(mode == Mode::Search);
  ILocate.caption = mode == Mode::Search ? "Find" : "&Locate";
  ILocate.isDefault = mode == Mode::Search;
  lockRecord(mode == Mode::Browse);
  markRequired();
  if (mode == Mode::Browse)
    refreshRecord();
  else
    enableButtons();
}

void RecordScreen::lockRecord(bool locked) {
  for (Control* control : controls())
    if (control->kind() == ControlKind::TextBox || control->kind() == ControlKind::Combo ||
        control->kind() == ControlKind::DatePicker || control->kind() == ControlKind::CheckBox)
      control->locked = locked;
  if (mode_ == Mode::Edit)
    Text1(1).locked = true;  // the number is the record's name: fees, inspections and attachments know it by that
}

void RecordScreen::enableButtons() {
  const bool browsing = mode_ == Mode::Browse && !ownPagesBusy();
  const bool onRecord = browsing && !dbisempty();
  INew.enabled = browsing;
  ILocate.enabled = (browsing && !dbisempty()) || mode_ == Mode::Search;
  iReset.enabled = browsing && !query_.showsWholeTable();
  IAdd.enabled = mode_ == Mode::New;
  ISave.enabled = mode_ == Mode::Edit;
  ICancel.enabled = mode_ != Mode::Browse;
  for (Button* button :
       {&ICopy, &IEdit, &IMoveFirst, &IMovePrev, &IMoveNext, &IMoveLast, &delr, &recinfod, &iNote, &iPrint})
    button->enabled = onRecord;
  list_.enable(browsing);
  attachments_.show(onRecord ? key() : "");
  enableOwnButtons(browsing);
}

void RecordScreen::clearPage() {
  clearControls();
  picks.clear();
  for (TextBox& box : Text1)
    box.text.clear();
  ownBoxes.clear();
  shown_.clear();
}

void RecordScreen::INew_Click() {
  clearPage();
  beginNew(false);
}

void RecordScreen::ICopy_Click() {
  shown_.clear();
  ownBoxes.beginCopy();
  clearForCopy();
  beginNew(true);
}

void RecordScreen::beginNew(bool copy) {
  returnTo_ = records().bookmark();
  numbering_.catchUp();
  while (!numbering_.automatic() && keyInUse(proposedKey()))
    numbering_.bump();
  proposed_ = proposedKey();
  Text1(1).text = proposed_;
  prefillNew(copy);
  lblStatus.caption = "New " + std::string(kind_.noun);
  clearWarnings();
  SSTab1.current = kRecordPage;
  enter(Mode::New);
  showStatus("Please enter the data of the new " + std::string(kind_.noun) +
             ", then press Add. What is marked * must be filled in.");
  setFocus(Text1(1), true);
}

void RecordScreen::IEdit_Click() {
  readAgain();
  if (dbisempty())
    return;
  returnTo_ = records().bookmark();
  asRead_ = valuesOf(*this);
  conflict_ = false;
  SSTab1.current = kRecordPage;
  enter(Mode::Edit);
  setFocus(Text1(2));
}

void RecordScreen::ICancel_Click() {
  records().CancelUpdate();
  readAgain();
  records().goTo(returnTo_);
  showStatus("");
  enter(Mode::Browse);
}

// What other computers changed since is seen before somebody works on it, not only when it is stored.
void RecordScreen::readAgain() {
  if (const auto read = records().Refresh(); !read)
    throw StoreError(read.error());
  list_.ListView1.rowsChanged();
  refreshRecord();
}

// ---- leaving

bool RecordScreen::mayLeaveUnsaved() {
  if ((mode_ == Mode::Browse && !ownPagesBusy()) || mode_ == Mode::Search)
    return true;
  const std::string noun(kind_.noun);
  return desk.messages.confirm(" " + caption,
                               (mode_ == Mode::Browse ? "An entry of this " + noun : "This " + noun) +
                                   " has not been stored yet.\nDo you want to leave it and lose what you typed?",
                               Icon::Exclamation, Answer::No);
}

void RecordScreen::Quit_Click() {
  if (!mayLeaveUnsaved())
    return;
  list_.rememberWidths();
  closeMe();
}

void RecordScreen::Form_Close() {
  Quit_Click();
}

}  // namespace zelvo
