#include <pwd.h>
#include <unistd.h>

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <memory>

#include "base/files.h"
#include "ui/associations.h"
#include "ui/qt_ports.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

constexpr char kRichText[] = "text/rtf";
constexpr char kOldRichText[] = "text/richtext";

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

// Word processors name the same thing in two ways.
std::string QtDesktop::richClipboard() {
  const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
  for (const char* kind : {kRichText, kOldRichText})
    if (copied && copied->hasFormat(QLatin1String(kind)))
      return copied->data(QLatin1String(kind)).toStdString();
  return {};
}

void QtDesktop::setClipboard(std::string_view text, std::string_view richText) {
  auto copied = std::make_unique<QMimeData>();
  copied->setText(qtText(text));
  const QByteArray rich(richText.data(), static_cast<qsizetype>(richText.size()));
  for (const char* kind : {kRichText, kOldRichText})
    if (!rich.isEmpty())
      copied->setData(QLatin1String(kind), rich);
  QGuiApplication::clipboard()->setMimeData(copied.release());
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
