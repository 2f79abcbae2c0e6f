#include "records/record_screen.h"

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"
#include "data/query_text.h"
#include "records/record_rows.h"

namespace zelvo {

RecordScreen::RecordScreen(Desk& itsDesk, mdb& parcels, const RecordKind& kind)
    : Screen(itsDesk, kind.screen, kind.caption),
      SSTab1(*this, "SSTab1", {}),
      kind_(kind),
      parcels_(parcels),
      numbering_(itsDesk.session, kind.numbering) {
  lblVoided.warning = Label28.warning = true;
  for (Button* button : {&INew, &IAdd, &IEdit, &ISave, &ICancel, &IMoveFirst, &IMovePrev, &IMoveNext, &IMoveLast, &delr,
                         &recinfod, &iPrint})
    button->enabled = false;  // until the records are open
  bindButtons();
}

void RecordScreen::bindButtons() {
  onClick(INew, [this] { INew_Click(); });
  onClick(IAdd, [this] { IAdd_Click(); });
  onClick(IEdit, [this] { IEdit_Click(); });
  onClick(ISave, [this] { ISave_Click(); });
  onClick(ICancel, [this] { ICancel_Click(); });
  onClick(IMoveFirst, [this] { IMoveFirst_Click(); });
  onClick(IMovePrev, [this] { IMovePrev_Click(); });
  onClick(IMoveNext, [this] { IMoveNext_Click(); });
  onClick(IMoveLast, [this] { IMoveLast_Click(); });
  onClick(delr, [this] { delr_Click(); });
  onClick(recinfod, [this] { recinfod_Click(); });
  onClick(Quit, [this] { Quit_Click(); });
  onChoose(ListView1, [this] { ListView1_Click(); });
  onOpenRow(ListView1, [this] { SSTab1.current = 0; });
  IMoveFirst.tip = "First record";
  IMovePrev.tip = "Previous record";
  IMoveNext.tip = "Next record";
  IMoveLast.tip = "Last record";
}

// ---- opening

void RecordScreen::Form_Activate(bool first) {
  if (first && !openRecords())
    return closeMe();
  if (!desk.session.hop.empty() && mode_ == Mode::Browse)
    followHop();
}

bool RecordScreen::openRecords() {
  CurrentQuery& slot = desk.session.queryFor(kind_.slot);
  if (slot.connection.empty())
    slot.connection = connectionText(joinPath(desk.session.dataFolder, findTable(kind_.table)->file));
  if (slot.query.empty())
    slot.query = wholeTable();
  if (const auto read = readRecords(); !read) {
    desk.messages.tell(" " + caption, read.error().message, Icon::Critical);
    return false;
  }
  prepareBoxes();
  const std::string numberTrouble = numbering_.open(*datPrimaryRS_);
  enter(Mode::Browse);
  if (!numberTrouble.empty())
    desk.messages.tell(" " + caption,
                       numberTrouble + "\nIt is passed over. The next " + std::string(kind_.noun) +
                           " gets the number " + numbering_.next() + ".",
                       Icon::Exclamation);
  return true;
}

std::string RecordScreen::wholeTable() const {
  const Table& table = *findTable(kind_.table);
  return "Select * from " + std::string(table.name) + " order by [" + std::string(table.browseOrder) + "]";
}

// Reads the records that the screen's slot of the table of current queries asks for.
Result<void> RecordScreen::readRecords() {
  const CurrentQuery& slot = desk.session.queryFor(kind_.slot);
  showStatus("Reading database..");
  const auto connection = Connection::open(slot.connection);
  auto read =
      connection ? Recordset::open(*connection, slot.query) : Result<std::unique_ptr<Recordset>>(connection.error());
  showStatus("");
  if (!read)
    return read.error();
  connection_ = *connection;
  datPrimaryRS_ = std::move(*read);
  fillList();
  return {};
}

void RecordScreen::prepareBoxes() {
  const Table& table = records().table();
  limitBoxes(table, *this);
  for (const Column& column : table.columns)
    if (column.type == ColumnType::Number && column.box >= 1 && Text1.has(column.box))
      takeAmounts(Text1(column.box));
}

void RecordScreen::takeAmounts(TextBox& box) {
  amounts_.push_back(&box);
  onLeave(box, [this, &box] {
    box.text = plainAmount(box.text);
    const bool none = !trim(box.text).empty() && !isNumber(trim(box.text));
    showStatus(none ? "\"" + box.text + "\" is no amount: what it begins with counts, or 0." : "");
  });
}

void RecordScreen::tidyAmounts() {
  for (TextBox* box : amounts_)
    box->text = plainAmount(box->text);
}

void RecordScreen::fillList() {
  ListView1.columns.clear();
  for (const ListField& field : kind_.list)
    ListView1.columns.push_back({std::string(field.caption), field.width, false});
  ListView1.rows = std::make_shared<RecordRows>(datPrimaryRS_, kind_.list);
  ListView1.rowsChanged();
}

void RecordScreen::followHop() {
  const std::string wanted = std::exchange(desk.session.hop, "");
  showHopped(wanted);
  refreshRecord();
}

void RecordScreen::showHopped(std::string_view wanted) {
  records().MoveFirst();
  const auto found = records().Find(columnIs(records().table().key, wanted));
  if (found && *found)
    return;
  std::string noun(kind_.noun);
  noun.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(noun.front())));
  desk.messages.tell(" Record(s) not Found",
                     noun + " " + std::string(wanted) + " to hop, is not found.\nEntire recordset will be displayed.",
                     Icon::Exclamation);
  desk.session.queryFor(kind_.slot).query = wholeTable();
  if (const auto read = readRecords(); !read)
    throw StoreError(read.error());
}

// ---- browsing

bool RecordScreen::dbisempty() const {
  return records().RecordCount() == 0;
}

bool RecordScreen::isVoided() const {
  return !dbisempty() && records().text("STATUS") == "V";
}

std::string RecordScreen::key() const {
  return dbisempty() ? "" : records().text(records().table().key);
}

void RecordScreen::getdata() {
  clearControls();
  shown_ = recordToScreen(records(), *this);
  showCodedColumns();
}

// Shows the record that is current now, with all that the office wants to see beside it.
void RecordScreen::refreshRecord() {
  Recordset& rows = records();
  ListView1.selected.reset();
  clearWarnings();
  if (dbisempty()) {
    lblStatus.caption = "empty database";
    clearControls();
    for (TextBox& box : Text1)
      box.text.clear();
    return enableButtons();
  }
  if (rows.Eof())
    rows.MoveLast();
  if (rows.Bof())
    rows.MoveFirst();
  getdata();
  lblStatus.caption = "Record " + std::to_string(rows.AbsolutePosition()) + " of " + std::to_string(rows.RecordCount());
  ListView1.selected = rows.AbsolutePosition() - 1;
  lblVoided.caption = isVoided() ? "VOIDED" : "";
  if (isVoided())
    delr.caption = "Un&void";
  showParcelWarnings();
  enableButtons();
}

void RecordScreen::showParcelWarnings() {
  TextBox& parcelBox = Text1(3);
  parcelBox.tip.clear();
  const auto known = parcels_.SBLExists(TrimSBL(currentSBL(records(), parcels_.parts)));
  if (!known || !*known)
    return;
  if (parcels_.SBLHasNotes())
    parcelBox.tip = " This property had note-it notes ";
  if (parcels_.SBLHasFailed())
    parcelBox.tip = " This property had a failed inspection ";
  if (parcels_.SBLHasViol())
    parcelBox.tip = " This property had a Violation ";
  if (parcels_.SBLHasViol())
    Label28.caption = "This property had a Violation";
}

void RecordScreen::clearWarnings() {
  lblVoided.caption.clear();
  Label28.caption.clear();
  delr.caption = "&Void";
}

void RecordScreen::IMoveFirst_Click() {
  records().MoveFirst();
  refreshRecord();
}

void RecordScreen::IMovePrev_Click() {
  records().MovePrevious();
  refreshRecord();
}

void RecordScreen::IMoveNext_Click() {
  records().MoveNext();
  refreshRecord();
}

void RecordScreen::IMoveLast_Click() {
  records().MoveLast();
  refreshRecord();
}

void RecordScreen::ListView1_Click() {
  if (ListView1.selected && records().goToPosition(*ListView1.selected + 1))
    refreshRecord();
}

// ---- modes

void RecordScreen::enter(Mode mode) {
  mode_ = mode;
  lockRecord(mode == Mode::Browse);
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
  const bool browsing = mode_ == Mode::Browse;
  const bool onRecord = browsing && !dbisempty();
  INew.enabled = browsing;
  IAdd.enabled = mode_ == Mode::New;
  ISave.enabled = mode_ == Mode::Edit;
  ICancel.enabled = !browsing;
  for (Button* button : {&IEdit, &IMoveFirst, &IMovePrev, &IMoveNext, &IMoveLast, &delr, &recinfod, &iPrint})
    button->enabled = onRecord;
  ListView1.enabled = browsing;
}

void RecordScreen::INew_Click() {
  returnTo_ = records().bookmark();
  numbering_.catchUp();
  clearControls();
  for (TextBox& box : Text1)
    box.text.clear();
  shown_.clear();
  while (keyInUse(proposedKey()))
    numbering_.bump();
  proposed_ = proposedKey();
  Text1(1).text = proposed_;
  lblStatus.caption = "New " + std::string(kind_.noun);
  clearWarnings();
  SSTab1.current = 0;
  enter(Mode::New);
  setFocus(Text1(1), true);
}

void RecordScreen::IEdit_Click() {
  readAgain();
  if (dbisempty())
    return;
  returnTo_ = records().bookmark();
  SSTab1.current = 0;
  enter(Mode::Edit);
  setFocus(Text1(2));
}

void RecordScreen::ICancel_Click() {
  records().CancelUpdate();
  readAgain();
  records().goTo(returnTo_);
  enter(Mode::Browse);
}

// What other computers changed since is seen before somebody works on it, not only when it is stored.
void RecordScreen::readAgain() {
  if (const auto read = records().Refresh(); !read)
    throw StoreError(read.error());
  ListView1.rowsChanged();
  refreshRecord();
}

// ---- void, who and when

// Any answer but No goes ahead.
bool RecordScreen::mayChangeVoid(bool voided) {
  MessageBox box{" Void a Record", "Are you sure you want to void this record?\nClicking 'Yes' will void the record.",
                 Buttons::YesNo, Icon::Exclamation, Answer::Yes};
  if (voided) {
    box.title = " Record Void";
    box.text = "This record is already voided. Do you want to reset it?\nClicking 'Yes' will restore/unvoid it";
  }
  return desk.messages.ask(box) != Answer::No;
}

void RecordScreen::delr_Click() {
  const bool voided = isVoided();
  if (!mayChangeVoid(voided))
    return;
  records().set("STATUS", voided ? "" : "V");
  if (const auto stored = records().Update(); !stored) {
    records().CancelUpdate();
    tellStoreFailed(stored.error());
    readAgain();
  }
  refreshRecord();
}

void RecordScreen::recinfod_Click() {
  std::string text = records().text("BYUSER");
  if (const auto when = records().get("TSTAMP").moment())
    text += "\n" + datePicture(*when, "dddd, mmmm dd, yyyy") + "\nRecorded time: " + datePicture(*when, "hh:mm AM/PM");
  desk.messages.tell(" Record Information", text);
}

// ---- leaving

bool RecordScreen::mayLeaveUnsaved() {
  return mode_ == Mode::Browse ||
         desk.messages.confirm(" " + caption,
                               "This " + std::string(kind_.noun) +
                                   " has not been stored yet.\nDo you want to leave it and lose what you typed?",
                               Icon::Exclamation, Answer::No);
}

void RecordScreen::Quit_Click() {
  if (mayLeaveUnsaved())
    closeMe();
}

void RecordScreen::Form_Close() {
  Quit_Click();
}

}  // namespace zelvo
