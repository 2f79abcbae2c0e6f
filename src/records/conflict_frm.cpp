#include "records/conflict_frm.h"

namespace zelvo {

namespace {

const std::string& valueIn(const ScreenValues& values, Control* control) {
  static const std::string none;
  const auto found = values.find(control);
  return found == values.end() ? none : found->second;
}

}  // namespace

std::vector<DifferingField> differences(const ScreenValues& asRead, const ScreenValues& theirs,
                                        const ScreenValues& mine, const std::function<std::string(Control&)>& called) {
  std::vector<DifferingField> fields;
  for (const auto& [control, typed] : mine)
    if (const std::string& stored = valueIn(theirs, control); stored != typed)
      fields.push_back({control, called(*control), stored, typed, typed != valueIn(asRead, control)});
  return fields;
}

ConflictFrm::ConflictFrm(Desk& itsDesk, std::string_view explanation, std::vector<DifferingField> fields)
    : Screen(itsDesk, "ConflictFrm", "Changed by someone else"), fields_(std::move(fields)) {
  Label1.caption = explanation;
  ListView1.columns = {{" Field ", 20}, {" Stored meanwhile ", 32}, {" Typed here ", 32}, {" To be stored ", 16}};
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onOpenRow(ListView1, [this] { turnSelected(); });
  onChoose(ListView1, [this] { ListView1_Click(); });
  onClick(cmdTurn, [this] { turnSelected(); });
  onClick(cmdMine, [this] { cmdMine_Click(); });
  onClick(cmdTheirs, [this] { cmdTheirs_Click(); });
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
  showFields();
  ListView1_Click();
}

void ConflictFrm::ListView1_Click() {
  cmdTurn.enabled = ListView1.selected.has_value();
}

void ConflictFrm::turnSelected() {
  if (!ListView1.selected || *ListView1.selected >= fields_.size())
    return;
  bool& mine = fields_[*ListView1.selected].keepMine;
  mine = !mine;
  showFields();
}

void ConflictFrm::keepAll(bool mine) {
  for (DifferingField& field : fields_)
    field.keepMine = mine;
  showFields();
}

void ConflictFrm::showFields() {
  auto rows = std::make_shared<MemoryRows>();
  for (const DifferingField& field : fields_)
    rows->rows.push_back({field.called, field.theirs, field.mine, field.keepMine ? "what you typed" : "theirs"});
  ListView1.rows = rows;
  ListView1.rowsChanged();
}

void ConflictFrm::cmdOK_Click() {
  confirmed_ = true;
  closeMe();
}

bool settleConflict(Desk& desk, std::string_view who, const ScreenValues& asRead, const ScreenValues& theirs,
                    const ScreenValues& mine) {
  const auto called = [&desk](Control& control) { return desk.face.nameOf(control); };
  ConflictFrm question(
      desk, std::string(who) + ", while you worked on it. Nothing was overwritten. Please choose what is to stand.",
      differences(asRead, theirs, mine, called));
  if (!question.fields().empty())
    desk.screens.showModal(question);
  const bool settled = question.confirmed() || question.fields().empty();
  putValues(mine);
  if (settled)
    for (const DifferingField& field : question.fields())
      if (!field.keepMine)
        field.control->put(field.theirs);
  return settled;
}

}  // namespace zelvo
