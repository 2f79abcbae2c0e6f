#include "ui/associations.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>
#include <initializer_list>
#include <set>
#include <vector>

#include "base/files.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::size_t kLongest = 4u << 20;  // bytes of a settings file of the desktop

// The value of a key in a section of one of the desktop's settings files.
std::string settingOf(const std::string& path, std::string_view section, std::string_view key) {
  const auto lines = readLines(path, kLongest);
  if (!lines)
    return {};
  bool inside = false;
  for (const std::string& line : *lines) {
    const std::size_t sign = line.find('=');
    if (line.starts_with("["))
      inside = trim(line) == "[" + std::string(section) + "]";
    else if (inside && sign != std::string::npos && trim(line.substr(0, sign)) == key)
      return std::string(trim(line.substr(sign + 1)));
  }
  return {};
}

std::vector<std::string> foldersOf(QStandardPaths::StandardLocation location) {
  std::vector<std::string> folders;
  for (const QString& folder : QStandardPaths::standardLocations(location))
    folders.push_back(folder.toStdString());
  return folders;
}

// An entry "kde-viewer.desktop" may lie in a folder below: "kde/viewer.desktop".
std::string fileOfEntry(const std::string& entry) {
  for (const std::string& folder : foldersOf(QStandardPaths::ApplicationsLocation)) {
    std::string name = entry;
    for (std::size_t from = 0; from != std::string::npos; from = name.find('-', from)) {
      if (from > 0)
        name[from++] = '/';
      if (FileExists(folder + "/" + name))
        return folder + "/" + name;
    }
  }
  return {};
}

bool isFieldCode(const QString& part) {
  return part.size() == 2 && part[0] == QLatin1Char('%');
}

// "env NAME=value program" starts the program.
QStringList withoutEnvironment(QStringList parts) {
  if (!parts.isEmpty() && QFileInfo(parts.first()).fileName() == QStringLiteral("env")) {
    parts.removeFirst();
    while (!parts.isEmpty() && parts.first().contains(QLatin1Char('=')))
      parts.removeFirst();
  }
  return parts;
}

// A document is opened by a program and nothing else on the command line. A program that needs more words than that
// (one that lives in a box of its own, say) is left to the desktop's own opener, which knows them.
std::optional<std::string> programOf(const QString& command) {
  const QStringList parts = withoutEnvironment(QProcess::splitCommand(command));
  const QString program = parts.isEmpty() ? QString() : QStandardPaths::findExecutable(parts.first());
  if (program.isEmpty())
    return std::nullopt;
  const bool needsWords = std::any_of(parts.begin() + 1, parts.end(), [](const QString& part) {
    return !isFieldCode(part) && !part.startsWith(QLatin1Char('-'));
  });
  const QString opener = needsWords ? QStandardPaths::findExecutable(QStringLiteral("xdg-open")) : QString();
  return (opener.isEmpty() ? program : opener).toStdString();
}

// A program for a terminal has no window to show a document in.
std::optional<std::string> programOfEntry(const std::string& entry) {
  const std::string file = fileOfEntry(entry);
  const auto says = [&](std::string_view key) { return settingOf(file, "Desktop Entry", key); };
  if (file.empty() || says("Terminal") == "true" || says("Hidden") == "true")
    return std::nullopt;
  return programOf(QString::fromStdString(says("Exec")));
}

using Entries = std::vector<std::string>;

Entries entriesIn(const std::string& path, std::string_view section, std::string_view kind) {
  Entries entries = split(settingOf(path, section, kind), ';');
  std::erase_if(entries, [](const std::string& entry) { return trim(entry).empty(); });
  return entries;
}

std::optional<std::string> firstProgram(const Entries& entries, const std::set<std::string>& removed) {
  for (const std::string& entry : entries)
    if (!removed.contains(entry))
      if (auto program = programOfEntry(entry))
        return program;
  return std::nullopt;
}

/// The lists in which choices are kept, the strongest first: the user's before the computer's, and at each place those
/// for the desktop that is running before those for all.
std::vector<std::string> choiceFiles() {
  std::vector<std::string> names;
  for (const QString& desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts))
    names.push_back("/" + desktop.toLower().toStdString() + "-mimeapps.list");
  names.emplace_back("/mimeapps.list");
  std::vector<std::string> files;
  for (const auto location : {QStandardPaths::GenericConfigLocation, QStandardPaths::ApplicationsLocation})
    for (const std::string& folder : foldersOf(location))
      for (const std::string& name : names)
        files.push_back(folder + name);
  return files;
}

std::optional<std::string> programOfKind(const std::string& kind) {
  const auto choices = choiceFiles();
  for (const std::string& file : choices)
    if (auto program = firstProgram(entriesIn(file, "Default Applications", kind), {}))
      return program;
  std::set<std::string> removed;
  for (const std::string& file : choices) {
    if (auto program = firstProgram(entriesIn(file, "Added Associations", kind), removed))
      return program;
    for (const std::string& entry : entriesIn(file, "Removed Associations", kind))
      removed.insert(entry);
  }
  for (const std::string& folder : foldersOf(QStandardPaths::ApplicationsLocation))
    if (auto program = firstProgram(entriesIn(folder + "/mimeinfo.cache", "MIME Cache", kind), removed))
      return program;
  return std::nullopt;
}

using Kinds = std::vector<std::string>;

/// The kinds of file that the office works with are known by their names: a computer may lack the desktop's own list of
/// kinds. A document that no program is named for is opened as the wider kind that it also is, a note as any text. A
/// web page is not: an editor shows its source, and is no browser.
struct KnownKind {
  std::string_view extension;
  std::initializer_list<std::string_view> kinds;
};

const KnownKind kKnownKinds[] = {
    {"html", {"text/html", "x-scheme-handler/https", "x-scheme-handler/http"}},
    {"htm", {"text/html", "x-scheme-handler/https", "x-scheme-handler/http"}},
    {"txt", {"text/plain"}},
    {"log", {"text/x-log", "text/plain"}},
    {"csv", {"text/csv", "text/plain"}},
    {"rtf", {"application/rtf", "text/rtf", "text/plain"}},
    {"pdf", {"application/pdf"}},
    {"doc", {"application/msword"}},
    {"bmp", {"image/bmp"}},
    {"gif", {"image/gif"}},
    {"jpg", {"image/jpeg"}},
    {"jpeg", {"image/jpeg"}},
    {"png", {"image/png"}},
};

Kinds kindsOf(const QFileInfo& file) {
  const std::string extension = file.suffix().toLower().toStdString();
  for (const KnownKind& known : kKnownKinds)
    if (known.extension == extension)
      return {known.kinds.begin(), known.kinds.end()};
  const QMimeType type = QMimeDatabase().mimeTypeForFile(file);
  Kinds kinds = {type.name().toStdString()};
  for (const QString& wider : type.allAncestors())
    kinds.push_back(wider.toStdString());
  return kinds;
}

}  // namespace

std::optional<std::string> associatedProgram(std::string_view path) {
  const QFileInfo file(QString::fromStdString(systemPath(path)));
  for (const std::string& kind : kindsOf(file))
    if (auto program = programOfKind(kind))
      return program;
  return std::nullopt;
}

}  // namespace zelvo
