#pragma once

#include <string>
#include <string_view>

#include "form/session.h"

namespace zelvo {

// The codes that inspections and complaints are stored under, and what the screens show for them. Upper and lower case
// are the same.

/// The category of an inspection: "B" is "BLDG"; "UNK" for what is none.
std::string ICode2Combo(std::string_view code);
/// The result of an inspection, by its first letter: "Failed".
std::string RCode2Combo(std::string_view code);
/// What a complaint is about, by its first two letters. Any other code stands before what complaintCategory says of it.
std::string BCode2Combo(std::string_view code, const Session& session);

/// The kind of a complaint, those that the office added in its two lists included; "UNK " and the code when there is
/// none. An empty code is looked up as "99".
std::string complaintCategory(std::string_view code, const Session& session);

}  // namespace zelvo
