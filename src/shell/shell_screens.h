#pragma once

#include "form/screens.h"

namespace zelvo {

/// Teaches the shell's screens by their names: the sign-in with its help, the main menu, the about screen, the loading
/// notice, the desktop cover, and the two dialogs of the menu.
void learnShellScreens(Screens& screens);

}  // namespace zelvo
