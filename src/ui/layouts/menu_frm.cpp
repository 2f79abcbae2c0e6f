#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kMenuFrmRows[] = {
    heading("lblMunicipality"),
    group(),
    field("lblUser"),
    tile("Image1", Glyph::House, 205),
    tile("Image2", Glyph::Clipboard, 262),
    tile("Image3", Glyph::Pen, 225),
    tile("Image4", Glyph::Seal, 38),
    tile("Image5", Glyph::Warning, 5),
    tile("Image6", Glyph::Place, 165),
    tile("Image7", Glyph::Calendar, 180),
    tile("Image8", Glyph::Map, 140),
    tile("Image9", Glyph::Flame, 20),
};

}  // namespace

const Layout kMenuFrmLayout{"MenuFrm", kMenuFrmRows};

}  // namespace zelvo
