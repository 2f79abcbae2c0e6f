#include "ui/type_ahead.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>

#include "ui/screen_window.h"

namespace zelvo {

namespace {

constexpr std::size_t kMost = 200;  ///< keys; more is no name and password, but something that lies on the keyboard
constexpr int kOften = 10;          ///< milliseconds between two looks for the window that takes them

}  // namespace

TypeAhead::TypeAhead(std::function<QWidget*()> ready) : ready_(std::move(ready)) {
  looking_.setInterval(kOften);
  connect(&looking_, &QTimer::timeout, this, [this] { typeOne(); });
  qApp->installEventFilter(this);
}

bool TypeAhead::isNotice(const Screen& screen) {
  return std::ranges::all_of(screen.controls(), [](const Control* control) {
    return control->kind() == ControlKind::Label || !control->visible || !control->enabled;
  });
}

bool TypeAhead::eventFilter(QObject* target, QEvent* event) {
  if (event->type() != QEvent::KeyPress || kept_.size() == kMost)
    return false;
  const auto* widget = qobject_cast<QWidget*>(target);
  const auto* window = widget ? dynamic_cast<ScreenWindow*>(widget->window()) : nullptr;
  if (!window || !window->screen() || !isNotice(*window->screen()))
    return false;
  kept_.emplace_back(static_cast<QKeyEvent*>(event)->clone());
  looking_.start();
  return true;
}

// One key at a time: Tab leads the next one elsewhere, and Enter may open another window. A question that came up
// meanwhile is not answered by keys that were meant for something else.
void TypeAhead::typeOne() {
  if (dynamic_cast<ScreenWindow*>(QApplication::activeModalWidget()) != QApplication::activeModalWidget())
    kept_.clear();
  if (kept_.empty())
    return looking_.stop();
  QWidget* window = ready_();
  if (!window)
    return;
  const auto key = std::move(kept_.front());
  kept_.pop_front();
  QWidget* target = window->focusWidget() ? window->focusWidget() : window;
  QCoreApplication::sendEvent(target, key.get());
}

}  // namespace zelvo
