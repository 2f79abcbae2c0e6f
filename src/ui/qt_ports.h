#pragma once

#include <QString>
#include <string>

#include "form/ports.h"
#include "ui/display_mode.h"
#include "ui/qt_face.h"

namespace zelvo {

/// Message boxes over the window in front, with the title and the buttons exactly as asked for. Closing a Yes/No box by
/// Esc or its window button answers No.
class QtMessages : public Messages {
 public:
  explicit QtMessages(QtFace& face) : face_(face) {}
  Answer ask(const MessageBox& box) override;

 private:
  QtFace& face_;
};

/// The desktop's own choosers of files and folders.
class QtPickers : public Pickers {
 public:
  explicit QtPickers(QtFace& face) : face_(face) {}
  std::optional<std::string> openFile(const FilePicker& picker) override;
  std::optional<std::string> saveFile(const FilePicker& picker, std::string_view proposed) override;
  std::optional<std::string> folder(std::string_view title, std::string_view start) override;

 private:
  QtFace& face_;
};

/// "Pictures|*.jpg;*.bmp|All Files|*.*" as the chooser wants it: "Pictures (*.jpg *.bmp);;All Files (*)".
QString chooserFilter(std::string_view filter);

/// The user's desktop: its user, its display, and the programs that it opens files with.
class QtDesktop : public Desktop {
 public:
  explicit QtDesktop(QtFace& face);

  std::optional<std::string> networkUser() override;
  std::string temporaryFolder() override;
  std::string systemFolder() override;
  ScreenSize screenSize() override;
  /// Refused where the display is the desktop's own affair.
  Result<void> switchDisplay(ScreenSize size) override { return display_.switchTo(size); }
  void restoreDisplay() override { display_.restore(); }
  std::optional<std::string> programFor(std::string_view path) override;
  Result<void> start(std::string_view commandLine) override;
  void activateWindow() override { face_.raiseAll(); }
  std::string clipboard() override;
  std::string richClipboard() override;
  void setClipboard(std::string_view text, std::string_view richText) override;

 private:
  QtFace& face_;
  DisplayMode display_;
};

/// The clock on the wall. A pause keeps the windows painted, and lets the user work unless a handler runs.
class QtClock : public Clock {
 public:
  explicit QtClock(QtFace& face) : face_(face) {}
  DateTime now() override;
  void pause(double seconds) override;

 private:
  QtFace& face_;
};

}  // namespace zelvo
