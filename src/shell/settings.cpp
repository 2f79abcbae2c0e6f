#include "shell/settings.h"

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "data/server_folder.h"
#include "shell/setting_values.h"

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
  return readLines(path, kSettingFileLimit).valueOr({});
}

void readFile(const SettingFile& file, Session& session) {
  const auto lines = linesIn(inProgramFolder(session, file.file));
  for (std::size_t i = 0; i < std::min(lines.size(), file.lines.size()); ++i)
    readLine(file.lines[i], lines[i], session);
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
  constexpr std::size_t kLongest = 16u << 20;
  session.reportHeader = readBytes(joinPath(session.formsFolder, "gTitle.rtf"), kLongest).valueOr("");
}

// The marker of an import outlives the roll that was imported; only then is it needed. Tables on a server have no
// files, and the roll among them is never out of sight.
void readRollMarkers(Session& session) {
  session.rollImported = FileExists(inDataFolder(session, "imported.txt")) &&
                         !FileExists(inDataFolder(session, "rps.mdb")) && !keepsOnServer(session.dataFolder);
}

void readList(const ListFile& file, Session& session) {
  const auto lines = readLines(inDataFolder(session, file.file), kSettingFileLimit);
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
  return inProgramFolder(session, kSettingsFile.file);
}

bool ReadSettings(Session& session) {
  const bool complete = readSettingLines(linesIn(settingsPath(session)), session);
  readSharedFiles(session);
  return complete;
}

void readSharedFiles(Session& session) {
  ReadNextNumbers(session);
  readReportHeader(session);
  readFile(kDefaultsFile, session);
  readRollMarkers(session);
  session.parcelLayout = parcelLayoutIn(session.dataFolder);
  readList(kFeesFile, session);
  readList(kChecklistFile, session);
  readList(kNumberedComplaintsFile, session);
  readList(kLetteredComplaintsFile, session);
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
  readCodes(linesIn(inDataFolder(session, kBuildingCodesFile.file)), kBuildingCodesFile.limit, session.buildingCodes);
  const auto others = readLines(inDataFolder(session, kOtherCodesFile.file), kSettingFileLimit);
  const std::size_t count = readCodes(others.valueOr({}), kOtherCodesFile.limit, session.otherCodes);
  if (others)
    session.buildingCodes[count + 1].clear();
}

InspectionCodes inspectionCodesInFiles(const Session& session) {
  const auto codesIn = [&](const CodeFile& file) {
    auto codes = linesIn(inDataFolder(session, file.file));
    codes.resize(std::min(codes.size(), file.limit));
    return codes;
  };
  return {codesIn(kBuildingCodesFile), codesIn(kOtherCodesFile)};
}

void readBrowserChoice(Session& session) {
  readFile(kBrowserFile, session);
}

}  // namespace zelvo
