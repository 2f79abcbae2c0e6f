#include "ui/layouts/layouts.h"

namespace zelvo {

const Layout* layoutFor(std::string_view screen) {
  static constexpr const Layout* kLayouts[] = {
      &kPswFrmLayout,       &kPswHelpLayout,       &kUserEditLayout,     &kUserMgrLayout,       &kNewFrmLayout,
      &kFirstRunLayout,     &kAboutLayout,         &kLoadingLayout,      &kPreviewLayout,       &kCoordsLayout,
      &kMenuFrmLayout,      &kProgressLayout,      &kRestoreLayout,      &kPrintFrmLayout,      &kLabelFrmLayout,
      &kReportFrmLayout,    &kAPermitsLayout,      &kKeyLookupLayout,    &kAddressLookupLayout, &kContactLookupLayout,
      &kRollLookupLayout,   &kParcelInfoLayout,    &kParcelEditLayout,   &kNoDbFoundLayout,     &kSyncParcelsLayout,
      &kConflictFrmLayout,  &kColumnsFrmLayout,    &kNoteFrmLayout,      &kPrefFrmLayout,       &kEntryFrmLayout,
      &kBInspectionsLayout, &kInspReportFrmLayout, &kPermitChoiceLayout, &kEditorLayout,        &kHeaderFrmLayout,
      &kPagesFrmLayout,     &kExpiryFrmLayout};
  for (const Layout* layout : kLayouts)
    if (layout->screen == screen)
      return layout;
  return nullptr;
}

}  // namespace zelvo
