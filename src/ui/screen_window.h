#pragma once

#include <QKeySequence>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "ui/form_builder.h"

namespace zelvo {

/// What a window needs of the face that holds it.
class WindowHost {
 public:
  virtual ~WindowHost() = default;
  /// Does what the user asked for and then shows, on every open window, what changed.
  virtual void act(const std::function<void()>& doing) = 0;
  /// The user turned to this window.
  virtual void turnedTo(Screen& screen) = 0;
};

/// The window of one screen. It holds nothing of its own: each key typed is in its control at once, and what it shows
/// is what the screen says. When the screen is closed the window lets go of it and can be destroyed at any later time.
class ScreenWindow : public QMainWindow, private UserActions {
 public:
  ScreenWindow(Screen& screen, WindowHost& host);
  ~ScreenWindow() override;

  /// The screen that it shows; null once that is closed.
  Screen* screen() const { return screen_; }
  /// Shows what differs from what it last showed.
  void refresh();
  /// Comes up in front: in the middle of the display, or beside the window it was opened from.
  void open(QWidget* opener);
  /// A cover in this colour, over the whole display and behind all other windows. To be called before it is opened.
  void makeCover(const QColor& colour);
  bool isCover() const { return layout_->kind == WindowKind::Cover; }
  /// The screen is closed: lets go of it and goes away.
  void detach();

  /// The button that these keys press now; null when there is none. Of two that could be, the one on the page in front.
  Button* buttonWithShortcut(const QKeySequence& keys) const;
  /// As a click on it, but the focus stays where it was unless the screen leads it elsewhere.
  void pressByKey(Button& button);
  /// Whether Enter presses a button, wherever the focus is.
  bool waitsForEnter() const { return screen_ && buttonFor(Qt::Key_Return); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void sets(Control& control, const std::string& value) override;
  std::vector<std::string> offers(const Control& control) override;
  void changes(Control& control, const std::function<void()>& change) override;
  void clicks(Control& control) override;
  void leaves(Control& control) override;
  void chooses(ListView& list, std::size_t row) override;
  void opensRow(ListView& list, std::size_t row) override;
  void sorts(ListView& list, std::size_t column) override;
  void picks(TextBox& box, const std::string& entry) override;
  void complains(const std::string& why) override;

  void act(const std::function<void()>& doing);
  void press(const std::function<void()>& doing);
  bool tellLeft();
  bool givesUp(const Control& control) const;
  bool holdsUnreadable();
  Button* buttonFor(int key) const;
  void moveFocus();
  void saveFocus(const QWidget* held);
  void placeBeside(QWidget* opener);

  Screen* screen_;
  WindowHost& host_;
  std::unique_ptr<StackedLayout> stacked_;
  const Layout* layout_;
  BuiltForm form_;
  QTimer resting_;             // since the last key that changed something
  Control* edited_ = nullptr;  // what the user last changed, until it is left
  Control* left_ = nullptr;    // whose leaving is still to be told
  std::string shownCaption_, shownStatus_;
  bool hasStatusLine_ = false;  // small windows show theirs only when it says something
  bool ledFocus_ = false;       // since the last key: the screen said where the focus goes
  std::string complaint_;       // stands at the foot until the user does something else
};

}  // namespace zelvo
