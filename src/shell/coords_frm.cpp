#include "shell/coords_frm.h"

#include <cmath>

#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

// The text goes into a web address as it was typed, so nothing but plain degrees may pass.
bool isDegrees(std::string_view text, double limit) {
  return isNumber(text) && text.find_first_not_of("-.0123456789") == std::string_view::npos &&
         std::abs(Val(text)) <= limit;
}

}  // namespace

CoordsFrm::CoordsFrm(Desk& itsDesk) : Screen(itsDesk, "coordsfrm", "Coordinates lookup") {
  Text1.tip = "Degrees, such as 41.5034";
  Text2.tip = "Degrees, such as -74.0104";
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
}

void CoordsFrm::cmdOK_Click() {
  if (refuse(Text1, 90, "latitude") || refuse(Text2, 180, "longitude"))
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
                         ", such as " + (limit > 90 ? "-74.0104." : "41.5034."),
                     Icon::Exclamation);
  setFocus(box, true);
  return true;
}

}  // namespace zelvo
