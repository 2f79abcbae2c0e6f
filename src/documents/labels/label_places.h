#pragma once

#include "form/sheet.h"

namespace zelvo {

/// The labels of a sheet that can be printed on: those that lie on the paper with the margins at hand. They are filled
/// row by row.
class LabelPlaces {
 public:
  explicit LabelPlaces(const SheetGrid& grid);

  int rows() const { return rows_; }
  int columns() const { return columns_; }
  int count() const { return rows_ * columns_; }
  /// The number of labels in front of a place, counted along the rows; all of them when the place is not on the paper.
  int before(SheetPlace place) const;
  /// The place with so many labels in front of it; of a full sheet the first one of the next.
  SheetPlace after(int labels) const;

 private:
  int rows_, columns_;
};

}  // namespace zelvo
