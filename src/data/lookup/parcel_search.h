#pragma once

#include <string>
#include <string_view>

#include "form/screen.h"

namespace zelvo {

// The conditions under which parcels are looked up. What somebody types may hold the wildcards of the office: % is any
// run of characters, _ one character, [a-z] one of a class.

/// The keys of a column ("SBLF", "RSBLF") that the parts in the boxes Text1(2..6) of a screen select; empty when no box
/// is filled. As everywhere, a blank box is left out: section 12 and block 3 find every lot of the block, and a section
/// without its suffix finds them all. The parts behind the end of a key count as "0". A typed section is looked for by
/// the index of the key.
std::string keyCondition(const Screen& form, std::string_view column);

/// The columns that hold a text somewhere, without regard to case and accents: "desir" finds "DÉSIR".
std::string holds(std::string_view column, std::string_view typed);

}  // namespace zelvo
