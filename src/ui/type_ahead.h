#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

class QWidget;

namespace zelvo {

class Screen;

/// Keeps what somebody types while the program shows a notice that takes nothing (the first moments of the program,
/// the wait for the main menu), and types it into the window that comes next: who knows the way signs in without
/// waiting for it.
class TypeAhead : public QObject {
 public:
  /// `ready` gives the window that keys go to now; null while the program is at work or only shows something.
  explicit TypeAhead(std::function<QWidget*()> ready);

  /// Whether a screen only shows something.
  static bool isNotice(const Screen& screen);

  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  void typeOne();

  std::function<QWidget*()> ready_;
  std::deque<std::unique_ptr<QKeyEvent>> kept_;
  QTimer looking_;
};

}  // namespace zelvo
