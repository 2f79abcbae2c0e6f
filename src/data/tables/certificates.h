#pragma once

#include "data/tables/columns.h"

// What follows on a permit: certificates, affidavits and fees.

// One column a line, however short.
// clang-format off

namespace zelvo::tables {

inline constexpr std::array certificates = {
    text("PERMIT", 20),
    date("DATECO"),
    text("COMONTH", 8),
    text("CODATE", 8),
    text("COYEAR", 8),
    text("NAME", 40),
    text("PLOCN", 50),
    date("VD3"),
    text("CERTOCCY", 8),
    text("CERTOCCN", 8),
    text("CERTNO", 20),
    text("SEC", 8),
    text("BLK", 8),
    text("LOT", 8),
    text("LOD", 8),
    text("SUB", 8),
    text("SUD", 8),
    text("UNITTYPE", 1),
    text("UNITNO", 5),
    number("FEE"),
    memo("NOTES"),
    text("TYPE", 1),
    date("EXPDATE"),
    text("BYUSER", 18),
    date("TSTAMP"),
    text("CERTOCCNA", 8),
    text("BLDGPERMYY", 8),
    text("BLDGPRM", 8),
    text("BLDGPERMA", 8),
    text("GISLINK", 50),
    text("SEA", 8),
    text("SED", 8),
    text("FILEMONTH", 8),
    text("FILEDATE", 8),
    text("FILEYEAR", 8),
    text("USEBLDG", 15),
    text("ADDR", 80),
    text("STATUS", 1),
};
static_assert(certificates.size() == 38);

inline constexpr std::array affidavits = {
    text("AFFIY", 8),
    text("AFFIN", 8),
    text("FILENO", 20),
    text("APPLNAME", 40),
    text("LOCN", 50),
    text("AFFIMONTH", 8),
    text("AFFIDATE", 8),
    text("AFFIYEAR", 8),
    date("DATEAFFI"),
    text("PERMIT", 20),
    text("BLDGPERMYY", 8),
    text("BLDGPRM", 8),
    text("APPLTYPE", 1),
    number("PERMFEE"),
    number("ESTCOST"),
    number("ADDLFEE"),
    number("FINCOST"),
    text("SEC", 8),
    text("BLK", 8),
    text("LOT", 8),
    text("LOD", 8),
    text("SUB", 8),
    text("SUD", 8),
    memo("DESC"),
    text("UNITTYPE", 1),
    text("UNITNO", 5),
    date("VD3"),
    text("BYUSER", 18),
    date("TSTAMP"),
    text("AFFNA", 8),
    text("BLDGPERMA", 8),
    text("MAP", 30),
    text("ASEC", 8),
    text("ASCD", 8),
    text("ABLK", 8),
    text("ALOT", 8),
    text("ALOD", 8),
    text("ASUB", 8),
    text("ASUD", 8),
    text("SECA", 8),
    text("SED", 8),
    text("FILEMONTH", 8),
    text("FILEDATE", 8),
    text("FILEYEAR", 8),
    text("APPLADDR", 80),
    number("COFEE"),
    text("STATUS", 1),
};
static_assert(affidavits.size() == 47);

/// The boxes are those of the payment page.
inline constexpr std::array fees = {
    counter("SEQ"),
    text("PBFCASE", 20),
    text("PBFSTATUS", 1),
    text("PBFEXTRA", 30),
    date("PBFFILEDATE"),
    date("PBFDUEDATE"),
    date("PBFPAIDDATE"),
    text("PBFPAYMETHOD", 20),
    text("PBFPAYID", 14, 5),
    text("PBFPAYDESC", 35, 1),
    number("PBFAMOUNT", 2),
    number("PBFPAID", 3),
    number("PBFBALDUE", 4),
    text("PBFAPPNAME1", 40, 6),
    text("PBFAPPADDR1", 80, 7),
    text("PBFAPPEMAIL", 40, 9),
    text("PBFAPPTEL", 20, 8),
    text("PBFPROJNAME", 50),
    text("PBFPAIDMM", 4),
    text("PBFPAIDYY", 4),
    text("PBFDUEMM", 4),
    text("PBFDUEYY", 4),
    text("BYUSER", 20),
    date("TSTAMP"),
};
static_assert(fees.size() == 24);

}  // namespace zelvo::tables

// clang-format on
