#include "shell/start_up.h"

#include <filesystem>

#include "base/files.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "shell/desktop_cover.h"
#include "shell/first_run.h"
#include "shell/new_office.h"
#include "shell/settings.h"
#include "shell/start_up_files.h"
#include "shell/users.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = "Zelvo";
constexpr ScreenSize kPreferredSize = {800, 600};

constexpr std::string_view kScreenSizeQuestion =
    "Your current screen resolution does not allow this program to be viewed at its optimal size.\n"
    "If allowed, the program can change your screen size temporarily for easier viewing and\n"
    "restore it when it exits.\n"
    "\n"
    "Would you allow the program to change your screen size? (Click 'Yes' to allow)";

constexpr std::string_view kUpdateNotice =
    "Your program was recently updated. If you have mobile computers\n"
    "or computers not having having access to the Internet, please\n"
    "don't forget to update them manually by selecting 'Check for Updates'\n"
    "and using the 'Local Update' option.";

std::string nobodyCanSignIn(const std::string& why) {
  return (why.empty() ? "There is no user in the list \"Users.Set\" of the program folder." : why) +
         "\n\nNobody can sign in until \"Users.Set\" is back: put back a saved copy of it, or copy it from another "
         "computer of the office.";
}

// The program's folder becomes the current one, and a relative path would then lead elsewhere.
std::string absolutePath(std::string_view folder) {
  std::error_code failed;
  const auto path = std::filesystem::absolute(systemPath(folder), failed);
  return withoutEndSeparator(failed ? std::string(folder) : path.lexically_normal().string());
}

}  // namespace

StartUp::StartUp(Desk& desk, std::string_view programFolder)
    : desk_(desk), session_(desk.session), programFolder_(absolutePath(programFolder)) {}

void StartUp::Main() {
  resetSession();
  if (isSecondCopy())
    return;
  if (!readyForWork())
    return desk_.end("the first start was given up");
  beginLog();
  InitSettings();
  desk_.face.busy(true);
  findBrowser();
  showSplash();
  tidyAfterUpdater();
  identifyUser();
  closeScreen("frmAbout");
  desk_.face.busy(false);
  desk_.face.busy(true);
  if (!signIn())
    return desk_.end("sign-in given up");
  showLoading();
  SetupDesktopCover(desk_);
  readBrowser();
  SetMenus();
  showMenu();
}

void StartUp::resetSession() {
  session_.startTime = desk_.clock.now();
  session_.screenChanged = session_.signedIn = session_.administrator = session_.restrictedUser = false;
  session_.parcelLookupOff = session_.defaultBrowserFound = false;
  session_.rights.clear();
  session_.userSlot = 0;
  session_.programFolder = programFolder_;
}

// A second copy leaves no trace, not even in the log, which is the first one's.
bool StartUp::isSecondCopy() {
  instance_.emplace(programFolder_);
  instance_->onActivate = [this] { desk_.desktop.activateWindow(); };
  if (instance_->isFirst()) {
    if (watchGuard)
      watchGuard(*instance_);
    return false;
  }
  desk_.messages.tell(kTitle, "Zelvo is already running.");
  instance_->callFirst();
  desk_.face.processEvents();
  desk_.end("a second copy");
  return true;
}

// Before the log, since a first start that is given up leaves nothing behind.
bool StartUp::readyForWork() {
  if (!isNewOffice(programFolder_))
    return true;
  FirstRun first(desk_, programFolder_);
  desk_.screens.showModal(first);
  return first.begun() && !desk_.ended();
}

void StartUp::beginLog() {
  DeleteFileIfExists(desk_, sessionLogPath(session_));
  std::error_code ignored;
  std::filesystem::current_path(programFolder_, ignored);
}

void StartUp::InitSettings() {
  session_.today = session_.startTime.date;
  ReadSettings(session_);
  ReadInspectors(session_);
  ReadInspectionCodes(session_);
  readUserList();
  offerScreenSize();
  resolveDatabases();
}

void StartUp::readUserList() {
  const auto read = readUsers(session_);
  const std::string why = read ? "" : read.error().message;
  if (!read || session_.users.empty())
    desk_.messages.tell(kTitle, session_.users.empty() ? nobodyCanSignIn(why) : why, Icon::Exclamation);
}

// Asked only when neither measure is the preferred one: a wide or a high screen shows the old forms well enough.
void StartUp::offerScreenSize() {
  const ScreenSize size = desk_.desktop.screenSize();
  if (!session_.checkScreenSize || size.width == kPreferredSize.width || size.height == kPreferredSize.height)
    return;
  if (!desk_.messages.confirm("  Not optimum size", kScreenSizeQuestion, Icon::Information, Answer::No))
    return;
  const auto switched = desk_.desktop.switchDisplay(kPreferredSize);
  session_.screenChanged = switched.ok();
  if (!switched)
    desk_.messages.tell(kTitle, switched.error().message, Icon::Exclamation);
}

// The lists lie beside the databases: when these were found elsewhere, the lists are too.
void StartUp::resolveDatabases() {
  const std::string configured = session_.dataFolder;
  if (const auto resolved = resolveDataFolder(desk_); !resolved)
    desk_.messages.tell(kTitle, resolved.error().message, Icon::Critical);
  if (session_.dataFolder == configured)
    return;
  readSharedFiles(session_);
  ReadInspectors(session_);
  ReadInspectionCodes(session_);
}

void StartUp::findBrowser() {
  log("*** GetBrowser");
  session_.defaultBrowser = GetBrowser(desk_);
  log("*** Back from GetBrowser");
}

void StartUp::showSplash() {
  if (const Screen* splash = desk_.screens.open("frmAbout"))
    if (Control* button = splash->find("cmdOK"))
      button->visible = false;
  desk_.clock.pause(2);
}

void StartUp::tidyAfterUpdater() {
  replaceUpdater();
  removeRunOnce();
  tellOfUpdate();
}

// A freshly loaded updater could not replace the one that was running.
void StartUp::replaceUpdater() {
  const std::string fresh = inProgramFolder("Updater1.exe");
  const std::string old = inProgramFolder("Updater.exe");
  if (!logAndFind("****", fresh))
    return;
  log("**** Killing " + old);
  DeleteFileIfExists(desk_, old);
  log("**** Killed. Renaming " + fresh + " to " + old);
  RenameFile(fresh, old);
}

void StartUp::removeRunOnce() {
  const std::string path = inProgramFolder("runonce.bat");
  if (logAndFind("*****", path))
    DeleteFileIfExists(desk_, path);
}

void StartUp::tellOfUpdate() {
  const std::string marker = inProgramFolder("updated.fl");
  if (!logAndFind("******", marker))
    return;
  if (session_.masterComputer)
    desk_.messages.tell(kTitle, kUpdateNotice);
  DeleteFileIfExists(desk_, marker);
}

void StartUp::identifyUser() {
  log("******* Going to GetUserID");
  GetUserID(desk_);
}

void StartUp::closeScreen(std::string_view name) {
  if (Screen* screen = desk_.screens.find(name))
    desk_.screens.close(*screen);
}

bool StartUp::signIn() {
  if (Screen* login = desk_.screens.open("PswFrm"))
    desk_.face.waitUntilClosed(*login);
  return session_.signedIn && !desk_.ended();
}

void StartUp::showLoading() {
  desk_.face.busy(true);
  desk_.face.processEvents();
  desk_.screens.open("LoadingFrm");
  desk_.clock.pause(1);
}

void StartUp::readBrowser() {
  if (logAndFind("********", inProgramFolder("browser.txt")))
    readBrowserChoice(session_);
}

// Who signed in decides what the menu offers and what the record screens allow.
void StartUp::SetMenus() {
  log("****** Going to set menus");
  session_.administrator = session_.rights == "ADMIN";
  session_.restrictedUser = session_.rights == "USER";
}

void StartUp::showMenu() {
  closeScreen("LoadingFrm");
  desk_.face.busy(false);
  log("******* Going to Main Menu");
  desk_.screens.open("MenuFrm");
  desk_.face.processEvents();
  desk_.face.processEvents();
}

void StartUp::log(std::string_view line) {
  session_.logLine = line;
  WriteLog(session_);
}

bool StartUp::logAndFind(std::string_view stars, const std::string& path) {
  log(std::string(stars) + " Checking if " + path + " exists");
  return FileExists(path);
}

std::string StartUp::inProgramFolder(std::string_view name) const {
  return joinPath(programFolder_, name);
}

}  // namespace zelvo
