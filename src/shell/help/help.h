#pragma once

#include <span>
#include <string>
#include <string_view>

#include "form/desk.h"

namespace zelvo {

/// A page of the help as the program brings it along, or what belongs to the pages.
struct HelpPage {
  std::string_view name;  ///< "MenuFrm.html"
  std::string_view text;
};
std::span<const HelpPage> helpPages();

/// The page of a screen, by the screen's name; the index for a screen that has none of its own.
std::string_view helpPageOf(std::string_view screen);

/// Opens the help of a screen in the browser ("" for the index). The pages stand in the folder "help" of the program
/// folder and are put there when they are missing or of an earlier program; where the program may not write, they stand
/// in the temporary folder. Without a browser the user hears where they are, and works on.
void showHelp(Desk& desk, std::string_view screen);

}  // namespace zelvo
