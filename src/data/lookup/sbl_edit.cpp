#include "data/lookup/sbl_edit.h"

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "data/lookup/parcel_fields.h"
#include "data/parcel_key.h"
#include "data/query_text.h"

namespace zelvo {

namespace {

constexpr int kPartBoxes[] = {2, 3, 4, 5, 6};
constexpr int kPartWidth = 8;
// The section's box holds its suffix as well, behind a ".".
constexpr int kSectionWidth = 2 * kPartWidth + 1;
constexpr std::size_t kKeyWidth = 40;

/// A key with all of its eight parts.
std::vector<std::string> wholeKey(std::string_view key) {
  auto parts = split(key, '-');
  parts.resize(std::max<std::size_t>(parts.size(), 8), "0");
  return parts;
}

ExtendedParcel onlyKey(std::string_view key) {
  ExtendedParcel parcel;
  parcel.key = key;
  return parcel;
}

}  // namespace

SBLEdit::SBLEdit(Desk& itsDesk, std::string_view key) : SBLEdit(itsDesk, "Edit Parcel", onlyKey(key), false) {}

SBLEdit::SBLEdit(Desk& itsDesk, const ExtendedParcel& proposed) : SBLEdit(itsDesk, "New Parcel", proposed, true) {}

SBLEdit::SBLEdit(Desk& itsDesk, std::string_view title, ExtendedParcel parcel, bool adding)
    : Screen(itsDesk, "SBLEdit", title), parcels_(itsDesk.session), before_(std::move(parcel)), adding_(adding) {
  Text1(parcelBox::notes).manyLines = true;
  Text1(parcelBox::permit).tip = "The permit recorded last; ? for a parcel without a dwelling";
  Text1(parcelBox::history).tip = "Every permit of the parcel, each with a * behind it";
  for (const int part : {2, 3, 4})
    Text1(part).required = true;
  ISave.isDefault = true;
  ICancel.isCancel = true;
  onClick(ISave, [this] { ISave_Click(); });
  onClick(ICancel, [this] { ICancel_Click(); });
}

// ---- opening

void SBLEdit::Form_Activate(bool first) {
  if (first && !load())
    closeMe();
}

bool SBLEdit::load() {
  const auto there = adding_ ? Result<bool>(true) : parcels_.SBLExists(before_.key);
  const auto registry =
      there ? Connection::open(connectionText(joinPath(desk.session.dataFolder, "\\sbl.mdb"))) : there.error();
  const auto row = registry ? Recordset::open(*registry, "Select * from SBL where " + columnIs("SBLF", before_.key))
                            : registry.error();
  if (!row) {
    desk.messages.tell(" " + caption, row.error().message, Icon::Critical);
    return false;
  }
  if (!adding_ && (*row)->RecordCount() == 0) {
    desk.messages.tell(" SBL not found", "The parcel " + before_.key + " is not in the parcel registry any more.",
                       Icon::Exclamation);
    return false;
  }
  limitBoxes((*row)->table());
  if (adding_)
    showProposed();
  else
    showParcel(**row);
  for (TextBox& each : Text1)
    shown_[each.index()] = each.text;
  shownKey_ = MakeSBL(*this);
  setFocus(Text1(adding_ ? 2 : parcelBox::owner));
  return true;
}

void SBLEdit::limitBoxes(const Table& table) {
  for (const int part : kPartBoxes)
    Text1(part).maxLength = part == 2 ? kSectionWidth : kPartWidth;
  for (const ParcelField& field : kParcelFields) {
    const Column* column = table.find(field.column);
    Text1(field.box).enabled = column != nullptr;
    if (column)
      Text1(field.box).maxLength = std::max(column->length, 0);
    else
      Text1(field.box).tip = "The parcel registry has the old layout, which does not hold this.";
  }
}

void SBLEdit::showParcel(const Recordset& row) {
  ExtractSBL(*this, before_.key);
  for (const ParcelField& field : kParcelFields)
    if (Text1(field.box).enabled)
      Text1(field.box).text = row.text(field.column);
}

void SBLEdit::showProposed() {
  if (!before_.key.empty())
    ExtractSBL(*this, before_.key);
  const std::pair<int, std::string*> texts[] = {
      {parcelBox::owner, &before_.assoc},     {parcelBox::location, &before_.location},
      {parcelBox::contact, &before_.contact}, {parcelBox::mailing, &before_.mailing},
      {parcelBox::east, &before_.east},       {parcelBox::north, &before_.north}};
  for (const auto& [index, text] : texts)
    if (Text1(index).enabled)
      Text1(index).text = *text;
}

std::string SBLEdit::box(int index) const {
  return std::string(trim(Text1(index).text));
}

// ---- checking

bool SBLEdit::refuse(std::string_view title, std::string_view text, int index) {
  desk.messages.tell(title, text, Icon::Exclamation);
  setFocus(Text1(index), true);
  return false;
}

bool SBLEdit::keyIsRight() {
  for (const int part : {2, 3, 4})
    if (box(part).empty())
      return refuse(" Missing Information",
                    "Missing: --S-B-L\n\nPlease ensure required\nfields are filled in correctly.", part);
  for (const int part : kPartBoxes)
    if (box(part).find('-') != std::string::npos)
      return refuse(" S-B-L",
                    "\"" + box(part) +
                        "\" cannot be a part of an S-B-L: the \"-\" stands between the parts.\nPlease write each part "
                        "into its own box.",
                    part);
  return true;
}

// What is behind the boxes, a section's letter or the last suffix, stays as it was; so does a key that nobody touched.
std::string SBLEdit::typedKey() const {
  std::string key = MakeSBL(*this);
  if (!adding_ && key == shownKey_)
    return before_.key;
  auto parts = split(key, '-');
  const auto before = wholeKey(before_.key);
  if (!adding_ && parts.size() == 8)
    for (const std::size_t hidden : {2, 7})
      parts[hidden] = before[hidden];
  return TrimSBL(join(parts, "-"));
}

bool SBLEdit::mayChangeKey() {
  return adding_ || alike(typedKey(), before_.key) ||
         desk.messages.confirm(" S-B-L changed",
                               "The permits and other records of the parcel " + before_.key +
                                   " keep the S-B-L that they have.\nDo you want to change it in the parcel registry "
                                   "to " +
                                   typedKey() + "?",
                               Icon::Exclamation, Answer::No);
}

// ---- storing

Result<void> SBLEdit::store() {
  using namespace parcelBox;
  const ExtendedParcel parcel{typedKey(), box(owner), box(location), box(contact), box(mailing), box(east), box(north)};
  auto done = adding_ ? parcels_.SBLAddExtended(parcel) : parcels_.SBLUpdateExtended(parcel);
  const bool newPermit = adding_ ? !box(permit).empty() : Text1(permit).text != shown_.at(permit);
  if (done && newPermit)
    done = parcels_.SBLUpdate2(parcel.key, box(permit), parcel.assoc, parcel.location);
  if (done && !(adding_ && box(history).empty()))
    done = parcels_.SBLHistoryUpdate(box(history));
  if (done)
    done = parcels_.SBLUpdate(parcel.key, parcel.assoc, trimRight(Text1(notes).text));
  if (done)
    done = parcels_.SBLPlaceUpdate(box(city), box(state), box(zip), box(gislink));
  return done;
}

void SBLEdit::ISave_Click() {
  if (!keyIsRight() || !mayChangeKey())
    return;
  const auto done = parcels_.asOne([this] { return store(); });
  if (!done)
    return tellRefused(done.error());
  stored_ = left(typedKey(), kKeyWidth);
  closeMe();
}

void SBLEdit::tellRefused(const Error& error) {
  if (error.trouble == Trouble::Duplicate) {
    refuse(" Duplicate S-B-L",
           "The S-B-L " + typedKey() + " is in the parcel registry already.\nYou cannot give it to another parcel.", 2);
  } else if (error.trouble == Trouble::Conflict) {
    desk.messages.tell(" " + caption,
                       "Someone else changed this parcel while you worked on it. Nothing was overwritten, and what you "
                       "typed is still on the screen.\nPress Cancel to see the other changes.",
                       Icon::Exclamation);
  } else {
    desk.messages.tell(
        " " + caption,
        "The parcel could not be stored:\n" + error.message + "\n\nWhat you typed is still on the screen.",
        Icon::Critical);
  }
}

// ---- leaving

bool SBLEdit::typed() const {
  return std::any_of(shown_.begin(), shown_.end(),
                     [this](const auto& shown) { return Text1(shown.first).text != shown.second; });
}

void SBLEdit::ICancel_Click() {
  if (!typed() || desk.messages.confirm(" " + caption,
                                        "This parcel has not been stored yet.\nDo you want to leave it and lose what "
                                        "you typed?",
                                        Icon::Exclamation, Answer::No))
    closeMe();
}

}  // namespace zelvo
