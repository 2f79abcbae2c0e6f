#include <pwd.h>
#include <unistd.h>

#include <QDir>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>

#include "base/files.h"
#include "ui/associations.h"
#include "ui/qt_ports.h"
#include "ui/qt_text.h"

namespace zelvo {

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

Result<void> QtDesktop::switchDisplay(ScreenSize size) {
  return Error{Trouble::Failed, "The display cannot be switched from here. Choose " + std::to_string(size.width) +
                                    " by " + std::to_string(size.height) + " in the display settings of the desktop."};
}

std::optional<std::string> QtDesktop::programFor(std::string_view path) {
  return associatedProgram(path);
}

Result<void> QtDesktop::start(std::string_view commandLine) {
  QStringList parts = QProcess::splitCommand(qtText(commandLine));
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
