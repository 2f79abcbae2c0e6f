#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"

namespace zelvo {

/// What the command line of the console asks for.
struct ConsoleOptions {
  std::string programFolder;    ///< a full path
  std::optional<DateTime> now;  ///< the time that is to be; the computer's when not given
  std::string script;           ///< a file; empty for the standard input
  bool help = false;
};

/// Reads `[--program-folder DIR] [--now "mm/dd/yyyy hh:mm"] [SCRIPT]` or `--help`, the program's own name not among the
/// arguments. The program folder is that of the executable unless it is given; it must be there.
Result<ConsoleOptions> readConsoleOptions(const std::vector<std::string>& arguments, std::string_view executableFolder);

/// How the console is started and what it understands.
std::string_view consoleHelp();

}  // namespace zelvo
