#include "documents/page_frame.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo {

namespace {

constexpr double kTwipsPerInch = 1440;

bool isPaper(const std::optional<int>& length) {
  return length && *length >= 2 * kSmallestArea;
}

void setMargins(PageFrame& frame, const PageSetup& page, const PrintOptions& options) {
  if (options.marginsSet || !page.statesMargins()) {
    frame.left = options.left * kTwipsPerInch;
    frame.top = options.top * kTwipsPerInch;
    frame.right = options.right * kTwipsPerInch;
    frame.bottom = options.bottom * kTwipsPerInch;
    return;
  }
  // What such a file leaves out has the values that rich text gives it.
  frame.left = page.left.value_or(1800);
  frame.right = page.right.value_or(1800);
  frame.top = std::abs(page.top.value_or(1440));
  frame.bottom = std::abs(page.bottom.value_or(1440));
}

}  // namespace

PageFrame frameOf(const PageSetup& page, const PrintOptions& options) {
  PageFrame frame;
  if (isPaper(page.width) && isPaper(page.height)) {
    frame.width = *page.width;
    frame.height = *page.height;
  }
  if ((page.landscape || options.landscape) && frame.width < frame.height)
    std::swap(frame.width, frame.height);
  setMargins(frame, page, options);
  frame.left = std::clamp(frame.left, 0.0, frame.width - kSmallestArea);
  frame.right = std::clamp(frame.right, 0.0, frame.width - kSmallestArea - frame.left);
  frame.top = std::clamp(frame.top, 0.0, frame.height - kSmallestArea);
  frame.bottom = std::clamp(frame.bottom, 0.0, frame.height - kSmallestArea - frame.top);
  return frame;
}

}  // namespace zelvo
