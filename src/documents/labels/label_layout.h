#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "form/sheet.h"

namespace zelvo {

/// A kind of sheet that the stationer sells, as one of the office's layout files describes it.
struct LabelLayout {
  std::string description = "Avery® 5160";
  std::string picture;  ///< name of its bitmap in "\labels\", without ".bmp"; may be empty
  SheetGrid grid;
  bool operator==(const LabelLayout&) const = default;
};

/// What labels are printed on: one object, made with the screens that share it and kept for the run.
struct LabelSettings {
  std::string name;  ///< of the layout in the catalogue; empty: none was chosen yet
  LabelLayout layout;
  SheetPlace start;  ///< the first free label of the sheet
};

/// The most layouts that the catalogue offers.
inline constexpr std::size_t kMostLabelLayouts = 10;

// "\labels\catalog.txt" of the program folder: the number of layouts, then one name a line. A layout's file has its
// name, and one value a line: description, picture name, labels across, labels down, label height, label width, top
// margin, left margin, column gap, row gap; lengths in inches.

/// The names of the catalogue, the first ten at most; none when there is no catalogue.
std::vector<std::string> labelCatalogue(std::string_view programFolder);

/// The layout of that name. One that has no file is the built-in layout, LabelLayout{}; a file that describes no sheet
/// is an error that says what is wrong with it.
Result<LabelLayout> readLabelLayout(std::string_view programFolder, std::string_view name);

/// The description, and below it "3 across,10 down,1 x 2.63".
std::string describe(const LabelLayout& layout);

/// The path of the layout's bitmap; empty when it names none or the file is not there.
std::string labelPicture(std::string_view programFolder, const LabelLayout& layout);

/// Writes the catalogue and the layouts of the common sheets, Avery 5160 to 5164 and 5167, into "\labels\". A catalogue
/// that is there already is the office's own: then nothing is written.
Result<void> makeLabelLayouts(std::string_view programFolder);

}  // namespace zelvo
