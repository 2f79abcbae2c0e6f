#include "app/town/make_town.h"
#include "app/town/checklists.h"

#include <functional>
#include <vector>

#include "app/town/drawings.h"
#include "app/town/forms.h"
#include "app/town/office_lists.h"
#include "app/town/town_folders.h"
#include "app/town/town_tables.h"
#include "base/files.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "documents/labels/label_layout.h"
#include "shell/settings.h"
#include "shell/users.h"

namespace zelvo {

namespace {

using Steps = std::vector<std::function<Result<void>()>>;

Result<void> inOrder(const Steps& steps) {
  for (const auto& step : steps)
    if (auto done = step(); !done)
      return done;
  return {};
}

struct TownFile {
  std::string path;
  std::string bytes;
};

Result<void> writeFiles(const std::vector<TownFile>& files) {
  for (const TownFile& file : files)
    if (auto written = replaceFile(file.path, file.bytes); !written)
      return written;
  return {};
}

// ---- the program folder

Session officeSettings(const TownFolders& folders) {
  Session session;
  session.programFolder = folders.making("program");
  session.dataFolder = folders.final("data");
  session.formsFolder = folders.final("forms");
  session.municipality = {std::string(kTownName), "1 Town Hall Square", "Alder Glen", "NY", "12009", "(518) 555-0100"};
  session.backupOption = 2;
  session.masterComputer = true;
  session.desktopPicture = "NONE";
  session.stateLaw = "NYS Uniform Fire Prevention and Building Code";
  session.localLaw = "Alder Glen Building and Zoning Code";
  return session;
}

Result<void> writeUserList(const std::string& programFolder) {
  std::vector<User> users;
  for (const User& user :
       {User{"admin", "admin", "ADMIN"}, User{"clerk", "clerk", "USER"}, User{"inspector", "inspector", "INSPECTOR"}})
    users.push_back(scrambled(user));
  return writeUsers(programFolder, users);
}

Result<void> writePictures(const std::string& programFolder) {
  return writeFiles(
      {{programFolder + "/memos/sig.bmp", signatureBitmap()}, {programFolder + "/memos/logo.bmp", townSeal()}});
}

Result<void> makeProgramFolder(const TownFolders& folders) {
  const Session session = officeSettings(folders);
  const std::string& folder = session.programFolder;
  const std::vector<std::string> defaults = {session.dataFolder, folders.final("backup"), "https://codes.example/state",
                                             "https://alderglen.example/code"};
  return inOrder({[&] { return writeSettings(session); },
                  [&] { return writeLines(joinPath(folder, "def.txt"), defaults); },
                  [&] {
                    return writeLines(joinPath(folder, "browser.txt"), {"", "T"});
                  },
                  [&] { return writeUserList(folder); }, [&] { return makeBlanks(folder); },
                  [&] { return writePictures(folder); }, [&] { return makeLabelLayouts(folder); }});
}

// ---- the forms folder

Result<void> writeForms(const std::string& folder) {
  std::vector<TownFile> files;
  for (const Form& form : forms())
    files.push_back({joinPath(folder, form.name), replaceAll(form.richText, "\n", "\r\n")});
  return writeFiles(files);
}

// ---- the data folder

Result<void> writeNumbers(const std::string& folder, const TownPlan& plan, const TownNotes& notes) {
  const std::pair<std::string_view, std::size_t> nextNumbers[] = {
      {"phi.txt", plan.permits.next()},        {"ihi.txt", inspectionCount(plan) + 1},
      {"chi.txt", notes.certified.size() + 1}, {"ahi.txt", affidavits(plan).next()},
      {"vhi.txt", violationCount(plan) + 1},   {"zphi.txt", zoningPermits(plan).next()}};
  for (const auto& [file, number] : nextNumbers)
    if (auto written = writeLines(joinPath(folder, file), {std::to_string(number)}); !written)
      return written;
  for (const char* seed : {"pnb.txt", "inb.txt", "anb.txt", "cnb.txt", "vnb.txt", "zpnb.txt"})
    if (auto written = writeLines(joinPath(folder, seed), {"-1"}); !written)
      return written;
  return writeLines(joinPath(folder, "sblversion.txt"), {"13"});
}

Result<void> writeChecklists(const std::string& folder) {
  std::vector<TownFile> files;
  for (const TownChecklist& checklist : townChecklists())
    files.push_back({joinPath(joinPath(folder, "checklist"), checklist.name), checklist.richText});
  return writeFiles(files);
}

/// The latest permit has a document and a photograph in its folders, the first inspection a photograph.
Result<void> attachFiles(const std::string& folder, const TownPlan& plan) {
  if (plan.permits.count() == 0)
    return {};
  const Permit permit = permitAt(plan, plan.permits.count() - 1);
  const std::string name = "01" + permit.number + "~1";
  return writeFiles({{folder + "/docs/" + name + ".txt",
                      "Plans for " + permit.description + " at " + permit.parcel.location + " received.\r\n"},
                     {folder + "/pics/" + name + ".bmp", housePhotograph()},
                     {folder + "/pics/021~1.bmp", housePhotograph()}});
}

Result<void> makeDataFolder(const std::string& folder, const TownPlan& plan, std::ostream& progress) {
  TableFiller filler(folder, progress);
  TownNotes notes;
  notes.parcels.resize(plan.parcels);
  return inOrder({[&] { return fillPermits(filler, plan, notes); }, [&] { return fillInsurances(filler, plan); },
                  [&] { return fillContacts(filler, plan); }, [&] { return fillCertificates(filler, plan, notes); },
                  [&] { return fillAffidavits(filler, plan); }, [&] { return fillFees(filler, plan); },
                  [&] { return fillZoning(filler, plan); }, [&] { return fillInspections(filler, plan, notes); },
                  [&] { return fillViolations(filler, plan, notes); }, [&] { return fillActions(filler, plan); },
                  [&] { return fillFireProperties(filler, plan); }, [&] { return fillFireInspections(filler, plan); },
                  [&] { return fillMeetings(filler); }, [&] { return fillParcels(filler, plan, notes); },
                  [&] { return writeNumbers(folder, plan, notes); }, [&] { return writeOfficeLists(folder); },
                  [&] { return writeChecklists(folder); }, [&] { return attachFiles(folder, plan); }});
}

}  // namespace

Result<void> makeTown(const TownOptions& options, std::ostream& progress) {
  auto folders = TownFolders::begin(options.folder);
  if (!folders)
    return folders.error();
  const TownPlan plan{options.seed, options.parcels, NumberSeries(options.permits)};
  return inOrder({[&] { return makeProgramFolder(*folders); }, [&] { return writeForms(folders->making("forms")); },
                  [&] { return makeDataFolder(folders->making("data"), plan, progress); },
                  [&] { return folders->finish(); }});
}

}  // namespace zelvo
