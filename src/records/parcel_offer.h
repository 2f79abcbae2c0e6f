#pragma once

#include <map>
#include <string>
#include <string_view>

#include "data/mdb.h"
#include "form/screen.h"
#include "records/record_kind.h"

namespace zelvo {

/// What a parcel says of itself, for the boxes of a record that ask for the same.
struct ParcelFacts {
  std::string owner, address, location;
};

/// Offers owner, address and location of the parcel of a new record. Only boxes that are empty are filled, or that hold
/// what was offered for another parcel before: what the clerk typed stays.
class ParcelOffer {
 public:
  ParcelOffer(Screen& screen, const ParcelBoxes& boxes) : screen_(screen), boxes_(boxes) {}

  /// A new record begins: nothing was offered yet.
  void forget();
  /// What the registry knows of a parcel, and the tax roll where the registry does not. Gives what the clerk is told;
  /// empty when there was nothing to fill.
  std::string offer(const Session& session, mdb& parcels, const std::string& key);
  /// Fills the boxes from what somebody looked up.
  void fill(const ParcelFacts& facts);

 private:
  void fillBox(int box, std::string_view text);

  Screen& screen_;
  const ParcelBoxes& boxes_;
  std::string parcel_;                  // that was offered last
  std::map<int, std::string> offered_;  // by box
};

}  // namespace zelvo
