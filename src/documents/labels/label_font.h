#pragma once

#include "documents/page_layout.h"

namespace zelvo {

/// The widths of Arial, upright and regular, for fitting texts where no font can be asked: the same on a computer
/// without a screen. Letters beyond the western ones count as wide ones.
class ArialWidths : public FontMeasure {
 public:
  double advance(const TextFont& font, std::string_view text) const override;
  FontHeights heights(const TextFont& font) const override;
};

}  // namespace zelvo
