#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

// The parts of a key stand in one line, as the clerk reads them off the map.
constexpr LayoutRow kKeyLookupRows[] = {
    group("Look for"),
    field("Text1(2)", "Sect&ion", 9),
    beside("Text1(3)", "&Block", 8),
    beside("Text1(4)", "Lot", 8),
    beside("Text1(5)", "Lot suffix", 8),
    beside("Text1(6)", "Sub-lot", 8),
    beside("iFind"),
    group("Parcels"),
    field("lblNote"),
    field("lblCount"),
    field("ListView1", {}, 0, kFill),
    foot("cmdAddress"),
    foot("cmdContact"),
    foot("cmdRoll"),
    foot("cmdTake"),
    foot("cmdClose"),
};

constexpr LayoutRow kAddressLookupRows[] = {
    group("Look for"),
    field("Text5", "A&ddress"),
    beside("iFind"),
    group("Parcels"),
    field("lblNote"),
    field("lblCount"),
    field("ListView1", {}, 0, kFill),
    foot("cmdKey"),
    foot("cmdContact"),
    foot("cmdRoll"),
    foot("cmdTake"),
    foot("cmdClose"),
};

constexpr LayoutRow kContactLookupRows[] = {
    group("Look for"),
    field("Text2", "&Name"),
    beside("iFind"),
    group("Parcels"),
    field("lblNote"),
    field("lblCount"),
    field("ListView1", {}, 0, kFill),
    foot("cmdKey"),
    foot("cmdAddress"),
    foot("cmdRoll"),
    foot("cmdTake"),
    foot("cmdClose"),
};

constexpr LayoutRow kRollLookupRows[] = {
    group("Look for S-B-L"),
    field("Text1(2)", "Sect&ion", 9),
    beside("Text1(3)", "&Block", 8),
    beside("Text1(4)", "Lot", 8),
    beside("Text1(5)", "Lot suffix", 8),
    beside("Text1(6)", "Sub-lot", 8),
    group("Look for name and address"),
    field("Text2", "&Name", 24),
    beside("Text5", "A&ddress", 24),
    beside("iFind"),
    group("Roll entries"),
    field("lblNote"),
    field("lblCount"),
    field("ListView1", {}, 0, kFill),
    foot("cmdKey"),
    foot("cmdAddress"),
    foot("cmdContact"),
    foot("cmdTake"),
    foot("cmdClose"),
};

constexpr LayoutRow kInfoRows[] = {
    tool("INew", Glyph::New),
    tool("IEdit", Glyph::Edit),
    tool("cmdClear", Glyph::Void),
    toolGap(),
    tool("IMoveFirst", Glyph::First, "Alt+Home"),
    tool("IMovePrev", Glyph::Previous, "Alt+Left"),
    toolText("lblStatus", 24),
    tool("IMoveNext", Glyph::Next, "Alt+Right"),
    tool("IMoveLast", Glyph::Last, "Alt+End"),
    toolGap(),
    tool("iLook", Glyph::Find),
    tool("iMap", Glyph::Map),
    tool("Quit", Glyph::Quit),
    heading("lblParcel"),

    column(),
    group("Parcel"),
    field("Text1(1)", "S-B-L"),
    field("Text1(7)", "Owner"),
    field("Text1(8)", "Location"),
    group("Contact and mailing"),
    field("Text1(9)", "Contact"),
    field("Text1(10)", "Mailing"),
    field("Text1(11)", "Town"),
    field("Text1(12)", "State", 12),
    beside("Text1(13)", "Zip", 10),
    group("Map"),
    field("Text1(14)", "Link"),
    field("Text1(15)", "East", 12),
    beside("Text1(16)", "North", 12),

    column(),
    group("Permits"),
    field("Text1(17)", "Last permit", 20),
    field("Text1(18)", "History"),
    group("Flags and note"),
    field("lblFlags"),
    field("Text1(19)", {}, 0, kFill),
};

constexpr LayoutRow kEditRows[] = {
    column(),
    group("S-B-L"),
    field("Text1(2)", "Sect&ion", 9),
    beside("Text1(3)", "&Block", 8),
    field("Text1(4)", "&Lot", 8),
    beside("Text1(5)", "Lot suffix", 8),
    field("Text1(6)", "Sub-lot", 8),
    group("Parcel"),
    field("Text1(7)", "&Owner"),
    field("Text1(8)", "Lo&cation"),
    group("Contact and mailing"),
    field("Text1(9)", "Contact"),
    field("Text1(10)", "&Mailing"),
    field("Text1(11)", "&Town"),
    field("Text1(12)", "State", 12),
    beside("Text1(13)", "&Zip", 10),

    column(),
    group("Map"),
    field("Text1(14)", "Lin&k"),
    field("Text1(15)", "&East", 12),
    beside("Text1(16)", "North", 12),
    group("Permits"),
    field("Text1(17)", "Last &permit", 20),
    field("Text1(18)", "&History"),
    group("Note"),
    field("Text1(19)", {}, 0, kFill),
    foot("ISave", Glyph::Save),
    foot("ICancel"),
};

constexpr LayoutRow kNoDbRows[] = {
    group(), field("Label1"), field("Label2"), foot("Command1", Glyph::Find), foot("Command2"),
};

constexpr LayoutRow kSyncRows[] = {
    group(),
    field("Label1"),
};

}  // namespace

const Layout kKeyLookupLayout{"sblloc", kKeyLookupRows};
const Layout kAddressLookupLayout{"adloc", kAddressLookupRows};
const Layout kContactLookupLayout{"conloc", kContactLookupRows};
const Layout kRollLookupLayout{"rpsloc", kRollLookupRows};
const Layout kParcelInfoLayout{"sblinfo", kInfoRows};
const Layout kParcelEditLayout{"SBLEdit", kEditRows};
const Layout kNoDbFoundLayout{"noDbfound", kNoDbRows};
const Layout kSyncParcelsLayout{"syncSBL", kSyncRows};

}  // namespace zelvo
