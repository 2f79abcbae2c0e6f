#include "app/house/house.h"

#include "data/lookup/lookup_screens.h"
#include "documents/editor/editor.h"
#include "documents/editor/header_frm.h"
#include "documents/labels/label_frm.h"
#include "enforcement/inspections/b_inspections.h"
#include "records/permits/a_permits.h"
#include "shell/shell_screens.h"

namespace zelvo {

House::House(Desk& desk) : parcels_(desk.session), letters_(desk), labelPrinter_(desk, labels_) {
  learnShellScreens(desk.screens);
  learnParcelScreens(desk.screens, parcels_);
  learnDocumentScreens(desk.screens);
  learnRecordScreens(desk.screens);
}

void House::learnDocumentScreens(Screens& screens) {
  screens.learn("Editor", [](Desk& desk) { return std::make_unique<Editor>(desk); });
  screens.learn("HeaderFrm", [](Desk& desk) { return std::make_unique<HeaderFrm>(desk); });
  screens.learn("LabelFrm", [this](Desk& desk) { return std::make_unique<LabelFrm>(desk, labels_); });
}

void House::learnRecordScreens(Screens& screens) {
  screens.learn("APermits",
                [this](Desk& desk) { return std::make_unique<APermits>(desk, parcels_, letters_, labelPrinter_); });
  screens.learn("BInspections",
                [this](Desk& desk) { return std::make_unique<BInspections>(desk, parcels_, letters_); });
}

}  // namespace zelvo
