#pragma once

#include <QString>
#include <optional>

#include "form/ports.h"

namespace zelvo {

/// The size that the user's display shows, on desktops whose display a program may switch: those with an "xrandr", and
/// a screen that knows the size. Everywhere else the switch is refused, with the reason.
class DisplayMode {
 public:
  /// `tool` is the path of xrandr; empty when there is none, or when it would not reach the display.
  explicit DisplayMode(QString tool) : tool_(std::move(tool)) {}

  Result<void> switchTo(ScreenSize size);
  /// Back to what was shown before the first switch; nothing when there was none.
  void restore();

 private:
  struct Shown {
    QString output, mode, rate;
  };
  QString ask(const QStringList& arguments) const;
  std::optional<Shown> shownNow(const QString& wanted, bool& known) const;

  QString tool_;
  std::optional<Shown> before_;
};

}  // namespace zelvo
