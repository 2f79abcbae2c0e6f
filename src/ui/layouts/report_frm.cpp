#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kReportFrmRows[] = {
    group(),
    field("Combo3", "&Report", 34),
    field("Combo1", "&Month", 14),
    beside("Text1", "&Year", 6),
    field("DTPicker1", "&After", 12),
    field("DTPicker2", "and &before", 12),
    field("Combo4", "Permit &for", 20),
    field("Combo5", "&Use", 20),
    field("Combo2", "O&utput"),
    foot("cmdOK"),
    foot("cmdCancel"),
};

}  // namespace

const Layout kReportFrmLayout{"ReportFrm", kReportFrmRows};

}  // namespace zelvo
