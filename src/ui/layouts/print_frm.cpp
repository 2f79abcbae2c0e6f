#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kPrintFrmRows[] = {
    group(),
    field("Label1"),
    field("Combo1", {}, 34),
    group("Printing"),
    field("Check1"),
    field("Check2"),
    field("Check3"),
    field("Check4"),
    group("Page"),
    field("Label2"),
    beside("Text1", {}, 6),
    field("Label3"),
    beside("Text2", {}, 6),
    field("Label4"),
    beside("Text3", {}, 6),
    field("Label5"),
    beside("Text4", {}, 6),
    field("Label6"),
    beside("Combo2", {}, 6),
    group(),
    field("cmdHeader"),
    foot("cmdPreview", Glyph::Document),
    foot("cmdPrint", Glyph::Print),
    foot("cmdCancel"),
};

}  // namespace

const Layout kPrintFrmLayout{"PrintFrm", kPrintFrmRows};

}  // namespace zelvo
