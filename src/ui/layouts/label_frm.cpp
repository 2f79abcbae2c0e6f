#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kLabelFrmRows[] = {
    column(4),
    group("Sheet"),
    field("Combo1", "La&yout", 24),
    field("lblLayout"),
    group("Margins in inches"),
    field("Text1", "&Top", 7),
    field("Text2", "&Left", 7),
    field("Text3", "&Bottom", 7),
    group("First free label"),
    field("Text4", "&Row", 7),
    field("Text5", "Colum&n", 7),
    group(),
    field("lblBeside"),

    column(5),
    group(),
    field("Image1", {}, 0, kFill),
    foot("cmdOK"),
    foot("cmdCancel"),
};

}  // namespace

const Layout kLabelFrmLayout{"LabelFrm", kLabelFrmRows};

}  // namespace zelvo
