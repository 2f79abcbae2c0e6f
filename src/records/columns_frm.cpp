#include "records/columns_frm.h"

#include <algorithm>

#include "base/text.h"

namespace zelvo {

ColumnsFrm::ColumnsFrm(Desk& itsDesk, std::vector<Choice> choices, std::vector<ShownColumn> usual)
    : Screen(itsDesk, "ColumnsFrm", "Columns of the list"), choices_(std::move(choices)), usual_(std::move(usual)) {
  ListView1.columns = {{" Shown ", 8}, {" Column ", 36}};
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onOpenRow(ListView1, [this] { turn(); });
  onClick(cmdTurn, [this] { turn(); });
  onClick(cmdUp, [this] { move(-1); });
  onClick(cmdDown, [this] { move(1); });
  onClick(cmdUsual, [this] { takeUsual(); });
  onClick(cmdOK, [this] { confirm(); });
  onClick(cmdCancel, [this] { closeMe(); });
  ListView1.selected = 0;
  showChoices();
}

std::vector<ShownColumn> ColumnsFrm::chosen() const {
  std::vector<ShownColumn> columns;
  for (const Choice& choice : choices_)
    if (choice.shown)
      columns.push_back(choice.column);
  return columns;
}

void ColumnsFrm::turn() {
  if (!ListView1.selected)
    return;
  bool& shown = choices_[*ListView1.selected].shown;
  shown = !shown;
  showChoices();
}

void ColumnsFrm::move(int by) {
  if (!ListView1.selected)
    return;
  const auto from = static_cast<long>(*ListView1.selected);
  const long to = from + by;
  if (to < 0 || to >= static_cast<long>(choices_.size()))
    return;
  std::swap(choices_[static_cast<std::size_t>(from)], choices_[static_cast<std::size_t>(to)]);
  ListView1.selected = static_cast<std::size_t>(to);
  showChoices();
}

void ColumnsFrm::takeUsual() {
  const auto place = [this](const Choice& choice) {
    return std::ranges::find(usual_, choice.column.column, &ShownColumn::column) - usual_.begin();
  };
  std::ranges::stable_sort(choices_, {}, place);
  for (Choice& choice : choices_)
    choice.shown = place(choice) < static_cast<long>(usual_.size());
  for (std::size_t i = 0; i < usual_.size() && i < choices_.size(); ++i)
    choices_[i].column = usual_[i];
  ListView1.selected = 0;
  showChoices();
}

void ColumnsFrm::confirm() {
  if (chosen().empty())
    return desk.messages.tell(" " + caption, "A list needs at least one column. Please show one.");
  confirmed_ = true;
  closeMe();
}

void ColumnsFrm::showChoices() {
  auto rows = std::make_shared<MemoryRows>();
  for (const Choice& choice : choices_)
    rows->rows.push_back({choice.shown ? "yes" : "", std::string(trim(choice.column.caption))});
  ListView1.rows = rows;
  ListView1.rowsChanged();
}

}  // namespace zelvo
