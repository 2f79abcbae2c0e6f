#include <pwd.h>
#include <unistd.h>

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>

#include "base/files.h"
#include "ui/associations.h"
#include "ui/qt_ports.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

// The tool speaks to displays of the X kind alone.
QString displayTool() {
  return QGuiApplication::platformName() == QStringLiteral("xcb")
             ? QStandardPaths::findExecutable(QStringLiteral("xrandr"))
             : QString();
}

// A program that is named alone may have blanks in its path.
QStringList partsOf(std::string_view commandLine) {
  if (FileExists(commandLine))
    return {qtText(commandLine)};
  return QProcess::splitCommand(qtText(commandLine));
}

}  // namespace

QtDesktop::QtDesktop(QtFace& face) : face_(face), display_(displayTool()) {}

std::optional<std::string> QtDesktop::networkUser() {
  const passwd* user = getpwuid(geteuid());
  if (!user || !user->pw_name || !*user->pw_name)
    return std::nullopt;
  return std::string(user->pw_name);
}

std::string QtDesktop::temporaryFolder() {
  return withoutEndSeparator(QDir::tempPath().toStdString());
}

std::string QtDesktop::systemFolder() {
  return "/usr";
}

ScreenSize QtDesktop::screenSize() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen)
    return {};
  const QSizeF size = QSizeF(screen->size()) * screen->devicePixelRatio();
  return {qRound(size.width()), qRound(size.height())};
}

std::string QtDesktop::clipboard() {
  return QGuiApplication::clipboard()->text().toStdString();
}

void QtDesktop::setClipboard(std::string_view text) {
  QGuiApplication::clipboard()->setText(qtText(text));
}

std::optional<std::string> QtDesktop::programFor(std::string_view path) {
  return associatedProgram(path);
}

Result<void> QtDesktop::start(std::string_view commandLine) {
  QStringList parts = partsOf(commandLine);
  if (parts.isEmpty() || parts.first().isEmpty())
    return Error{Trouble::NotFound, "There is no program on this computer that opens " +
                                        (parts.size() > 1 ? parts[1].toStdString() : std::string("this")) + "."};
  const QString program = QString::fromStdString(systemPath(parts.takeFirst().toStdString()));
  if (!QProcess::startDetached(program, parts))
    return Error{Trouble::Failed,
                 "\"" + program.toStdString() + "\" could not be started. Check that it is installed."};
  return {};
}

}  // namespace zelvo
