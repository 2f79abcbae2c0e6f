#pragma once

#include <cstdint>

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

// Screens that only show something.

/// What the program is and for whom; the splash of start-up as well, which hides the button.
class frmAbout : public Screen {
 public:
  explicit frmAbout(Desk& desk);

 private:
  Label lblTitle{*this, "lblTitle", "Zelvo"};
  Label lblPurpose{*this, "lblPurpose", "Records of the building inspection and code enforcement office"};
  Label lblMunicipality{*this, "lblMunicipality"};
  Label lblVersion{*this, "lblVersion", "Version " ZELVO_VERSION};
  Label lblData{*this, "lblData"};  ///< what whoever helps asks for first; not on the splash
  Button cmdOK{*this, "cmdOK", "OK"};
};

/// Shown between the sign-in and the main menu.
class LoadingFrm : public Screen {
 public:
  explicit LoadingFrm(Desk& desk);

 private:
  Label Label1{*this, "Label1", "Preparing the main menu. One moment please.."};
};

/// The cover that hides the desktop: without a border, as large as the screen, behind all other windows.
class Preview : public Screen {
 public:
  explicit Preview(Desk& desk);

  std::uint32_t colour;  ///< red in the lowest byte, then green, then blue

 private:
  Label Image1{*this, "Image1"};  ///< the path of the picture; hidden when there is none
};

}  // namespace zelvo
