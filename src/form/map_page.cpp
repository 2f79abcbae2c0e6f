#include "form/map_page.h"

#include <cmath>

#include "base/number.h"

namespace zelvo {

namespace {

constexpr std::string_view kMapPage = "https://maps.dorvan.example/gps.htm";

}  // namespace

bool isDegrees(std::string_view text, double limit) {
  return isNumber(text) && text.find_first_not_of("-.0123456789") == std::string_view::npos &&
         std::abs(Val(text)) <= limit;
}

std::string mapAddress(std::string_view latitude, std::string_view longitude) {
  return std::string(kMapPage) + "?txtLat=" + std::string(latitude) + "&txtLong=" + std::string(longitude) +
         "&txtZoom=17";
}

}  // namespace zelvo
