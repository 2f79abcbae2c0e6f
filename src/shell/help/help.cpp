#include "shell/help/help.h"

#include <algorithm>

#include "base/files.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = "Zelvo";
constexpr std::string_view kIndex = "index.html";

struct Shared {
  std::string_view screen, page;
};
// Small screens are told of on the page of the screen that they belong to.
constexpr Shared kShared[] = {
    {"pswhelp", "PswFrm.html"},      {"coordsfrm", "MenuFrm.html"},  {"frmAbout", "MenuFrm.html"},
    {"UserMgr", "users.html"},       {"NewFrm", "users.html"},       {"UserEdit", "users.html"},
    {"PrefFrm", "preferences.html"}, {"progressfrm", "backup.html"}, {"restorefrm", "backup.html"},
    {"PrintFrm", "printing.html"},   {"Editor", "printing.html"},    {"HeaderFrm", "printing.html"},
    {"PagesFrm", "printing.html"},   {"APermits", "permits.html"},   {"sblloc", "parcels.html"},
    {"adloc", "parcels.html"},       {"conloc", "parcels.html"},     {"rpsloc", "parcels.html"},
    {"viewRPS", "parcels.html"},     {"sblinfo", "parcels.html"},    {"SBLEdit", "parcels.html"},
    {"noDbfound", "databases.html"}, {"FirstRun", "first-run.html"},
};

bool isThere(std::string_view page) {
  return std::ranges::any_of(helpPages(), [page](const HelpPage& each) { return each.name == page; });
}

bool isUpToDate(const std::string& path, std::string_view text) {
  const auto bytes = FileExists(path) ? readBytes(path) : Result<std::string>(std::string());
  return bytes && *bytes == text;
}

Result<void> putPages(const std::string& folder) {
  if (auto made = makeFolder(folder); !made)
    return made;
  for (const HelpPage& page : helpPages()) {
    const std::string path = joinPath(folder, page.name);
    if (isUpToDate(path, page.text))
      continue;
    if (auto written = replaceFile(path, page.text); !written)
      return written;
  }
  return {};
}

Result<std::string> helpFolder(Desk& desk) {
  const std::string usual = joinPath(desk.session.programFolder, "help");
  if (putPages(usual))
    return usual;
  const std::string own = joinPath(desk.desktop.temporaryFolder(), "zelvo-help");
  const auto put = putPages(own);
  return put ? Result<std::string>(own) : put.error();
}

bool hasBrowser(const Session& session) {
  return session.defaultBrowserFound && FileExists(trim(session.defaultBrowser));
}

}  // namespace

std::string_view helpPageOf(std::string_view screen) {
  const auto shared = std::ranges::find(kShared, screen, &Shared::screen);
  if (shared != std::ranges::end(kShared) && isThere(shared->page))
    return shared->page;
  for (const HelpPage& page : helpPages())
    if (page.name == std::string(screen) + ".html")
      return page.name;
  return kIndex;
}

// Whoever asks for help in the middle of a record must not lose it for want of a browser.
void showHelp(Desk& desk, std::string_view screen) {
  const auto folder = helpFolder(desk);
  if (!folder)
    return desk.messages.tell(kTitle, folder.error().message, Icon::Exclamation);
  if (!hasBrowser(desk.session))
    return desk.messages.tell(kTitle,
                              "The help is shown in a web browser, and none was found on this computer. You can read "
                              "its pages elsewhere; they are in " +
                                  *folder + ".",
                              Icon::Exclamation);
  OpenDocument(desk, joinPath(*folder, helpPageOf(screen)));
}

}  // namespace zelvo
