#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"

namespace zelvo {

class Control;
class Screen;

// The outside world, as the screens see it. Real ones stand behind the windows; scripted ones in the console and the
// tests.

enum class Answer { OK, Cancel, Yes, No };
enum class Buttons { OK, OKCancel, YesNo, YesNoCancel };
enum class Icon { None, Information, Question, Exclamation, Critical };

struct MessageBox {
  std::string title;
  std::string text;
  Buttons buttons = Buttons::OK;
  Icon icon = Icon::None;
  Answer preset = Answer::OK;  ///< the button that Enter presses; for YesNo it is Yes unless No is set
};

/// The buttons of a box, left to right, and what stands on a button.
std::vector<Answer> answersOf(Buttons buttons);
std::string_view nameOf(Answer answer);
/// The button that Enter presses: the preset one when the box has it, else the first.
Answer presetOf(const MessageBox& box);

class Messages {
 public:
  virtual ~Messages() = default;
  virtual Answer ask(const MessageBox& box) = 0;

  void tell(std::string_view title, std::string_view text, Icon icon = Icon::Information);
  /// A Yes/No question; true for Yes.
  bool confirm(std::string_view title, std::string_view text, Icon icon = Icon::Question, Answer preset = Answer::Yes);
};

/// "Pictures (*.bmp;*.gif;*.jpg)|*.jpg;*.bmp;*.gif|All Files|*.*": pairs of a text and a pattern.
struct FilePicker {
  std::string title;
  std::string filter;
  std::string folder;
};

/// Every picker gives nothing when the user cancels it.
class Pickers {
 public:
  virtual ~Pickers() = default;
  virtual std::optional<std::string> openFile(const FilePicker& picker) = 0;
  virtual std::optional<std::string> saveFile(const FilePicker& picker, std::string_view proposed) = 0;
  virtual std::optional<std::string> folder(std::string_view title, std::string_view start) = 0;
};

/// How a document goes to paper. Kept for the run.
struct PrintOptions {
  double left = 0.5, top = 0.5, right = 0.5, bottom = 0.5;  ///< margins in inches, 0.5 to 3
  bool marginsSet = false;  ///< the user set them; otherwise a document that states margins keeps its own
  bool landscape = false;
  bool choosePrinter = false;
  bool viewFirst = false;  ///< the document is opened for changes before it is printed
  bool preview = false;    ///< its pages are shown before they are printed
  bool keepCopy = false;   ///< what was printed is kept with the record
  int fontSize = 10;       ///< of tabular reports, in points
  int copies = 1;
  std::string printer;  ///< empty: the default one
  std::string type;     ///< the printout type chosen last
};

/// A document as it is kept: the pages as a PDF; a face that makes no pages keeps the rich text.
struct PrintedCopy {
  std::string bytes;
  std::string extension;  ///< ".pdf"
};

struct PrintJob {
  std::string title;    ///< "Building Permit"
  std::string rtfPath;  ///< the merged document, on disk
  PrintOptions options;
};

class Printing {
 public:
  virtual ~Printing() = default;
  virtual Result<void> print(const PrintJob& job) = 0;
  /// The printer dialog: fills printer and copies; false when cancelled.
  virtual bool choosePrinter(PrintOptions& options) = 0;
  /// What print would put on paper, to be kept as a file.
  virtual Result<PrintedCopy> copyOf(const PrintJob& job) = 0;
  /// How many pages a job has; an error where the face makes no pages.
  virtual Result<int> countPages(const PrintJob& job) = 0;
};

struct ScreenSize {
  int width = 1366;
  int height = 768;
};

class Desktop {
 public:
  virtual ~Desktop() = default;
  /// The user of the network; nothing when it cannot be told.
  virtual std::optional<std::string> networkUser() = 0;
  virtual std::string temporaryFolder() = 0;
  virtual std::string systemFolder() = 0;
  virtual ScreenSize screenSize() = 0;
  virtual Result<void> switchDisplay(ScreenSize size) = 0;
  virtual void restoreDisplay() = 0;
  /// The program that the desktop opens such a file with; nothing when there is none.
  virtual std::optional<std::string> programFor(std::string_view path) = 0;
  /// Starts a command line in a window of its own.
  virtual Result<void> start(std::string_view commandLine) = 0;
  /// Brings the running copy of the program to the front; told to it by the copy that was started second.
  virtual void activateWindow() = 0;
  /// The text that was copied last; a desktop without a clipboard keeps it for this program alone.
  virtual std::string clipboard() { return copied_; }
  void setClipboard(std::string_view text) { setClipboard(text, {}); }
  /// The same with its look, as rich text; empty when what was copied has none.
  virtual std::string richClipboard() { return copiedRich_; }
  virtual void setClipboard(std::string_view text, std::string_view richText) {
    copied_ = text;
    copiedRich_ = richText;
  }

 private:
  std::string copied_, copiedRich_;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime now() = 0;
  /// Waits while the windows stay alive.
  virtual void pause(double seconds) = 0;
};

/// What shows the screens and brings the user's doings.
class Face {
 public:
  virtual ~Face() = default;
  virtual void opened(Screen& screen, bool modal) = 0;
  virtual void cameToFront(Screen& screen) = 0;
  /// The screen is closed; the object lives until the next sweep.
  virtual void closed(Screen& screen) = 0;
  virtual void status(Screen& screen, std::string_view text) = 0;
  /// Lets the user work until the screen is closed or the program ended.
  virtual void waitUntilClosed(Screen& screen) = 0;
  virtual void processEvents() = 0;
  /// How the office calls a control: by what stands beside it on its window ("Owner: Address").
  virtual std::string nameOf(const Control& control) = 0;
  /// To be called now and then by a handler that works for long: lets the user act in the modal screen in front, so
  /// that its Cancel can be pressed. That screen's handlers then run inside the one at work.
  virtual void listen() { processEvents(); }
  virtual void busy(bool hourglass) = 0;
};

}  // namespace zelvo
