#include "shell/shell_screens.h"

#include "shell/backup/restore_frm.h"
#include "shell/coords_frm.h"
#include "shell/help/help.h"
#include "shell/menu_frm.h"
#include "shell/notices.h"
#include "shell/preferences/pref_frm.h"
#include "shell/psw_frm.h"
#include "shell/user_mgr.h"

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
  screens.learn("UserMgr", make<UserMgr>);
  screens.learn("PrefFrm", make<PrefFrm>);
  screens.learn("restorefrm", make<RestoreFrm>);
  screens.attachHelp(showHelp);
}

}  // namespace zelvo
