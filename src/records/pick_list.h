#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "form/session.h"

namespace zelvo {

/// What a drop-down list shows while nothing is chosen in it.
inline constexpr std::string_view kSelect = "<select>";

/// The entries of a list file of the data folder, one a line, blank lines left out; none when there is no such file.
std::vector<std::string> pickList(const Session& session, std::string_view file);

}  // namespace zelvo
