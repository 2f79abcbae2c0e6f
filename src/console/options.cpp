#include "console/options.h"

#include <filesystem>

#include "base/files.h"

namespace zelvo {

namespace {

Error refused(std::string message) {
  return {Trouble::BadInput, std::move(message)};
}

// The program makes its folder the current one at start-up; a folder given as seen from here would be lost then.
Result<void> takeProgramFolder(ConsoleOptions& options, const std::string& folder) {
  if (!folderExists(folder))
    return refused("The program folder \"" + folder + "\" is not there. Give the folder that holds Zelvo.ini.");
  const auto full = std::filesystem::absolute(systemPath(folder)).lexically_normal();
  options.programFolder = withoutEndSeparator(full.string());
  return {};
}

Result<void> takeNow(ConsoleOptions& options, const std::string& text) {
  options.now = parseDateTime(text);
  if (!options.now)
    return refused("\"" + text + "\" is no date and time. Write it as \"03/09/2026 10:15\".");
  return {};
}

Result<void> takeScript(ConsoleOptions& options, const std::string& file) {
  if (file.empty() || file.front() == '-')
    return refused("The option \"" + file + "\" is not known. See --help.");
  if (!options.script.empty())
    return refused("One script is carried out at a time; \"" + file + "\" is a second one.");
  options.script = file;
  return {};
}

using Take = Result<void> (*)(ConsoleOptions&, const std::string&);

Take optionNamed(std::string_view argument) {
  if (argument == "--program-folder")
    return takeProgramFolder;
  return argument == "--now" ? takeNow : nullptr;
}

}  // namespace

Result<ConsoleOptions> readConsoleOptions(const std::vector<std::string>& arguments,
                                          std::string_view executableFolder) {
  ConsoleOptions options;
  options.programFolder = withoutEndSeparator(executableFolder);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--help") {
      options.help = true;
      return options;
    }
    const Take option = optionNamed(argument);
    if (option && i + 1 == arguments.size())
      return refused(argument + " needs a value behind it. See --help.");
    if (auto taken = option ? option(options, arguments[++i]) : takeScript(options, argument); !taken)
      return taken.error();
  }
  return options;
}

std::string_view consoleHelp() {
  return R"(zelvo-console [--program-folder DIR] [--now "mm/dd/yyyy hh:mm"] [SCRIPT]

Runs Zelvo with text instead of windows. It reads one command a line from SCRIPT, or from the standard input.

  --program-folder DIR   the folder with the settings files; that of this program when not given
  --now "DATE TIME"      the time that the program is to see; it stands still
  --help                 this page

  click NAME             presses a button, a menu entry or a picture button; opens the chosen row of a list
  set NAME VALUE         types into a box, picks or types a combo entry, ticks with 1 or 0, sets a date
  leave NAME             the focus leaves the box
  choose NAME ROW        selects a row of a list, by its number from 1 or the text of its first column
  sort NAME COLUMN       sorts a list by the column of that caption; again, the other way round
  answer TEXT            queues the answer to a coming message or picker
  screen NAME, screens   brings an open screen to the front; lists the open ones, front first
  close                  closes the front screen by its window button
  show NAME, show        a control's value, or every control that is not empty
  query FILE SQL         the rows of a query on a database of the data folder
  # ...                  a comment

It ends with 0 at the end of the script or when the program ended itself, with 1 when a command could not be carried
out, with 2 when it could not be started.
)";
}

}  // namespace zelvo
