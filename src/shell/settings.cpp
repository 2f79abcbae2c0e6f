#include "shell/settings.h"

#include <algorithm>
#include <type_traits>

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "data/server_folder.h"
#include "shell/setting_lines.h"

namespace zelvo {

namespace {

std::string inProgramFolder(const Session& session, std::string_view name) {
  return joinPath(session.programFolder, name);
}

/// No path at all while there is no data folder: the current folder is not to stand in for it.
std::string inDataFolder(const Session& session, std::string_view name) {
  return session.dataFolder.empty() ? "" : joinPath(session.dataFolder, name);
}

/// The lines of a file; none when there is no such file.
std::vector<std::string> linesIn(std::string_view path) {
  const auto lines = readLines(path);
  return lines ? *lines : std::vector<std::string>();
}

template <class Value>
Value& valueOf(Session& session, Value Session::*member) {
  return session.*member;
}

std::string& valueOf(Session& session, std::string Municipality::*member) {
  return session.municipality.*member;
}

void take(std::string& value, std::string_view line, SettingLine::Kind kind) {
  if (kind == SettingLine::Kind::AsItStands)
    value = line;
  else
    value = kind == SettingLine::Kind::Folder ? withoutEndSeparator(trim(line)) : std::string(trim(line));
}

void take(int& value, std::string_view line, SettingLine::Kind) {
  value = CInt(Val(line));
}

void take(bool& value, std::string_view line, SettingLine::Kind) {
  value = Val(line) != 0;
}

// The colours of the desktop itself are negative numbers when they are read as signed.
void take(std::uint32_t& value, std::string_view line, SettingLine::Kind) {
  const double number = std::clamp(Val(line), -2147483648.0, 4294967295.0);
  value = static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
}

void readLine(const SettingLine& setting, std::string_view line, Session& session) {
  if (setting.kind != SettingLine::Kind::Copy)
    std::visit([&](auto member) { take(valueOf(session, member), line, setting.kind); }, setting.member);
}

// A line break within a value would shift all values after it.
std::string written(const std::string& value) {
  std::string line = value;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

std::string written(bool value) {
  return value ? "1" : "0";
}

template <class Number>
requires std::is_integral_v<Number> std::string written(Number value) {
  return std::to_string(value);
}

bool readSettingLines(const std::vector<std::string>& lines, Session& session) {
  session.dataFolder.clear();
  for (std::size_t i = 0; i < std::min(lines.size(), kNeededSettingLines); ++i)
    readLine(kSettingLines[i], lines[i], session);
  const bool complete = lines.size() >= kNeededSettingLines && !session.dataFolder.empty();
  if (!complete)
    session.dataFolder.clear();
  session.formsFolder = FormsFolderFor(session.dataFolder, session.programFolder);
  if (complete && lines.size() > kNeededSettingLines && !trim(lines[kNeededSettingLines]).empty())
    readLine(kSettingLines[kNeededSettingLines], lines[kNeededSettingLines], session);
  return complete;
}

void readReportHeader(Session& session) {
  session.reportHeader = readBytes(joinPath(session.formsFolder, "gTitle.rtf")).valueOr("");
}

void readDefaults(Session& session) {
  const auto lines = linesIn(inProgramFolder(session, "def.txt"));
  for (std::size_t i = 0; i < std::min(lines.size(), kDefaultLines.size()); ++i)
    readLine(kDefaultLines[i], lines[i], session);
}

// The marker of an import outlives the roll that was imported; only then is it needed. Tables on a server have no
// files, and the roll among them is never out of sight.
void readRollMarkers(Session& session) {
  session.rollImported = FileExists(inDataFolder(session, "imported.txt")) &&
                         !FileExists(inDataFolder(session, "rps.mdb")) && !keepsOnServer(session.dataFolder);
}

void readList(const ListFile& file, Session& session) {
  const auto lines = readLines(inDataFolder(session, file.file));
  if (!lines && !file.emptyWhenMissing)
    return;
  auto& list = session.*file.list;
  list.clear();
  if (!lines)
    return;
  for (const std::string& line : *lines)
    if (list.size() < file.limit && !trim(line).empty())
      list.push_back(file.trimmed ? std::string(trim(line)) : line);
}

/// Fills slots from 1 on and empties the rest; gives how many codes there are.
template <std::size_t Slots>
std::size_t readCodes(const std::vector<std::string>& lines, std::size_t limit, std::array<std::string, Slots>& codes) {
  codes.fill("");
  const std::size_t count = std::min(lines.size(), limit);
  std::copy_n(lines.begin(), count, codes.begin() + 1);
  return count;
}

}  // namespace

std::string settingsPath(const Session& session) {
  return inProgramFolder(session, "Zelvo.ini");
}

bool ReadSettings(Session& session) {
  const bool complete = readSettingLines(linesIn(settingsPath(session)), session);
  readSharedFiles(session);
  return complete;
}

void readSharedFiles(Session& session) {
  ReadNextNumbers(session);
  readReportHeader(session);
  readDefaults(session);
  readRollMarkers(session);
  session.parcelLayout = parcelLayoutIn(session.dataFolder);
  readList(kFeesFile, session);
  readList(kChecklistFile, session);
}

std::string FormsFolderFor(std::string_view dataFolder, std::string_view programFolder) {
  const std::size_t separator = dataFolder.find_last_of("/\\");
  if (separator == std::string_view::npos)
    return joinPath(programFolder, "forms");
  return std::string(dataFolder.substr(0, separator + 1)) + "forms";
}

void ReadNextNumbers(Session& session) {
  for (const SeedFile& file : kSeedFiles)
    if (const auto lines = linesIn(inDataFolder(session, file.file)); !lines.empty())
      session.seeds.*file.seed = lines.front();
}

void ReadInspectors(Session& session) {
  readList(kInspectorsFile, session);
}

void ReadInspectionCodes(Session& session) {
  readCodes(linesIn(inDataFolder(session, kBuildingCodesFile)), kBuildingCodeLimit, session.buildingCodes);
  const auto others = readLines(inDataFolder(session, kOtherCodesFile));
  const std::size_t count =
      readCodes(others ? *others : std::vector<std::string>(), kOtherCodeLimit, session.otherCodes);
  if (others)
    session.buildingCodes[count + 1].clear();
}

void readBrowserChoice(Session& session) {
  const auto lines = linesIn(inProgramFolder(session, "browser.txt"));
  if (!lines.empty())
    session.selectedBrowser = trim(lines.front());
  if (lines.size() > 1)
    session.useDefaultBrowser = trim(lines[1]) == "F" ? "F" : "T";
}

Result<void> writeSettings(const Session& session) {
  Session values = session;
  std::vector<std::string> lines;
  for (const SettingLine& setting : kSettingLines)
    lines.push_back(std::visit([&](auto member) { return written(valueOf(values, member)); }, setting.member));
  return writeLines(settingsPath(session), lines);
}

}  // namespace zelvo
