#include "records/permits/a_permits.h"

#include "base/number.h"
#include "base/text.h"
#include "data/lookup/parcel_lookup.h"
#include "records/permits/expiry_frm.h"
#include "records/permits/permit_kind.h"
#include "records/pick_list.h"

namespace zelvo {

namespace {

std::string shownDate(const Value& value) {
  const auto moment = value.moment();
  return moment ? datePicture(moment->date, "mm/dd/yyyy") : "";
}

std::string noDate(std::string_view typed) {
  return "\"" + std::string(typed) + "\" is no date.\nPlease write dates as mm/dd/yyyy.";
}

}  // namespace

APermits::APermits(Desk& itsDesk, mdb& parcels, LetterPrinter& letters, LabelPrinter& labels)
    : RecordScreen(itsDesk, parcels, kPermits), letters_(letters), labels_(labels) {
  for (const SubRecordPage* page : {&insurance_, &contacts_})
    SSTab1.pages.emplace_back(page->kind().page);
  SSTab1.pages.emplace_back("&Job and more");
  Text1(42).manyLines = true;
  DTPicker2.visible = false;
  picks.add(Combo1, Text1(32));
  picks.add(Combo2, Text1(33));
  picks.add(Combo3, Text1(39));
  Text1(kExpirationBox).holdsDate = Text1(kSecondDateBox).holdsDate = true;
  Text4.maxLength = 14;
  Text5.maxLength = 15;
  labexpexpired.warning = true;
  nameOwnBoxes();
  loadPickLists();
  takeAmounts(Text2);
  onLeave(Text1(kExpirationBox), [this] { leaveExpiration(); });
  onLeave(Text1(kSecondDateBox), [this] { leaveSecondDate(); });
  onClick(Check3, [this] { showExpired(); });
  bindButtons();
  for (SubRecordPage* page : {&insurance_, &contacts_})
    bindPage(*page);
}

void APermits::bindButtons() {
  for (Button* button : {&iLook, &iExpires, &iInsp, &iViol, &iCert, &iCertInfo, &iFee, &iMap})
    button->enabled = false;  // until a record is at hand
  iLook.tip = "Finds the parcel by its S-B-L, address, owner or roll entry";
  iExpires.tip = "Chooses the expiration date, or so many months from the permit date";
  iMap.tip = "Shows where the permit is";
  Label28.clickable = true;
  onClick(iPrint, [this] { iPrint_Click(); });
  onClick(iLook, [this] { iLook_Click(); });
  onClick(iExpires, [this] { iExpires_Click(); });
  onClick(iInsp, [this] { doins(); });
  onClick(iViol, [this] { doviols(); });
  onClick(iCert, [this] { docerts(); });
  onClick(iCertInfo, [this] { iCertInfo_Click(); });
  onClick(iFee, [this] { iFee_Click(); });
  onClick(iMap, [this] { iMap_Click(); });
  onClick(Label28, [this] { Label28_Click(); });
}

void APermits::nameOwnBoxes() {
  for (const auto& [box, column] : {std::pair<TextBox&, std::string_view>(TextJob, "JOB"),
                                    {TextBin, "BIN"},
                                    {TextToilets, "TOILETS"},
                                    {TextHeat, "HEATPLT1"},
                                    {TextWork, "WKTOBEG"},
                                    {TextDate2, "VD2"},
                                    {TextFee2, "FEE2"},
                                    {TextRemarks, "REMARKS1"}})
    ownBoxes.add(box, kPermits.table, column);
  ownBoxes.know(Text4, kPermits.table, "MATL");
  ownBoxes.know(Text5, kPermits.table, "LINK02", 1);
}

void APermits::loadPickLists() {
  Combo1.items = pickList(desk.session, "\\pu.txt");
  Combo2.items = pickList(desk.session, "\\pt.txt");
}

// ---- numbers

std::string APermits::proposedKey() const {
  return datePicture(desk.clock.now(), "yy") + "-" + numbering().next();
}

// The year that stands on the screen is kept: a permit begun in the old year stays one of the old year.
void APermits::BumpPermit() {
  numbering().bump();
  Text1(1).text = std::string(left(boxText(*this, 1), 2)) + "-" + numbering().next();
}

std::string APermits::duplicateText() const {
  return "The permit number entered already exists.\nYou cannot add another permit with the same number.";
}

// ---- the columns that no box shows

void APermits::clearControls() {
  DTPicker1.date = desk.clock.now().date;
  for (TextBox* box : {&Text2, &Text4, &Text5})
    box->text.clear();
  for (CheckBox* box : {&Check1, &Check2, &Check3})
    box->checked = false;
  for (int date : {kExpirationBox, kSecondDateBox})
    Text1(date).text.clear();
  labexpexpired.caption.clear();
}

void APermits::showCodedColumns() {
  const Recordset& row = records();
  if (const auto filed = row.get("VD3").moment())
    DTPicker1.date = filed->date;
  else
    DTPicker1.date.reset();
  Text1(kExpirationBox).text = shownDate(row.get("VD4"));
  Text1(kSecondDateBox).text = shownDate(row.get("VD5"));
  Text2.text = row.text("RFEE");
  Text4.text = row.text("MATL");
  Check1.checked = row.text("MM2") == "1";
  Check3.checked = row.text("VIOLOPEN") == "C";
  const std::string link = row.text("LINK02");
  Check2.checked = left(link, 1) == "|";
  Text5.text = link.empty() ? "" : std::string(trimRight(link.substr(1)));
  showExpired();
}

// An old permit without a date keeps having none until somebody gives it one.
void APermits::storePermitDate() {
  if (!DTPicker1.date)
    return;
  Recordset& row = records();
  row.set("FILEMONTH", datePicture(*DTPicker1.date, "mm"));
  row.set("FILEDATE", datePicture(*DTPicker1.date, "dd"));
  row.set("FILEYEAR", datePicture(*DTPicker1.date, "yy"));
  row.set("VD3", *DTPicker1.date);
}

void APermits::storeCodedColumns() {
  Recordset& row = records();
  const std::string number = typedKey();
  row.set("BLDGPERMYY", left(number, 2));
  row.set("BLDGPRM", length(number) > 3 ? right(number, length(number) - 3) : "");
  storePermitDate();
  row.set("VD4", dateOrToday(kExpirationBox));
  row.set("VD5", dateOrToday(kSecondDateBox));
  row.set("RFEE", Val(Text2.text));
  row.set("MM2", Check1.checked ? "1" : "");
  row.set("MATL", left(trim(Text4.text), 14));
  row.set("LINK02", std::string(Check2.checked ? "|" : " ") + std::string(left(trim(Text5.text), 15)));
  row.set("VIOLOPEN", Check3.checked ? "C" : "O");
}

// ---- dates

DateTime APermits::dateOrToday(int box) const {
  return {parseDate(boxText(*this, box)).value_or(desk.clock.now().date), 0};
}

bool APermits::refuseDate(Control& box, std::string_view text, std::size_t tab) {
  desk.messages.tell(" Date Error", text, Icon::Critical);
  SSTab1.current = tab;
  setFocus(box, true);
  return false;
}

bool APermits::isReadableDate(int box) {
  const std::string typed = boxText(*this, box);
  return typed.empty() || parseDate(typed) || refuseDate(Text1(box), noDate(typed));
}

bool APermits::expiresInTime() {
  const auto expires = parseDate(boxText(*this, kExpirationBox));
  return !expires || !DTPicker1.date || *expires >= *DTPicker1.date ||
         refuseDate(Text1(kExpirationBox), kExpiresTooEarly);
}

bool APermits::ownDateIsReadable() {
  TextBox* box = ownBoxes.unreadable();
  return !box || refuseDate(*box, noDate(box->text), kMorePage);
}

bool APermits::validateOwn() {
  if (!isSettled(insurance_, kInsurancePage) || !isSettled(contacts_, kContactsPage))
    return false;
  if (!DTPicker1.date && mode() == Mode::New)
    return refuseDate(DTPicker1, "The permit date is missing.");
  return isReadableDate(kExpirationBox) && isReadableDate(kSecondDateBox) && ownDateIsReadable() && expiresInTime();
}

// The clerk who leaves a box hears of that box alone.
void APermits::leaveExpiration() {
  if (mode() != Mode::Browse && isReadableDate(kExpirationBox) && expiresInTime())
    showExpired();
}

void APermits::iExpires_Click() {
  ExpiryFrm choice(desk, DTPicker1.date, parseDate(boxText(*this, kExpirationBox)));
  desk.screens.showModal(choice);
  if (!choice.chosen())
    return;
  Text1(kExpirationBox).text = datePicture(*choice.chosen(), "mm/dd/yyyy");
  showExpired();
}

void APermits::leaveSecondDate() {
  if (mode() != Mode::Browse)
    isReadableDate(kSecondDateBox);
}

void APermits::showExpired() {
  const auto expires = parseDate(boxText(*this, kExpirationBox));
  const bool expired = expires && *expires < desk.clock.now().date && !Check3.checked;
  labexpexpired.caption = expired ? "Expired" : "";
}

// ---- parcels

void APermits::iLook_Click() {
  const auto found = lookUpParcel(desk, *this);
  if (!found)
    return;
  const std::string number = Text1(1).text;  // taking a key apart clears this box with those of the parts
  ExtractSBL(*this, found->key);
  Text1(1).text = number;
  fillFromParcel({found->owner, found->mailing, found->location});
  setFocus(Text1(34));
}

bool APermits::PermitExists(std::string_view wanted) {
  return keyInUse(wanted);
}

}  // namespace zelvo
