#include "ui/screen_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QWindow>

namespace zelvo {

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
  hide();
}

void ScreenWindow::refresh() {
  if (!screen_)
    return;
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
  moveFocus();
}

void ScreenWindow::moveFocus() {
  if (!screen_->focus)
    return;
  ControlView* view = form_.find(*std::exchange(screen_->focus, nullptr));
  if (view)
    view->takeFocus(std::exchange(screen_->selectAll, false));
}

void ScreenWindow::open(QWidget* opener) {
  if (isCover())
    return setGeometry(QWidget::screen()->geometry());
  const QRect room = QWidget::screen()->availableGeometry();
  const QSize frame(16, 40);  // a window's border and title, which it does not count itself
  resize(sizeHint().boundedTo(room.size() - frame));
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

// A refusal needs no word: what the control kept is shown again.
void ScreenWindow::sets(Control& control, const std::string& value) {
  complaint_.clear();
  act([&] { static_cast<void>(screen_->userSets(control, value)); });
}

// Pressing a button by its access key moves the focus there as a click does, so that the box left behind is told first.
void ScreenWindow::clicks(Control& control) {
  if (!screen_)
    return;
  const ControlView* view = form_.find(control);
  if (view && view->widget() && view->widget()->focusPolicy() != Qt::NoFocus && !view->widget()->hasFocus())
    view->widget()->setFocus(Qt::OtherFocusReason);
  const auto* button = dynamic_cast<const Button*>(&control);
  if (holdsUnreadable() && !(button && button->isCancel))
    return;
  complaint_.clear();
  act([&] { static_cast<void>(screen_->userClicks(control)); });
}

// Nothing is stored while a box holds what cannot be read: the user is led back to it.
bool ScreenWindow::holdsUnreadable() {
  for (const auto& view : form_.views) {
    const std::string why = view->control().visible ? view->unreadable() : std::string();
    if (why.empty())
      continue;
    complains(why);
    view->takeFocus(true);
    return true;
  }
  return false;
}

// Told when the present event is over, or before whatever the user does next: a handler may open a message, and must
// not do so in the middle of a move of the focus.
void ScreenWindow::leaves(Control& control) {
  if (!screen_)
    return;
  left_ = &control;
  QTimer::singleShot(0, this, [this] {
    if (left_)
      act([] {});
  });
}

void ScreenWindow::tellLeft() {
  if (Control* control = std::exchange(left_, nullptr))
    static_cast<void>(screen_->userLeaves(*control));
}

void ScreenWindow::chooses(ListView& list, std::size_t row) {
  act([&] { static_cast<void>(screen_->userChooses(list, row)); });
}

void ScreenWindow::opensRow(ListView& list, std::size_t row) {
  act([&] { static_cast<void>(screen_->userOpensRow(list, row)); });
}

void ScreenWindow::complains(const std::string& why) {
  complaint_ = why;
  refresh();
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the screen decides
  act([&] { screen_->userCloses(); });
}

// Enter presses the button that has the focus, else the one that the screen has for it. Esc presses a button that the
// screen named for it and does nothing else: it never throws away what was typed.
void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  const int key = event->key() == Qt::Key_Enter ? Qt::Key_Return : event->key();
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

void ScreenWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    QTimer::singleShot(0, this, [this] {
      if (screen_ && isActiveWindow())
        host_.turnedTo(*screen_);
    });
}

}  // namespace zelvo
