#pragma once

#include "data/convert_sbl.h"
#include "data/mdb.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// Brings the parcel registry up to date when it is opened, and closes: an old registry is converted to the extended
/// layout, and parcels that only a second file "sbl18.mdb" of the data folder has are added to it. The user is asked
/// before either.
class syncSBL : public Screen {
 public:
  syncSBL(Desk& desk, mdb& parcels);

 protected:
  void Form_Activate(bool first) override;

 private:
  void synchronize();
  bool convert();
  void noteLayout();
  /// False when there was nothing to add.
  bool addFromSecond();
  void tell(std::string_view text, Icon icon = Icon::Information);

  Label Label1{*this, "Label1", "The parcel registry is being brought up to date."};
  mdb& parcels_;
};

}  // namespace zelvo
