#include "app/town/drawings.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>
#include <vector>

namespace zelvo {

namespace {

struct Ink {
  int red, green, blue;
};
struct Paper {
  int width, height;  ///< in dots
  int dotsPerInch;
};

void appendNumber(std::string& bytes, std::uint32_t number, int size) {
  for (int i = 0; i < size; ++i)
    bytes += static_cast<char>(number >> (8 * i) & 0xff);
}

constexpr std::uint32_t kColours = 256;
constexpr std::uint32_t kHeader = 54, kPalette = 4 * kColours;

std::string bitmapHeader(const Paper& paper, std::uint32_t rowBytes) {
  const auto size = rowBytes * static_cast<std::uint32_t>(paper.height);
  const auto dotsPerMetre = static_cast<std::uint32_t>(std::lround(paper.dotsPerInch / 0.0254));
  std::string bytes = "BM";
  for (const std::uint32_t number : {kHeader + kPalette + size, 0u, kHeader + kPalette, 40u,
                                     static_cast<std::uint32_t>(paper.width), static_cast<std::uint32_t>(paper.height)})
    appendNumber(bytes, number, 4);
  appendNumber(bytes, 1, 2);
  appendNumber(bytes, 8, 2);
  for (const std::uint32_t number : {0u, size, dotsPerMetre, dotsPerMetre, kColours, 0u})
    appendNumber(bytes, number, 4);
  return bytes;
}

/// From white to the full ink.
std::string shades(const Ink& ink) {
  std::string palette;
  for (int shade = 0; shade < static_cast<int>(kColours); ++shade) {
    for (const int part : {ink.blue, ink.green, ink.red})
      palette += static_cast<char>(255 - (255 - part) * shade / 255);
    palette += '\0';
  }
  return palette;
}

/// A bitmap file of what `inked` says of points, in inches from the upper left corner. Edges are softened.
std::string drawn(const Paper& paper, const Ink& ink, const std::function<bool(double, double)>& inked) {
  constexpr int grid = 4;
  const auto rowBytes = static_cast<std::uint32_t>((paper.width + 3) / 4 * 4);
  std::string bytes = bitmapHeader(paper, rowBytes) + shades(ink);
  for (int y = paper.height - 1; y >= 0; --y) {
    std::string row;
    for (int x = 0; x < paper.width; ++x) {
      int hits = 0;
      for (int part = 0; part < grid * grid; ++part)
        hits += inked((x + (part % grid + 0.5) / grid) / paper.dotsPerInch,
                      (y + (part / grid + 0.5) / grid) / paper.dotsPerInch);
      row += static_cast<char>(hits * 255 / (grid * grid));
    }
    row.resize(rowBytes, '\0');
    bytes += row;
  }
  return bytes;
}

constexpr Ink kForestGreen = {24, 84, 48}, kBlueInk = {28, 40, 120}, kBrown = {110, 72, 44};

/// A tree of three tiers on a trunk, its foot at (0, 0) and one unit high; y grows downward.
bool inTree(double x, double y) {
  const double height = -y;
  if (height < 0 || height > 1)
    return false;
  if (height < 0.16)
    return std::abs(x) < 0.06;
  constexpr double tier = 0.28;
  const double within = std::fmod(height - 0.16, tier) / tier;
  const double widest = 0.36 - 0.09 * std::floor((height - 0.16) / tier);
  return std::abs(x) < widest * (1 - 0.75 * within);
}

struct Point {
  double x, y;
};

/// The line of a pen: loops like written letters, and a flourish back under the name.
std::vector<Point> signatureLine() {
  std::vector<Point> line;
  constexpr int steps = 900;
  for (int step = 0; step <= steps; ++step) {
    const double t = static_cast<double>(step) / steps, turn = 2 * std::numbers::pi * 7 * t;
    const double height = 0.07 + 0.1 * std::exp(-18 * t) + 0.07 * std::exp(-60 * (t - 0.55) * (t - 0.55));
    line.push_back({0.15 + 1.55 * t + 0.06 * std::sin(turn), 0.3 - height * std::cos(turn) - 0.03 * t});
  }
  for (int step = 0; step <= steps; ++step) {
    const double t = static_cast<double>(step) / steps;
    line.push_back({1.75 - 1.3 * t, 0.38 + 0.05 * std::sin(3 * t) + 0.02 * t});
  }
  return line;
}

}  // namespace

std::string townSeal() {
  constexpr double size = 0.75, middle = size / 2;
  return drawn({150, 150, 200}, kForestGreen, [](double x, double y) {
    const double fromMiddle = std::hypot(x - middle, y - middle);
    const bool ring = (fromMiddle < 0.37 && fromMiddle > 0.345) || (fromMiddle < 0.325 && fromMiddle > 0.315);
    const bool ground = fromMiddle < 0.29 && y > 0.555 && y < 0.57;
    const auto tree = [&](double at, double height) { return inTree((x - at) / height, (y - 0.56) / height); };
    return ring || ground || tree(middle, 0.42) || tree(middle - 0.15, 0.24) || tree(middle + 0.15, 0.24);
  });
}

std::string signatureBitmap() {
  constexpr int fineness = 800, width = 2 * fineness, height = fineness / 2;
  constexpr int pen = 7;
  std::vector<bool> touched(static_cast<std::size_t>(width) * height);
  const auto at = [](int x, int y) { return static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x); };
  for (const Point& point : signatureLine()) {
    const int x = static_cast<int>(point.x * fineness), y = static_cast<int>(point.y * fineness);
    for (int dy = -pen; dy <= pen; ++dy)
      for (int dx = -pen; dx <= pen; ++dx)
        if (dx * dx + dy * dy <= pen * pen && x + dx >= 0 && x + dx < width && y + dy >= 0 && y + dy < height)
          touched[at(x + dx, y + dy)] = true;
  }
  return drawn({400, 100, 200}, kBlueInk, [&](double x, double y) {
    return touched[at(static_cast<int>(x * fineness), static_cast<int>(y * fineness))];
  });
}

std::string housePhotograph() {
  return drawn({240, 180, 60}, kBrown, [](double x, double y) {
    const bool roof = y > 0.6 && y < 1.3 && std::abs(x - 2) < (y - 0.6) * 1.9;
    const bool wall = y >= 1.3 && y < 2.5 && std::abs(x - 2) < 1.1;
    const bool door = x > 1.8 && x < 2.2 && y > 1.8;
    const bool window = y > 1.55 && y < 1.95 && std::abs(std::abs(x - 2) - 0.65) < 0.2;
    return roof || (wall && !door && !window) || (y >= 2.5 && y < 2.56);
  });
}

}  // namespace zelvo
