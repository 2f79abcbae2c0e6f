#include "app/house/house.h"

#include "records/permits/a_permits.h"
#include "shell/shell_screens.h"

namespace zelvo {

House::House(Desk& desk) : parcels_(desk.session), letters_(desk) {
  learnShellScreens(desk.screens);
  learnRecordScreens(desk.screens);
}

void House::learnRecordScreens(Screens& screens) {
  screens.learn("APermits", [this](Desk& desk) { return std::make_unique<APermits>(desk, parcels_, letters_); });
}

}  // namespace zelvo
