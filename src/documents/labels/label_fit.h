#pragma once

#include <string>
#include <vector>

#include "documents/page_layout.h"

namespace zelvo {

/// The lines of an address as they stand on one label.
struct FittedLabel {
  double points = 0;
  double lineHeight = 0;  ///< twips
  std::vector<std::string> lines;
};

/// Brings an address onto a label with room for so many twips of text: in smaller letters when it is long, down to
/// those that the post still reads; else over more lines, or with several of its lines on one where the label is low;
/// what has no room at all ends in "...".
FittedLabel fitLabel(const std::vector<std::string>& lines, double width, double height, const TextFont& font,
                     const FontMeasure& measure);

}  // namespace zelvo
