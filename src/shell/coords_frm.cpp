#include "shell/coords_frm.h"

#include "base/number.h"
#include "base/text.h"
#include "form/map_page.h"

namespace zelvo {

CoordsFrm::CoordsFrm(Desk& itsDesk) : Screen(itsDesk, "coordsfrm", "Coordinates lookup") {
  Text1.tip = "Degrees, such as 41.5034";
  Text2.tip = "Degrees, such as -74.0104";
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
}

void CoordsFrm::cmdOK_Click() {
  if (refuse(Text1, kMostLatitude, "latitude") || refuse(Text2, kMostLongitude, "longitude"))
    return;
  confirmed_ = true;
  closeMe();
}

std::string CoordsFrm::latitude() const {
  return std::string(trim(Text1.text));
}

std::string CoordsFrm::longitude() const {
  return std::string(trim(Text2.text));
}

bool CoordsFrm::refuse(TextBox& box, double limit, std::string_view what) {
  if (isDegrees(trim(box.text), limit))
    return false;
  const std::string bound = numberText(limit);
  desk.messages.tell(" Coordinates",
                     "Please give the " + std::string(what) + " in degrees from -" + bound + " to " + bound +
                         ", such as " + (limit > kMostLatitude ? "-74.0104." : "41.5034."),
                     Icon::Exclamation);
  setFocus(box, true);
  return true;
}

}  // namespace zelvo
