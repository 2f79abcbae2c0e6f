#pragma once

#include "data/tables/columns.h"

// Building permits, with the insurance certificates and contacts that belong to them.

// One column a line, however short.
// clang-format off

namespace zelvo::tables {

inline constexpr std::array buildingPermits = {
    text("PERMIT", 20, 1),
    text("JOB", 10),
    text("BIN", 10),
    text("STATUS", 1),
    text("VIOLOPEN", 1),
    text("BLDGPERMYY", 8),
    text("BLDGPRM", 8),
    text("SEC", 8, 2),
    text("BLK", 8, 3),
    text("LOT", 8, 4),
    text("LOD", 8, 5),
    text("SUB", 8, 6),
    text("SUD", 8),
    text("OWNNAME1", 40, 18),
    text("OWNADDR1", 56, 17),
    text("ARCHNAME1", 40, 20),
    text("ARCHADDR1", 56, 22),
    text("BLDGNAME1", 40, 26),
    text("BLDGADDR1", 56, 28),
    text("LOCN1", 50, 34),
    text("FILEMONTH", 8),
    text("FILEDATE", 8),
    text("FILEYEAR", 8),
    text("MATL", 15),
    text("DIMBLDG", 15, 40),
    text("DIMLOT", 15, 41),
    text("PRMFOR", 10, 33),
    text("USEBLDG", 15, 32),
    text("DATA1", 30, 39),
    text("STORIES", 8, 35),
    text("ROOMS", 8, 37),
    text("FAMILIES", 8, 36),
    text("BEDROOMS", 8, 37),
    text("TOILETS", 8),
    text("BATHS", 8, 38),
    text("HEATPLT1", 65),
    text("REMARKS1", 65),
    number("FILEFEE", 11),
    number("APPXCOST", 12),
    text("OWNPHONE", 20, 19),
    text("ARCHPHONE", 20, 21),
    text("BLDGPHONE", 20, 27),
    text("UNITTYPE", 1, 62),
    text("UNITNO", 5, 63),
    text("ZONED", 10, 9),
    text("WKTOBEG", 8),
    date("VD2", -2),
    date("VD3", -2),
    date("VD4", -2),
    date("VD5", -2),
    text("FILENO", 6, 7),
    number("FEE2"),
    number("COFEE", 10),
    memo("NOTES", 42),
    text("EM1", 30, 14),
    text("EM2", 30, 15),
    text("EM3", 30, 16),
    text("MM2", 1),
    text("OWNCELL", 20, 23),
    text("ARCHCELL", 20, 24),
    text("BLDGCELL", 20, 25),
    text("LINK01", 30),
    text("LINK02", 30),
    text("BYUSER", 18),
    date("TSTAMP"),
    number("RFEE"),
};
static_assert(buildingPermits.size() == 66);

inline constexpr std::array insurances = {
    counter("SEQ"),
    text("RECNO", 20),
    text("INSCO1", 60),
    text("IADDR1", 80),
    text("IPHONE1", 20),
    text("ITYP1", 30),
    date("IFR1"),
    date("ITO1"),
    text("ISSUED", 80),
    text("ICERT", 30),
    text("IPROJ", 80),
    memo("INOTES"),
    text("EXTRA1", 30),
    text("EXTRA2", 30),
    text("EXTRA3", 30),
};
static_assert(insurances.size() == 15);

inline constexpr std::array contacts = {
    counter("SEQ"),
    text("RECNO", 20),
    text("CINSCO1", 60),
    text("CIADDR1", 80),
    text("CIPHONE1", 20),
    text("CITYP1", 30),
    date("CIFR1"),
    date("CITO1"),
    text("CISSUED", 80),
    text("CICERT", 30),
    text("CIPROJ", 80),
    memo("CINOTES"),
    text("EXTRA1", 30),
    text("EXTRA2", 30),
    text("EXTRA3", 30),
};
static_assert(contacts.size() == 15);

}  // namespace zelvo::tables

// clang-format on
