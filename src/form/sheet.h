#pragma once

#include <optional>

#include "form/control.h"

namespace zelvo {

/// A sheet of paper with equal places in rows and columns, such as adhesive labels. All lengths are inches.
struct SheetGrid {
  int across = 3, down = 10;
  double height = 1, width = 2.63;  ///< of one place
  double top = 0.6, left = 0.2;     ///< from the paper's edges to the first place
  double columnGap = 0.125, rowGap = 0;
  double paperWidth = 8.5, paperHeight = 11;
  bool operator==(const SheetGrid&) const = default;
};

/// A place of the sheet, both counted from 1.
struct SheetPlace {
  int row = 1, column = 1;
  bool operator==(const SheetPlace&) const = default;
};

/// A part of the sheet in inches from its upper left corner.
struct SheetArea {
  double left = 0, top = 0, width = 0, height = 0;
};

SheetArea areaOf(const SheetGrid& grid, SheetPlace place);
bool isOnGrid(const SheetGrid& grid, SheetPlace place);
/// The place under a point; none in the gaps and margins.
std::optional<SheetPlace> placeAt(const SheetGrid& grid, double x, double y);

/// The picture of a sheet, drawn to scale, on which the user chooses a place. The text "3, 2" stands for the second
/// place of the third row.
class SheetPicture : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::Sheet; }
  std::string shown() const override;

  SheetGrid grid;
  SheetPlace chosen;
  std::string picture;  ///< the path of a bitmap of the sheet to draw upon; empty: plain paper

 protected:
  Result<void> take(std::string_view value) override;
};

}  // namespace zelvo
