#include "console/console.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "base/files.h"

namespace zelvo {

namespace {

constexpr int kCommandFailed = 1;
constexpr int kNotStarted = 2;

int notStarted(std::string_view why) {
  std::cerr << "zelvo-console: " << why << std::endl;
  return kNotStarted;
}

std::string executableFolder() {
  std::error_code none;
  const auto itself = std::filesystem::read_symlink("/proc/self/exe", none);
  return none ? std::filesystem::current_path().string() : itself.parent_path().string();
}

int runScript(const ConsoleOptions& options, const Console::StartProgram& startProgram) {
  if (options.script.empty())
    return Console(options, std::cin, std::cout, std::cerr).run(startProgram);
  std::ifstream script(systemPath(options.script), std::ios::binary);
  if (!script || folderExists(options.script))
    return notStarted("The script \"" + options.script + "\" cannot be read. Give the path of a text file.");
  return Console(options, script, std::cout, std::cerr).run(startProgram);
}

}  // namespace

Console::Console(const ConsoleOptions& options, std::istream& script, std::ostream& out, std::ostream& trouble)
    : talk_(session_, script, out, trouble),
      printing_(talk_, joinPath(options.programFolder, "printed")),
      clock_(options.now) {
  session_.programFolder = options.programFolder;
  screens_.attach(desk_);
  face_.attach(desk_);
}

int Console::run(const StartProgram& startProgram) {
  try {
    startProgram(desk_);
    face_.workUntilEnded();
  } catch (const std::exception& trouble) {
    talk_.fail(trouble.what());
  }
  closeEverything();
  if (!talk_.over())
    talk_.say("ended: " + session_.ended.value_or(""));
  return talk_.failed() ? kCommandFailed : 0;
}

// While all that a screen may still reach is alive.
void Console::closeEverything() {
  for (Screen* screen : screens_.all())
    screens_.close(*screen);
  screens_.sweep();
}

int consoleMain(int argc, const char* const* argv, const Console::StartProgram& startProgram) {
  const auto options = readConsoleOptions({argv + 1, argv + argc}, executableFolder());
  if (!options)
    return notStarted(options.error().message);
  if (options->help) {
    std::cout << consoleHelp() << std::flush;
    return 0;
  }
  return runScript(*options, startProgram);
}

}  // namespace zelvo
