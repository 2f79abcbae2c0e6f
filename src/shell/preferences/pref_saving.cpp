// What the preferences do when they are saved: the files, in their order, and the session with them.

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "shell/desktop_cover.h"
#include "shell/preferences/desktop_colours.h"
#include "shell/preferences/pref_frm.h"
#include "shell/setting_lines.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = " Preferences Settings";
constexpr std::size_t kDatabasesPage = 1, kDesktopPage = 2, kNumbersPage = 3;

bool isSeed(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

void PrefFrm::Command1_Click() {
  if (usable() && save())
    closeMe();
}

// ---- checking

bool PrefFrm::refuse(Control& control, std::size_t page, std::string_view why) {
  desk.messages.tell(kTitle, why, Icon::Exclamation);
  SSTab1.current = page;
  setFocus(control, true);
  return false;
}

bool PrefFrm::usable() {
  if (trim(Text9.text).empty())
    return refuse(Text9, kDatabasesPage, "Please give the location of the directory for databases.");
  if (!colourOf(Combo1.text))
    return refuse(Combo1, kDesktopPage,
                  "\"" + Combo1.text + "\" is no colour. Please choose one of the list, or write it as #rrggbb.");
  for (TextBox* box : {&Text12, &Text13, &Text16, &Text17, &Text18})
    if (box->enabled && !isSeed(trim(box->text)))
      return refuse(*box, kNumbersPage,
                    "A number to begin with has digits only. Please give one, or tick \"Let computer decide\".");
  return true;
}

// ---- saving

bool PrefFrm::tellUnlessDone(const Result<void>& result) {
  if (!result)
    desk.messages.tell(kTitle,
                       "Not all of the settings could be saved:\n" + result.error().message +
                           "\n\nWhat you typed is still on the screen.",
                       Icon::Critical);
  return result.ok();
}

bool PrefFrm::save() {
  takeSettings();
  if (!tellUnlessDone(writeMain()))
    return false;
  SetupDesktopCover(desk);
  offerSwitch();
  return tellUnlessDone(writeLists());
}

// All but the location of the databases, which the user is asked about first.
void PrefFrm::takeSettings() {
  Session& session = desk.session;
  session.municipality = {Text1.text, Text3.text, Text4.text, Text5.text, Text6.text, Text7.text};
  session.backupOption = Option1.chosen ? 1 : Option3.chosen ? 2 : 0;
  session.masterComputer = Check3.checked;
  session.hideDesktop = Check4.checked;
  session.desktopColour = *colourOf(Combo1.text);
  session.desktopPicture = Text14.text;
  session.stateLaw = Text10.text;
  session.localLaw = Text11.text;
  session.checkScreenSize = Check5.checked;
  session.formsFolder = withoutEndSeparator(trim(Text22.text));
  session.backupFolder = withoutEndSeparator(trim(Text8.text));
  session.onlineCodesAddress = Text19.text;
  session.localCodesAddress = Text21.text;
  session.selectedBrowser = trim(Text20.text);
  session.useDefaultBrowser = Check9.checked ? "T" : "F";
  for (const Seed& seed : kSeeds)
    session.seeds.*seed.seed = (this->*seed.computerDecides).checked ? "-1" : std::string(trim((this->*seed.box).text));
  session.inspectors = inspectors_;
}

// The file names the new location even when this session goes on with the old one.
Result<void> PrefFrm::writeMain() {
  Session written = desk.session;
  written.dataFolder = withoutEndSeparator(trim(Text9.text));
  if (auto main = writeSettings(written); !main)
    return main;
  if (desk.session.formsFolder.empty())
    desk.session.formsFolder = FormsFolderFor(written.dataFolder, desk.session.programFolder);
  return {};
}

// Whatever works in the records would go on in the old location, unseen.
bool PrefFrm::othersAreOpen() const {
  return std::ranges::any_of(desk.screens.all(), [this](const Screen* screen) {
    return screen != this && screen->name() != "MenuFrm" && screen->name() != "Preview";
  });
}

void PrefFrm::offerSwitch() {
  const std::string wanted = withoutEndSeparator(trim(Text9.text));
  if (wanted == desk.session.dataFolder)
    return;
  if (!desk.messages.confirm(" Change Master Database Location",
                             "You have changed the master database location. Do you want to SWITCH the database now to "
                             "use the master database in the new location you have specified?"))
    return;
  if (othersAreOpen())
    return desk.messages.tell(kTitle,
                              "Other screens are still open, so the databases were not switched. The new location is "
                              "used from the next start of the program on.",
                              Icon::Exclamation);
  desk.session.dataFolder = wanted;
  desk.session.queries = {};
  if (const auto resolved = resolveDataFolder(desk); !resolved)
    desk.messages.tell(kTitle, resolved.error().message, Icon::Critical);
  keepWhatIsThere();
}

// A folder that other computers work in has numbers and lists of its own: only what was changed on this screen goes
// over them.
void PrefFrm::keepWhatIsThere() {
  Session& session = desk.session;
  if (!seedsChanged())
    ReadNextNumbers(session);
  if (listsChanged_)
    return;
  if (FileExists(joinPath(session.dataFolder, kInspectorsFile.file)))
    ReadInspectors(session);
  if (FileExists(joinPath(session.dataFolder, kBuildingCodesFile.file)))
    codes_ = inspectionCodesInFiles(session);
}

bool PrefFrm::seedsChanged() {
  return std::ranges::any_of(kSeeds, [this](const Seed& seed) {
    return asLoaded_[&(this->*seed.box)] != (this->*seed.box).shown() ||
           asLoaded_[&(this->*seed.computerDecides)] != (this->*seed.computerDecides).shown();
  });
}

// Into the data folder that is in use now.
Result<void> PrefFrm::writeLists() {
  Session& session = desk.session;
  if (auto seeds = writeNextNumbers(session); !seeds)
    return seeds;
  if (auto codes = writeInspectionCodes(session, codes_); !codes)
    return codes;
  ReadInspectionCodes(session);
  if (auto inspectors = writeInspectors(session); !inspectors)
    return inspectors;
  Session written = session;
  written.dataFolder = withoutEndSeparator(trim(Text9.text));
  if (auto defaults = writeDefaults(written); !defaults)
    return defaults;
  return writeBrowserChoice(session);
}

}  // namespace zelvo
