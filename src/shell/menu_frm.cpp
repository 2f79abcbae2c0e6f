#include "shell/menu_frm.h"

#include <algorithm>

#include "base/files.h"
#include "shell/coords_frm.h"
#include "shell/record_openings.h"
#include "shell/user_edit.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = "Zelvo";
constexpr std::string_view kMapPage = "https://maps.dorvan.example/gps.htm";

}  // namespace

struct MenuFrm::Bar {
  std::string_view name, caption;
  bool onBar;
};

struct MenuFrm::Line {
  std::string_view menu, name, caption;
  void (MenuFrm::*does)(const Line&) = nullptr;
  std::string_view what = {};
};

struct MenuFrm::Picture {
  Line line;
  std::string_view tip;
};

constexpr MenuFrm::Bar MenuFrm::kBars[] = {
    {"File", "&File", true},    {"options", "&Options", true}, {"help", "&Help", true},
    {"report", "&Admin", true}, {"medit", "Edit", false},      {"maction", "Permits", false},
};

// A caption of "-" is a line between groups. Entries that do nothing here are done by the field they pop up over.
constexpr MenuFrm::Line MenuFrm::kLines[] = {
    {"File", "permits", "&Building Permits", &MenuFrm::openRecords, "APermits"},
    {"File", "permitsz", "&Zoning Permits", &MenuFrm::openRecords, "ZPermits"},
    {"File", "inspections", "&Inspections", &MenuFrm::openRecords, "BInspections"},
    {"File", "affidavits", "&Affidavits", &MenuFrm::openRecords, "CAffidavits"},
    {"File", "certs", "&Certificates", &MenuFrm::openRecords, "CCertificates"},
    {"File", "violations", "&Violations", &MenuFrm::openRecords, "CViolations"},
    {"File", "sep21", "-"},
    {"File", "maplookup", "Coordinates lookup..", &MenuFrm::lookUpOnMap},
    {"File", "sep1", "-"},
    {"File", "Quit", "&Quit", &MenuFrm::quit},

    {"options", "backr", "&Backup..", &MenuFrm::openScreen, "backfrm"},
    {"options", "backupto", "Backup To..", &MenuFrm::openScreen, "backtofrm"},
    {"options", "sep8", "-"},
    {"options", "repair", "&Repair Attempt..", &MenuFrm::startTool, "ezRepair.exe"},
    {"options", "sep2", "-"},
    {"options", "hittheroad", "download..", &MenuFrm::openScreen, "sendfrm"},
    {"options", "remotein", "upload..", &MenuFrm::openScreen, "rcvdfrm"},
    {"options", "dash", "-"},
    {"options", "changepsw", "Change &Password", &MenuFrm::changePassword},

    {"help", "dohelp", "Help..", &MenuFrm::showFile, "zvh.chm"},
    {"help", "contact", "Contact Dorvan..", &MenuFrm::showFile, "contact.htm"},
    {"help", "About", "&About..", &MenuFrm::openScreen, "frmAbout"},

    {"report", "dosbl", "SBL Repository", &MenuFrm::openScreen, "sblfrm"},
    {"report", "usermanage", "User Management", &MenuFrm::openScreen, "UserMgr"},
    {"report", "convert", "Convert DB", &MenuFrm::startTool, "converter.exe"},
    {"report", "checkupdates", "Check for updates..", &MenuFrm::startTool, "Updater.exe"},
    {"report", "defaults", "&Preferences Settings..", &MenuFrm::openScreen, "PrefFrm"},
    {"report", "dash8", "-"},
    {"report", "updateparcel", "Import Tax Parcels", &MenuFrm::openScreen, "rpsimport"},
    {"report", "viewparcel", "View Imported Parcels", &MenuFrm::openScreen, "viewRPS"},
    {"report", "syncSBL", "Synchronize SBL Repository", &MenuFrm::openScreen, "syncSBL"},

    {"medit", "mcopy", "Copy"},
    {"medit", "mpaste", "Paste"},
    {"medit", "loadp", "Obtain from File.."},
    {"medit", "savep", "Save to File.."},

    {"maction", "mpermits", "Building Permits", &MenuFrm::openRecords, "APermits"},
    {"maction", "zopermits", "Zoning Permits", &MenuFrm::openRecords, "ZPermits"},
};

// A picture has the number of its screen's slot in the table of current queries, where it has one.
constexpr MenuFrm::Picture MenuFrm::kPictures[] = {
    {{"", "Image1", "Building Permits", &MenuFrm::openRecords, "APermits"}, "Building permits"},
    {{"", "Image2", "Inspections", &MenuFrm::openRecords, "BInspections"}, "Building inspections and complaints"},
    {{"", "Image3", "Affidavits", &MenuFrm::openRecords, "CAffidavits"}, "Affidavits filed with permits"},
    {{"", "Image4", "Certificates", &MenuFrm::openRecords, "CCertificates"}, "Certificates of occupancy"},
    {{"", "Image5", "Violations", &MenuFrm::openRecords, "CViolations"}, "Violations and actions taken"},
    {{"", "Image6", "Map", &MenuFrm::lookUpOnMap}, "Coordinates lookup on the map"},
    {{"", "Image7", "Scheduler", &MenuFrm::openScreen, "scheduler"}, "Board meetings and other events"},
    {{"", "Image8", "Zoning Permits", &MenuFrm::openRecords, "ZPermits"}, "Zoning permits"},
    {{"", "Image9", "Fire Inspections", &MenuFrm::openRecords, "FInspections"}, "Fire inspections"},
};

MenuFrm::MenuFrm(Desk& itsDesk) : Screen(itsDesk, "MenuFrm", "Zelvo Main Menu") {
  lblMunicipality.caption = desk.session.municipality.name;
  lblUser.caption = desk.session.userId + (desk.session.rights.empty() ? "" : " (" + desk.session.rights + ")");
  addPictures();
  addMenus();
  SetMenus();
}

void MenuFrm::addMenus() {
  for (const Bar& bar : kBars)
    menus_.emplace_back(*this, bar.name, bar.caption, bar.onBar);
  for (const Line& line : kLines) {
    MenuEntry& entry = entries_.emplace_back(*this, menuNamed(line.menu), line.name, line.caption);
    if (line.does)
      onClick(entry, [this, &line] { (this->*line.does)(line); });
  }
}

void MenuFrm::addPictures() {
  for (const Picture& picture : kPictures) {
    Button& button = pictures_.emplace_back(*this, picture.line.name, picture.line.caption);
    button.tip = picture.tip;
    onClick(button, [this, &picture] { (this->*picture.line.does)(picture.line); });
  }
}

// What depends on who signed in and on the computer's part: the master computer sends and collects, a field computer
// brings home and reads.
void MenuFrm::SetMenus() {
  const bool master = desk.session.masterComputer;
  menuNamed("report").enabled = desk.session.administrator;
  entryNamed("hittheroad").caption = master ? "Hit the Road.." : "Homebound..";
  entryNamed("remotein").caption = master ? "Collect from Field.." : "Read from Master..";
}

Menu& MenuFrm::menuNamed(std::string_view name) {
  return *std::ranges::find(menus_, name, &Menu::name);
}

MenuEntry& MenuFrm::entryNamed(std::string_view name) {
  return *std::ranges::find(entries_, name, &MenuEntry::name);
}

void MenuFrm::openRecords(const Line& line) {
  if (const auto opened = openRecordScreen(desk, line.what); !opened)
    tell(opened.error());
}

void MenuFrm::openScreen(const Line& line) {
  if (!desk.screens.open(line.what))
    tell(notOffered(find(line.name)->shown()));
}

void MenuFrm::startTool(const Line& line) {
  const std::string path = joinPath(desk.session.programFolder, line.what);
  if (!FileExists(path))
    tell({Trouble::NotFound, "The program " + path + " is not there. Please ask your administrator to put it there."});
  else if (const auto started = desk.desktop.start("\"" + path + "\""); !started)
    tell(started.error());
}

void MenuFrm::showFile(const Line& line) {
  const std::string path = joinPath(desk.session.programFolder, line.what);
  if (!FileExists(path))
    tell({Trouble::NotFound, "The file " + path + " is not there. Please ask your administrator to put it there."});
  else
    OpenDocument(desk, path);
}

void MenuFrm::lookUpOnMap(const Line&) {
  CoordsFrm place(desk);
  desk.screens.showModal(place);
  if (place.confirmed())
    OpenDocument(
        desk, std::string(kMapPage) + "?txtLat=" + place.latitude() + "&txtLong=" + place.longitude() + "&txtZoom=17");
}

void MenuFrm::changePassword(const Line&) {
  changeOwnPassword(desk);
}

void MenuFrm::quit(const Line&) {
  ExitApp();
}

void MenuFrm::ExitApp() {
  if (!closeOtherScreens())
    return;
  tellOfMissingBackup();
  closeMe();
  desk.end("quit");
}

// An office that relies on its backup at the end of the day must not believe that it has one.
void MenuFrm::tellOfMissingBackup() {
  constexpr int kAutomatic = 1;
  if (desk.session.masterComputer && desk.session.backupOption == kAutomatic)
    tell({Trouble::NotFound, "The backup on exit is not part of this program yet. No backup was made."});
}

bool MenuFrm::closeOtherScreens() {
  for (Screen* screen : desk.screens.all()) {
    if (screen == this || !desk.screens.isOpen(*screen))
      continue;
    screen->userCloses();
    if (desk.screens.isOpen(*screen))
      return false;
  }
  return true;
}

void MenuFrm::tell(const Error& error) {
  desk.messages.tell(kTitle, error.message, Icon::Exclamation);
}

}  // namespace zelvo
