#include "ui/layouts/layouts.h"
#include "ui/layouts/record_pages.h"

namespace zelvo {

namespace {

// The inspection, where it was made, and the complaint that led to it. What is still open on the parcel stands in
// sight.
constexpr LayoutRow kInspectionRows[] = {
    page(0),
    column(10),
    group("Inspection"),
    field("Text1(1)", "ICN", 10),
    field("Option1"),
    beside("Option2"),
    field("Combo1", "Cate&gory", 14),
    field("Combo2", "&Type"),
    field("DTPicker1", "&Date", 12),
    field("Combo3", "Inspector"),
    field("Combo4", "Res&ult", 14),
    field("DTPicker2", "Ne&xt due", 12),
    field("Text1(11)", "Comments", 0, kFill),
    field("iReinspect"),
    beside("iChecklist"),
    beside("iReports"),

    column(10),
    group("Permit and parcel"),
    field("Text1(7)", "Per&mit no.", 12),
    beside("iPermit"),
    beside("qcload"),
    field("Text1(2)", "Section", 8),
    beside("Text1(3)", "&Block", 8),
    field("Text1(4)", "Lot", 8),
    beside("Text1(5)", "Lot suffix", 8),
    field("Text1(6)", "Sub-lot", 8),
    field("Text1(9)", "Location"),
    field("Text1(8)", "Owner"),
    field("Text1(10)", "Phone", 16),
    group("Open on this parcel"),
    field("lblMatters"),
    field("ListView3", {}, 0, kFill),

    column(9),
    group("Complaint"),
    field("DTPicker3", "Received", 12),
    field("Combo5", "Investigator"),
    field("Text1(12)", "Complainant"),
    field("Text1(13)", "Address"),
    field("Text1(14)", "Phone", 16),
    field("Text1(15)", "Nature", 0, 5),
    field("Text2", "Resolution"),
    group("Notes"),
    field("Text1(16)", {}, 0, kFill),
};

constexpr auto kBInspectionsRows = recordLayout(kInspectionRows);

constexpr LayoutRow kInspReportRows[] = {
    group(),
    field("Combo1", "&Report", 28),
    field("DTPicker1", "&From", 12),
    beside("DTPicker2", "&to", 12),
    field("Combo2", "Cate&gory", 14),
    field("Combo3", "T&ype"),
    field("Combo4", "&Investigator"),
    field("Combo5", "O&utput"),
    field("lblHint"),
    foot("cmdOK"),
    foot("cmdCancel"),
};

constexpr LayoutRow kPermitChoiceRows[] = {
    group(),
    field("ListView1", {}, 0, kFill),
    foot("cmdOK"),
    foot("cmdCancel"),
};

}  // namespace

const Layout kBInspectionsLayout{"BInspections", kBInspectionsRows};
const Layout kInspReportFrmLayout{"InspReportFrm", kInspReportRows};
const Layout kPermitChoiceLayout{"PermitChoice", kPermitChoiceRows};

}  // namespace zelvo
