#include "shell/menu_frm.h"

#include <algorithm>

#include "base/files.h"
#include "form/map_page.h"
#include "form/text_menu.h"
#include "shell/backup/backup.h"
#include "shell/backup/restore_set.h"
#include "shell/coords_frm.h"
#include "shell/help/help.h"
#include "shell/record_openings.h"
#include "shell/user_edit.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = "Zelvo";

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

// A caption of "-" is a line between groups. The entries of "medit" are the ones that pop up over every text box.
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

    {"options", "backr", "&Backup..", &MenuFrm::backUpUsual},
    {"options", "backupto", "Backup To..", &MenuFrm::backUpElsewhere},
    {"options", "restore", "Re&store..", &MenuFrm::restore, "restorefrm"},
    {"options", "sep8", "-"},
    {"options", "repair", "&Repair Attempt..", &MenuFrm::startTool, "ezRepair.exe"},
    {"options", "sep2", "-"},
    {"options", "hittheroad", "download..", &MenuFrm::openScreen, "sendfrm"},
    {"options", "remotein", "upload..", &MenuFrm::openScreen, "rcvdfrm"},
    {"options", "dash", "-"},
    {"options", "changepsw", "Change &Password", &MenuFrm::changePassword},

    {"help", "dohelp", "Help..", &MenuFrm::help},
    {"help", "contact", "Contact Dorvan..", &MenuFrm::showFile, "contact.htm"},
    {"help", "About", "&About..", &MenuFrm::openScreen, "frmAbout"},

    {"report", "dosbl", "SBL Repository", &MenuFrm::openParcels, "sblloc"},
    {"report", "usermanage", "User Management", &MenuFrm::openScreen, "UserMgr"},
    {"report", "convert", "Convert DB", &MenuFrm::startTool, "converter.exe"},
    {"report", "checkupdates", "Check for updates..", &MenuFrm::startTool, "Updater.exe"},
    {"report", "defaults", "&Preferences Settings..", &MenuFrm::openScreen, "PrefFrm"},
    {"report", "dash8", "-"},
    {"report", "updateparcel", "Import Tax Parcels", &MenuFrm::openScreen, "rpsimport"},
    {"report", "viewparcel", "View Imported Parcels", &MenuFrm::openScreen, "viewRPS"},
    {"report", "syncSBL", "Synchronize SBL Repository", &MenuFrm::openScreen, "syncSBL"},

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
  addTextMenu();
}

// They work in the text boxes of the records; chosen here, where there are none, they say so.
void MenuFrm::addTextMenu() {
  Menu& menu = menuNamed("medit");
  menu.overTexts = true;
  for (const TextMenuEntry& each : textMenu()) {
    MenuEntry& entry = entries_.emplace_back(*this, menu, each.name, each.caption);
    onClick(entry, [this] {
      tell({Trouble::NotFound, "There is no text to work with here. Use this in a text box of a record."});
    });
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
  lblMunicipality.caption = desk.session.municipality.name;
  const bool master = desk.session.masterComputer;
  menuNamed("report").enabled = desk.session.administrator;
  entryNamed("restore").enabled = desk.session.administrator;
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

// The repository has a screen of its own; until it is there, its parcels are looked up.
void MenuFrm::openParcels(const Line& line) {
  if (!desk.screens.open("sblfrm"))
    openScreen(line);
}

void MenuFrm::backUpUsual(const Line&) {
  backUp(desk);
}

void MenuFrm::backUpElsewhere(const Line&) {
  backUpTo(desk);
}

void MenuFrm::restore(const Line& line) {
  desk.screens.showModal(line.what);
}

void MenuFrm::help(const Line&) {
  showHelp(desk, "");
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
    OpenDocument(desk, mapAddress(place.latitude(), place.longitude()));
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
  backUpOnExit(desk);
  closeMe();
  desk.end("quit");
}

// Whoever works on after a restore that was broken off must know that the records may not fit together.
void MenuFrm::Form_Activate(bool first) {
  SetMenus();  // the preferences may have made this computer another one
  const std::string mark = joinPath(desk.session.dataFolder, kRestoreMark);
  if (!first || desk.session.dataFolder.empty() || !FileExists(mark))
    return;
  const auto lines = readLines(mark).valueOr({});
  tell({Trouble::Failed,
        "A restore was broken off before its end. Please have an administrator restore that backup again, or the data "
        "as they were before, which are in\n" +
            (lines.empty() ? desk.session.dataFolder : lines.front())});
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
