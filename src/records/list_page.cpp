#include "records/list_page.h"

#include <algorithm>

#include "base/text.h"
#include "data/query_text.h"
#include "records/columns_frm.h"
#include "records/record_rows.h"

namespace zelvo {

ListPage::ListPage(Screen& screen, Desk& desk, const RecordKind& kind, RecordQuery& query, const OwnBoxes& ownBoxes)
    : ListView1(screen, "ListView1"),
      txtFilter(screen, "txtFilter"),
      cmdColumns(screen, "cmdColumns", "Columns.."),
      cmdPrintList(screen, "cmdPrintList", "Print list.."),
      cmdSaveList(screen, "cmdSaveList", "Save as CSV.."),
      screen_(screen),
      desk_(desk),
      kind_(kind),
      query_(query),
      ownBoxes_(ownBoxes) {
  ListView1.sortable = true;
  txtFilter.tip =
      "Only records that hold this in one of the shown columns; the list follows as you type, or at Enter where there "
      "are many";
}

void ListPage::show(std::shared_ptr<Recordset> records) {
  records_ = std::move(records);
  if (columns_.empty())
    columns_ = rememberedColumns(desk_.session, kind_, records_->table());
  if (arranged_.empty() || arranged_.starts_with('\n'))
    unfiltered_ = records_->RecordCount();
  showColumns();
}

bool ListPage::filtersAtOnce() const {
  constexpr std::size_t kFew = 60'000;
  return unfiltered_ <= kFew;
}

void ListPage::showColumns() {
  ListView1.columns.clear();
  for (const ShownColumn& shown : columns_)
    ListView1.columns.push_back({shown.caption, shown.width, false});
  const auto browsed = std::ranges::find(columns_, records_->table().browseOrder, &ShownColumn::column);
  ListView1.naturalOrder =
      browsed == columns_.end() ? std::nullopt : std::optional(static_cast<std::size_t>(browsed - columns_.begin()));
  ListView1.rows = std::make_shared<RecordRows>(records_, kind_, columns_);
  ListView1.rowsChanged();
}

void ListPage::enable(bool browsing) {
  for (Control* control :
       std::initializer_list<Control*>{&txtFilter, &cmdColumns, &cmdPrintList, &cmdSaveList, &ListView1})
    control->enabled = browsing;
  txtFilter.locked = !browsing;
}

// ---- filter and order

// Any of the shown columns that hold text may hold what is typed; amounts and dates are looked for by example.
std::string ListPage::filterCondition() const {
  const std::string_view typed = trim(txtFilter.text);
  std::vector<std::string> tests;
  for (const ShownColumn& shown : columns_)
    if (const Column* column = records_->table().find(shown.column);
        column && (column->type == ColumnType::Text || column->type == ColumnType::Memo))
      tests.push_back(columnLike(column->name, "%" + std::string(typed) + "%"));
  return typed.empty() || tests.empty() ? "" : join(tests, " or ");
}

bool ListPage::arrange() {
  const std::string filter = filterCondition();
  const std::string order = ListView1.sortedBy ? columns_[*ListView1.sortedBy].column : "";
  const std::string wanted = filter + "\n" + order + (ListView1.descending ? " desc" : "");
  if (wanted == arranged_)
    return false;
  arranged_ = wanted;
  query_.arrange(filter, order, ListView1.descending);
  return true;
}

void ListPage::forgetArrangement() {
  txtFilter.text.clear();
  ListView1.sortedBy.reset();
  ListView1.descending = false;
  arranged_.clear();
}

// ---- columns

// What stands beside the column's box on the record page is how the office calls it.
std::string ListPage::captionOf(const Column& column) const {
  const OwnBoxes::Box* own = ownBoxes_.of(column);
  const Control* box = own ? own->control : column.box >= 1 ? screen_.find("Text1", column.box) : nullptr;
  const std::string called = box ? desk_.face.nameOf(*box) : "";
  return " " + (called.empty() || (box && called == box->id()) ? std::string(column.name) : called) + " ";
}

void ListPage::chooseColumns() {
  constexpr int kUsualWidth = 16;
  std::vector<ColumnsFrm::Choice> choices;
  for (const ShownColumn& shown : columns_)
    choices.push_back({shown, true});
  const auto usual = usualColumns(kind_);
  for (const Column& column : records_->table().columns) {
    if (std::ranges::find(columns_, column.name, &ShownColumn::column) != columns_.end())
      continue;
    const auto known = std::ranges::find(usual, column.name, &ShownColumn::column);
    choices.push_back(
        {known != usual.end() ? *known : ShownColumn{std::string(column.name), captionOf(column), kUsualWidth}, false});
  }
  ColumnsFrm question(desk_, std::move(choices), usual);
  desk_.screens.showModal(question);
  if (!question.confirmed())
    return;
  columns_ = question.chosen();
  ListView1.sortedBy.reset();
  showColumns();
  if (const auto kept = rememberColumns(desk_.session, kind_, columns_); !kept)
    desk_.messages.tell(" Columns of the list",
                        "The choice could not be kept for the next time:\n" + kept.error().message, Icon::Exclamation);
}

void ListPage::rememberWidths() {
  bool changed = false;
  for (std::size_t i = 0; i < columns_.size() && i < ListView1.columns.size(); ++i) {
    changed = changed || columns_[i].width != ListView1.columns[i].width;
    columns_[i].width = ListView1.columns[i].width;
  }
  if (changed)
    (void)rememberColumns(desk_.session, kind_, columns_).ok();  // the widths of a list are not worth a message
}

}  // namespace zelvo
