#include "ui/form_builder.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QStatusBar>
#include <QTabWidget>
#include <algorithm>
#include <map>
#include <set>

#include "ui/flow_layout.h"
#include "ui/menu_views.h"
#include "ui/style.h"

namespace zelvo {

namespace {

constexpr int kMargin = 8;
constexpr int kSpacing = 5;
constexpr int kTilesAcross = 3;

// A field and what the layout says of it, waiting for its group to be complete.
struct PlacedField {
  ControlView* view;
  const LayoutRow* row;
  int line;
  int pair;  // of caption and field, counted along the line
};

bool standsAlone(const ControlView& view) {
  const auto kind = view.control().kind();
  return kind == ControlKind::List || kind == ControlKind::TextBox || kind == ControlKind::Combo;
}

// Fields have the width of what they hold; those without a width take the room there is.
void applySize(QWidget* widget, const LayoutRow& row) {
  if (auto* area = qobject_cast<QPlainTextEdit*>(widget)) {
    const int line = area->fontMetrics().lineSpacing();
    area->setMinimumHeight(line * std::max(row.height, 2) + 12);
    if (row.height != kFill)
      area->setMaximumHeight(line * row.height + 12);
    return;
  }
  if (row.width > 0 && !qobject_cast<QAbstractButton*>(widget) && !qobject_cast<QLabel*>(widget)) {
    const int extra = widget->inherits("QComboBox") || widget->inherits("QTableView") ? 34 : 14;
    widget->setMinimumWidth(charactersWide(std::min(row.width, 8)) + extra);
    widget->setMaximumWidth(charactersWide(row.width) + extra);
  }
}

// Scrolls where a page is larger than its window, and otherwise asks for the room that the page needs.
class PageScroll : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override { return widget()->sizeHint() + QSize(2, 2); }
  QSize minimumSizeHint() const override { return widget()->minimumSizeHint().boundedTo(QSize(260, 60)); }
};

// One group under way: fields are collected first, since the last one of each line takes the rest of the grid.
class GroupGrid {
 public:
  GroupGrid(QWidget* frame, FieldGroup& group) : frame_(frame), group_(group), grid_(new QGridLayout(frame)) {
    grid_->setHorizontalSpacing(6);
    grid_->setVerticalSpacing(kSpacing);
  }

  void add(ControlView* view, const LayoutRow& row) {
    const bool further = row.kind == LayoutRow::Kind::Beside && line_ >= 0;
    pair_ = further ? pair_ + 1 : 0;
    line_ += further ? 0 : 1;
    pairs_ = std::max(pairs_, pair_ + 1);
    fields_.push_back({view, &row, line_, pair_});
    group_.views.push_back(view);
  }

  /// Gives whether the group wants all the height it can get.
  bool finish() {
    bool fills = false;
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

 private:
  void place(const PlacedField& field, bool last) {
    QWidget* widget = field.view->widget();
    applySize(widget, *field.row);
    const int labelColumn = field.pair * 2;
    const int end = last ? pairs_ * 2 : labelColumn + 2;
    const bool captioned = !field.row->caption.empty();
    const int from = captioned || !standsAlone(*field.view) ? labelColumn + 1 : labelColumn;
    if (captioned)
      addCaption(field, labelColumn);
    if (qobject_cast<QAbstractButton*>(widget))
      grid_->addWidget(widget, field.line, from, 1, end - from, Qt::AlignLeft);
    else if (field.row->width > 0)
      grid_->addLayout(narrow(widget), field.line, from, 1, end - from);
    else
      grid_->addWidget(widget, field.line, from, 1, end - from);
  }

  // As wide as what it holds where there is room, and narrower where there is none.
  static QHBoxLayout* narrow(QWidget* widget) {
    auto* line = new QHBoxLayout;
    line->addWidget(widget, 1000);
    line->addStretch(1);
    return line;
  }

  void addCaption(const PlacedField& field, int column) {
    auto* label = new QLabel(QString::fromUtf8(field.row->caption.data(), static_cast<qsizetype>(field.row->caption.size())), frame_);
    label->setBuddy(field.view->widget());
    const bool tall = qobject_cast<QPlainTextEdit*>(field.view->widget());
    label->setAlignment(Qt::AlignRight | (tall ? Qt::AlignTop : Qt::AlignVCenter));
    field.view->captionLabel = label;
    field.view->captionText = std::string(field.row->caption);
    grid_->addWidget(label, field.line, column);
  }

  QWidget* frame_;
  FieldGroup& group_;
  QGridLayout* grid_;
  std::vector<PlacedField> fields_;
  int line_ = -1;
  int pair_ = 0;
  int pairs_ = 1;
};

// Walks down a layout table and builds as it goes.
class Builder {
 public:
  Builder(QMainWindow& window, Screen& screen, const Layout& layout, UserActions& user);
  BuiltForm build();

 private:
  void makeViews();
  void startPage(int number);
  void startArea(QWidget* area, QBoxLayout* into);
  void startColumn(int share);
  void startGroup(std::string_view caption);
  void finishGroup();
  void finishColumn();
  void place(const LayoutRow& row);
  void placeField(ControlView* view, const LayoutRow& row);
  void placeTool(const LayoutRow& row, ControlView* view);
  void placeTile(ControlView* view);
  void placeFoot(ControlView* view);
  void placeLeftovers();
  void setTabOrder();
  QScrollArea* scrolled(QWidget* inside);

  QMainWindow& window_;
  Screen& screen_;
  const Layout& layout_;
  UserActions& user_;
  BuiltForm form_;
  std::map<std::string, ControlView*, std::less<>> views_;
  std::set<const ControlView*> placed_;
  StackedLayout stacked_;  // lends rows to what the table forgot

  QWidget* central_;
  QVBoxLayout* outer_;
  QTabWidget* tabs_ = nullptr;
  FlowLayout* tools_ = nullptr;
  QHBoxLayout* foot_ = nullptr;
  QHBoxLayout* columns_ = nullptr;
  QVBoxLayout* column_ = nullptr;
  bool columnFills_ = false;
  QGridLayout* tiles_ = nullptr;
  int tileCount_ = 0;
  std::unique_ptr<FieldGroup> group_;
  std::unique_ptr<GroupGrid> grid_;
  QVBoxLayout* top_;
  QWidget* body_ = nullptr;
};

Builder::Builder(QMainWindow& window, Screen& screen, const Layout& layout, UserActions& user)
    : window_(window), screen_(screen), layout_(layout), user_(user), stacked_(screen) {
  central_ = new QWidget(&window_);
  window_.setCentralWidget(central_);
  outer_ = new QVBoxLayout(central_);
  outer_->setContentsMargins(kMargin, 6, kMargin, 6);
  outer_->setSpacing(6);
  top_ = new QVBoxLayout;
  outer_->addLayout(top_);
}

BuiltForm Builder::build() {
  makeViews();
  if (!tabs_) {
    body_ = new QWidget(central_);
    outer_->addWidget(scrolled(body_), 1);
    startArea(body_, nullptr);
  } else {
    startArea(new QWidget(central_), outer_);
    outer_->addWidget(tabs_, 1);
  }
  for (const LayoutRow& row : layout_.rows)
    place(row);
  placeLeftovers();
  finishColumn();
  setTabOrder();
  return std::move(form_);
}

void Builder::makeViews() {
  auto menus = makeMenus(window_, screen_, user_);
  for (Control* control : screen_.controls()) {
    const std::string id = control->id();
    const auto row = std::find_if(layout_.rows.begin(), layout_.rows.end(),
                                  [&](const LayoutRow& candidate) { return candidate.control == id; });
    auto view = menus.contains(control)
                    ? std::move(menus.at(control))
                    : makeView(*control, user_, central_, row == layout_.rows.end() ? nullptr : &*row);
    if (QWidget* widget = view->widget()) {
      widget->setObjectName(QString::fromStdString(id));
      views_[id] = view.get();
    }
    if (control->kind() == ControlKind::Tabs)
      tabs_ = static_cast<QTabWidget*>(view->widget());
    form_.views.push_back(std::move(view));
  }
}

QScrollArea* Builder::scrolled(QWidget* inside) {
  auto* area = new PageScroll(central_);
  area->setWidget(inside);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  return area;
}

void Builder::startPage(int number) {
  if (!tabs_ || number >= tabs_->count())
    return;
  QWidget* page = tabs_->widget(number);
  auto* inside = new QWidget;
  auto* box = new QVBoxLayout(page);
  box->setContentsMargins(0, 0, 0, 0);
  box->addWidget(scrolled(inside));
  startArea(inside, nullptr);
  columns_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
}

void Builder::startArea(QWidget* area, QBoxLayout* into) {
  finishColumn();
  columns_ = new QHBoxLayout(area);
  columns_->setContentsMargins(0, 0, 0, 0);
  columns_->setSpacing(10);
  if (into)
    into->addWidget(area);
}

void Builder::startColumn(int share) {
  finishColumn();
  column_ = new QVBoxLayout;
  column_->setSpacing(6);
  columns_->addLayout(column_, share);
}

void Builder::finishColumn() {
  finishGroup();
  if (column_ && !columnFills_)
    column_->addStretch(1);
  column_ = nullptr;
  tiles_ = nullptr;
  columnFills_ = false;
}

void Builder::startGroup(std::string_view caption) {
  finishGroup();
  if (!column_)
    startColumn(1);
  QWidget* frame = nullptr;
  if (caption.empty())
    frame = new QWidget;
  else
    frame = new QGroupBox(QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size())));
  column_->addWidget(frame);
  group_ = std::make_unique<FieldGroup>();
  group_->frame = frame;
  grid_ = std::make_unique<GroupGrid>(frame, *group_);
  if (caption.empty())
    frame->layout()->setContentsMargins(0, 0, 0, 0);
  else
    frame->layout()->setContentsMargins(9, 6, 9, 8);
}

void Builder::finishGroup() {
  if (!grid_)
    return;
  if (grid_->finish()) {
    columnFills_ = true;
    column_->setStretchFactor(group_->frame, 1);
  }
  form_.groups.push_back(std::move(*group_));
  grid_.reset();
  group_.reset();
}

void Builder::place(const LayoutRow& row) {
  switch (row.kind) {
    case LayoutRow::Kind::Page:
      return startPage(row.width);
    case LayoutRow::Kind::Column:
      return startColumn(row.width);
    case LayoutRow::Kind::Group:
      return startGroup(row.caption);
    case LayoutRow::Kind::ToolGap:
      return placeTool(row, nullptr);
    default:
      break;
  }
  const auto found = views_.find(row.control);
  if (found == views_.end() || !placed_.insert(found->second).second)
    return;
  if (row.kind == LayoutRow::Kind::Tool)
    placeTool(row, found->second);
  else if (row.kind == LayoutRow::Kind::Heading)
    top_->addWidget(found->second->widget(), 0, Qt::AlignLeft);
  else if (row.kind == LayoutRow::Kind::Picture)
    outer_->addWidget(found->second->widget(), 0, Qt::AlignCenter);
  else if (row.kind == LayoutRow::Kind::Tile)
    placeTile(found->second);
  else if (row.kind == LayoutRow::Kind::Foot)
    placeFoot(found->second);
  else
    placeField(found->second, row);
}

void Builder::placeField(ControlView* view, const LayoutRow& row) {
  if (!grid_)
    startGroup({});
  grid_->add(view, row);
}

void Builder::placeTool(const LayoutRow& row, ControlView* view) {
  if (!tools_) {
    auto* bar = new QWidget(central_);
    tools_ = new FlowLayout(bar);
    outer_->insertWidget(0, bar);
  }
  if (row.kind == LayoutRow::Kind::ToolGap) {
    auto* line = new QFrame(central_);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setFixedWidth(9);
    tools_->addWidget(line);
  } else {
    tools_->addWidget(view->widget());
  }
}

void Builder::placeTile(ControlView* view) {
  finishGroup();
  if (!column_)
    startColumn(1);
  if (!tiles_) {
    tiles_ = new QGridLayout;
    tiles_->setSpacing(10);
    column_->addLayout(tiles_);
    tileCount_ = 0;
  }
  tiles_->addWidget(view->widget(), tileCount_ / kTilesAcross, tileCount_ % kTilesAcross);
  ++tileCount_;
}

void Builder::placeFoot(ControlView* view) {
  if (!foot_) {
    foot_ = new QHBoxLayout;
    foot_->addStretch(1);
    outer_->addLayout(foot_);
  }
  foot_->addWidget(view->widget());
}

void Builder::placeLeftovers() {
  bool started = false;
  for (const LayoutRow& row : stacked_.layout().rows) {
    const auto found = views_.find(row.control);
    if (found == views_.end() || placed_.contains(found->second))
      continue;
    if (!started)
      startGroup("Other");
    started = true;
    place(row);
  }
}

void Builder::setTabOrder() {
  QWidget* before = nullptr;
  for (const auto& view : form_.views) {
    QWidget* widget = view->widget();
    if (!widget || widget->focusPolicy() == Qt::NoFocus)
      continue;
    if (before)
      QWidget::setTabOrder(before, widget);
    before = widget;
  }
}

}  // namespace

void FieldGroup::refresh() const {
  const bool any =
      std::any_of(views.begin(), views.end(), [](const ControlView* view) { return view->control().visible; });
  if (frame->isHidden() == any)
    frame->setVisible(any);
}

ControlView* BuiltForm::find(const Control& control) const {
  for (const auto& view : views)
    if (&view->control() == &control)
      return view.get();
  return nullptr;
}

BuiltForm buildForm(QMainWindow& window, Screen& screen, const Layout& layout, UserActions& user) {
  return Builder(window, screen, layout, user).build();
}

}  // namespace zelvo
