#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kUserMgrRows[] = {
    group(),
    field("Label1"),
    field("ListView1", {}, 0, kFill),
    foot("Command1", Glyph::Add),
    foot("Command5", Glyph::Edit),
    foot("Command2"),
    foot("Command3", Glyph::Save),
    foot("Command4", Glyph::Cancel),
};

constexpr LayoutRow kNewFrmRows[] = {
    group(),         field("Label1"),          beside("Text1", {}, 24), field("Label2"),  beside("Text2", {}, 24),
    field("Label3"), beside("Combo1", {}, 16), foot("Command1"),        foot("Command2"),
};

constexpr LayoutRow kFirstRunRows[] = {
    heading("Label1"),
    group(),
    field("Label2"),
    group("Office"),
    field("Text1", "&Municipality:", 40),
    field("Text2", "&Location of directory for databases:", 40),
    beside("Command3"),
    group("First administrator"),
    field("Text3", "&User ID:", 24),
    field("Text4", "&Password:", 24),
    field("Text5", "Password &again:", 24),
    foot("cmdOK"),
    foot("cmdCancel"),
};

}  // namespace

const Layout kUserMgrLayout{"UserMgr", kUserMgrRows};
const Layout kNewFrmLayout{"NewFrm", kNewFrmRows};
const Layout kFirstRunLayout{"FirstRun", kFirstRunRows};

}  // namespace zelvo
