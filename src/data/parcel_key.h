#pragma once

#include <array>
#include <string>
#include <string_view>

#include "form/screen.h"

namespace zelvo {

class Recordset;

// The key of a tax parcel: eight parts joined by "-", "0" where a part is empty, upper case. On a screen the parts
// stand in boxes 2 to 6 of Text1 (or Text2): section (with "." and its suffix), block, lot, lot suffix, sub-lot.

/// The current parcel parts, filled by currentSBL and mysbl2SBL.
struct ParcelParts {
  std::string SEC = "0", SUD = "0", SECA = "0", BLK = "0", LOT = "0", LOD = "0", SUB = "0", SED = "0";
};

/// The key of the record at the recordset's current row, untrimmed: *12-0-0-3-45-0-0-0*. A field that the table lacks,
/// or that is empty, counts as "0".
std::string currentSBL(const Recordset& records, ParcelParts& parts);
/// The key built from the screen's boxes, cleaned.
std::string MakeSBL(const Screen& form);
std::string MakeSBL2(const Screen& form);
/// Without its trailing "-0" parts, five of them at most; also written back into its argument.
std::string TrimSBL(std::string& key);
std::string TrimSBL(std::string&& key);
/// Separators made even: "12.-3" and "12--3" are "12-3", "/" is ".", and a part beyond the eighth goes (one, once).
std::string cleanSBL(std::string_view text);
/// The condition that selects the records of the parcel typed on the screen; ends in "AND", which the caller cuts or
/// follows.
std::string SBL2SQL(const Screen& form);
/// Whether any of the five boxes is filled.
bool SBLfilled(const Screen& form);
/// Fills the screen's boxes from a key.
void ExtractSBL(Screen& form, std::string_view key);
/// Takes a whole key of eight parts, as MakeSBL and currentSBL give it, apart into the current parts and gives the
/// parcel as it is written in letters: *12.5-3-45.1*. A key with fewer parts, a trimmed one included, is "invalid SBL":
/// which of its parts are meant cannot be told; SEC is then "-9".
std::string mysbl2SBL(std::string_view key, ParcelParts& parts);

}  // namespace zelvo
