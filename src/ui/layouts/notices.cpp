#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kAboutRows[] = {
    heading("lblTitle"), group(),          field("lblPurpose"), field("lblMunicipality"),
    field("lblVersion"), field("lblData"), foot("cmdOK"),
};

constexpr LayoutRow kLoadingRows[] = {
    group(),
    field("Label1"),
};

constexpr LayoutRow kPreviewRows[] = {
    picture("Image1"),
};

constexpr LayoutRow kCoordsRows[] = {
    group(),       field("Label1"),   beside("Text1", {}, 14), field("Label2"), beside("Text2", {}, 14),
    foot("cmdOK"), foot("cmdCancel"),
};

}  // namespace

const Layout kAboutLayout{"frmAbout", kAboutRows};
const Layout kLoadingLayout{"LoadingFrm", kLoadingRows};
const Layout kPreviewLayout{"Preview", kPreviewRows, WindowKind::Cover};
const Layout kCoordsLayout{"coordsfrm", kCoordsRows};

}  // namespace zelvo
