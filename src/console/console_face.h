#pragma once

#include <functional>

#include "console/conversation.h"
#include "form/desk.h"

namespace zelvo {

/// The face of the program that is all text: it says which screen came to the front and what the status line tells, and
/// where the program waits for the user it carries out the commands of the script.
class ConsoleFace : public Face {
 public:
  explicit ConsoleFace(Conversation& talk) : talk_(talk) {}

  /// The desk must outlive this; it is given apart, since the desk holds the face.
  void attach(Desk& desk) { desk_ = &desk; }

  /// Carries out commands until the program ended. Without any screen nobody could go on working: that ends it too.
  void workUntilEnded();

  void opened(Screen&, bool) override {}
  void cameToFront(Screen& screen) override;
  void closed(Screen&) override {}
  void status(Screen&, std::string_view text) override;
  void waitUntilClosed(Screen& screen) override;
  // A command is carried out only where the program waits for one; in the midst of a long operation there is none.
  void processEvents() override {}
  std::string nameOf(const Control& control) override { return control.id(); }
  void busy(bool) override {}

 private:
  void workWhile(const std::function<bool()>& wanted);

  Conversation& talk_;
  Desk* desk_ = nullptr;
  int waits_ = 0;  ///< one within the other
};

}  // namespace zelvo
