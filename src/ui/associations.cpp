#include "ui/associations.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <vector>

#include "base/files.h"
#include "base/text.h"

namespace zelvo {

namespace {

// The value of a key in a section of one of the desktop's settings files.
std::string settingOf(const std::string& path, std::string_view section, std::string_view key) {
  const auto lines = readLines(path);
  if (!lines)
    return {};
  bool inside = false;
  for (const std::string& line : *lines) {
    if (line.starts_with("["))
      inside = line == "[" + std::string(section) + "]";
    else if (inside && line.starts_with(std::string(key) + "="))
      return line.substr(key.size() + 1);
  }
  return {};
}

std::vector<std::string> foldersOf(QStandardPaths::StandardLocation location) {
  std::vector<std::string> folders;
  for (const QString& folder : QStandardPaths::standardLocations(location))
    folders.push_back(folder.toStdString());
  return folders;
}

std::optional<std::string> programOfEntry(const std::string& entry) {
  for (const std::string& folder : foldersOf(QStandardPaths::ApplicationsLocation)) {
    const std::string command = settingOf(folder + "/" + entry, "Desktop Entry", "Exec");
    const QStringList parts = QProcess::splitCommand(QString::fromStdString(command));
    const QString program = parts.isEmpty() ? QString() : QStandardPaths::findExecutable(parts.first());
    if (!program.isEmpty())
      return program.toStdString();
  }
  return std::nullopt;
}

std::optional<std::string> firstProgram(const std::string& entries) {
  for (const std::string& entry : split(entries, ';'))
    if (!entry.empty())
      if (auto program = programOfEntry(entry))
        return program;
  return std::nullopt;
}

std::optional<std::string> programOfKind(const std::string& kind) {
  for (const std::string& folder : foldersOf(QStandardPaths::GenericConfigLocation))
    if (auto program = firstProgram(settingOf(folder + "/mimeapps.list", "Default Applications", kind)))
      return program;
  const auto applications = foldersOf(QStandardPaths::ApplicationsLocation);
  for (const std::string& folder : applications)
    if (auto program = firstProgram(settingOf(folder + "/mimeapps.list", "Default Applications", kind)))
      return program;
  for (const std::string& folder : applications)
    if (auto program = firstProgram(settingOf(folder + "/mimeinfo.cache", "MIME Cache", kind)))
      return program;
  return std::nullopt;
}

}  // namespace

std::optional<std::string> associatedProgram(std::string_view path) {
  const QString file = QString::fromStdString(systemPath(path));
  const auto mode = QFileInfo::exists(file) ? QMimeDatabase::MatchDefault : QMimeDatabase::MatchExtension;
  // An empty page is known by its name alone; by its content it would be any text.
  const QMimeType kind =
      QMimeDatabase().mimeTypeForFile(file, QFileInfo(file).size() == 0 ? QMimeDatabase::MatchExtension : mode);
  if (auto program = programOfKind(kind.name().toStdString()))
    return program;
  for (const QString& wider : kind.allAncestors())
    if (auto program = programOfKind(wider.toStdString()))
      return program;
  return std::nullopt;
}

}  // namespace zelvo
