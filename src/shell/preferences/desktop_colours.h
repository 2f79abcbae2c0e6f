#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo {

// The colour of the desktop cover, as the preferences show it: by its name, or as "#rrggbb". The settings keep it as a
// number with red in its lowest byte.

std::vector<std::string> colourNames();
std::string colourText(std::uint32_t colour);
/// Nothing when the text is neither a name nor "#rrggbb".
std::optional<std::uint32_t> colourOf(std::string_view text);

}  // namespace zelvo
