#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

constexpr LayoutRow kPrefFrmRows[] = {
    page(0),
    group("Municipality"),
    field("Text1", "Municipality:", 40),
    field("Text3", "Address:", 40),
    field("Text4", "City:", 30),
    field("Text5", "State:", 6),
    beside("Text6", "Zip code:", 12),
    field("Text7", "Telephone #:", 20),

    page(1),
    group("Master database"),
    field("Text9", "Location of directory for databases:", 50),
    beside("Command3"),
    field("Text22", "Location of directory for forms:", 50),
    beside("Command6"),
    field("Check3"),
    group(" Backup Option Upon Exit "),
    field("Option1"),
    field("Option2"),
    field("Option3"),
    field("Text8", "Location for backup databases:", 50),
    beside("Command5"),

    page(2),
    group("Desktop"),
    field("Check4"),
    field("Combo1", "Desktop Color:", 16),
    field("Text14", "Desktop Picture:", 50),
    beside("Command4"),
    field("Check5"),

    page(3),
    column(),
    group("Begin Numbering with:"),
    field("Text12", "PERMITS:", 10),
    beside("Check1"),
    field("Text13", "INSPECTIONS:", 10),
    beside("Check2"),
    field("Text16", "AFFIDAVITS:", 10),
    beside("Check6"),
    field("Text17", "CERTIFICATES:", 10),
    beside("Check7"),
    field("Text18", "VIOLATIONS:", 10),
    beside("Check8"),
    column(),
    group("Inspectors:"),
    field("List4", {}, 0, kFill),
    field("Command9"),
    field("Text15", "Add new inspectors:", 24),
    beside("Command7"),

    page(4),
    group("INSPECTION CODES"),
    field("Label1"),
    field("List1", {}, 0, kFill),
    beside("List2"),

    page(5),
    group("Laws"),
    field("Text10", "Default name of state law:", 50),
    field("Text11", "Default name of local law:", 50),
    group("Links"),
    field("Text19", "If available, link to online codes site:", 50),
    field("Text21", "Link to local codes site:", 50),
    group("Browser"),
    field("Text20", "Browser:", 50),
    field("Check9"),
    group("Reports"),
    field("TarnXPButton1"),

    foot("Command1", Glyph::Save),
    foot("Command2", Glyph::Cancel),
};

constexpr LayoutRow kEntryFrmRows[] = {group(), field("Text1", {}, 40), foot("cmdOK"), foot("cmdCancel")};

}  // namespace

const Layout kPrefFrmLayout{"PrefFrm", kPrefFrmRows};
const Layout kEntryFrmLayout{"EntryFrm", kEntryFrmRows};

}  // namespace zelvo
