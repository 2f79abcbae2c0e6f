#include "shell/notices.h"

namespace zelvo {

frmAbout::frmAbout(Desk& itsDesk) : Screen(itsDesk, "frmAbout", "About Zelvo") {
  lblMunicipality.caption = desk.session.municipality.name;
  lblData.caption = "Program folder: " + desk.session.programFolder + "\nDatabases: " + desk.session.dataFolder;
  lblData.visible = desk.session.signedIn;
  cmdOK.isDefault = cmdOK.isCancel = true;
  onClick(cmdOK, [this] { closeMe(); });
}

LoadingFrm::LoadingFrm(Desk& itsDesk) : Screen(itsDesk, "LoadingFrm", "Zelvo") {}

Preview::Preview(Desk& itsDesk) : Screen(itsDesk, "Preview", "Zelvo"), colour(itsDesk.session.desktopColour) {
  Image1.caption = desk.session.desktopPicture;
  Image1.visible = !Image1.caption.empty();
}

}  // namespace zelvo
