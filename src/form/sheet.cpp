#include "form/sheet.h"

#include <cmath>

#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

// The number from 1 of the place along one edge; 0 where none is.
int numberAlong(double position, double first, double size, double gap, int count) {
  if (position < first || size <= 0)
    return 0;
  const double steps = std::floor((position - first) / (size + gap));
  const bool inPlace = steps < count && position - first - steps * (size + gap) <= size;
  return inPlace ? static_cast<int>(steps) + 1 : 0;
}

}  // namespace

SheetArea areaOf(const SheetGrid& grid, SheetPlace place) {
  return {grid.left + (place.column - 1) * (grid.width + grid.columnGap),
          grid.top + (place.row - 1) * (grid.height + grid.rowGap), grid.width, grid.height};
}

bool isOnGrid(const SheetGrid& grid, SheetPlace place) {
  return place.row >= 1 && place.row <= grid.down && place.column >= 1 && place.column <= grid.across;
}

std::optional<SheetPlace> placeAt(const SheetGrid& grid, double x, double y) {
  const SheetPlace place{numberAlong(y, grid.top, grid.height, grid.rowGap, grid.down),
                         numberAlong(x, grid.left, grid.width, grid.columnGap, grid.across)};
  return isOnGrid(grid, place) ? std::optional(place) : std::nullopt;
}

std::string SheetPicture::shown() const {
  return std::to_string(chosen.row) + ", " + std::to_string(chosen.column);
}

Result<void> SheetPicture::take(std::string_view value) {
  const auto parts = split(value, ',');
  if (parts.size() == 2 && isNumber(trim(parts[0])) && isNumber(trim(parts[1]))) {
    const SheetPlace place{CInt(Val(parts[0])), CInt(Val(parts[1]))};
    if (isOnGrid(grid, place)) {
      chosen = place;
      return {};
    }
  }
  return Error{Trouble::BadInput, id() + " cannot take \"" + std::string(value) +
                                      "\": a place is written as its row and its column, up to " +
                                      std::to_string(grid.down) + ", " + std::to_string(grid.across) + "."};
}

}  // namespace zelvo
