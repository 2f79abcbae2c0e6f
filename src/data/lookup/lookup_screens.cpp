#include "data/lookup/lookup_screens.h"

#include "data/lookup/lookups.h"
#include "data/lookup/sbl_edit.h"
#include "data/lookup/sbl_info.h"
#include "data/lookup/sync_sbl.h"

namespace zelvo {

void learnParcelScreens(Screens& screens, mdb& parcels) {
  for (const char* name : {"sblloc", "adloc", "conloc", "rpsloc"})
    screens.learn(name, [name](Desk& desk) { return makeLookup(desk, name, LookupFor::Itself); });
  screens.learn("sblinfo", [&parcels](Desk& desk) { return std::make_unique<sblinfo>(desk, parcels); });
  screens.learn("SBLEdit", [](Desk& desk) { return std::make_unique<SBLEdit>(desk, ExtendedParcel{}); });
  screens.learn("syncSBL", [&parcels](Desk& desk) { return std::make_unique<syncSBL>(desk, parcels); });
}

}  // namespace zelvo
