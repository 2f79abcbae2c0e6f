#include "shell/preferences/desktop_colours.h"

#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::uint32_t colour(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return red | green << 8 | blue << 16;
}

struct NamedColour {
  std::string_view name;
  std::uint32_t colour;
};

constexpr NamedColour kColours[] = {
    {"Black", colour(0, 0, 0)},        {"Slate", colour(47, 62, 78)},    {"Navy", colour(16, 42, 84)},
    {"Blue", colour(58, 110, 165)},    {"Teal", colour(0, 110, 110)},    {"Green", colour(34, 94, 60)},
    {"Burgundy", colour(104, 24, 42)}, {"Brown", colour(92, 64, 44)},    {"Grey", colour(128, 128, 128)},
    {"Silver", colour(200, 204, 208)}, {"White", colour(255, 255, 255)},
};

std::optional<std::uint32_t> hexDigit(char c) {
  const auto at = std::string_view("0123456789abcdef").find(c);
  return at == std::string_view::npos ? std::nullopt : std::optional(static_cast<std::uint32_t>(at));
}

std::optional<std::uint32_t> hexColour(std::string_view text) {
  if (text.size() != 7 || text[0] != '#')
    return std::nullopt;
  std::uint32_t rgb = 0;
  for (const char c : text.substr(1)) {
    const auto digit = hexDigit(c);
    if (!digit)
      return std::nullopt;
    rgb = rgb << 4 | *digit;
  }
  return colour(rgb >> 16, rgb >> 8 & 255, rgb & 255);
}

}  // namespace

std::vector<std::string> colourNames() {
  std::vector<std::string> names;
  for (const NamedColour& known : kColours)
    names.emplace_back(known.name);
  return names;
}

std::string colourText(std::uint32_t wanted) {
  wanted &= 0xFFFFFF;
  for (const NamedColour& known : kColours)
    if (known.colour == wanted)
      return std::string(known.name);
  std::string text = "#";
  for (const std::uint32_t part : {wanted & 255, wanted >> 8 & 255, wanted >> 16 & 255})
    for (const std::uint32_t digit : {part >> 4, part & 15})
      text += "0123456789abcdef"[digit];
  return text;
}

std::optional<std::uint32_t> colourOf(std::string_view text) {
  const std::string wanted = lower(trim(text));
  for (const NamedColour& known : kColours)
    if (lower(known.name) == wanted)
      return known.colour;
  return hexColour(wanted);
}

}  // namespace zelvo
