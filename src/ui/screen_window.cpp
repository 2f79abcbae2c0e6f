#include "ui/screen_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTabWidget>
#include <QWindow>
#include <algorithm>

#include "ui/file_drops.h"
#include "ui/screen_keys.h"

namespace zelvo {

namespace {

constexpr int kRest = 300;  ///< milliseconds without a key, after which typing rests

}  // namespace

ScreenWindow::ScreenWindow(Screen& screen, WindowHost& host)
    : screen_(&screen), host_(host), layout_(layoutFor(screen.name())) {
  setObjectName(QString::fromStdString(screen.name()));
  if (!layout_) {
    stacked_ = std::make_unique<StackedLayout>(screen);
    layout_ = &stacked_->layout();
  }
  form_ = buildForm(*this, screen, *layout_, *this);
  statusBar()->setSizeGripEnabled(false);
  for (const Control* control : screen.controls())
    hasStatusLine_ = hasStatusLine_ || control->kind() == ControlKind::Tabs || control->kind() == ControlKind::Menu;
  statusBar()->setVisible(hasStatusLine_);
  new ScreenKeys(*this);
  new FileDrops(*this);
  resting_.setSingleShot(true);
  resting_.setInterval(kRest);
  connect(&resting_, &QTimer::timeout, this, [this] {
    if (edited_)
      act([this] { screen_->userRests(*edited_); });
  });
  setAcceptDrops(true);
  refresh();
}

// The widgets go first: while they go they may still tell their views that they lost the focus.
ScreenWindow::~ScreenWindow() {
  detach();
  delete takeCentralWidget();
}

void ScreenWindow::detach() {
  for (const auto& view : form_.views)
    view->dead = true;
  screen_ = nullptr;
  left_ = nullptr;
  resting_.stop();
  hide();
}

void ScreenWindow::refresh() {
  if (!screen_)
    return;
  const QWidget* held = focusWidget();
  for (const auto& view : form_.views)
    view->refresh();
  for (const FieldGroup& group : form_.groups)
    group.refresh();
  if (shownCaption_ != screen_->caption) {
    shownCaption_ = screen_->caption;
    setWindowTitle(QString::fromStdString(shownCaption_));
  }
  const std::string& status = complaint_.empty() ? screen_->status : complaint_;
  if (shownStatus_ != status) {
    shownStatus_ = status;
    statusBar()->showMessage(QString::fromStdString(shownStatus_));
    statusBar()->setVisible(hasStatusLine_ || !shownStatus_.empty());
  }
  saveFocus(held);
  moveFocus();
}

// A pressed button that goes grey would hand the focus to the next one that does not: after Add that is Quit, and the
// next Enter would close the window. It goes where Enter presses nothing.
void ScreenWindow::saveFocus(const QWidget* held) {
  if (!qobject_cast<const QAbstractButton*>(held) || held->isEnabled())
    return;
  for (const auto& view : form_.views) {
    QWidget* widget = view->widget();
    if (widget && !qobject_cast<QAbstractButton*>(widget) && !qobject_cast<QLabel*>(widget) && widget->isEnabled() &&
        widget->isVisibleTo(this))
      return widget->setFocus(Qt::OtherFocusReason);
  }
}

void ScreenWindow::moveFocus() {
  if (!screen_->focus)
    return;
  ControlView* view = form_.find(*std::exchange(screen_->focus, nullptr));
  ledFocus_ = true;
  if (view)
    view->takeFocus(std::exchange(screen_->selectAll, false));
}

void ScreenWindow::open(QWidget* opener) {
  if (isCover())
    return setGeometry(QWidget::screen()->geometry());
  const QRect room = QWidget::screen()->availableGeometry();
  const QSize frame(16, 40);  // a window's border and title, which it does not count itself
  QSize size = sizeHint().boundedTo(room.size() - frame);
  if (size.width() < sizeHint().width())  // its columns go below each other
    size.setHeight(room.height() - frame.height());
  resize(size);
  if (opener) {
    winId();  // makes the handle
    windowHandle()->setTransientParent(opener->windowHandle());
  }
  if (opener && layout_->besideOpener)
    placeBeside(opener);
  else if (height() + 2 * frame.height() < room.height())  // a large one is best placed by the desktop itself
    move(room.center() - QPoint((width() + frame.width()) / 2, (height() + frame.height()) / 2));
}

void ScreenWindow::makeCover(const QColor& colour) {
  setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint | Qt::WindowDoesNotAcceptFocus);
  setAttribute(Qt::WA_ShowWithoutActivating);
  statusBar()->hide();
  QPalette colours;
  colours.setColor(QPalette::Window, colour);
  setPalette(colours);
}

void ScreenWindow::placeBeside(QWidget* opener) {
  constexpr int kTwipsAnInch = 1440;
  const Layout::Offset offset = *layout_->besideOpener;
  const QPoint corner = opener->geometry().topLeft() +
                        QPoint(offset.x * logicalDpiX() / kTwipsAnInch, offset.y * logicalDpiY() / kTwipsAnInch);
  move(corner);
}

void ScreenWindow::act(const std::function<void()>& doing) {
  if (!screen_)
    return;
  const QPointer<ScreenWindow> self(this);
  host_.act([&] {
    tellLeft();
    if (self && screen_)
      doing();
  });
}

// A button is not pressed when the box left behind was refused: the user would be told the same thing twice.
void ScreenWindow::press(const std::function<void()>& doing) {
  if (!screen_)
    return;
  host_.act([&] {
    if (!tellLeft())
      doing();
  });
}

// A refusal needs no word: what the control kept is shown again. To turn a page is to press it.
void ScreenWindow::sets(Control& control, const std::string& value) {
  complaint_.clear();
  const auto setting = [&] { static_cast<void>(screen_->userSets(control, value)); };
  if (control.kind() == ControlKind::Tabs)
    return press(setting);
  edited_ = &control;
  resting_.start();
  if (control.kind() == ControlKind::CheckBox || control.kind() == ControlKind::Option)
    return act(setting);
  // What is typed is in its control before the box left behind is told of, which may show the window anew.
  const QPointer<ScreenWindow> self(this);
  host_.act([&] {
    setting();
    if (self && screen_)
      tellLeft();
  });
}

std::vector<std::string> ScreenWindow::offers(const Control& control) {
  return screen_ ? screen_->offersFor(control) : std::vector<std::string>();
}

void ScreenWindow::changes(Control& control, const std::function<void()>& change) {
  complaint_.clear();
  act([&] { static_cast<void>(screen_->userChanges(control, change)); });
}

// Pressing a button by its access key moves the focus there as a click does, so that the box left behind is told first.
void ScreenWindow::clicks(Control& control) {
  if (!screen_)
    return;
  const ControlView* view = form_.find(control);
  if (view && view->widget() && view->widget()->focusPolicy() != Qt::NoFocus && !view->widget()->hasFocus())
    view->widget()->setFocus(Qt::OtherFocusReason);
  if (givesUp(control))
    left_ = nullptr;  // what is given up need not be right
  else if (holdsUnreadable())
    return;
  complaint_.clear();
  press([&] { static_cast<void>(screen_->userClicks(control)); });
}

// The buttons that keep nothing of what was typed.
bool ScreenWindow::givesUp(const Control& control) const {
  const auto* button = dynamic_cast<const Button*>(&control);
  if (button && button->isCancel)
    return true;
  const std::string id = control.id();
  return std::any_of(layout_->rows.begin(), layout_->rows.end(), [&](const LayoutRow& row) {
    return row.control == id && (row.glyph == Glyph::Cancel || row.glyph == Glyph::Quit);
  });
}

// Nothing is stored while a box holds what cannot be read: the user is led back to it.
bool ScreenWindow::holdsUnreadable() {
  for (const auto& view : form_.views) {
    const std::string why = view->control().visible ? view->unreadable() : std::string();
    if (why.empty())
      continue;
    complains(why);
    ledFocus_ = true;
    view->takeFocus(true);
    return true;
  }
  return false;
}

// A box that was only walked through is not told of: a refused one could not be left again to mend the other box that
// it disagrees with. Told when the present event is over, or before whatever the user does next: a handler may open a
// message, and must not do so in the middle of a move of the focus.
void ScreenWindow::leaves(Control& control) {
  if (!screen_ || edited_ != &control)
    return;
  edited_ = nullptr;
  left_ = &control;
  QTimer::singleShot(0, this, [this] {
    if (left_)
      act([] {});
  });
}

// True when the handler led the user somewhere else, or away.
bool ScreenWindow::tellLeft() {
  Control* control = std::exchange(left_, nullptr);
  if (!control)
    return false;
  const QPointer<ScreenWindow> self(this);
  const QWidget* before = focusWidget();
  static_cast<void>(screen_->userLeaves(*control));
  return !self || !screen_ || screen_->focus || focusWidget() != before;
}

void ScreenWindow::chooses(ListView& list, std::size_t row) {
  act([&] { static_cast<void>(screen_->userChooses(list, row)); });
}

void ScreenWindow::opensRow(ListView& list, std::size_t row) {
  act([&] { static_cast<void>(screen_->userOpensRow(list, row)); });
}

void ScreenWindow::sorts(ListView& list, std::size_t column) {
  act([&] { static_cast<void>(screen_->userSorts(list, column)); });
}

void ScreenWindow::picks(TextBox& box, const std::string& entry) {
  act([&] { static_cast<void>(screen_->userPicksFromTextMenu(entry, &box)); });
}

void ScreenWindow::complains(const std::string& why) {
  complaint_ = why;
  refresh();
}

// Photographs from the camera's folder, dropped anywhere on the record.
void ScreenWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (screen_ && screen_->takesFiles() && !FileDrops::filesOf(*event).empty())
    event->acceptProposedAction();
}

// They are copied, whatever the desktop proposes: it would take what was moved out of the camera's folder.
void ScreenWindow::dropEvent(QDropEvent* event) {
  const auto files = FileDrops::filesOf(*event);
  event->setDropAction(Qt::CopyAction);
  event->accept();
  if (screen_ && !files.empty())
    act([&] { static_cast<void>(screen_->userDrops(files)); });
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the screen decides
  left_ = nullptr;
  act([&] { screen_->userCloses(); });
}

// F1 asks for help. Enter presses the button that has the focus, else the one that the screen has for it. Esc presses a
// button that the screen named for it and does nothing else: it never throws away what was typed.
void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  const int key = event->key() == Qt::Key_Enter ? Qt::Key_Return : event->key();
  if (key == Qt::Key_F1)
    return act([this] { screen_->userAsksForHelp(); });
  auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
  if (key == Qt::Key_Return && focused) {
    focused->click();
    return;
  }
  Button* button = screen_ ? buttonFor(key) : nullptr;
  if (button)
    clicks(*button);
  else
    QMainWindow::keyPressEvent(event);
}

Button* ScreenWindow::buttonFor(int key) const {
  for (Control* control : screen_->controls()) {
    auto* button = dynamic_cast<Button*>(control);
    if (!button || !button->enabled || !button->visible)
      continue;
    if ((key == Qt::Key_Return && button->isDefault) || (key == Qt::Key_Escape && button->isCancel))
      return button;
  }
  return nullptr;
}

namespace {

bool standsOnPage(const QWidget* widget) {
  while (widget && !qobject_cast<const QTabWidget*>(widget))
    widget = widget->parentWidget();
  return widget;
}

}  // namespace

Button* ScreenWindow::buttonWithShortcut(const QKeySequence& keys) const {
  Button* found = nullptr;
  for (const auto& view : form_.views) {
    auto* button = screen_ ? dynamic_cast<Button*>(&view->control()) : nullptr;
    if (!button || button->shortcut.empty() || !button->enabled || !button->visible ||
        !view->widget()->isVisibleTo(this) || QKeySequence(QString::fromStdString(button->shortcut)) != keys)
      continue;
    if (!found || standsOnPage(view->widget()))
      found = button;
  }
  return found;
}

void ScreenWindow::pressByKey(Button& button) {
  const QPointer<ScreenWindow> self(this);
  const QPointer<QWidget> held = focusWidget();
  ledFocus_ = false;
  clicks(button);
  if (self && screen_ && !ledFocus_ && held && held->isEnabled() && held->isVisibleTo(this))
    held->setFocus(Qt::OtherFocusReason);
}

void ScreenWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    QTimer::singleShot(0, this, [this] {
      if (screen_ && isActiveWindow())
        host_.turnedTo(*screen_);
    });
}

}  // namespace zelvo
