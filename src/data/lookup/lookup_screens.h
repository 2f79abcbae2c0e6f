#pragma once

#include "data/mdb.h"
#include "form/screens.h"

namespace zelvo {

/// Teaches the parcel screens by their names: the look-ups, the parcel information, the new parcel, and the bringing up
/// to date of the registry. The registry must outlive the screens.
void learnParcelScreens(Screens& screens, mdb& parcels);

}  // namespace zelvo
