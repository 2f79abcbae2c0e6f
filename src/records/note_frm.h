#pragma once

#include "data/mdb.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The note of a parcel, to be read and rewritten. It belongs to the parcel: every record on it shows the same one. To
/// be shown modally, with the parcel current in the registry.
class NoteFrm : public Screen {
 public:
  NoteFrm(Desk& desk, mdb& parcels, std::string_view parcel);

  void cmdSave_Click();

 private:
  void Form_Close() override;
  bool changed() const { return Text1.text != before_; }

  mdb& parcels_;
  std::string before_;
  Label Label1{*this, "Label1"};
  TextBox Text1{*this, "Text1"};
  Button cmdSave{*this, "cmdSave", "&Save"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
};

}  // namespace zelvo
