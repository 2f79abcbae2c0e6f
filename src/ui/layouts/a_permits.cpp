#include "ui/layouts/layouts.h"
#include "ui/layouts/record_pages.h"

namespace zelvo {

namespace {

// The whole permit on one page: what it is, whose it is, what is built. Texts that run long stand over the full width
// of their column; numbers that belong together share a line.
constexpr LayoutRow kPermitRows[] = {
    page(0),
    column(9),
    group("Permit"),
    field("Text1(1)", "Permit no.", 12),
    beside("Text1(7)", "File no.", 8),
    field("DTPicker1", "Permit date", 12),
    beside("DTPicker2", "and before", 12),
    field("Text1(8)", "Second date", 12),
    field("Text1(13)", "E&xpires", 12),
    beside("iExpires"),
    beside("labexpexpired"),
    field("Check3"),
    beside("Check1"),
    group("Parcel"),
    field("Text1(2)", "Section", 8),
    beside("Text1(3)", "Block", 8),
    field("Text1(4)", "Lot", 8),
    beside("Text1(5)", "Lot suffix", 8),
    field("Text1(6)", "Sub-lot", 8),
    beside("iLook"),
    field("Text1(9)", "Zoned", 10),
    field("Text1(62)", "Unit type", 2),
    beside("Text1(63)", "Unit no.", 6),
    field("Text1(34)", "Location"),
    group("Fees"),
    field("Text1(12)", "Cost", 10),
    beside("Text1(11)", "Permit fee", 10),
    field("Text1(10)", "C/O fee", 10),
    beside("Text2", "Other fee", 10),

    column(10),
    group("Owner"),
    field("Text1(18)", "&Owner"),
    field("Text1(17)", "Address"),
    field("Text1(19)", "Phone", 16),
    beside("Text1(23)", "Mobile", 16),
    field("Text1(14)", "E-mail"),
    group("Builder"),
    field("Text1(26)", "&Builder"),
    field("Text1(28)", "Address"),
    field("Text1(27)", "Phone", 16),
    beside("Text1(25)", "Mobile", 16),
    field("Text1(16)", "E-mail"),
    group("Architect or engineer"),
    field("Text1(20)", "Architect"),
    field("Text1(22)", "Address"),
    field("Text1(21)", "Phone", 16),
    beside("Text1(24)", "Mobile", 16),
    field("Text1(15)", "E-mail"),
    group("Further records"),
    field("iInsp"),
    beside("iViol"),
    beside("iFee"),
    field("iCert"),
    beside("iCertInfo"),
    beside("iMap"),

    column(9),
    group("Work"),
    field("Combo2", "Permit fo&r"),
    field("Combo1", "Use of buildin&g"),
    field("Combo3", "Description"),
    field("Text4", "Material", 15),
    field("Text1(40)", "Building size", 14),
    beside("Text1(41)", "Lot size", 14),
    field("Text1(35)", "Stories", 6),
    beside("Text1(36)", "Families", 6),
    field("Text1(37)", "Bedrooms", 6),
    beside("Text1(38)", "Baths", 6),
    field("Check2"),
    beside("Text5", "Remark", 16),
    group("Notes"),
    field("Text1(42)", {}, 0, kFill),

    page(5),
    column(1),
    group("The building"),
    field("TextJob", "Job no.", 12),
    field("TextBin", "Building id. no.", 12),
    field("TextToilets", "Toilets", 8),
    field("TextHeat", "Heating plant"),
    group("Dates and fees"),
    field("TextWork", "Work to begin", 10),
    field("TextDate2", "Further date", 12),
    field("TextFee2", "Second fee", 10),
    group("Remarks"),
    field("TextRemarks", "Remarks"),
    column(1),
};

constexpr auto kInsuranceRows =
    subRecordRows<"Ins">(3, {"Insurance of this permit", "Company", "Cert. no.", "Cert. holder"});
constexpr auto kContactRows =
    subRecordRows<"Contact">(4, {"Contacts of this permit", "Name", "License no.", "Works for"});

constexpr auto kAPermitsRows = recordLayout(kPermitRows, kInsuranceRows, kContactRows);

}  // namespace

const Layout kAPermitsLayout{"APermits", kAPermitsRows};

}  // namespace zelvo
