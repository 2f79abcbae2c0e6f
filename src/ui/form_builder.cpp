#include "ui/form_builder.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QScrollArea>
#include <QShortcut>
#include <QTabWidget>
#include <algorithm>
#include <map>
#include <set>

#include "ui/columns_layout.h"
#include "ui/flow_layout.h"
#include "ui/menu_views.h"
#include "ui/qt_text.h"
#include "ui/style.h"

namespace zelvo {

namespace {

constexpr int kMargin = 9;
constexpr int kLeastOnPage = 8;
constexpr int kLeastAlone = 34;
constexpr int kTilesAcross = 3;

// Scrolls where a page is larger than its window, and otherwise asks for the room that the page needs.
class PageScroll : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override {
    const QSize size = widget()->layout()->sizeHint();  // the page's own counts what it can do with, lists cut short
    return QSize(size.width(), std::max(size.height(), widget()->heightForWidth(size.width()))) + QSize(2, 2);
  }
  QSize minimumSizeHint() const override { return widget()->minimumSizeHint().boundedTo(QSize(260, 60)); }
};

// What holds nothing takes no room from the rest.
void hideEmpty(const QWidget* area, QWidget* shown) {
  if (area && area->layout()->count() == 0)
    shown->hide();
}

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
  void callByKeys(ControlView* view, std::string_view keys);
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
  int toolLines_ = 0;
  QHBoxLayout* foot_ = nullptr;
  ColumnsLayout* columns_ = nullptr;
  QVBoxLayout* column_ = nullptr;
  bool columnFills_ = false;
  QGridLayout* tiles_ = nullptr;
  int tileCount_ = 0;
  std::unique_ptr<GroupGrid> grid_;
  std::vector<std::unique_ptr<GroupGrid>> columnGrids_;  // of the present column
  QVBoxLayout* top_;
  QWidget* body_ = nullptr;
  QScrollArea* bodyView_ = nullptr;
  QWidget* aboveTabs_ = nullptr;
};

Builder::Builder(QMainWindow& window, Screen& screen, const Layout& layout, UserActions& user)
    : window_(window), screen_(screen), layout_(layout), user_(user), stacked_(screen) {
  central_ = new QWidget(&window_);
  window_.setCentralWidget(central_);
  outer_ = new QVBoxLayout(central_);
  outer_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  outer_->setSpacing(kMargin);
  top_ = new QVBoxLayout;
  outer_->addLayout(top_);
}

BuiltForm Builder::build() {
  makeViews();
  if (!tabs_) {
    body_ = new QWidget(central_);
    bodyView_ = scrolled(body_);
    outer_->addWidget(bodyView_, 1);
    startArea(body_, nullptr);
  } else {
    aboveTabs_ = new QWidget(central_);
    startArea(aboveTabs_, outer_);
    outer_->addWidget(tabs_, 1);
  }
  for (const LayoutRow& row : layout_.rows)
    place(row);
  placeLeftovers();
  finishColumn();
  hideEmpty(aboveTabs_, aboveTabs_);
  hideEmpty(body_, bodyView_);
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
  area->setFocusPolicy(Qt::NoFocus);  // the Tab key stops where something can be done
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
  columns_ = new ColumnsLayout(area);
  if (into)
    into->addWidget(area);
}

void Builder::startColumn(int share) {
  finishColumn();
  column_ = new QVBoxLayout;
  column_->setSpacing(6);
  columns_->addColumn(column_, share);
}

void Builder::finishColumn() {
  finishGroup();
  GroupGrid::align(columnGrids_);
  columnGrids_.clear();
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
    frame = new QGroupBox(qtText(caption));
  column_->addWidget(frame);
  grid_ = std::make_unique<GroupGrid>(frame, tabs_ ? kLeastOnPage : kLeastAlone);
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
    column_->setStretchFactor(grid_->group().frame, 1);
  }
  form_.groups.push_back(grid_->group());
  columnGrids_.push_back(std::move(grid_));
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
    case LayoutRow::Kind::ToolLine:
      tools_ = nullptr;
      return;
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
  else if (row.kind == LayoutRow::Kind::Picture && !grid_)
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
    outer_->insertWidget(toolLines_++, bar);
  }
  if (row.kind == LayoutRow::Kind::ToolGap) {
    auto* line = new QFrame(central_);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setFixedWidth(9);
    tools_->addWidget(line);
  } else {
    if (auto* label = qobject_cast<QLabel*>(view->widget())) {
      label->setContentsMargins(6, 0, 6, 0);
      label->setMinimumWidth(charactersWide(row.width));
      label->setAlignment(Qt::AlignCenter);
    } else if (row.width > 0) {
      constexpr int kFrame = 30;
      view->widget()->setFixedWidth(charactersWide(row.width) + kFrame);
      callByKeys(view, row.keys);
    }
    tools_->addWidget(view->widget());
  }
}

// A box among the tools is reached by its keys.
void Builder::callByKeys(ControlView* view, std::string_view keys) {
  if (keys.empty())
    return;
  auto* call = new QShortcut(QKeySequence(qtText(keys)), &window_);
  QObject::connect(call, &QShortcut::activated, view->widget(), [view] { view->takeFocus(true); });
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
