#include "documents/labels/label_layout.h"

#include <algorithm>
#include <array>

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::string_view kCatalogue = "catalog.txt";
constexpr std::size_t kLayoutLines = 10;
// A sheet with more or smaller labels than these is none that goes through a printer.
constexpr int kMostAlong = 100;
constexpr double kSmallestLabel = 0.2;
constexpr double kLongest = 50;

std::string labelsFolder(std::string_view programFolder) {
  return joinPath(programFolder, "labels");
}

// The sheets as they are sold. Margins and gaps are those that fill letter paper exactly, the labels in its middle.
struct ShippedLayout {
  std::string_view name;
  std::string_view description;
  SheetGrid grid;
};

constexpr ShippedLayout kShipped[] = {
    {"Avery 5160", "Avery® 5160", {3, 10, 1, 2.63, 0.5, 0.185, 0.12, 0}},
    {"Avery 5161", "Avery® 5161", {2, 10, 1, 4, 0.5, 0.156, 0.1875, 0}},
    {"Avery 5162", "Avery® 5162", {2, 7, 1.33, 4, 0.835, 0.156, 0.1875, 0.00333}},
    {"Avery 5163", "Avery® 5163", {2, 5, 2, 4, 0.5, 0.156, 0.1875, 0}},
    {"Avery 5164", "Avery® 5164", {2, 3, 3.33, 4, 0.502, 0.156, 0.1875, 0.00333}},
    {"Avery 5167", "Avery® 5167", {4, 20, 0.5, 1.75, 0.5, 0.281, 0.3125, 0}},
};
static_assert(std::size(kShipped) <= kMostLabelLayouts);

std::vector<std::string> layoutLines(const ShippedLayout& layout) {
  std::vector<std::string> lines = {std::string(layout.description), "NONE"};
  const SheetGrid& grid = layout.grid;
  for (double value : {double(grid.across), double(grid.down), grid.height, grid.width, grid.top, grid.left,
                       grid.columnGap, grid.rowGap})
    lines.push_back(numberText(value));
  return lines;
}

Error badLayout(std::string_view name, std::string_view why) {
  return {Trouble::BadInput, "The label layout \"" + std::string(name) + "\" in the folder \"labels\" " +
                                 std::string(why) + ".\nThe built-in layout is used instead."};
}

bool isSheet(const SheetGrid& grid) {
  const auto among = [](double value, double least, double most) { return value >= least && value <= most; };
  return among(grid.across, 1, kMostAlong) && among(grid.down, 1, kMostAlong) &&
         among(grid.height, kSmallestLabel, kLongest) && among(grid.width, kSmallestLabel, kLongest) &&
         among(grid.top, 0, kLongest) && among(grid.left, 0, kLongest) && among(grid.columnGap, 0, kLongest) &&
         among(grid.rowGap, 0, kLongest);
}

}  // namespace

std::vector<std::string> labelCatalogue(std::string_view programFolder) {
  const auto lines = readLines(joinPath(labelsFolder(programFolder), kCatalogue)).valueOr({});
  std::vector<std::string> names;
  const double stated = lines.empty() ? 0 : Val(lines[0]);
  const auto count = static_cast<std::size_t>(std::clamp(stated, 0.0, double(kMostLabelLayouts)));
  for (std::size_t i = 1; i < lines.size() && i <= count; ++i)
    if (!trim(lines[i]).empty())
      names.emplace_back(trim(lines[i]));
  return names;
}

Result<LabelLayout> readLabelLayout(std::string_view programFolder, std::string_view name) {
  const std::string path = joinPath(labelsFolder(programFolder), name);
  if (trim(name).empty() || !FileExists(path))
    return LabelLayout{};
  const auto lines = readLines(path);
  if (!lines)
    return lines.error();
  if (lines->size() < kLayoutLines - 2)
    return badLayout(name, "has too few lines");
  std::array<double, kLayoutLines> values{};  // gaps that the file leaves out are none
  for (std::size_t i = 2; i < std::min(lines->size(), kLayoutLines); ++i)
    values[i] = Val((*lines)[i]);
  const LabelLayout layout{
      (*lines)[0], std::string(trim((*lines)[1])),
      SheetGrid{CInt(values[2]), CInt(values[3]), values[4], values[5], values[6], values[7], values[8], values[9]}};
  if (!isSheet(layout.grid))
    return badLayout(name, "describes no sheet of labels");
  return layout;
}

std::string describe(const LabelLayout& layout) {
  const SheetGrid& grid = layout.grid;
  return layout.description + "\n" + std::to_string(grid.across) + " across," + std::to_string(grid.down) + " down," +
         numberText(grid.height) + " x " + numberText(grid.width);
}

std::string labelPicture(std::string_view programFolder, const LabelLayout& layout) {
  if (layout.picture.empty() || upper(layout.picture) == "NONE")
    return {};
  const std::string path = joinPath(labelsFolder(programFolder), layout.picture + ".bmp");
  return FileExists(path) ? path : std::string();
}

Result<void> makeLabelLayouts(std::string_view programFolder) {
  const std::string folder = labelsFolder(programFolder);
  if (FileExists(joinPath(folder, kCatalogue)))
    return {};
  if (const auto made = makeFolder(folder); !made)
    return made;
  std::vector<std::string> catalogue = {std::to_string(std::size(kShipped))};
  for (const ShippedLayout& layout : kShipped) {
    catalogue.emplace_back(layout.name);
    if (const auto written = writeLines(joinPath(folder, layout.name), layoutLines(layout)); !written)
      return written;
  }
  return writeLines(joinPath(folder, kCatalogue), catalogue);
}

}  // namespace zelvo
