#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

namespace zelvo {

class Button;
class ScreenWindow;

/// The keys that work everywhere in the window of a screen: the shortcuts that its buttons name, and Enter, which moves
/// on from box to box where no button waits for it. They are heard before the box that has the focus hears them, since
/// a box of the desktop has a meaning of its own for some. What drops down over the window keeps its keys.
class ScreenKeys : public QObject {
 public:
  explicit ScreenKeys(ScreenWindow& window);

  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  bool isMine(const QKeyEvent& key, const QWidget& target) const;
  bool pressed(const QKeyEvent& key, QWidget& target);
  bool movesOn(const QKeyEvent& key, const QWidget& target) const;
  void moveOn(QWidget& from, bool back);

  ScreenWindow& window_;
};

}  // namespace zelvo
