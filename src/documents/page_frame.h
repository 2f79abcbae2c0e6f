#pragma once

#include "documents/document.h"
#include "form/ports.h"

namespace zelvo {

/// An inch: however wide the margins are set, so much of a page is left for text.
inline constexpr double kSmallestArea = 1440;

/// The paper of a section and the margins around its text, in twips.
struct PageFrame {
  double width = 12240, height = 15840;
  double left = 0, top = 0, right = 0, bottom = 0;
  double textWidth() const { return width - left - right; }
  double textHeight() const { return height - top - bottom; }
  bool samePaper(const PageFrame& other) const { return width == other.width && height == other.height; }
};

/// The frame that a section states; what it leaves out comes from the options.
PageFrame frameOf(const PageSetup& page, const PrintOptions& options);

}  // namespace zelvo
