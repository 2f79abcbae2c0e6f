#pragma once

#include <QObject>
#include <string>
#include <vector>

class QDropEvent;

namespace zelvo {

class ScreenWindow;

/// Files that are dragged over the window of a screen belong to the window, whichever of its boxes they are over: a box
/// would take their names for a text.
class FileDrops : public QObject {
 public:
  explicit FileDrops(ScreenWindow& window);

  bool eventFilter(QObject* target, QEvent* event) override;

  /// The files of this computer among what is dragged.
  static std::vector<std::string> filesOf(const QDropEvent& event);

 private:
  ScreenWindow& window_;
};

}  // namespace zelvo
