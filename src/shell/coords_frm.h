#pragma once

#include <string>

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// Asks for the place to show on the map. To be shown modally; afterwards confirmed() tells whether both are there:
/// degrees, north and east positive.
class CoordsFrm : public Screen {
 public:
  explicit CoordsFrm(Desk& desk);

  void cmdOK_Click();
  bool confirmed() const { return confirmed_; }
  std::string latitude() const;
  std::string longitude() const;

 private:
  bool refuse(TextBox& box, double limit, std::string_view what);

  Label Label1{*this, "Label1", "Latitude:"};
  TextBox Text1{*this, "Text1"};
  Label Label2{*this, "Label2", "Longitude:"};
  TextBox Text2{*this, "Text2"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  bool confirmed_ = false;
};

}  // namespace zelvo
