#pragma once

#include <optional>
#include <string>

#include "console/conversation.h"
#include "form/ports.h"

namespace zelvo {

// The outside world of the console: what the desktop program shows is said as a line, what its user answers is taken
// from the queued answers. When the conversation is over every question is declined, so that nothing more is begun.

/// "message: [TITLE] TEXT {Yes, No} -> Yes". Without an answer the default button is taken, and the line ends in
/// " (default)". An answer that fits no button fails the command.
class ConsoleMessages : public Messages {
 public:
  explicit ConsoleMessages(Conversation& talk) : talk_(talk) {}
  Answer ask(const MessageBox& box) override;

 private:
  Conversation& talk_;
};

/// "picker: [TITLE] -> path". The answer is a path, or a name in the folder that the picker shows; Cancel cancels; OK
/// takes what the picker proposes. Without an answer it is cancelled.
class ConsolePickers : public Pickers {
 public:
  explicit ConsolePickers(Conversation& talk) : talk_(talk) {}
  std::optional<std::string> openFile(const FilePicker& picker) override;
  std::optional<std::string> saveFile(const FilePicker& picker, std::string_view proposed) override;
  std::optional<std::string> folder(std::string_view title, std::string_view start) override;

 private:
  std::optional<std::string> pick(std::string_view title, std::string_view folder, std::string_view proposed);

  Conversation& talk_;
};

/// The printer is a folder: each document goes there as 0001.rtf, 0002.rtf and so on, byte by byte what went to the
/// printer. Numbers go on from what lies there.
class ConsolePrinting : public Printing {
 public:
  ConsolePrinting(Conversation& talk, std::string folder) : talk_(talk), folder_(std::move(folder)) {}
  Result<void> print(const PrintJob& job) override;
  /// The answer is OK (also when there is none), Cancel, or the name of a printer.
  bool choosePrinter(PrintOptions& options) override;
  /// The rich text itself: whoever works without windows keeps what he would have printed.
  Result<PrintedCopy> copyOf(const PrintJob& job) override;
  Result<int> countPages(const PrintJob& job) override;

 private:
  std::string nextFile() const;

  Conversation& talk_;
  std::string folder_;
};

/// Documents and programs are not started but said: "opened: COMMAND LINE".
class ConsoleDesktop : public Desktop {
 public:
  explicit ConsoleDesktop(Conversation& talk) : talk_(talk) {}
  std::optional<std::string> networkUser() override;
  std::string temporaryFolder() override;
  std::string systemFolder() override { return "/"; }
  // The size that the screens were drawn for: a console has no display that could be too large or too small, so the
  // program finds nothing to ask about.
  ScreenSize screenSize() override { return {800, 600}; }
  Result<void> switchDisplay(ScreenSize) override { return {}; }
  void restoreDisplay() override {}
  std::optional<std::string> programFor(std::string_view path) override;
  Result<void> start(std::string_view commandLine) override;
  void activateWindow() override {}

 private:
  Conversation& talk_;
};

/// The time of the computer, or one that stands still. Pauses take no time: nobody is there to read meanwhile.
class ConsoleClock : public Clock {
 public:
  explicit ConsoleClock(std::optional<DateTime> fixed) : fixed_(fixed) {}
  DateTime now() override;
  void pause(double) override {}

 private:
  std::optional<DateTime> fixed_;
};

}  // namespace zelvo
