#include "ui/group_grid.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QPlainTextEdit>
#include <algorithm>

#include "ui/date_box.h"
#include "ui/qt_text.h"
#include "ui/style.h"

namespace zelvo {

namespace {

bool standsAlone(const ControlView& view) {
  const auto kind = view.control().kind();
  return kind == ControlKind::List || kind == ControlKind::TextBox || kind == ControlKind::Combo;
}

// Fields have the width of what they hold; those without a width take the room there is. On a full page they give way
// down to `least` characters.
void applySize(QWidget* widget, const LayoutRow& row, int least) {
  if (auto* area = qobject_cast<QPlainTextEdit*>(widget)) {
    const int line = area->fontMetrics().lineSpacing();
    area->setMinimumHeight(line * std::max(row.height, 2) + 12);
    if (row.height != kFill)
      area->setMaximumHeight(line * row.height + 12);
    return;
  }
  if (row.width > 0 && !qobject_cast<QAbstractButton*>(widget) && !qobject_cast<QLabel*>(widget)) {
    const bool hasButton = qobject_cast<QComboBox*>(widget) || dynamic_cast<DateBox*>(widget);
    const int extra = hasButton ? 34 : 14;
    constexpr int kDate = 11;  // a date is always shown whole
    const int narrowest = dynamic_cast<DateBox*>(widget) ? kDate : least;
    widget->setMinimumWidth(charactersWide(std::min(row.width, narrowest)) + extra);
    widget->setMaximumWidth(charactersWide(row.width) + extra);
  }
}

// As wide as what it holds where there is room, and narrower where there is none.
QHBoxLayout* narrow(QWidget* widget) {
  auto* line = new QHBoxLayout;
  line->addWidget(widget, 1000);
  line->addStretch(1);
  return line;
}

}  // namespace

void FieldGroup::refresh() const {
  const bool any =
      std::any_of(views.begin(), views.end(), [](const ControlView* view) { return view->control().visible; });
  if (frame->isHidden() == any)
    frame->setVisible(any);
}

GroupGrid::GroupGrid(QWidget* frame, int least) : group_{frame, {}}, grid_(new QGridLayout(frame)), least_(least) {
  constexpr int kBeside = 6;
  constexpr int kBelow = 5;
  grid_->setHorizontalSpacing(kBeside);
  grid_->setVerticalSpacing(kBelow);
}

void GroupGrid::add(ControlView* view, const LayoutRow& row) {
  const bool further = row.kind == LayoutRow::Kind::Beside && line_ >= 0;
  pair_ = further ? pair_ + 1 : 0;
  line_ += further ? 0 : 1;
  pairs_ = std::max(pairs_, pair_ + 1);
  fields_.push_back({view, &row, line_, pair_});
  group_.views.push_back(view);
}

void GroupGrid::align(const std::vector<std::unique_ptr<GroupGrid>>& grids) {
  std::map<int, int> widest;
  for (const auto& grid : grids)
    for (const auto& [pair, width] : grid->captionWidths_)
      widest[pair] = std::max(widest[pair], width);
  for (const auto& grid : grids)
    for (const auto& [pair, width] : grid->captionWidths_)
      grid->grid_->setColumnMinimumWidth(pair * 2, widest[pair]);
}

bool GroupGrid::finish() {
  bool fills = false;
  anyCaption_ =
      std::any_of(fields_.begin(), fields_.end(), [](const auto& field) { return !field.row->caption.empty(); });
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const bool last = i + 1 == fields_.size() || fields_[i + 1].line != fields_[i].line;
    place(fields_[i], last);
    if (fields_[i].row->height == kFill) {
      grid_->setRowStretch(fields_[i].line, 1);
      fills = true;
    }
  }
  for (int pair = 0; pair < pairs_; ++pair)
    grid_->setColumnStretch(pair * 2 + 1, 1);
  return fills;
}

void GroupGrid::place(const PlacedField& field, bool last) {
  QWidget* widget = field.view->widget();
  applySize(widget, *field.row, least_);
  const int labelColumn = field.pair * 2;
  const int end = last ? pairs_ * 2 : labelColumn + 2;
  const bool captioned = !field.row->caption.empty();
  const int from = captioned || (anyCaption_ && !standsAlone(*field.view)) ? labelColumn + 1 : labelColumn;
  if (captioned)
    addCaption(field, labelColumn);
  if (qobject_cast<QAbstractButton*>(widget))
    grid_->addWidget(widget, field.line, from, 1, end - from, Qt::AlignLeft);
  else if (field.row->width > 0)
    grid_->addLayout(narrow(widget), field.line, from, 1, end - from);
  else
    grid_->addWidget(widget, field.line, from, 1, end - from);
}

void GroupGrid::addCaption(const PlacedField& field, int column) {
  auto* label = new QLabel(qtText(field.row->caption), group_.frame);
  label->setBuddy(field.view->widget());
  const bool tall = qobject_cast<QPlainTextEdit*>(field.view->widget());
  label->setAlignment(Qt::AlignRight | (tall ? Qt::AlignTop : Qt::AlignVCenter));
  field.view->captionLabel = label;
  field.view->captionText = std::string(field.row->caption);
  grid_->addWidget(label, field.line, column);
  const int star = field.view->control().required ? label->fontMetrics().horizontalAdvance(QStringLiteral(" *")) : 0;
  captionWidths_[field.pair] = std::max(captionWidths_[field.pair], label->sizeHint().width() + star);
}

}  // namespace zelvo
