#include "shell/psw_frm.h"

#include "base/text.h"
#include "shell/users.h"

namespace zelvo {

// The blanks in front move the words to the middle of the narrow window's title.
PswFrm::PswFrm(Desk& itsDesk) : Screen(itsDesk, "PswFrm", "                    Zelvo  Login") {
  Text1.tip = "Login name";
  Text2.tip = "Login password";
  Text2.password = true;
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  cmdCancel.tip = "Cancel login";
  image6.tip = "How to sign in";
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { cmdCancel_Click(); });
  onClick(image6, [this] { image6_Click(); });
}

void PswFrm::Form_Activate(bool) {
  desk.face.busy(false);
  setFocus(Text1);
}

void PswFrm::cmdOK_Click() {
  CheckPassword(desk.session, Text1.text, Text2.text);
  if (!desk.session.signedIn) {
    desk.messages.tell("Login", "Invalid Password, try again!", Icon::Exclamation);
    setFocus(Text2, true);
    return;
  }
  desk.session.userId = trim(Text1.text);
  closeWithHelp();
}

void PswFrm::cmdCancel_Click() {
  desk.session.signedIn = false;
  closeWithHelp();
}

void PswFrm::image6_Click() {
  desk.screens.open("pswhelp");
}

void PswFrm::closeWithHelp() {
  if (Screen* help = desk.screens.find("pswhelp"))
    desk.screens.close(*help);
  closeMe();
}

pswhelp::pswhelp(Desk& itsDesk) : Screen(itsDesk, "pswhelp", "Login Help") {
  cmdOK.isDefault = cmdOK.isCancel = true;
  onClick(cmdOK, [this] { closeMe(); });
}

}  // namespace zelvo
