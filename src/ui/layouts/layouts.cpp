#include "ui/layouts/layouts.h"

namespace zelvo {

const Layout* layoutFor(std::string_view screen) {
  static constexpr const Layout* kLayouts[] = {&kPswFrmLayout,   &kPswHelpLayout, &kUserEditLayout, &kAboutLayout,
                                               &kLoadingLayout,  &kPreviewLayout, &kCoordsLayout,   &kMenuFrmLayout,
                                               &kPrintFrmLayout, &kAPermitsLayout};
  for (const Layout* layout : kLayouts)
    if (layout->screen == screen)
      return layout;
  return nullptr;
}

}  // namespace zelvo
