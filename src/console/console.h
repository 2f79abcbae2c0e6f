#pragma once

#include <functional>
#include <iosfwd>

#include "console/console_face.h"
#include "console/console_ports.h"
#include "console/conversation.h"
#include "console/options.h"
#include "form/desk.h"

namespace zelvo {

/// The program under the text face, from its start to its end: the session, the outside world as the console plays it,
/// and the open screens.
class Console {
 public:
  /// What makes the screens known and starts the program up; it returns when the first screen is open and the user may
  /// work, or when the program ended itself.
  using StartProgram = std::function<void(Desk&)>;

  Console(const ConsoleOptions& options, std::istream& script, std::ostream& out, std::ostream& trouble);

  /// Starts the program and carries out the script. Gives the exit code: 0, or 1 when a command failed.
  int run(const StartProgram& startProgram);

 private:
  void closeEverything();

  Session session_;
  Conversation talk_;
  ConsoleMessages messages_{talk_};
  ConsolePickers pickers_{talk_};
  ConsolePrinting printing_;
  ConsoleDesktop desktop_{talk_};
  ConsoleClock clock_;
  ConsoleFace face_{talk_};
  Screens screens_;
  Desk desk_{session_, messages_, pickers_, printing_, desktop_, clock_, face_, screens_};
};

/// The console as a program: reads its command line and runs it. Gives the exit code; 2 when it could not be started.
int consoleMain(int argc, const char* const* argv, const Console::StartProgram& startProgram);

}  // namespace zelvo
