#include "documents/labels/label_places.h"

namespace zelvo {

namespace {

constexpr double kHair = 0.001;
// A column may stand out so far: no text comes so near to a label's edge.
constexpr double kBesidePaper = 0.05;

int thatFit(double first, double size, double gap, int count, double end) {
  int fitting = 0;
  while (fitting < count && first + fitting * (size + gap) + size <= end)
    ++fitting;
  return fitting;
}

}  // namespace

LabelPlaces::LabelPlaces(const SheetGrid& grid)
    : rows_(thatFit(grid.top, grid.height, grid.rowGap, grid.down, grid.paperHeight + kHair)),
      columns_(thatFit(grid.left, grid.width, grid.columnGap, grid.across, grid.paperWidth + kBesidePaper)) {}

int LabelPlaces::before(SheetPlace place) const {
  const bool onPaper = place.row >= 1 && place.row <= rows_ && place.column >= 1 && place.column <= columns_;
  return onPaper ? (place.row - 1) * columns_ + place.column - 1 : count();
}

SheetPlace LabelPlaces::after(int labels) const {
  const int left = count() > 0 ? labels % count() : 0;
  return left == 0 ? SheetPlace{} : SheetPlace{left / columns_ + 1, left % columns_ + 1};
}

}  // namespace zelvo
