#include "records/record_screen.h"

#include "base/number.h"
#include "base/text.h"
#include "data/no_dbfound.h"
#include "records/note_frm.h"
#include "records/record_rows.h"

namespace zelvo {

RecordScreen::RecordScreen(Desk& itsDesk, mdb& parcels, const RecordKind& kind)
    : Screen(itsDesk, kind.screen, kind.caption),
      SSTab1(*this, "SSTab1", {std::string(kind.page), "L&ist", "Attac&hments"}),
      kind_(kind),
      parcels_(parcels),
      numbering_(itsDesk.session, kind.numbering),
      offer_(*this, kind.ofParcel),
      query_(itsDesk.session, kind),
      list_(*this, itsDesk, kind, query_, ownBoxes),
      attachments_(*this, itsDesk, kind.code, kind.documentFilter) {
  lblVoided.warning = Label28.warning = true;
  for (Button* button : {&INew, &ICopy, &IAdd, &IEdit, &ISave, &ICancel, &IMoveFirst, &IMovePrev, &IMoveNext,
                         &IMoveLast, &ILocate, &iReset, &delr, &recinfod, &iNote, &iPrint})
    button->enabled = false;  // until the records are open
  bindButtons();
}

void RecordScreen::bindButtons() {
  onClick(INew, [this] { INew_Click(); });
  onClick(ICopy, [this] { ICopy_Click(); });
  onClick(IAdd, [this] { IAdd_Click(); });
  onClick(IEdit, [this] { IEdit_Click(); });
  onClick(ISave, [this] { ISave_Click(); });
  onClick(ICancel, [this] { ICancel_Click(); });
  onClick(IMoveFirst, [this] { IMoveFirst_Click(); });
  onClick(IMovePrev, [this] { IMovePrev_Click(); });
  onClick(IMoveNext, [this] { IMoveNext_Click(); });
  onClick(IMoveLast, [this] { IMoveLast_Click(); });
  onClick(ILocate, [this] { ILocate_Click(); });
  onClick(iReset, [this] { iReset_Click(); });
  onClick(delr, [this] { delr_Click(); });
  onClick(recinfod, [this] { recinfod_Click(); });
  onClick(iNote, [this] { iNote_Click(); });
  onClick(Quit, [this] { Quit_Click(); });
  bindList();
  bindAttachments();
  IMoveFirst.tip = "First record";
  IMovePrev.tip = "Previous record";
  IMoveNext.tip = "Next record";
  IMoveLast.tip = "Last record";
  ICopy.tip = "Begin a new record with what this one says";
  iReset.tip = "Show the whole table again";
  nameKeys();
}

// Add and Save share a key: one of them alone can be pressed at a time.
void RecordScreen::nameKeys() {
  INew.shortcut = "Ctrl+N";
  IAdd.shortcut = ISave.shortcut = "Ctrl+S";
  IEdit.shortcut = "Ctrl+E";
  ILocate.shortcut = "Ctrl+F";
  iPrint.shortcut = "Ctrl+P";
  IMovePrev.shortcut = "PgUp";
  IMoveNext.shortcut = "PgDown";
}

void RecordScreen::bindList() {
  onChoose(list_.ListView1, [this] { ListView1_Click(); });
  onOpenRow(list_.ListView1, [this] { SSTab1.current = kRecordPage; });
  onSort(list_.ListView1, [this] { arrangeList(); });
  onLeave(list_.txtFilter, [this] { arrangeList(); });
  onRest(list_.txtFilter, [this] { filterWhileTyping(); });
  onClick(list_.cmdColumns, [this] { list_.chooseColumns(); });
  onClick(list_.cmdPrintList, [this] { tellTrouble(list_.print()); });
  onClick(list_.cmdSaveList, [this] { tellTrouble(list_.save()); });
}

void RecordScreen::bindAttachments() {
  onClick(attachments_.IDoc, [this] { attachments_.showKind(AttachmentKind::Document); });
  onClick(attachments_.IPic, [this] { attachments_.showKind(AttachmentKind::Picture); });
  onClick(attachments_.loadp, [this] { loadp_Click(); });
  onClick(attachments_.nextFile, [this] { NextDoc(); });
  onClick(attachments_.prevfile, [this] { PrevDoc(); });
  onClick(attachments_.openFile, [this] { attachments_.open(); });
  onChoose(attachments_.ListView2, [this] { attachments_.choose(); });
  onLeave(attachments_.txtCaption, [this] { attachments_.saveCaption(); });
  onOpenRow(attachments_.ListView2, [this] { attachments_.open(); });
}

void RecordScreen::Form_Drop(const std::vector<std::string>& files) {
  SSTab1.current = kAttachmentPage;
  attachments_.drop(files);
}

void RecordScreen::tellTrouble(const Result<void>& done) {
  if (!done)
    desk.messages.tell(" " + caption, done.error().message, Icon::Critical);
}

// ---- opening

void RecordScreen::Form_Activate(bool first) {
  if (first && !openRecords())
    return closeMe();
  if (!first && datPrimaryRS_ && mode_ == Mode::Browse && !dbisempty())
    showAttachments();  // the editor may have kept a copy of what was printed there
  if (!desk.session.hop.empty())
    followHop();
}

bool RecordScreen::openRecords() {
  if (const auto read = openSlot(); !read) {
    if (read.error().trouble != Trouble::Cancelled)
      desk.messages.tell(" " + caption, read.error().message, Icon::Critical);
    return false;
  }
  prepareBoxes();
  const std::string numberTrouble = openNumbering();
  enter(Mode::Browse);
  if (!numberTrouble.empty())
    desk.messages.tell(" " + caption,
                       numberTrouble + "\nIt is passed over. The next " + std::string(kind_.noun) +
                           " gets the number " + numbering_.next() + ".",
                       Icon::Exclamation);
  return true;
}

// The highest number is that of the whole table, also where another screen asked for a few of its records.
std::string RecordScreen::openNumbering() {
  if (query_.showsWholeTable())
    return numbering_.open(*datPrimaryRS_);
  const auto all = Recordset::open(connection_, query_.wholeTable());
  if (!all)
    throw StoreError(all.error());
  return numbering_.open(**all);
}

// A database that is not where its slot says is looked for: its folder may have been lost since the slot was filled.
Result<void> RecordScreen::openSlot() {
  query_.complete();
  if (!query_.current().connection.empty())
    if (auto read = readRecords(); read || read.error().trouble != Trouble::NotFound)
      return read;
  const auto connection = databaseConnection(desk, findTable(kind_.table)->file);
  if (!connection)
    return connection.error();
  query_.connectTo(*connection);
  return readRecords();
}

// Reads the records that the screen's slot of the table of current queries asks for.
Result<void> RecordScreen::readRecords() {
  const CurrentQuery& slot = query_.current();
  showStatus("Reading database..");
  const auto connection = Connection::open(slot.connection);
  auto read =
      connection ? Recordset::open(*connection, slot.query) : Result<std::unique_ptr<Recordset>>(connection.error());
  showStatus("");
  if (!read)
    return read.error();
  connection_ = *connection;
  datPrimaryRS_ = std::move(*read);
  list_.show(datPrimaryRS_);
  return {};
}

void RecordScreen::readRecordsOrThrow() {
  if (const auto read = readRecords(); !read)
    throw StoreError(read.error());
}

void RecordScreen::showRecords(std::string_view condition) {
  list_.forgetArrangement();
  query_.showMatching(condition);
  readRecordsOrThrow();
}

void RecordScreen::prepareBoxes() {
  const Table& table = records().table();
  limitBoxes(table, *this);
  prepareSuggestions();
  prepareParcelOffer();
  for (const Column& column : table.columns)
    if (column.type == ColumnType::Number && column.box >= 1 && Text1.has(column.box))
      takeAmounts(Text1(column.box));
  for (TextBox* box : ownBoxes.amounts())
    takeAmounts(*box);
}

// Who looks for something need fill nothing. A box may be asked for twice, under two names: one that needs it is
// enough.
void RecordScreen::markRequired() {
  for (const bool needed : {false, true})
    for (const RequiredBox& required : kind_.required) {
      if (needed != (mode_ != Mode::Search && isNeeded(required)))
        continue;
      for (int box : required.box == kParcelBoxes ? std::vector(std::begin(kParcelKeyBoxes), std::end(kParcelKeyBoxes))
                                                  : std::vector{required.box}) {
        Combo* pick = picks.standingFor(Text1(box));
        (pick ? static_cast<Control&>(*pick) : Text1(box)).required = needed;
      }
    }
}

void RecordScreen::takeAmounts(TextBox& box) {
  amounts_.push_back(&box);
  onLeave(box, [this, &box] {
    box.text = plainAmount(box.text);
    const bool none = !trim(box.text).empty() && !isNumber(trim(box.text));
    showStatus(none ? "\"" + box.text + "\" is no amount: what it begins with counts, or 0." : "");
  });
}

// What was typed short is stored and sought in full, also when the box was never left.
void RecordScreen::tidyBoxes() {
  for (TextBox* box : amounts_)
    box->text = plainAmount(box->text);
  for (Control* control : controls())
    if (auto* box = dynamic_cast<TextBox*>(control))
      box->tidyDate();
}

// The list was given another filter or order: the same record stays in sight where it is still among them.
void RecordScreen::arrangeList() {
  const auto shownNow = records().bookmark();
  if (!list_.arrange())
    return;
  desk.face.busy(true);
  arrangeRecords();
  desk.face.busy(false);
  records().goTo(shownNow);
  refreshRecord();
}

void RecordScreen::arrangeRecords() {
  if (const auto read = readRecords(); !read) {
    list_.forgetArrangement();
    query_.showWholeTable();
    readRecordsOrThrow();
    desk.messages.tell(" " + caption, read.error().message, Icon::Exclamation);
  }
}

// Letter by letter where that takes no time worth speaking of; a large table is looked through once it is clear what
// for, since nobody wants to wait between two letters.
void RecordScreen::filterWhileTyping() {
  if (list_.filtersAtOnce())
    arrangeList();
  else
    showStatus("Press Enter to look through the records.");
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
  ownBoxes.show(records());
  picks.showBoxes();
  showCodedColumns();
}

// Shows the record that is current now, with all that the office wants to see beside it.
void RecordScreen::refreshRecord() {
  Recordset& rows = records();
  list_.ListView1.selected.reset();
  clearWarnings();
  if (dbisempty()) {
    clearPage();
    lblStatus.caption = showNoRecord();
    return enableButtons();
  }
  if (rows.Eof())
    rows.MoveLast();
  if (rows.Bof())
    rows.MoveFirst();
  getdata();
  lblStatus.caption = "Record " + std::to_string(rows.AbsolutePosition()) + " of " + std::to_string(rows.RecordCount());
  list_.ListView1.selected = rows.AbsolutePosition() - 1;
  lblVoided.caption = isVoided() ? "VOIDED" : "";
  if (isVoided())
    delr.caption = "Un&void";
  showParcelWarnings();
  enableButtons();
}

std::string RecordScreen::showNoRecord() {
  return query_.showsWholeTable() ? "empty database" : "no such records";
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
  if (list_.ListView1.selected && records().goToPosition(*list_.ListView1.selected + 1))
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

// Only a registered parcel has notes.
void RecordScreen::iNote_Click() {
  const std::string parcel = TrimSBL(currentSBL(records(), parcels_.parts));
  const auto known = parcels_.SBLExists(parcel);
  if (!known)
    throw StoreError(known.error());
  if (!*known && !kind_.parcel.noNotes.empty())
    return desk.messages.tell(" SBL not found", kind_.parcel.noNotes, Icon::Exclamation);
  if (!*known)
    return desk.messages.tell(" Notes", "The parcel " + parcel + " is not in the parcel registry, so it has no notes.");
  NoteFrm notes(desk, parcels_, parcel);
  desk.screens.showModal(notes);
  showParcelWarnings();
}

void RecordScreen::recinfod_Click() {
  std::string text = records().text("BYUSER");
  if (const auto when = records().get("TSTAMP").moment())
    text += "\n" + datePicture(*when, "dddd, mmmm dd, yyyy") + "\nRecorded time: " + datePicture(*when, "hh:mm AM/PM");
  desk.messages.tell(" Record Information", text);
}

KeepCopy RecordScreen::keeper() const {
  const Attachments files(desk.session.dataFolder, kind_.code);
  return [&outside = desk, files, record = key()](const PrintedCopy& copy) -> Result<void> {
    const auto name = files.attachPrinted(record, copy, outside.desktop.temporaryFolder());
    return name ? Result<void>() : Result<void>(name.error());
  };
}

}  // namespace zelvo
