#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kConflictFrmRows[] = {
    group(),         field("Label1"),   field("ListView1", {}, 0, kFill), foot("cmdTurn"),
    foot("cmdMine"), foot("cmdTheirs"), foot("cmdOK", Glyph::Save),       foot("cmdCancel", Glyph::Cancel),
};

constexpr LayoutRow kColumnsFrmRows[] = {
    group(),         field("ListView1", {}, 0, kFill),
    foot("cmdTurn"), foot("cmdUp"),
    foot("cmdDown"), foot("cmdUsual"),
    foot("cmdOK"),   foot("cmdCancel"),
};

constexpr LayoutRow kNoteFrmRows[] = {
    group(),
    field("Label1"),
    field("Text1", {}, 60, 10),
    foot("cmdSave", Glyph::Save),
    foot("cmdCancel", Glyph::Cancel),
};

constexpr LayoutRow kExpiryFrmRows[] = {
    group(),         field("Label1"), field("DTPicker1", {}, 12), field("cmd6"), beside("cmd12"), beside("cmd18"),
    beside("cmd24"), foot("cmdOK"),   foot("cmdCancel"),
};

}  // namespace

const Layout kConflictFrmLayout{"ConflictFrm", kConflictFrmRows};
const Layout kColumnsFrmLayout{"ColumnsFrm", kColumnsFrmRows};
const Layout kNoteFrmLayout{"NoteFrm", kNoteFrmRows};

const Layout kExpiryFrmLayout{"ExpiryFrm", kExpiryFrmRows};

}  // namespace zelvo
