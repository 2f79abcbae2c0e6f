#include "shell/shell_screens.h"

#include "shell/coords_frm.h"
#include "shell/menu_frm.h"
#include "shell/notices.h"
#include "shell/psw_frm.h"

namespace zelvo {

namespace {

template <class Shown>
std::unique_ptr<Screen> make(Desk& desk) {
  return std::make_unique<Shown>(desk);
}

}  // namespace

void learnShellScreens(Screens& screens) {
  screens.learn("PswFrm", make<PswFrm>);
  screens.learn("pswhelp", make<pswhelp>);
  screens.learn("frmAbout", make<frmAbout>);
  screens.learn("LoadingFrm", make<LoadingFrm>);
  screens.learn("Preview", make<Preview>);
  screens.learn("MenuFrm", make<MenuFrm>);
  screens.learn("coordsfrm", make<CoordsFrm>);
}

}  // namespace zelvo
