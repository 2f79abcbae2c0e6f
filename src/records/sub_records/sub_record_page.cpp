#include "records/sub_records/sub_record_page.h"

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "records/pick_list.h"

namespace zelvo {

namespace {

std::string named(std::string_view before, const SubRecordKind& kind) {
  return std::string(before) + std::string(kind.name);
}

}  // namespace

SubRecordPage::SubRecordPage(Screen& screen, Desk& desk, const SubRecordKind& kind)
    : iNew(screen, named("iNew", kind), "New &row"),
      iAdd(screen, named("iAdd", kind), "A&dd row"),
      iEdit(screen, named("iEdit", kind), "Edit r&ow"),
      iSave(screen, named("iSave", kind), "&Keep row"),
      iCancel(screen, named("iCancel", kind), "&Forget row"),
      list(screen, named("ListView", kind)),
      text(screen, named("Text", kind), {kNameBox}),
      type(screen, named("Combo", kind)),
      from(screen, named("DTFrom", kind)),
      to(screen, named("DTTo", kind)),
      desk_(desk),
      screen_(screen),
      kind_(kind) {
  text.add({kNumberBox, kAddressBox, kPhoneBox, kHolderBox, kProjectBox, kNotesBox});
  // No more together than a window of 1366 points shows beside the boxes.
  list.columns = {{" Seq ", 4},      {" Cert # ", 10},  {std::string(kind.nameCaption), 18}, {" Valid From ", 9},
                  {" Valid To ", 9}, {" Project ", 14}, {std::string(kind.notesCaption), 18}};
  const Table& table = *findTable(kind.table);
  for (std::size_t i = 0; i < kSubBoxes; ++i)
    text(static_cast<int>(i) + 1).maxLength = std::max(table.find(kind.columns[i])->length, 0);
  text(kNotesBox).manyLines = true;
  to.tip = "Left empty: there is no end date";
  fillTypes();
  close();
}

// ---- what the page shows

// A type that the office's own list lacks can be typed; that none is needed can always be chosen.
void SubRecordPage::fillTypes() {
  type.items = pickList(desk_.session, kind_.types);
  type.items.insert(type.items.begin(), std::string(kSelect));
  if (std::ranges::find(type.items, kExempt) == type.items.end())
    type.items.emplace_back(kExempt);
}

void SubRecordPage::show(std::string_view key) {
  if (typing())
    return;
  waiting_ = false;
  key_ = key;
  readRows();
  listRows();
  enter(Mode::Browse);
}

void SubRecordPage::begin() {
  if (waiting_)
    return;
  close();
  waiting_ = true;
  enter(Mode::Browse);
}

void SubRecordPage::close() {
  waiting_ = false;
  key_.clear();
  rows_.clear();
  records_.reset();
  listRows();
  enter(Mode::Closed);
}

std::vector<Control*> SubRecordPage::boxes() {
  std::vector<Control*> all = {&type, &from, &to};
  for (TextBox& box : text)
    all.push_back(&box);
  return all;
}

ScreenValues SubRecordPage::typed() {
  ScreenValues values;
  for (Control* box : boxes())
    values[box] = box->shown();
  return values;
}

void SubRecordPage::enter(Mode mode) {
  mode_ = mode;
  conflict_ = false;
  iNew.enabled = mode == Mode::Browse;
  iEdit.enabled = mode == Mode::Browse && list.selected.has_value();
  iAdd.enabled = mode == Mode::New;
  iSave.enabled = mode == Mode::Edit;
  iCancel.enabled = typing();
  list.enabled = mode == Mode::Browse;
  for (Control* box : boxes())
    box->locked = !typing();
  if (!typing())
    getData();
  markRequired();
}

void SubRecordPage::markRequired() {
  text(kNameBox).required = !isExempt();
  text(kNotesBox).required = isExempt();
  type.required = true;
}

bool SubRecordPage::isExempt() const {
  return alike(trim(type.text), kExempt);
}

void SubRecordPage::chooseType() {
  markRequired();
}

void SubRecordPage::clearBoxes() {
  for (TextBox& box : text)
    box.text.clear();
  type.text = typing() ? std::string(kSelect) : "";
  from.date.reset();
  to.date.reset();
}

void SubRecordPage::getData() {
  clearBoxes();
  if (list.selected && *list.selected < rows_.size())
    putValues(rows_[*list.selected].values);
}

void SubRecordPage::select(std::optional<std::size_t> row) {
  list.selected = row;
  iEdit.enabled = mode_ == Mode::Browse && row.has_value();
  getData();
}

void SubRecordPage::choose() {
  select(list.selected && *list.selected < rows_.size() ? list.selected : std::nullopt);
}

void SubRecordPage::listRows() {
  auto shown = std::make_shared<MemoryRows>();
  for (const Row& row : rows_) {
    const auto value = [&row](const Control& box) { return row.values.at(const_cast<Control*>(&box)); };
    const std::string end = value(to);
    shown->rows.push_back({row.stored < 0 ? "new" : row.sequence, value(text(kNumberBox)), value(text(kNameBox)),
                           value(from), end.empty() ? std::string(kNoEndText) : end, value(text(kProjectBox)),
                           value(text(kNotesBox))});
  }
  list.rows = shown;
  list.rowsChanged();
  list.selected = rows_.empty() ? std::nullopt : std::optional<std::size_t>(0);
}

std::string SubRecordPage::title() const {
  return " " + replaceAll(kind_.page, "&", "");
}

// ---- what the clerk does

void SubRecordPage::iNew_Click() {
  if (key_.empty() && !waiting_)
    return desk_.messages.tell(title(),
                               "Cannot add new " + std::string(kind_.noun) + " until\na permit is present or selected.",
                               Icon::Exclamation);
  enter(Mode::New);
  clearBoxes();
  from.date = desk_.clock.now().date;
  markRequired();
  screen_.focus = &text(kNameBox);
}

void SubRecordPage::iEdit_Click() {
  if (!list.selected)
    return;
  enter(Mode::Edit);
  asRead_ = typed();
  screen_.focus = &text(kNameBox);
}

void SubRecordPage::iAdd_Click() {
  if (!validate())
    return;
  Row row = waitingRow();
  if (!waiting_ && !store(row))
    return;
  rows_.push_back(std::move(row));
  listRows();
  list.selected = rows_.size() - 1;
  enter(Mode::Browse);
}

void SubRecordPage::iSave_Click() {
  if (!validate())
    return;
  const std::size_t at = *list.selected;
  Row row = rows_[at];
  row.values = typed();
  if (!waiting_ && !store(row))
    return;
  rows_[at] = std::move(row);
  listRows();
  list.selected = at;
  enter(Mode::Browse);
}

void SubRecordPage::iCancel_Click() {
  const auto before = list.selected;
  listRows();
  if (before && *before < rows_.size())
    list.selected = before;
  enter(Mode::Browse);
}

// ---- checking

bool SubRecordPage::validate() {
  std::string missing;
  Control* first = nullptr;
  const auto require = [&](bool there, Control& box, std::string_view label) {
    if (there)
      return;
    missing += std::string(label) + "\n";
    first = first ? first : &box;
  };
  if (isExempt())
    require(!trim(text(kNotesBox).text).empty(), text(kNotesBox), "--Reason for exemption");
  else
    require(!trim(text(kNameBox).text).empty(), text(kNameBox), kind_.nameMissing);
  require(!trim(type.text).empty() && trim(type.text) != kSelect, type, kind_.typeMissing);
  if (missing.empty())
    return datesInOrder();
  desk_.messages.tell(" Missing Information",
                      "Missing: " + missing + "\nPlease ensure required\nfields are filled in correctly.",
                      Icon::Critical);
  screen_.focus = first;
  return false;
}

bool SubRecordPage::datesInOrder() {
  if (!from.date || !to.date || *from.date <= *to.date)
    return true;
  desk_.messages.tell(" Date Error", "\"Valid to\" cannot be prior to \"Valid from\".", Icon::Critical);
  screen_.focus = &to;
  return false;
}

void SubRecordPage::tellNotStored(const Error& error) {
  desk_.messages.tell(title(),
                      "The " + std::string(kind_.noun) + " could not be stored:\n" + error.message +
                          "\n\nWhat you typed is still on the screen.",
                      Icon::Critical);
}

}  // namespace zelvo
