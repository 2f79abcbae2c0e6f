#include "documents/labels/label_font.h"

#include "base/text.h"

namespace zelvo {

namespace {

constexpr double kTwipsPerPoint = 20;
constexpr int kWide = 1015;  // thousandths of the size, as of the widest western letter

// Thousandths of the size, from the blank to "~" and from the hard blank to "ÿ".
constexpr short kPlain[] = {278,  278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,
                            556,  556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,
                            1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778,
                            667,  778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,
                            333,  556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,
                            556,  556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584};
constexpr short kAccented[] = {278, 333, 556, 556, 556, 556, 260,  556, 333, 737, 370, 556, 584, 333, 737, 552,
                               400, 549, 333, 333, 333, 576, 537,  278, 333, 333, 365, 556, 834, 834, 834, 611,
                               667, 667, 667, 667, 667, 667, 1000, 722, 667, 667, 667, 667, 278, 278, 278, 278,
                               722, 722, 778, 778, 778, 778, 778,  584, 778, 722, 722, 722, 722, 667, 667, 611,
                               556, 556, 556, 556, 556, 556, 889,  500, 556, 556, 556, 556, 278, 278, 278, 278,
                               556, 556, 556, 556, 556, 556, 556,  549, 611, 556, 556, 556, 556, 500, 556, 500};
static_assert(std::size(kPlain) == 0x7F - 0x20 && std::size(kAccented) == 0x100 - 0xA0);

int thousandths(char32_t character) {
  if (character >= 0x20 && character < 0x7F)
    return kPlain[character - 0x20];
  if (character >= 0xA0 && character < 0x100)
    return kAccented[character - 0xA0];
  return character < 0x20 ? 0 : kWide;
}

}  // namespace

double ArialWidths::advance(const TextFont& font, std::string_view text) const {
  double sum = 0;
  for (std::size_t position = 0; position < text.size();)
    sum += thousandths(nextCharacter(text, position));
  return sum / 1000 * font.points * kTwipsPerPoint;
}

FontHeights ArialWidths::heights(const TextFont& font) const {
  const double size = font.points * kTwipsPerPoint;
  return {0.905 * size, 0.212 * size, 0.033 * size};
}

}  // namespace zelvo
