#include "data/lookup/sbl_info.h"

#include "base/files.h"
#include "base/text.h"
#include "data/lookup/lookup_rows.h"
#include "data/lookup/parcel_fields.h"
#include "data/lookup/roll.h"
#include "data/lookup/sbl_edit.h"
#include "data/parcel_key.h"
#include "data/query_text.h"

namespace zelvo {

namespace {

constexpr std::string_view kAllParcels = "Select * from SBL order by [SBLF]";

/// The parcel as it is written in letters; the registry's key has lost the "-0" at its end.
std::string displayForm(std::string key) {
  constexpr std::size_t kParts = 8;
  for (std::size_t parts = split(key, '-').size(); parts < kParts; ++parts)
    key += "-0";
  ParcelParts parts;
  return mysbl2SBL(key, parts);
}

// The text goes to the browser as it stands.
bool isWebAddress(std::string_view text) {
  const std::string begin = lower(left(text, 8));
  return (begin.starts_with("http://") || begin == "https://") &&
         text.find_first_of(" \t\r\n\"'`") == std::string_view::npos;
}

}  // namespace

sblinfo::sblinfo(Desk& itsDesk, mdb& parcels) : Screen(itsDesk, "sblinfo", "Parcel Information"), parcels_(parcels) {
  Text1(parcelBox::notes).manyLines = true;
  lblFlags.warning = true;
  Quit.isCancel = true;
  for (TextBox& box : Text1)
    box.locked = true;
  IMoveFirst.tip = "First parcel";
  IMovePrev.tip = "Previous parcel";
  IMoveNext.tip = "Next parcel";
  IMoveLast.tip = "Last parcel";
  iMap.tip = "Shows the parcel on the map that its link leads to";
  onClick(INew, [this] { INew_Click(); });
  onClick(IEdit, [this] { IEdit_Click(); });
  onClick(cmdClear, [this] { cmdClear_Click(); });
  onClick(IMoveFirst, [this] { move(&Recordset::MoveFirst); });
  onClick(IMovePrev, [this] { move(&Recordset::MovePrevious); });
  onClick(IMoveNext, [this] { move(&Recordset::MoveNext); });
  onClick(IMoveLast, [this] { move(&Recordset::MoveLast); });
  onClick(iLook, [this] { desk.screens.open("sblloc"); });
  onClick(iMap, [this] { iMap_Click(); });
  onClick(Quit, [this] { closeMe(); });
}

// ---- opening

void sblinfo::Form_Activate(bool first) {
  if (first && !openParcels())
    return closeMe();
  if (!first)
    readAgain();
  if (!desk.session.hop.empty())
    hopTo(std::exchange(desk.session.hop, ""));
  showParcel();
}

bool sblinfo::openParcels() {
  const auto registry = Connection::open(connectionText(joinPath(desk.session.dataFolder, "\\sbl.mdb")));
  auto read = registry ? Recordset::open(*registry, kAllParcels) : registry.error();
  if (!read) {
    desk.messages.tell(" " + caption, read.error().message, Icon::Critical);
    return false;
  }
  rows_ = std::move(*read);
  return true;
}

void sblinfo::readAgain() {
  if (const auto read = rows_->Refresh(); !read)
    throw StoreError(read.error());
}

void sblinfo::hopTo(std::string wanted) {
  if (!goTo(wanted))
    offerNew(wanted);
}

// Where the parcel is not there the one that is shown stays.
bool sblinfo::goTo(std::string_view wanted) {
  const auto here = rows_->bookmark();
  rows_->MoveFirst();
  const auto found = rows_->Find(columnIs("SBLF", wanted));
  if (!found)
    throw StoreError(found.error());
  if (!*found && !rows_->goTo(here))
    rows_->MoveFirst();
  return *found;
}

void sblinfo::offerNew(const std::string& wanted) {
  if (desk.messages.confirm(" SBL not found",
                            "The Section, Block and Lot info cannot be found.\nIf this is a new S-B-L, click 'Yes' "
                            "to add this as a new record."))
    addParcel(parcelFromRoll(desk.session, wanted));
}

// ---- showing

std::string sblinfo::key() const {
  return rows_->RecordCount() == 0 ? "" : rows_->text("SBLF");
}

void sblinfo::move(void (Recordset::*step)()) {
  ((*rows_).*step)();
  showParcel();
}

void sblinfo::showParcel() {
  Recordset& rows = *rows_;
  const bool some = rows.RecordCount() > 0;
  for (Button* button : {&IEdit, &cmdClear, &IMoveFirst, &IMovePrev, &IMoveNext, &IMoveLast})
    button->enabled = some;
  if (!some)
    return showNothing();
  if (rows.Eof())
    rows.MoveLast();
  if (rows.Bof())
    rows.MoveFirst();
  lblStatus.caption = "Parcel " + std::to_string(rows.AbsolutePosition()) + " of " + std::to_string(rows.RecordCount());
  Text1(1).text = key();
  lblParcel.caption = displayForm(key());
  for (const ParcelField& field : kParcelFields) {
    TextBox& box = Text1(field.box);
    box.enabled = rows.table().find(field.column) != nullptr;
    box.text = box.enabled ? rows.text(field.column) : "";
  }
  showFlags(flagsOf(rows));
  cmdClear.enabled = !lblFlags.caption.empty() || !Text1(parcelBox::notes).text.empty();
  iMap.enabled = isWebAddress(trim(Text1(parcelBox::gislink).text));
}

void sblinfo::showNothing() {
  for (TextBox& box : Text1)
    box.text.clear();
  lblStatus.caption = "empty database";
  lblParcel.caption.clear();
  showFlags("");
  iMap.enabled = false;
}

void sblinfo::showFlags(const std::string& words) {
  lblFlags.caption = words;
  lblFlags.visible = !words.empty();
}

void sblinfo::iMap_Click() {
  OpenDocument(desk, trim(Text1(parcelBox::gislink).text));
}

// ---- changing

void sblinfo::IEdit_Click() {
  SBLEdit edit(desk, key());
  desk.screens.showModal(edit);
  if (edit.stored())
    goTo(*edit.stored());
  showParcel();
}

void sblinfo::INew_Click() {
  addParcel({});
}

void sblinfo::addParcel(const ExtendedParcel& proposed) {
  SBLEdit edit(desk, proposed);
  desk.screens.showModal(edit);
  if (!edit.stored())
    return;
  goTo(*edit.stored());
  showParcel();
}

// The flags are asked about as they are now, and are not lowered when one was raised while the clerk thought it over.
void sblinfo::cmdClear_Click() {
  readAgain();
  showParcel();
  const auto known = parcels_.SBLExists(key());
  if (!known)
    throw StoreError(known.error());
  const std::string flags = lblFlags.caption.empty() ? "no flag" : lblFlags.caption;
  if (!*known || !desk.messages.confirm(" Clear Flags",
                                        "The parcel " + key() + " has: " + flags +
                                            ".\nDo you want to clear its flags, and the note with them?",
                                        Icon::Exclamation, Answer::No))
    return;
  if (const auto cleared = parcels_.asOne([this] { return parcels_.SBLClearFlag(); }); !cleared)
    desk.messages.tell(" Clear Flags",
                       cleared.error().trouble == Trouble::Conflict
                           ? "Someone else changed this parcel meanwhile. Nothing was cleared.\nPlease look at it "
                             "again."
                           : cleared.error().message,
                       Icon::Exclamation);
  readAgain();
  showParcel();
}

}  // namespace zelvo
