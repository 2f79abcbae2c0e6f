#include "documents/labels/label_fit.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "base/text.h"
#include "documents/line_items.h"

namespace zelvo {

namespace {

constexpr double kSmallest = 7;
constexpr double kStep = 0.5;
constexpr std::size_t kNoLimit = 1000;
constexpr std::string_view kCut = "...";

class Fitter {
 public:
  Fitter(double width, double height, TextFont font, const FontMeasure& measure)
      : width_(width), height_(height), largest_(font.points), font_(std::move(font)), measure_(measure) {}

  FittedLabel fit(const std::vector<std::string>& lines) {
    if (shrink([&] { return fits(lines); }))
      return {font_.points, lineHeight(), lines};
    shrink([&] { return wordsFit(lines) && wrapped(lines, kNoLimit).size() <= room(); });
    return {font_.points, lineHeight(), wrapped(joined(lines, room()), room())};
  }

 private:
  // The largest letters that will do; the smallest ones when none do.
  bool shrink(const std::function<bool()>& willDo) {
    for (font_.points = largest_; font_.points > kSmallest; font_.points -= kStep)
      if (willDo())
        return true;
    font_.points = kSmallest;
    return willDo();
  }

  double lineHeight() const {
    const FontHeights heights = measure_.heights(font_);
    return std::ceil(heights.ascent + heights.descent + heights.leading);
  }
  std::size_t room() const { return static_cast<std::size_t>(std::max(1.0, std::floor(height_ / lineHeight()))); }
  bool isNarrow(std::string_view line) const { return measure_.advance(font_, line) <= width_; }
  bool fits(const std::vector<std::string>& lines) const {
    return lines.size() <= room() &&
           std::all_of(lines.begin(), lines.end(), [this](const std::string& line) { return isNarrow(line); });
  }

  bool wordsFit(const std::vector<std::string>& lines) const {
    return std::all_of(lines.begin(), lines.end(), [this](const std::string& line) {
      const auto words = split(line, ' ');
      return std::all_of(words.begin(), words.end(), [this](const std::string& word) { return isNarrow(word); });
    });
  }

  // An address with more lines than the label has: the shortest neighbours share one, so that none of them is missing,
  // and the last of them, the city, least of all.
  static std::vector<std::string> joined(std::vector<std::string> lines, std::size_t most) {
    while (lines.size() > most) {
      std::size_t shortest = 0;
      for (std::size_t i = 1; i + 1 < lines.size(); ++i)
        if (lines[i].size() + lines[i + 1].size() < lines[shortest].size() + lines[shortest + 1].size())
          shortest = i;
      const auto second = lines.begin() + static_cast<std::ptrdiff_t>(shortest) + 1;
      lines[shortest] += ", " + *second;
      lines.erase(second);
    }
    return lines;
  }

  // Each line of the address gets one line of the label, and the first ones that are too long get what is left.
  std::vector<std::string> wrapped(const std::vector<std::string>& lines, std::size_t most) const {
    std::vector<std::string> result;
    std::size_t spare = most - std::min(most, lines.size());
    for (std::size_t i = 0; i < std::min(lines.size(), most); ++i) {
      const auto parts = broken(lines[i], 1 + spare);
      spare -= parts.size() - 1;
      result.insert(result.end(), parts.begin(), parts.end());
    }
    return result;
  }

  // A line over `most` lines at the most, the last of which is cut.
  std::vector<std::string> broken(std::string_view line, std::size_t most) const {
    std::vector<std::string> parts;
    while (parts.size() + 1 < most && !isNarrow(line)) {
      const std::size_t end = breakPoint(line);
      parts.emplace_back(trimRight(line.substr(0, end)));
      line = trimLeft(line.substr(end));
    }
    parts.push_back(cut(line));
    return parts;
  }

  // Behind the last blank that fits, else where the width ends.
  std::size_t breakPoint(std::string_view line) const {
    const std::size_t fitting = bytesThatFit(std::string(line), font_, width_, measure_);
    const std::size_t blank = line.substr(0, fitting + 1).find_last_of(' ');
    return blank == std::string_view::npos || blank == 0 ? fitting : blank + 1;
  }

  std::string cut(std::string_view line) const {
    if (isNarrow(line))
      return std::string(line);
    const double room = width_ - measure_.advance(font_, kCut);
    const std::string_view kept = line.substr(0, bytesThatFit(std::string(line), font_, room, measure_));
    return std::string(trimRight(kept)) + std::string(kCut);
  }

  double width_, height_;
  double largest_;
  TextFont font_;
  const FontMeasure& measure_;
};

}  // namespace

FittedLabel fitLabel(const std::vector<std::string>& lines, double width, double height, const TextFont& font,
                     const FontMeasure& measure) {
  return Fitter(width, height, font, measure).fit(lines);
}

}  // namespace zelvo
