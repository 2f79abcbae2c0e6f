#include "ui/display_mode.h"

#include <QProcess>
#include <QRegularExpression>
#include <string>
#include <utility>

namespace zelvo {

namespace {

constexpr int kPatience = 10'000;  // milliseconds that a display may take to switch

Error refused(ScreenSize size) {
  return {Trouble::Failed, "The display cannot be switched from here. Choose " + std::to_string(size.width) + " by " +
                               std::to_string(size.height) + " in the display settings of the desktop."};
}

QString modeName(ScreenSize size) {
  return QStringLiteral("%1x%2").arg(size.width).arg(size.height);
}

// " connected primary 1366x768+0+0 (normal left ..." or, alone on the desk, without the word "primary".
bool isShowing(const QString& line) {
  static const QRegularExpression size(QStringLiteral(" connected (primary )?\\d+x\\d+\\+"));
  return line.contains(size);
}

// The rate that a mode is shown at carries a star: "60.00*+", and perhaps a blank before its plus.
QString starredRate(const QString& line) {
  static const QRegularExpression rate(QStringLiteral("(\\d+(\\.\\d+)?)\\*"));
  return rate.match(line).captured(1);
}

}  // namespace

/// What the tool says; nothing when it failed.
QString DisplayMode::ask(const QStringList& arguments) const {
  QProcess tool;
  tool.start(tool_, arguments, QIODevice::ReadOnly);
  const bool done = !tool_.isEmpty() && tool.waitForFinished(kPatience) && tool.exitStatus() == QProcess::NormalExit &&
                    tool.exitCode() == 0;
  return done ? QString::fromLocal8Bit(tool.readAllStandardOutput()) : QString();
}

/// The first display that shows something, the primary one before others, and its present mode; `known` tells whether
/// it also has the wanted one.
std::optional<DisplayMode::Shown> DisplayMode::shownNow(const QString& wanted, bool& known) const {
  const QStringList lines = ask({QStringLiteral("--query")}).split(QLatin1Char('\n'));
  const bool hasPrimary = lines.indexOf(QRegularExpression(QStringLiteral(".* connected primary \\d.*"))) >= 0;
  Shown shown;
  known = false;
  for (const QString& line : lines) {
    if (!line.startsWith(QLatin1Char(' '))) {
      if (!shown.mode.isEmpty())
        break;
      const bool ours = isShowing(line) && (!hasPrimary || line.contains(QStringLiteral(" primary ")));
      shown.output = ours ? line.section(QLatin1Char(' '), 0, 0) : QString();
      known = false;
    } else if (!shown.output.isEmpty()) {
      const QString mode = line.trimmed().section(QLatin1Char(' '), 0, 0);
      known = known || mode == wanted;
      if (const QString rate = starredRate(line); !rate.isEmpty())
        shown = {shown.output, mode, rate};
    }
  }
  return shown.mode.isEmpty() ? std::nullopt : std::optional(shown);
}

Result<void> DisplayMode::switchTo(ScreenSize size) {
  bool known = false;
  const auto shown = shownNow(modeName(size), known);
  if (!shown || !known)
    return refused(size);
  ask({QStringLiteral("--output"), shown->output, QStringLiteral("--mode"), modeName(size)});
  const auto now = shownNow(modeName(size), known);
  if (!now || now->mode != modeName(size))
    return refused(size);
  if (!before_)
    before_ = shown;
  return {};
}

void DisplayMode::restore() {
  if (const auto before = std::exchange(before_, std::nullopt))
    ask({QStringLiteral("--output"), before->output, QStringLiteral("--mode"), before->mode, QStringLiteral("--rate"),
         before->rate});
}

}  // namespace zelvo
