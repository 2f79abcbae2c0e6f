#pragma once

#include "form/desk.h"

namespace zelvo {

/// Covers the desktop behind all windows, in the colour and with the picture of the settings, or uncovers it when the
/// settings say so. Done anew after they were changed. A picture called "NONE" is none.
void SetupDesktopCover(Desk& desk);

}  // namespace zelvo
