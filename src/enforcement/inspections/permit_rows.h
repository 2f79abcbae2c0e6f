#pragma once

#include <memory>
#include <string>

#include "data/recordset.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The building permits that answer a condition, by number; all of them when it is empty. Asks the user for the
/// database when it is not where it should be; Trouble::Cancelled when he gives it up.
Result<std::unique_ptr<Recordset>> permitsWith(Desk& desk, std::string_view condition);

/// The condition of the permits that the boxes of an inspection ask for: number, owner, location, parcel. Empty when
/// none of them is filled.
std::string permitCondition(const Screen& inspection);

/// Writes what the current permit says of the parcel, its owner and location into the boxes of an inspection that are
/// still blank.
void fillFromPermit(const Recordset& permit, Screen& inspection);

/// Asks which of several permits is meant. To be shown modally; chosen() is empty when the user gave it up.
class PermitChoice : public Screen {
 public:
  PermitChoice(Desk& desk, std::shared_ptr<Recordset> permits);
  const std::string& chosen() const { return chosen_; }

 private:
  void choose();

  ListView ListView1{*this, "ListView1"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  std::shared_ptr<Recordset> permits_;
  std::string chosen_;
};

}  // namespace zelvo
