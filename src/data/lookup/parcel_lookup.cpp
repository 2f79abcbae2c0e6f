#include "data/lookup/parcel_lookup.h"

#include "base/files.h"
#include "base/text.h"
#include "data/catalogue.h"
#include "data/lookup/lookup_rows.h"
#include "data/lookup/lookups.h"

namespace zelvo {

ParcelLookup::ParcelLookup(Desk& itsDesk, const LookupKind& kind, LookupFor whom)
    : Screen(itsDesk, kind.screen, kind.caption), kind_(kind), whom_(whom) {
  iFind.isDefault = true;
  cmdClose.isCancel = true;
  cmdTake.enabled = false;
  cmdTake.caption = whom == LookupFor::Asker ? "&Take" : "&Open";
  lblNote.warning = true;
  ListView1.enabled = false;
  find(kind.switchButton)->visible = false;
  leadTo(cmdKey, "sblloc");
  leadTo(cmdAddress, "adloc");
  leadTo(cmdContact, "conloc");
  leadTo(cmdRoll, "rpsloc");
  onClick(iFind, [this] { iFind_Click(); });
  onClick(cmdTake, [this] { cmdTake_Click(); });
  onClick(cmdClose, [this] { closeMe(); });
  onOpenRow(ListView1, [this] { cmdTake_Click(); });
  showColumns(findTable(kind_.table));  // the window opens as wide as they are
}

void ParcelLookup::leadTo(Button& button, std::string_view screen) {
  onClick(button, [this, screen] { goOnTo(screen); });
}

void ParcelLookup::startWith(const Screen& other) {
  for (Control* control : controls()) {
    const Control* same =
        control->kind() == ControlKind::TextBox ? other.find(control->name(), control->index()) : nullptr;
    if (!same || !control->visible || trim(same->shown()).empty())
      continue;
    static_cast<TextBox*>(control)->text = trim(same->shown());
    findAtOnce_ = true;
  }
}

// ---- opening

void ParcelLookup::Form_Activate(bool first) {
  if (!first)
    return findAgain();
  setFocus(*findById(kind_.firstBox));
  openTable();
  if (std::exchange(findAtOnce_, false) && connection_)
    iFind_Click();
}

Result<std::shared_ptr<Connection>> ParcelLookup::reach() {
  return Connection::open(connectionText(joinPath(desk.session.dataFolder, kind_.file)));
}

void ParcelLookup::openTable() {
  const auto reached = reach();
  const auto table = reached ? (*reached)->table(kind_.table) : reached.error();
  iFind.enabled = table.ok();
  showColumns(table ? *table : nullptr);
  note(table ? "" : table.error().message);
  if (!table)
    return;
  connection_ = *reached;
  prepare(**table);
}

void ParcelLookup::note(std::string_view text) {
  lblNote.caption = text;
  lblNote.visible = !text.empty();
}

// What the table does not hold has no column.
void ParcelLookup::showColumns(const Table* table) {
  shown_.clear();
  ListView1.columns.clear();
  for (const LookupKind::Shown& shown : kind_.list) {
    if (table && shown.column != kFlagsColumn && !table->find(shown.column))
      continue;
    shown_.push_back(shown);
    ListView1.columns.push_back({std::string(shown.caption), shown.width, false});
  }
}

// ---- finding

std::string ParcelLookup::query() const {
  const std::string where = conditions();
  return "Select * from " + std::string(kind_.table) + (where.empty() ? "" : " where " + where) + " order by [" +
         std::string(kind_.order) + "]";
}

void ParcelLookup::iFind_Click() {
  if (!connection_)
    openTable();
  if (!connection_)
    return;
  showStatus("Reading database..");
  auto found = Recordset::open(connection_, query());
  showStatus("");
  if (!found) {
    connection_.reset();  // a shared folder that comes back is reached through a new one only
    throw StoreError(found.error());
  }
  rows_ = std::move(*found);
  ListView1.rows = std::make_shared<LookupRows>(rows_, shown_);
  ListView1.selected.reset();
  if (rows_->RecordCount() > 0) {
    ListView1.selected = 0;
    setFocus(ListView1);
  }
  listRows();
}

void ParcelLookup::listRows() {
  const std::size_t count = rows_->RecordCount();
  ListView1.enabled = cmdTake.enabled = count > 0;
  if (count == 0)
    ListView1.selected.reset();
  else if (ListView1.selected)
    ListView1.selected = std::min(*ListView1.selected, count - 1);
  ListView1.rowsChanged();
  lblCount.caption = countText();
}

std::string ParcelLookup::countText() const {
  const std::size_t count = rows_->RecordCount();
  if (count == 0)
    return "No parcel matches.";
  return std::to_string(count) + (count == 1 ? " parcel" : " parcels");
}

// The clerk may have changed the parcel that he went to from here.
void ParcelLookup::findAgain() {
  if (!rows_)
    return;
  if (const auto read = rows_->Refresh(); !read)
    throw StoreError(read.error());
  listRows();
}

// ---- taking

void ParcelLookup::cmdTake_Click() {
  if (!rows_ || !ListView1.selected || !rows_->goToPosition(*ListView1.selected + 1))
    return;
  const auto text = [&](std::string_view column) {
    return rows_->table().find(column) ? rows_->text(column) : std::string();
  };
  FoundParcel parcel{text(kind_.key), text(kind_.owner), text(kind_.location), text(kind_.mailing)};
  if (whom_ == LookupFor::Asker) {
    taken_ = std::move(parcel);
    return closeMe();
  }
  desk.session.hop = parcel.key;
  desk.screens.open("sblinfo");
}

void ParcelLookup::goOnTo(std::string_view screen) {
  if (whom_ == LookupFor::Asker)
    wentOnTo_ = screen;
  else
    desk.screens.open(screen);
  closeMe();
}

std::optional<FoundParcel> lookUpParcel(Desk& desk, const Screen& asker) {
  std::unique_ptr<ParcelLookup> before;
  for (std::string_view next = "sblloc"; !next.empty(); next = before->wentOnTo()) {
    auto look = makeLookup(desk, next, LookupFor::Asker);
    look->startWith(before ? static_cast<const Screen&>(*before) : asker);
    desk.screens.showModal(*look);
    if (look->taken())
      return look->taken();
    before = std::move(look);
  }
  return std::nullopt;
}

}  // namespace zelvo
