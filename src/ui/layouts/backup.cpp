#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kProgressRows[] = {
    group(), field("lblWhat"), bar("lblBar"), field("lblStep"), foot("cmdCancel"),
};

constexpr LayoutRow kRestoreRows[] = {
    group(),
    field("Label1"),
    beside("Text1", {}, 60),
    beside("Command3"),
    group("Backups"),
    field("ListView1", {}, 0, kFill),
    group("What the chosen backup holds"),
    field("lblNote"),
    field("ListView2", {}, 0, kFill),
    foot("Command1"),
    foot("Command2"),
};

}  // namespace

const Layout kProgressLayout{"progressfrm", kProgressRows};
const Layout kRestoreLayout{"restorefrm", kRestoreRows};

}  // namespace zelvo
