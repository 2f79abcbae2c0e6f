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
    beside("labexpexpired"),
    field("Check3"),
    beside("Check1"),
    group("Parcel"),
    field("Text1(2)", "Sect&ion", 8),
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
    field("Text1(20)", "Archi&tect"),
    field("Text1(22)", "Address"),
    field("Text1(21)", "Phone", 16),
    beside("Text1(24)", "Mobile", 16),
    field("Text1(15)", "E-mail"),

    column(9),
    group("Work"),
    field("Combo2", "Permit fo&r"),
    field("Combo1", "&Use of building"),
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
};

constexpr auto kAPermitsRows = recordLayout(kPermitRows);

}  // namespace

const Layout kAPermitsLayout{"APermits", kAPermitsRows};

}  // namespace zelvo
