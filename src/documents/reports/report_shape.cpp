#include "documents/reports/report_shape.h"

#include <algorithm>
#include <numeric>

#include "base/text.h"

namespace zelvo {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kPaperWidth = 12240, kPaperHeight = 15840;
constexpr double kTwipsACharacter = 12.002;  // of Courier New, for each point of its size
constexpr int kSmallest = 6;
constexpr int kGap = 2;
constexpr std::size_t kNarrowest = 4;
constexpr std::string_view kCut = "...";

// A row is one line: what would break it becomes a blank.
std::string oneLine(std::string_view value) {
  std::string line;
  for (char c : trim(value))
    if (static_cast<unsigned char>(c) >= 0x20)
      line += c;
    else if (!line.ends_with(' '))
      line += ' ';
  return line;
}

}  // namespace

std::string shortened(std::string_view text, std::size_t width) {
  std::string line = oneLine(text);
  if (length(line) <= width)
    return line;
  const bool marked = width > kCut.size();
  return std::string(left(line, width - (marked ? kCut.size() : 0))) + std::string(marked ? kCut : "");
}

ReportShape::ReportShape(std::span<const ReportColumn> columns, const PrintOptions& options)
    : landscape_(options.landscape), points_(options.fontSize) {
  for (const ReportColumn& column : columns)
    columns_.push_back({std::string(column.caption), static_cast<std::size_t>(column.width), column.toRight});
  landscape_ = landscape_ || !fits(options);
  while (!fits(options) && points_ > kSmallest)
    --points_;
  while (!fits(options) && width() > static_cast<int>(columns_.size() * (kNarrowest + kGap)))
    narrow();
}

int ReportShape::width() const {
  const auto sum = std::accumulate(columns_.begin(), columns_.end(), std::size_t{0},
                                   [](std::size_t all, const Column& column) { return all + column.width + kGap; });
  return columns_.empty() ? 0 : static_cast<int>(sum) - kGap;
}

int ReportShape::charactersAcross(const PrintOptions& options) const {
  const double paper = landscape_ ? kPaperHeight : kPaperWidth;
  const double text = paper - (options.left + options.right) * kTwipsPerInch;
  return static_cast<int>(text / (kTwipsACharacter * points_));
}

void ReportShape::narrow() {
  const auto widest = std::max_element(columns_.begin(), columns_.end(),
                                       [](const Column& a, const Column& b) { return a.width < b.width; });
  --widest->width;
}

std::string ReportShape::value(std::string_view text, const Column& column) const {
  const std::string shown = shortened(text, column.width);
  return column.toRight ? padLeft(shown, column.width) : padRight(shown, column.width);
}

std::string ReportShape::line(const std::vector<std::string>& values) const {
  std::string line;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (i > 0)
      line.append(kGap, ' ');
    line += value(i < values.size() ? values[i] : std::string(), columns_[i]);
  }
  return std::string(trimRight(line));
}

std::string ReportShape::captions() const {
  std::vector<std::string> captions;
  for (const Column& column : columns_)
    captions.push_back(column.caption);
  return line(captions);
}

}  // namespace zelvo
