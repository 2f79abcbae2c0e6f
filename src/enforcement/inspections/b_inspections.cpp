#include "enforcement/inspections/b_inspections.h"

#include "base/number.h"
#include "base/text.h"
#include "data/query_text.h"
#include "enforcement/code_tables.h"
#include "enforcement/inspections/inspection_codes.h"
#include "enforcement/inspections/permit_rows.h"
#include "records/other_records.h"
#include "records/search_by_example.h"

namespace zelvo {

using namespace inspection_box;

namespace {

constexpr OtherRecords kPermitRecords{"APermits", "Building permits", QuerySlot::Permits, "db1.mdb"};
constexpr OtherRecords kViolationRecords{"CViolations", "Violations", QuerySlot::Violations, "db5.mdb"};
constexpr std::string_view kPermitNotFound = "** PERMIT NOT FOUND **";
constexpr std::string_view kResolution = "*** RESOLVED ", kResolvedMark = "**";

std::string unresolved(const std::string& nature) {
  return nature.substr(0, nature.find(kResolution));
}

std::optional<Date> givenDate(const Recordset& row, std::string_view column) {
  const auto moment = row.get(column).moment();
  return moment && moment->date != kNoInspectionDate ? std::optional(moment->date) : std::nullopt;
}

}  // namespace

BInspections::BInspections(Desk& itsDesk, mdb& itsParcels, LetterPrinter& letters)
    : RecordScreen(itsDesk, itsParcels, kInspections), letters_(letters) {
  for (int box : {kComments, kNature, kNotes})
    Text1(box).manyLines = true;
  Option1.chosen = true;
  Option1.visible = Option2.visible = false;
  ListView3.columns = {{" No. ", 7}, {" Date ", 9}, {" What ", 24}};
  iReinspect.enabled = iChecklist.enabled = iReports.enabled = iPermit.enabled = cmdQuick.enabled = false;
  iReinspect.tip = "Begin a new inspection of the same work";
  cmdQuick.tip = "Add a plan review, passed, to the permit that is located";
  iPermit.tip = "Show the building permit of this inspection";
  iPermit.shortcut = "Ctrl+B";
  iReports.shortcut = "Ctrl+R";
  declarePicks();
  bindControls();
}

void BInspections::declarePicks() {
  Combo1.items = {std::string(kSelect), "BLDG", "OTHER", "COMPLAINT"};
  Combo1.freeText = false;
  Combo3.items = Combo5.items = desk.session.inspectors;
  Combo4.items = {std::string(kSelect), "Passed", "Failed", "Exempt", "Incomplete", "Resolved", "Open"};
  picks.add(Combo1, Text1(kCategory), [](std::string_view code) { return shownCode(code, ICode2Combo); });
  picks.add(Combo2, Text1(kType), [this](std::string_view stored) { return shownType(stored); });
  picks.add(Combo3, Text1(kInspector));
  picks.add(Combo4, Text1(kResult), [](std::string_view code) { return shownCode(code, RCode2Combo); });
  picks.add(Combo5, Text1(kInvestigator));
  for (Combo* combo : {&Combo3, &Combo5})
    combo->items.emplace(combo->items.begin(), kSelect);
}

void BInspections::bindControls() {
  onEdit(Combo1, [this] { chooseCategory(); });
  onEdit(Text2, [this] { keepNature(); });
  onLeave(Text1(kPermit), [this] { leavePermit(); });
  onOpenRow(ListView3, [this] { openMatter(); });
  onClick(iReinspect, [this] { iReinspect_Click(); });
  onClick(iPermit, [this] { iPermit_Click(); });
  onClick(iChecklist, [this] { iChecklist_Click(); });
  onClick(iReports, [this] { iReports_Click(); });
  onClick(cmdQuick, [this] { qcload(); });
  onClick(iPrint, [this] { iPrint_Click(); });
}

// ---- category and type

void BInspections::chooseCategory() {
  loadTypes();
  Combo2.text = kSelect;
  markRequired();
}

void BInspections::loadTypes() {
  Combo2.items = inspectionTypes(desk.session, Combo1.text);
}

// Old complaints have a code for their type.
std::string BInspections::shownType(std::string_view stored) const {
  const bool code = upper(Text1(kCategory).text) == "C" && length(stored) <= 2;
  if (trim(stored).empty())
    return std::string(kNoCode);
  return code ? BCode2Combo(stored, desk.session) : std::string(stored);
}

// Only the inspections of a building belong to a permit; what the complaint is about has to be said.
bool BInspections::isNeeded(const RequiredBox& needed) const {
  if (needed.box == kPermit)
    return !isCategory("OTHER") && !isCategory("COMPLAINT");
  const bool ofComplaint = needed.box == kComplainant || needed.box == kNature || needed.label == "--Property Location";
  return !ofComplaint || isCategory("COMPLAINT");
}

// ---- numbers

void BInspections::BumpICN() {
  numbering().bump();
  Text1(1).text = numbering().next();
}

bool BInspections::validateOwn() {
  for (TextBox& box : Text1)
    box.text = trim(box.text);
  return isNumberGiven() && isResultGiven();
}

bool BInspections::isNumberGiven() {
  if (isNumber(boxText(*this, 1)))
    return true;
  desk.messages.tell(" Inspection not a Number",
                     "You cannot use non-numeric info in this field.\nThe ICN number entered must be numeric.",
                     Icon::Critical);
  setFocus(Text1(1), true);
  return false;
}

// The first letter is what is stored: "Fine" would be a failed inspection.
bool BInspections::isResultGiven() {
  const std::string_view typed = trim(Combo4.text);
  if (length(typed) == 1 || alike(typed, shownCode(Text1(kResult).text, RCode2Combo)))
    return true;
  desk.messages.tell(" Inspection result",
                     "\"" + std::string(typed) + "\" is no result of an inspection.\nPlease choose one from the list.",
                     Icon::Critical);
  setFocus(Combo4, true);
  return false;
}

// ---- the columns that no box shows

void BInspections::clearControls() {
  DTPicker1.date = desk.clock.now().date;
  DTPicker2.date.reset();
  DTPicker3.date.reset();
  Text2.text.clear();
  heldNature_.clear();
  askedFor_.clear();
  ListView3.rows.reset();
  lblMatters.caption.clear();
  Combo2.items = {std::string(kSelect)};
}

void BInspections::showCodedColumns() {
  const Recordset& row = records();
  DTPicker1.date = givenDate(row, "DATEINSP");
  DTPicker2.date = givenDate(row, "INSPDATE");
  DTPicker3.date = givenDate(row, "NRECNO");
  heldNature_ = row.text("NATURE");
  askedFor_ = row.text("PERMIT");
  loadTypes();
  markRequired();
  showMatters();
}

void BInspections::storeCodedColumns() {
  storePermitParts();
  storeDates();
  storeResolution();
  nameOwnerOfUnknownPermit();
}

// "25-134A": year, number and suffix, kept apart for sorting.
void BInspections::storePermitParts() {
  const std::string permit = boxText(*this, kPermit);
  const auto dash = permit.find('-');
  const std::string behind = dash == std::string::npos ? "" : permit.substr(dash + 1);
  const auto suffix = std::min(behind.find_first_not_of("0123456789"), behind.size());
  Recordset& row = records();
  row.set("BLDGPERMYY", dash == std::string::npos ? "" : permit.substr(0, dash));
  row.set("BLDGPRM", behind.substr(0, suffix));
  row.set("BLDGPERMA", behind.substr(suffix));
}

void BInspections::storeDates() {
  Recordset& row = records();
  const auto inspected = DTPicker1.date;
  row.set("DATEINSP", inspected.value_or(kNoInspectionDate));
  row.set("INSPMONT", inspected ? std::to_string(inspected->month) : "");
  row.set("INSPYEAR", inspected ? std::to_string(inspected->year) : "");
  row.set("INSPDATE", DTPicker2.date.value_or(kNoInspectionDate));
  row.set("NRECNO", DTPicker3.date.value_or(kNoInspectionDate));
}

// A complaint is resolved as it was received: while the resolution is typed, its nature stands as the record has it.
void BInspections::keepNature() {
  const bool resolving = !trim(Text2.text).empty();
  if (resolving && mode() == Mode::Edit)
    Text1(kNature).text = heldNature_;
  Text1(kNature).locked = resolving && mode() == Mode::Edit;
}

void BInspections::storeResolution() {
  const std::string_view resolution = trim(Text2.text);
  const std::string nature = mode() == Mode::Edit ? heldNature_ : boxText(*this, kNature);
  if (!resolution.empty())
    records().set("NATURE", nature + std::string(kResolution) + std::string(resolution) + " **");
}

// ---- the permit

std::unique_ptr<Recordset> BInspections::permitRow(const std::string& number) {
  auto rows = permitsWith(desk, columnIs("PERMIT", number));
  if (!rows && rows.error().trouble != Trouble::Cancelled)
    throw StoreError(rows.error());
  return rows ? std::move(*rows) : nullptr;
}

void BInspections::leavePermit() {
  const std::string number = boxText(*this, kPermit);
  if ((mode() != Mode::New && mode() != Mode::Edit) || number == askedFor_)
    return;
  askedFor_ = number;
  const auto permit = number.empty() ? nullptr : permitRow(number);
  if (!permit)
    return;
  TextBox& owner = Text1(kOwner);
  if (owner.text == kPermitNotFound)
    owner.text.clear();
  if (!permit->Eof())
    fillFromPermit(*permit, *this);
  else if (trim(owner.text).empty())
    owner.text = kPermitNotFound;
  showStatus(permit->Eof() ? "The permit " + number + " is not among the building permits." : "");
  showMatters();
}

// Whoever was told that the permit is unknown and names an owner all the same knows who it is.
void BInspections::nameOwnerOfUnknownPermit() {
  const std::string number = boxText(*this, kPermit);
  if (number.empty() || (number == askedFor_ && !boxText(*this, kOwner).empty()))
    return;
  if (const auto permit = permitRow(number); permit && permit->Eof())
    records().set("OWNNAME1", kPermitNotFound);
}

void BInspections::iPermit_Click() {
  hopToRecord(desk, kPermitRecords, boxText(*this, kPermit));
}

// The screen shows the inspections of one permit when that is all that its query asks for.
std::string BInspections::locatedPermit() const {
  const std::string condition = queryParts(currentQuery()).condition;
  constexpr std::string_view kBefore = "[PERMIT] = '";
  if (!alike(left(condition, kBefore.size()), kBefore) || !condition.ends_with('\''))
    return "";
  const auto quoted = std::string_view(condition).substr(kBefore.size(), condition.size() - kBefore.size() - 1);
  const std::string number = replaceAll(quoted, "''", "'");
  return columnIs("PERMIT", number).size() == condition.size() ? number : "";
}

void BInspections::prefillNew(bool copy) {
  const std::string number = locatedPermit();
  loadTypes();
  markRequired();
  if (copy || number.empty())
    return showMatters();
  askedFor_ = Text1(kPermit).text = number;
  Combo1.text = "BLDG";
  chooseCategory();
  if (const auto permit = permitRow(number); permit && !permit->Eof())
    fillFromPermit(*permit, *this);
  showMatters();
}

// ---- new inspections out of others

void BInspections::clearForCopy() {
  Combo4.text = kSelect;
  Text1(kResult).text.clear();
  Text1(kComments).text.clear();
  Text1(kNature).text = unresolved(Text1(kNature).text);
  Text2.text.clear();
  heldNature_.clear();
  DTPicker1.date = desk.clock.now().date;
  DTPicker2.date.reset();
}

void BInspections::iReinspect_Click() {
  const std::string before = key();
  const std::string result = lower(Combo4.text);
  ICopy_Click();
  Text1(kComments).text = "Re-inspection of ICN " + before + " (" + result + ").";
  setFocus(Combo4);
}

void BInspections::qcload() {
  const std::string permit = locatedPermit();
  if (permit.empty())
    return desk.messages.tell(" " + caption, "You must 'LOCATE' a permit first before adding inspections.",
                              Icon::Exclamation);
  INew_Click();
  loadTypes();
  Combo2.text = "01 Plan Review";
  Combo3.text = "QC";
  Combo4.text = "Passed";
  Text1(kComments).text = "Comments Test ICN " + Text1(1).text + " Permit " + permit;
  IAdd_Click();
}

// ---- buttons

void BInspections::enableOwnButtons(bool browsing) {
  const bool onRecord = browsing && !dbisempty();
  ILocate.enabled = browsing || mode() == Mode::Search;  // a permit is found where there is no inspection yet
  iReports.enabled = cmdQuick.enabled = browsing;
  iChecklist.enabled = mode() != Mode::Search;
  iPermit.enabled = onRecord && !boxText(*this, kPermit).empty();
  const std::string result = onRecord ? upper(Text1(kResult).text) : "";
  iReinspect.enabled = result == "F" || result == "I";
}

// ---- the parcel

Result<void> BInspections::storeAlong() {
  const auto known = parcels().SBLExists(parcelKey());
  if (!known)
    return known.error();
  return *known ? raiseFlags() : Result<void>();
}

// A complaint and a failed inspection share a flag: of an inspection that is both the complaint stands.
Result<void> BInspections::raiseFlags() {
  noteOnParcel();
  if (upper(Text1(kResult).text) == "F")
    if (auto set = parcels().SBLSetFailed(); !set)
      return set;
  const std::string nature(trim(records().text("NATURE")));
  if (!isCategory("COMPLAINT") || nature.empty())
    return {};
  return nature.ends_with(kResolvedMark) ? parcels().SBLClearFailed() : parcels().SBLSetComplaint();
}

// The note of the flag is the inspection's number. What somebody wrote on the parcel stays before it.
void BInspections::noteOnParcel() {
  constexpr std::string_view kMark = "ICN ";
  std::string note;
  if (parcels().SBLHasNotes())
    for (const std::string& line : split(replaceAll(parcels().currentNote, "\r", ""), '\n'))
      if (!line.starts_with(kMark) && !trim(line).empty())
        note += line + "\n";
  parcels().currentNote = note + std::string(kMark) + typedKey();
}

void BInspections::showMatters() {
  matters_ = openMatters(desk.session, *this, mode() == Mode::New ? "" : boxText(*this, 1));
  auto rows = std::make_shared<MemoryRows>();
  for (const ParcelMatter& matter : matters_)
    rows->rows.push_back(
        {(matter.kind == ParcelMatter::Kind::Violation ? "V " : "ICN ") + matter.key, matter.date, matter.what});
  ListView3.rows = rows;
  ListView3.selected.reset();
  ListView3.rowsChanged();
  const bool parcel = !boxText(*this, 2).empty() && !boxText(*this, 3).empty() && !boxText(*this, 4).empty();
  lblMatters.caption = parcel && matters_.empty() ? "Nothing is open on this parcel." : "";
}

void BInspections::openMatter() {
  if (!ListView3.selected || mode() != Mode::Browse)
    return;
  const ParcelMatter matter = matters_[*ListView3.selected];
  if (matter.kind == ParcelMatter::Kind::FailedInspection) {
    if (!goToKey(matter.key)) {
      showRecords("");
      goToKey(matter.key);
    }
    return refreshRecord();
  }
  hopToRecord(desk, kViolationRecords, matter.key);
}

// ---- what is shown from now on

// Behind an inspection of a permit the inspections of that permit are shown.
void BInspections::showAfterAdd() {
  const std::string added = key();
  const std::string permit = boxText(*this, kPermit);
  if (permit.empty() && queryParts(currentQuery()).condition.empty())
    return;
  showRecords(permit.empty() ? "" : columnIs("PERMIT", permit));
  goToKey(added);
}

std::string BInspections::showNoRecord() {
  const std::string number = locatedPermit();
  if (number.empty())
    return RecordScreen::showNoRecord();
  Text1(kPermit).text = number;
  if (const auto permit = permitRow(number); permit && !permit->Eof())
    fillFromPermit(*permit, *this);
  showMatters();
  return "No inspections";
}

}  // namespace zelvo
