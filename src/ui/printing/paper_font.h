#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <map>
#include <string>
#include <tuple>

#include "documents/page_layout.h"

namespace zelvo {

/// The real font behind a font of a letter, sized so that one of its pixels is one twip: measured and drawn alike at
/// 1440 to the inch, a line is exactly as long on paper as it was laid out.
QFont paperFont(const TextFont& font);

/// Measures text in the fonts of this computer. The office's letters are written in Times New Roman, Arial and Courier
/// New; where those are missing, fonts of the same widths (the Liberation fonts) must stand in for them.
class QtFontMeasure : public FontMeasure {
 public:
  double advance(const TextFont& font, std::string_view text) const override;
  FontHeights heights(const TextFont& font) const override;

 private:
  const QFontMetricsF& metricsOf(const TextFont& font) const;

  using Key = std::tuple<std::string, double, bool, bool>;
  mutable std::map<Key, QFontMetricsF> known_;
};

}  // namespace zelvo
