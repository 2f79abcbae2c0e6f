#include "data/mdb.h"

#include "base/files.h"
#include "base/text.h"
#include "data/query_text.h"
#include "data/row_storing.h"

namespace zelvo {

namespace {

constexpr std::size_t keyWidth = 40, ownerWidth = 20, permitWidth = 20, locationWidth = 70;

/// The key as the registry holds it.
std::string storedKey(std::string_view key) {
  return upper(left(key, keyWidth));
}

std::string history(std::string_view permit) {
  return std::string(permit) + "*";
}

std::string fieldText(const Recordset& row, std::string_view field) {
  return row.table().find(field) ? row.text(field) : std::string();
}

/// Fields that only the extended layout has are left out of the old one.
void setIfThere(Recordset& row, std::string_view field, std::string_view value) {
  if (row.table().find(field))
    row.set(field, value);
}

void writeExtended(Recordset& row, const ExtendedParcel& parcel) {
  row.set("SBLF", storedKey(parcel.key));
  row.set("ASSOC", left(parcel.assoc, ownerWidth));
  row.set("LOCN1", left(parcel.location, locationWidth));
  setIfThere(row, "CONTACT", parcel.contact);
  setIfThere(row, "MAILING", parcel.mailing);
  setIfThere(row, "EASTCOORD", parcel.east);
  setIfThere(row, "NORTHCOORD", parcel.north);
}

Error noParcel() {
  return {Trouble::NotFound, "No parcel is chosen in the parcel registry. Look the parcel up first."};
}

}  // namespace

Result<void> mdb::resetsbl() {
  parcels_.reset();
  connection_.reset();
  auto opened = Connection::open(connectionText(joinPath(session_.dataFolder, "\\sbl.mdb")));
  if (!opened)
    return opened.error();
  const auto table = (*opened)->table("SBL");
  if (!table)
    return table.error();
  connection_ = *opened;
  folder_ = session_.dataFolder;
  session_.parcelLayout = static_cast<int>((*table)->columns.size());
  return {};
}

// The office may have moved to another data folder since, or to a server: the registry is open as long as the program
// runs, and goes with it.
Result<void> mdb::reach() {
  const bool there = connection_ && folder_ == session_.dataFolder && connection_->inItsPlace();
  return there ? Result<void>() : resetsbl();
}

Result<std::unique_ptr<Recordset>> mdb::rowsOf(std::string_view key) {
  if (auto reached = reach(); !reached)
    return reached.error();
  auto rows = Recordset::open(connection_, "Select * from SBL where " + columnIs("SBLF", key));
  // A shared folder that was lost and came back is reached through a new connection only.
  if (!rows)
    connection_.reset();
  return rows;
}

Result<bool> mdb::SBLExists(std::string_view key) {
  if (session_.parcelLookupOff)
    return false;
  parcels_.reset();
  auto found = rowsOf(storedKey(key));
  if (!found)
    return found.error();
  parcels_ = std::move(*found);
  if (!onParcel())
    return false;
  permit = parcels_->text("PERMIT");
  assoc = parcels_->text("ASSOC");
  location = parcels_->text("LOCN1");
  mailing = fieldText(*parcels_, "MAILING");
  return true;
}

Result<void> mdb::addRow(std::string_view key, const Write& write) {
  auto row = rowsOf(storedKey(key));
  if (!row)
    return row.error();
  (*row)->AddNew();
  for (const std::string_view flag : {"OTHER", "FAILED", "VIOL"})
    (*row)->set(flag, 0);
  write(**row);
  if (auto stored = (*row)->Update(); !stored)
    return stored;
  parcels_ = std::move(*row);
  return {};
}

Result<void> mdb::SBLAdd(std::string_view key, std::string_view itsPermit, std::string_view owner,
                         std::string_view notes, std::string_view place) {
  return SBLAdd18(key, itsPermit, owner, notes, place, "", "");
}

Result<void> mdb::SBLAdd18(std::string_view key, std::string_view itsPermit, std::string_view owner,
                           std::string_view notes, std::string_view place, std::string_view contact,
                           std::string_view mailTo) {
  return addRow(key, [&](Recordset& row) {
    row.set("SBLF", storedKey(key));
    row.set("ASSOC", left(owner, ownerWidth));
    row.set("PERMIT", left(itsPermit, permitWidth));
    row.set("HISTORICAL", history(itsPermit));
    row.set("LOCN1", left(place, locationWidth));
    row.set("NOTES", notes);
    setIfThere(row, "CONTACT", contact);
    setIfThere(row, "MAILING", mailTo);
  });
}

Result<void> mdb::SBLAddExtended(const ExtendedParcel& parcel) {
  return addRow(parcel.key, [&](Recordset& row) { writeExtended(row, parcel); });
}

Result<void> mdb::SBLUpdateExtended(const ExtendedParcel& parcel) {
  return rewriteRow([&](Recordset& row) { writeExtended(row, parcel); });
}

bool mdb::onParcel() const {
  return parcels_ && parcels_->AbsolutePosition() > 0;
}

// Someone else may have written to the row since it was read, or the office was moved. What is written here does not
// depend on what was read, so it is written again to the row as it is now, where it is now.
Result<void> mdb::rewriteRow(const Write& write) {
  if (!onParcel())
    return noParcel();
  const std::string key = parcels_->text("SBLF");
  auto stored = writeAndStore(write);
  const bool inPlace = connection_ && connection_->inItsPlace();
  if (stored || (inPlace && stored.error().trouble != Trouble::Conflict))
    return stored;
  auto fresh = rowsOf(key);
  if (!fresh)
    return fresh.error();
  parcels_ = std::move(*fresh);
  return onParcel() ? writeAndStore(write) : noParcel();
}

Result<void> mdb::writeAndStore(const Write& write) {
  write(*parcels_);
  auto stored = parcels_->Update();
  if (!stored)
    parcels_->CancelUpdate();
  return stored;
}

Result<void> mdb::SBLUpdate(std::string_view, std::string_view owner, std::string_view notes) {
  return rewriteRow([&](Recordset& row) {
    row.set("ASSOC", owner.empty() ? "UNK" : left(owner, ownerWidth));
    row.set("NOTES", notes);
  });
}

Result<void> mdb::SBLUpdate2(std::string_view key, std::string_view itsPermit, std::string_view owner,
                             std::string_view place) {
  return rewriteRow([&](Recordset& row) {
    const std::string_view number = trim(left(itsPermit, permitWidth));
    row.set("SBLF", trim(storedKey(key)));
    row.set("ASSOC", trim(left(owner, ownerWidth)));
    row.set("PERMIT", number);
    row.set("HISTORICAL", history(number));
    row.set("LOCN1", left(place, locationWidth));
  });
}

Result<void> mdb::SBLHistoryUpdate(std::string_view text) {
  return rewriteRow([&](Recordset& row) { row.set("HISTORICAL", text); });
}

Result<void> mdb::SBLPlaceUpdate(std::string_view city, std::string_view state, std::string_view zip,
                                 std::string_view gislink) {
  return rewriteRow([&](Recordset& row) {
    row.set("CITY", city);
    row.set("STATE", state);
    row.set("ZIP", zip);
    row.set("GISLINK", gislink);
  });
}

Result<void> mdb::unchanged() const {
  if (!onParcel())
    return {};
  const auto now = parcels_->currentInStore();
  if (!now)
    return now.error();
  Row read;
  for (const Column& column : parcels_->table().columns)
    read.push_back(parcels_->get(column.name));
  return *now == read ? Result<void>() : changedMeanwhile(connection_->path(), parcels_->table(), read, *now);
}

Result<void> mdb::asOne(const std::function<Result<void>()>& changes) {
  if (auto reached = reach(); !reached)
    return reached;
  const auto held = connection_;  // a trouble on the way may drop the registry's own
  auto whole = held->begin();
  if (!whole)
    return whole.error();
  auto done = unchanged();
  if (done)
    done = changes();
  if (done)
    done = whole->commit();
  whole->rollback();
  if (!done && parcels_)
    parcels_->CancelUpdate();
  return done;
}

bool mdb::flagIs(std::string_view field, double value) {
  if (!onParcel())
    return false;
  currentNote = parcels_->text("NOTES");
  const Value flag = parcels_->get(field);
  return !flag.isNull() && flag.number() == value;
}

bool mdb::SBLHasOther() {
  return flagIs("OTHER", 1);
}
bool mdb::SBLHasViol() {
  return flagIs("VIOL", 1);
}
bool mdb::SBLHasFailed() {
  return flagIs("FAILED", 1);
}
bool mdb::SBLHasComplaint() {
  return flagIs("FAILED", 2);
}
bool mdb::SBLHasNotes() {
  if (!onParcel())
    return false;
  currentNote = parcels_->text("NOTES");
  return !currentNote.empty();
}

Result<void> mdb::setFlag(std::string_view field, int value, bool withNote) {
  return rewriteRow([&](Recordset& row) {
    row.set(field, value);
    if (withNote)
      row.set("NOTES", currentNote);
  });
}

Result<void> mdb::SBLSetOther() {
  return setFlag("OTHER", 1, true);
}
Result<void> mdb::SBLSetFailed() {
  return setFlag("FAILED", 1, true);
}
Result<void> mdb::SBLSetComplaint() {
  return setFlag("FAILED", 2, true);
}
Result<void> mdb::SBLSetViol() {
  return setFlag("VIOL", 1, true);
}
Result<void> mdb::SBLClearOther() {
  return setFlag("OTHER", 0, false);
}
Result<void> mdb::SBLClearFailed() {
  return setFlag("FAILED", 0, false);
}
Result<void> mdb::SBLClearViol() {
  return setFlag("VIOL", 0, false);
}
Result<void> mdb::SBLClearFlag() {
  return rewriteRow([](Recordset& row) {
    for (const std::string_view flag : {"FAILED", "VIOL", "OTHER"})
      row.set(flag, 0);
    row.set("NOTES", "");
  });
}

}  // namespace zelvo
