#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kPswFrmRows[] = {
    group(),       field("Label1"),   beside("Text1", {}, 24), field("Label2"), beside("Text2", {}, 24),
    foot("cmdOK"), foot("cmdCancel"), foot("image6"),
};

constexpr LayoutRow kPswHelpRows[] = {
    group(),
    field("Label1"),
    foot("cmdOK"),
};

constexpr LayoutRow kUserEditRows[] = {
    group(),         field("Label1"),          beside("Text1", {}, 24), field("Label2"),  beside("Text2", {}, 24),
    field("Label3"), beside("Combo1", {}, 16), foot("Command1"),        foot("Command2"),
};

}  // namespace

const Layout kPswFrmLayout{"PswFrm", kPswFrmRows};
const Layout kPswHelpLayout{"pswhelp", kPswHelpRows, WindowKind::Plain, Layout::Offset{1300, 0}};
const Layout kUserEditLayout{"UserEdit", kUserEditRows};

}  // namespace zelvo
