#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kReportFrmRows[] = {
    group(),
    field("Combo1", "&Month", 14),
    beside("Text1", "&Year", 6),
    field("Combo2", "O&utput"),
    foot("cmdOK"),
    foot("cmdCancel"),
};

}  // namespace

const Layout kReportFrmLayout{"ReportFrm", kReportFrmRows};

}  // namespace zelvo
