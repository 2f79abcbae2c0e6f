#pragma once

#include <string>
#include <string_view>

namespace zelvo {

inline constexpr double kMostLatitude = 90, kMostLongitude = 180;

/// Whether a text is degrees from -limit to limit, in plain digits: it goes into a web address as it stands.
bool isDegrees(std::string_view text, double limit);

/// The address of the map page that shows a place, given in degrees.
std::string mapAddress(std::string_view latitude, std::string_view longitude);

}  // namespace zelvo
