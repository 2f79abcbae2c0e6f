#include "ui/printing/paper_font.h"
#include "ui/qt_text.h"

#include "base/text.h"

namespace zelvo {

namespace {

constexpr int kTwipsAPoint = 20;

// Fonts that the office's older letters name and no computer of today has.
QString familyOf(const std::string& family) {
  if (alike(family, "MS Sans Serif") || alike(family, "Helv") || alike(family, "System"))
    return QStringLiteral("Arial");
  if (alike(family, "MS Serif") || alike(family, "Tms Rmn"))
    return QStringLiteral("Times New Roman");
  return QString::fromStdString(family);
}

}  // namespace

QFont paperFont(const TextFont& font) {
  QFont real(familyOf(font.family));
  real.setPixelSize(std::max(1, qRound(font.points * kTwipsAPoint)));
  real.setBold(font.bold);
  real.setItalic(font.italic);
  real.setHintingPreference(QFont::PreferNoHinting);
  real.setStyleStrategy(QFont::PreferOutline);
  return real;
}

const QFontMetricsF& QtFontMeasure::metricsOf(const TextFont& font) const {
  const Key key{font.family, font.points, font.bold, font.italic};
  const auto found = known_.find(key);
  if (found != known_.end())
    return found->second;
  return known_.emplace(key, QFontMetricsF(paperFont(font))).first->second;
}

double QtFontMeasure::advance(const TextFont& font, std::string_view text) const {
  return metricsOf(font).horizontalAdvance(qtText(text));
}

FontHeights QtFontMeasure::heights(const TextFont& font) const {
  const QFontMetricsF& metrics = metricsOf(font);
  return {metrics.ascent(), metrics.descent(), std::max(0.0, metrics.leading())};
}

}  // namespace zelvo
