#include "shell/new_office.h"

#include <filesystem>
#include <functional>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "data/catalogue.h"
#include "data/data_folder.h"
#include "data/server_folder.h"
#include "documents/labels/label_layout.h"
#include "shell/setting_values.h"
#include "shell/settings.h"
#include "shell/users.h"

namespace zelvo {

namespace {

namespace fs = std::filesystem;

/// What was made so far, and is gone again unless it is kept. What was there before, and whatever somebody else put
/// into a new folder meanwhile, stays.
class Makings {
 public:
  Makings() = default;
  Makings(const Makings&) = delete;
  Makings& operator=(const Makings&) = delete;
  ~Makings() {
    std::error_code ignored;
    for (auto path = made_.rbegin(); path != made_.rend(); ++path)
      fs::remove(*path, ignored);
  }

  void keep() { made_.clear(); }
  Result<void> folder(const std::string& path);
  /// A file that `make` makes, unless it is there already.
  Result<void> file(const std::string& path, const std::function<Result<void>()>& make);
  /// To be called before somebody else makes the file.
  void expect(const std::string& path);

 private:
  std::vector<std::string> made_;
};

Result<void> Makings::folder(const std::string& path) {
  std::error_code unknown;
  std::vector<std::string> missing;
  for (fs::path part = path; !part.empty() && !fs::exists(part, unknown) && part != part.parent_path();
       part = part.parent_path())
    missing.push_back(part.string());
  made_.insert(made_.end(), missing.rbegin(), missing.rend());
  return makeFolder(path);
}

void Makings::expect(const std::string& path) {
  std::error_code unknown;
  if (!fs::exists(path, unknown))
    made_.push_back(path);
}

Result<void> Makings::file(const std::string& path, const std::function<Result<void>()>& make) {
  if (FileExists(path))
    return {};
  expect(path);
  return make();
}

bool holdsDatabases(const std::string& folder) {
  return keepsOnServer(folder) || !listFiles(folder, "*.mdb").empty();
}

/// The imported roll is there only once there was an import.
bool isBlankWanted(const Table& table) {
  return table.name != "RPS";
}

Session settingsOf(std::string_view programFolder, const NewOffice& office) {
  Session session;
  session.programFolder = programFolder;
  for (const SettingFile& file : {kSettingsFile, kDefaultsFile, kBrowserFile})
    readPresets(file, session);
  session.municipality.name = trim(office.municipality);
  session.localLaw = session.municipality.name + " Building and Zoning Code";
  session.dataFolder = withoutEndSeparator(trim(office.dataFolder));
  session.formsFolder = FormsFolderFor(session.dataFolder, session.programFolder);
  session.masterComputer = !holdsDatabases(session.dataFolder);
  return session;
}

Result<void> makeFolders(const Session& session, Makings& makings) {
  for (const char* folder : {"docs", "pics"})
    if (auto made = makings.folder(joinPath(session.dataFolder, folder)); !made)
      return made;
  for (const char* folder : {"wrk", "memos", "pics"})
    if (auto made = makings.folder(joinPath(session.programFolder, folder)); !made)
      return made;
  return makings.folder(session.formsFolder);
}

Result<void> makeDatabases(const Session& session, Makings& makings) {
  const std::string blanks = joinPath(session.programFolder, "wrk");
  for (const Table& table : catalogue())
    makings.expect(joinPath(blanks, table.file));
  makings.expect(joinPath(blanks, extendedParcelTable().file));
  if (auto made = makeBlanks(session.programFolder); !made)
    return made;
  for (const Table& table : catalogue()) {
    const std::string path = joinPath(session.dataFolder, table.file);
    const auto make = [&]() -> Result<void> {
      const auto there = ensureDatabase(session, table.file);
      return there ? Result<void>() : there.error();
    };
    if (auto made = isBlankWanted(table) ? makings.file(path, make) : Result<void>(); !made)
      return made;
  }
  return {};
}

// The settings come last: until they are there, the user who could work without them is.
Result<void> writeFiles(const Session& session, const NewOffice& office, Makings& makings) {
  const User administrator = {std::string(trim(office.administrator)), office.password, "ADMIN"};
  const std::string& folder = session.programFolder;
  for (const char* file : {"def.txt", "browser.txt", "Users.Set", "Zelvo.ini"})
    makings.expect(joinPath(folder, file));
  if (auto written = writeDefaults(session); !written)
    return written;
  if (auto written = writeBrowserChoice(session); !written)
    return written;
  if (auto written = writeUsers(folder, {scrambled(administrator)}); !written)
    return written;
  return writeSettings(session);
}

bool holdsNoSettings(std::string_view programFolder) {
  Session session;
  session.programFolder = programFolder;
  const auto text = readText(settingsPath(session), kSettingFileLimit);
  return text ? trim(*text).empty() : text.error().trouble == Trouble::NotFound;
}

bool holdsNoUser(std::string_view programFolder) {
  const auto file = readUserFile(programFolder);
  return file ? file->users.empty() && !file->damage : file.error().trouble == Trouble::NotFound;
}

}  // namespace

bool isNewOffice(std::string_view programFolder) {
  return holdsNoSettings(programFolder) && holdsNoUser(programFolder);
}

Result<void> beginOffice(std::string_view programFolder, const NewOffice& office) {
  const Session session = settingsOf(programFolder, office);
  Makings makings;
  if (auto made = makeFolders(session, makings); !made)
    return made;
  if (auto made = makeDatabases(session, makings); !made)
    return made;
  if (auto written = writeFiles(session, office, makings); !written)
    return written;
  makings.keep();
  (void)makeLabelLayouts(session.programFolder).ok();  // the program has one layout of its own
  return {};
}

}  // namespace zelvo
