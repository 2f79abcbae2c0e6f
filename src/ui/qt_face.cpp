#include "ui/qt_face.h"

#include <QApplication>
#include <QEventLoop>
#include <QStatusBar>
#include <utility>

namespace zelvo {

namespace {

constexpr int kOftenEnough = 40;  // milliseconds between two looks at the desktop during a long operation

}  // namespace

QtFace::QtFace(Session& session, Screens& screens) : session_(session), screens_(screens) {
  sinceShown_.start();
}

QtFace::~QtFace() {
  busy(false);
}

void QtFace::opened(Screen& screen, bool modal) {
  QWidget* opener = frontWindow();
  WindowHost& host = *this;
  auto window = std::make_unique<ScreenWindow>(screen, host);
  if (modal)
    window->setWindowModality(Qt::ApplicationModal);
  if (window->isCover())
    window->makeCover(coverColour());
  window->refresh();  // it opens as wide as the columns of its lists
  window->open(opener);
  windows_[&screen] = std::move(window);
}

// The settings keep red in the lowest byte.
QColor QtFace::coverColour() const {
  const std::uint32_t colour = session_.desktopColour;
  return QColor(static_cast<int>(colour & 255), static_cast<int>(colour >> 8 & 255),
                static_cast<int>(colour >> 16 & 255));
}

void QtFace::cameToFront(Screen& screen) {
  ScreenWindow* window = windowOf(screen);
  if (!window)
    return;
  window->refresh();
  if (window->isMinimized())
    window->showNormal();
  else
    window->show();
  if (window->isCover())
    return;
  window->raise();
  window->activateWindow();
}

// The window may be in the middle of telling what the user did: it lets go of the screen at once and goes away later.
void QtFace::closed(Screen& screen) {
  const auto found = windows_.find(&screen);
  if (found == windows_.end())
    return;
  found->second->detach();
  found->second.release()->deleteLater();
  windows_.erase(found);
  leaveLoops();
}

// The line is painted at once; the rest of the desktop gets its turn now and then only, so that telling of a long
// operation does not hold it up.
void QtFace::status(Screen& screen, std::string_view) {
  ScreenWindow* window = windowOf(screen);
  if (!window)
    return;
  window->refresh();
  window->statusBar()->repaint();
  if (sinceShown_.elapsed() < kOftenEnough)
    return;
  processEvents();
  sinceShown_.restart();
}

void QtFace::waitUntilClosed(Screen& screen) {
  waitWhile([this, &screen] { return screens_.isOpen(screen); });
}

void QtFace::run() {
  waitWhile([this] { return !windows_.empty(); });
}

void QtFace::waitWhile(const std::function<bool()>& going) {
  refresh();
  const bool hourglass = hourglass_;
  busy(false);
  const int outside = std::exchange(running_, 0);
  QEventLoop loop;
  waits_.push_back({&loop, &going});
  bool desktopGoesOn = true;
  while (desktopGoesOn && !session_.ended && going())
    desktopGoesOn = loop.exec() == 0;
  waits_.pop_back();
  running_ = outside;
  busy(hourglass);
}

void QtFace::leaveLoops() {
  for (const Wait& wait : waits_)
    if (session_.ended || !(*wait.going)())
      wait.loop->quit();
}

void QtFace::processEvents() {
  refresh();
  QCoreApplication::processEvents(running_ > 0 ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
  leaveLoops();
}

std::string QtFace::nameOf(const Control& control) {
  return captionOf(control);
}

// The modal window takes the mouse and the keys; the windows behind it refuse them.
void QtFace::listen() {
  if (sinceShown_.elapsed() < kOftenEnough)
    return;
  refresh();
  const int outside = std::exchange(running_, 0);
  QCoreApplication::processEvents();
  running_ = outside;
  leaveLoops();
  sinceShown_.restart();
}

void QtFace::busy(bool hourglass) {
  if (hourglass_ == hourglass)
    return;
  hourglass_ = hourglass;
  if (hourglass)
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QGuiApplication::restoreOverrideCursor();
}

void QtFace::refresh() {
  for (const auto& [screen, window] : windows_)
    window->refresh();
}

void QtFace::act(const std::function<void()>& doing) {
  ++handlers_;
  ++running_;
  doing();
  --running_;
  --handlers_;
  if (handlers_ == 0)
    screens_.sweep();
  refresh();
  leaveLoops();
}

// While a handler runs, windows come and go without the user's doing.
void QtFace::turnedTo(Screen& screen) {
  if (running_ == 0 && screens_.front() != &screen && screens_.reachable(screen))
    act([&] { screens_.bringToFront(screen); });
}

QWidget* QtFace::frontWindow() const {
  const Screen* front = screens_.front();
  ScreenWindow* window = front ? windowOf(*front) : nullptr;
  if (window && window->isVisible())
    return window;
  for (const Screen* screen : screens_.all())
    if (ScreenWindow* other = windowOf(*screen); other && other->isVisible())
      return other;
  return nullptr;
}

QWidget* QtFace::windowForKeys() const {
  const Screen* front = screens_.front();
  return running_ == 0 && front && !TypeAhead::isNotice(*front) ? windowOf(*front) : nullptr;
}

ScreenWindow* QtFace::windowOf(const Screen& screen) const {
  const auto found = windows_.find(&screen);
  return found == windows_.end() ? nullptr : found->second.get();
}

void QtFace::raiseAll() {
  const auto screens = screens_.all();
  for (auto screen = screens.rbegin(); screen != screens.rend(); ++screen)
    if (ScreenWindow* window = windowOf(**screen); window && !window->isCover()) {
      window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
      window->raise();
      window->activateWindow();
    }
}

void QtFace::overWindows(const std::function<void(QWidget*)>& box) {
  refresh();
  const bool hourglass = hourglass_;
  busy(false);
  box(frontWindow());
  busy(hourglass);
}

}  // namespace zelvo
