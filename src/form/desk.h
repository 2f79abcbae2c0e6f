#pragma once

#include "form/ports.h"
#include "form/screens.h"
#include "form/session.h"

namespace zelvo {

/// What a screen works with: the session, the outside world, and the other screens. Made once in main.
struct Desk {
  Session& session;
  Messages& messages;
  Pickers& pickers;
  Printing& printing;
  Desktop& desktop;
  Clock& clock;
  Face& face;
  Screens& screens;

  /// Ends the program: a display that was switched is put back, every wait returns, every face leaves its loop. The
  /// first reason stays.
  void end(std::string_view why);
  bool ended() const { return session.ended.has_value(); }
};

/// Opens a document or web address for the user, in the program that the desktop has for it. Without a browser on the
/// computer the program says so and ends: it could show no document at all.
void OpenDocument(Desk& desk, std::string_view target);

/// What to tell when something is chosen that the program does not offer: a caption, as it stands in the menu.
Error notOffered(std::string_view caption);

}  // namespace zelvo
