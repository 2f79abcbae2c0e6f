#pragma once

#include "ui/layout.h"

namespace zelvo {

// One table a screen; small screens that belong together share a file.
extern const Layout kPswFrmLayout;
extern const Layout kPswHelpLayout;
extern const Layout kUserEditLayout;
extern const Layout kUserMgrLayout;
extern const Layout kNewFrmLayout;
extern const Layout kFirstRunLayout;
extern const Layout kAboutLayout;
extern const Layout kLoadingLayout;
extern const Layout kPreviewLayout;
extern const Layout kCoordsLayout;
extern const Layout kMenuFrmLayout;
extern const Layout kProgressLayout;
extern const Layout kRestoreLayout;
extern const Layout kPrintFrmLayout;
extern const Layout kLabelFrmLayout;
extern const Layout kEditorLayout;
extern const Layout kHeaderFrmLayout;
extern const Layout kPagesFrmLayout;
extern const Layout kReportFrmLayout;
extern const Layout kAPermitsLayout;
extern const Layout kBInspectionsLayout;
extern const Layout kInspReportFrmLayout;
extern const Layout kPermitChoiceLayout;
extern const Layout kConflictFrmLayout;
extern const Layout kColumnsFrmLayout;
extern const Layout kNoteFrmLayout;
extern const Layout kExpiryFrmLayout;
extern const Layout kPrefFrmLayout;
extern const Layout kEntryFrmLayout;
extern const Layout kKeyLookupLayout;
extern const Layout kAddressLookupLayout;
extern const Layout kContactLookupLayout;
extern const Layout kRollLookupLayout;
extern const Layout kParcelInfoLayout;
extern const Layout kParcelEditLayout;
extern const Layout kNoDbFoundLayout;
extern const Layout kSyncParcelsLayout;

}  // namespace zelvo
