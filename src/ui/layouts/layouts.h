#pragma once

#include "ui/layout.h"

namespace zelvo {

// One table a screen; small screens that belong together share a file.
extern const Layout kPswFrmLayout;
extern const Layout kPswHelpLayout;
extern const Layout kUserEditLayout;
extern const Layout kAboutLayout;
extern const Layout kLoadingLayout;
extern const Layout kPreviewLayout;
extern const Layout kCoordsLayout;
extern const Layout kMenuFrmLayout;
extern const Layout kPrintFrmLayout;
extern const Layout kAPermitsLayout;

}  // namespace zelvo
