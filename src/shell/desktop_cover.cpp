#include "shell/desktop_cover.h"

#include "base/text.h"

namespace zelvo {

// A cover takes its looks from the settings when it is made, and belongs behind whatever the user works with.
void SetupDesktopCover(Desk& desk) {
  Session& session = desk.session;
  if (alike(trim(session.desktopPicture), "NONE"))
    session.desktopPicture.clear();
  if (Screen* old = desk.screens.find("Preview"))
    desk.screens.close(*old);
  if (!session.hideDesktop)
    return;
  Screen* front = desk.screens.front();
  desk.screens.open("Preview");
  if (front)
    desk.screens.bringToFront(*front);
}

}  // namespace zelvo
