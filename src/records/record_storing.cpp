// The storing half of the record pattern: what is checked before a record is stored, and the order in which record,
// parcel and number are written.

#include <algorithm>

#include "base/text.h"
#include "data/query_text.h"
#include "records/record_screen.h"

namespace zelvo {

// ---- checking

bool RecordScreen::validate(bool adding) {
  picks.fillBoxes();
  tidyBoxes();
  return requireFilled() && validateOwn() && (!adding || refuseDuplicate()) && askAboutParcel();
}

bool RecordScreen::requireFilled() {
  std::string missing;
  TextBox* first = nullptr;
  for (const RequiredBox& required : kind_.required) {
    TextBox* box = isNeeded(required) ? firstBlank(required) : nullptr;
    if (!box)
      continue;
    missing += std::string(required.label) + "\n";
    first = first ? first : box;
  }
  if (missing.empty())
    return true;
  desk.messages.tell(" Missing Information",
                     "Missing: " + missing + "\nPlease ensure required\nfields are filled in correctly.",
                     Icon::Critical);
  SSTab1.current = kRecordPage;
  Combo* pick = picks.standingFor(*first);
  setFocus(pick ? static_cast<Control&>(*pick) : *first);
  return false;
}

TextBox* RecordScreen::firstBlank(const RequiredBox& required) {
  if (required.box != kParcelBoxes)
    return boxText(*this, required.box).empty() ? &Text1(required.box) : nullptr;
  for (int part : kParcelKeyBoxes)
    if (boxText(*this, part).empty())
      return &Text1(part);
  return nullptr;
}

// A number that the clerk took as it was proposed moves on when another computer was quicker; one that the clerk
// typed is the clerk's own, and refused when it is taken.
bool RecordScreen::renumbering() const {
  return numbering_.automatic() || boxText(*this, 1) == proposed_;
}

std::string RecordScreen::typedKey() const {
  const Column* column = records().table().find(records().table().key);
  return std::string(left(boxText(*this, 1), static_cast<std::size_t>(std::max(column->length, 0))));
}

bool RecordScreen::keyInUse(std::string_view wanted) {
  const Table& table = records().table();
  const auto inUse = connection_->exists(table.name, columnIs(table.key, wanted));
  if (!inUse)
    throw StoreError(inUse.error());
  return *inUse;
}

bool RecordScreen::refuseDuplicate() {
  while (keyInUse(typedKey())) {
    if (!renumbering()) {
      desk.messages.tell(duplicateTitle(), duplicateText(), Icon::Critical);
      setFocus(Text1(1), true);
      return false;
    }
    bumpKey();
    proposed_ = boxText(*this, 1);
  }
  return true;
}

std::string RecordScreen::parcelKey() const {
  auto parts = split(MakeSBL(*this), '-');
  const std::string suffix = mode_ == Mode::Edit ? upper(trim(records().text("SUD"))) : "";
  if (parts.size() > 1 && boxText(*this, 2).find('.') == std::string::npos && !suffix.empty())
    parts[1] = suffix;
  return TrimSBL(join(parts, "-"));
}

bool RecordScreen::askAboutParcel() {
  const std::string parcel = parcelKey();
  const auto known = parcels_.SBLExists(parcel);
  if (!known)
    throw StoreError(known.error());
  if (!*known && parcel == newParcel_)
    return true;  // agreed to before a store that was refused
  newParcel_.clear();
  if (*known)
    return !kind_.parcel.warnsOfViolation || !parcels_.SBLHasViol() ||
           desk.messages.confirm(" Property had a Violation",
                                 "This property has an open violation:\n" + parcels_.currentNote +
                                     "\n\nDo you want to store the " + std::string(kind_.noun) + " all the same?",
                                 Icon::Exclamation, Answer::No);
  if (desk.messages.confirm(" SBL not found", kind_.parcel.question, Icon::Question))
    newParcel_ = parcel;
  else if (kind_.parcel.needed)
    setFocus(Text1(2));
  return !newParcel_.empty() || !kind_.parcel.needed;
}

// ---- storing

void RecordScreen::movefieldsintodb() {
  picks.fillBoxes();
  records().set(records().table().key, typedKey());
  screenToRecord(*this, records(), shown_);
  ownBoxes.store(records());
  storeCodedColumns();
  stampRecord();
}

void RecordScreen::stampRecord() {
  records().set("BYUSER", left(desk.session.userId, 18));
  records().set("TSTAMP", desk.clock.now());
}

// The store is held for writing from the first line to the last: a computer that adds at the same moment waits its
// turn and then finds the number taken. The parcel goes in before the record is acknowledged, then the number. What
// belongs to the record in other databases is kept by the same commit as the record.
Result<void> RecordScreen::store() {
  const auto along = databasesAlong();
  if (!along)
    return along.error();
  auto transaction = connection_->begin(*along);
  if (!transaction)
    return transaction.error();
  if (mode_ == Mode::New)
    records().AddNew();
  movefieldsintodb();
  if (auto stored = records().Update(); !stored)
    return stored;
  if (auto stored = storeParcel(); !stored)
    return stored;
  if (auto stored = storeAlong(); !stored)
    return stored;
  if (mode_ == Mode::New) {
    const auto numbered = numbering_.noteTaken();
    numberTrouble_ = numbered ? "" : numbered.error().message;
  }
  return transaction->commit();
}

Result<void> RecordScreen::storeParcel() {
  if (newParcel_.empty())
    return {};
  auto added = parcels_.SBLAdd(newParcel_, parcelPermit(), parcelOwner(), "", parcelLocation());
  const bool byAnother = !added && added.error().trouble == Trouble::Duplicate;
  return byAnother ? Result<void>() : added;  // another computer registered the parcel meanwhile: all the better
}

void RecordScreen::IAdd_Click() {
  constexpr int kPatience = 100;  // computers that are quicker, one after another
  for (int attempt = 1; validate(true); ++attempt) {
    const auto stored = store();
    if (stored) {
      numbering_.moveOn();
      return afterStoring();
    }
    records().CancelUpdate();
    (void)records().Refresh().ok();
    // Another computer may take the number between the check and the store: then the check tells, or moves on.
    if (stored.error().trouble != Trouble::Duplicate || attempt == kPatience)
      return tellStoreFailed(stored.error());
  }
}

void RecordScreen::ISave_Click() {
  numberTrouble_.clear();
  while ((!conflict_ || resolveConflict()) && validate(false)) {
    const auto stored = store();
    if (stored)
      return afterStoring();
    if (stored.error().trouble != Trouble::Conflict)
      return tellStoreFailed(stored.error());
    conflict_ = true;
  }
}

void RecordScreen::afterStoring() {
  list_.ListView1.rowsChanged();
  if (mode_ == Mode::New)
    showAfterAdd();
  browse();
  tellNumberTrouble();
}

void RecordScreen::tellNumberTrouble() {
  if (!numberTrouble_.empty())
    desk.messages.tell(" " + caption,
                       "The " + std::string(kind_.noun) + " " + key() +
                           " is stored, but the next number could not be noted:\n" + numberTrouble_,
                       Icon::Exclamation);
}

void RecordScreen::tellStoreFailed(const Error& error) {
  desk.messages.tell(" " + caption,
                     "The " + std::string(kind_.noun) + " could not be stored:\n" + error.message +
                         "\n\nWhat you typed is still on the screen.",
                     Icon::Critical);
}

// ---- two people, one record

// Shows what someone else stored meanwhile beside what is typed, and takes what the user chose. False, with the typing
// as it was, when nothing is to be stored now.
bool RecordScreen::resolveConflict() {
  const ScreenValues mine = valuesOf(*this);
  if (!readTheirs())
    return false;
  const ScreenValues theirs = valuesOf(*this);
  if (!settleConflict(desk, whoChanged(), asRead_, theirs, mine))
    return false;
  asRead_ = theirs;
  conflict_ = false;
  return true;
}

// Puts the record as it lies in the store now on the screen.
bool RecordScreen::readTheirs() {
  records().CancelUpdate();
  if (const auto read = records().Refresh(); !read)
    throw StoreError(read.error());
  if (!records().goTo(returnTo_)) {
    desk.messages.tell(
        " " + caption,
        "This " + std::string(kind_.noun) + " was removed on another computer. What you typed is still on the screen.",
        Icon::Exclamation);
    return false;
  }
  getdata();
  return true;
}

std::string RecordScreen::whoChanged() const {
  std::string text = records().text("BYUSER");
  if (text.empty())
    text = "Someone else";
  text += " changed this " + std::string(kind_.noun);
  if (const auto when = records().get("TSTAMP").moment())
    text += " on " + datePicture(*when, "mm/dd/yyyy") + " at " + datePicture(*when, "hh:mm AM/PM");
  return text;
}

}  // namespace zelvo
