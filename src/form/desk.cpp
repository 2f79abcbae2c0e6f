#include "form/desk.h"

#include <utility>

#include "base/files.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = "Zelvo";

/// Why nothing can be shown on this computer; empty when it has a browser.
std::string_view whyNoBrowser(const Session& session) {
  if (!FileExists(trim(session.defaultBrowser)))
    return "The browser selected cannot be found on your computer. Please contact your administrator.";
  if (!session.defaultBrowserFound)
    return "Your default browser does not exists. Please contact your administrator.";
  return "";
}

bool refuseWithoutBrowser(Desk& desk) {
  const std::string_view why = whyNoBrowser(desk.session);
  if (why.empty())
    return false;
  desk.messages.tell(kTitle, why, Icon::Critical);
  desk.end("no browser");
  return true;
}

std::string quoted(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

// The system's picture viewer is no program that can be started; the paint program beside it is.
std::string programToStart(std::string program) {
  if (upper(right(program, 11)) == "SHIMGVW.DLL")
    return joinPath(folderOf(program), "mspaint.exe");
  return program;
}

// Nothing when no program on this computer opens such a document.
std::optional<std::string> commandFor(Desk& desk, std::string_view target) {
  if (upper(left(target, 4)) == "HTTP")
    return quoted(trim(desk.session.defaultBrowser)) + " " + std::string(target);
  const std::string ending = upper(right(target, 3));
  if (ending == "EXE" || ending == "BAT" || ending == "COM")
    return std::string(target);
  const auto program = desk.desktop.programFor(target);
  if (!program)
    return std::nullopt;
  return quoted(programToStart(*program)) + " " + quoted(target);
}

}  // namespace

void Desk::end(std::string_view why) {
  if (ended())
    return;
  session.ended = std::string(why);
  if (std::exchange(session.screenChanged, false))
    desktop.restoreDisplay();
}

void OpenDocument(Desk& desk, std::string_view target) {
  if (refuseWithoutBrowser(desk))
    return;
  const auto command = commandFor(desk, target);
  if (!command)
    return desk.messages.tell(kTitle, "No program on this computer opens " + fileNameOf(target) + ".",
                              Icon::Exclamation);
  if (const auto started = desk.desktop.start(*command); !started)
    desk.messages.tell(kTitle, started.error().message, Icon::Critical);
}

Error notOffered(std::string_view caption) {
  std::string name = replaceAll(caption, "&", "");
  while (name.ends_with('.'))
    name.pop_back();
  return {Trouble::NotFound, "\"" + name + "\" is not part of this program yet."};
}

}  // namespace zelvo
