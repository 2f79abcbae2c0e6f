#pragma once

#include <QElapsedTimer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "form/screens.h"
#include "form/session.h"
#include "ui/screen_window.h"
#include "ui/type_ahead.h"

class QEventLoop;

namespace zelvo {

/// The windows of the program. One thing is done at a time: what the user does while a handler runs waits, unless that
/// handler itself waits for a screen. Screens that were closed are destroyed when no handler runs.
class QtFace : public Face, private WindowHost {
 public:
  QtFace(Session& session, Screens& screens);
  ~QtFace() override;

  void opened(Screen& screen, bool modal) override;
  void cameToFront(Screen& screen) override;
  void closed(Screen& screen) override;
  void status(Screen& screen, std::string_view text) override;
  void waitUntilClosed(Screen& screen) override;
  void processEvents() override;
  std::string nameOf(const Control& control) override;
  void listen() override;
  void busy(bool hourglass) override;

  bool handlerRuns() const { return running_ > 0; }
  /// Lets the user work until the program ended or no window is left.
  void run();
  /// Shows on every open window what changed since.
  void refresh();
  /// The window in front, for boxes that belong over it; null when there is none.
  QWidget* frontWindow() const;
  /// The window of a screen; null when it has none.
  ScreenWindow* windowOf(const Screen& screen) const;
  /// Brings the windows back from wherever the desktop put them.
  void raiseAll();
  /// Runs a box of the desktop with the normal pointer, over windows that show the present state.
  void overWindows(const std::function<void(QWidget*)>& box);

 private:
  void act(const std::function<void()>& doing) override;
  void turnedTo(Screen& screen) override;
  QColor coverColour() const;
  QWidget* windowForKeys() const;
  void leaveLoops();
  void waitWhile(const std::function<bool()>& going);

  Session& session_;
  Screens& screens_;
  std::map<const Screen*, std::unique_ptr<ScreenWindow>> windows_;
  struct Wait {
    QEventLoop* loop;
    const std::function<bool()>* going;
  };
  std::vector<Wait> waits_;
  int handlers_ = 0;  // begun and not ended, one inside the other
  int running_ = 0;   // of them, those that wait for no screen
  bool hourglass_ = false;
  TypeAhead typeAhead_{[this] { return windowForKeys(); }};
  QElapsedTimer sinceShown_;  // also since the user was last listened to
};

}  // namespace zelvo
