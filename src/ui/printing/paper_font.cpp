#include "ui/printing/paper_font.h"

#include <QGlyphRun>
#include <QPainter>

#include "base/text.h"
#include "ui/qt_text.h"

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

// Characters of the western scripts, Greek, Cyrillic and their punctuation, none of which joins with its neighbours.
bool standsAlone(char32_t character) {
  return (character >= 0x20 && character < 0x0300 && character != 0x00AD) ||
         (character >= 0x0370 && character < 0x0483) || (character >= 0x2010 && character < 0x2028) ||
         (character >= 0x2030 && character < 0x2060) || (character >= 0x20A0 && character < 0x20C0) ||
         (character >= 0x2100 && character < 0x2600);
}

}  // namespace

QFont paperFont(const TextFont& font) {
  QFont real(familyOf(font.family));
  real.setPixelSize(kPaperFontSize);
  real.setBold(font.bold);
  real.setItalic(font.italic);
  real.setKerning(false);  // as the office's letters were set
  real.setHintingPreference(QFont::PreferNoHinting);
  real.setStyleStrategy(QFont::PreferOutline);
  return real;
}

double paperScale(const TextFont& font) {
  return font.points * kTwipsAPoint / kPaperFontSize;
}

PaperFace::PaperFace(const TextFont& font)
    : font_(paperFont(font)),
      metrics_(font_),
      raw_(QRawFont::fromFont(font_)),
      bold_(font.bold),
      italic_(font.italic) {}

const PaperFace::Glyph& PaperFace::glyphOf(char32_t character) const {
  const auto [place, isNew] = known_.try_emplace(character);
  if (!isNew)
    return place->second;
  place->second.character = character;
  if (standsAlone(character) && raw_.isValid()) {
    const QList<quint32> numbers = raw_.glyphIndexesForString(QString(QChar(static_cast<char16_t>(character))));
    const QList<QPointF> advances = raw_.advancesForGlyphIndexes(numbers);
    if (numbers.size() == 1 && advances.size() == 1)
      place->second = {numbers.front(), advances.front().x(), character};
  }
  return place->second;
}

// False when the text cannot be set glyph for glyph.
bool PaperFace::spell(std::string_view text, std::vector<const Glyph*>& glyphs) const {
  glyphs.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    glyphs.push_back(&glyphOf(nextCharacter(text, position)));
    if (glyphs.back()->number == 0)
      return false;
  }
  return true;
}

double PaperFace::advance(std::string_view text) const {
  double sum = 0;
  for (std::size_t position = 0; position < text.size();) {
    const Glyph& glyph = glyphOf(nextCharacter(text, position));
    if (glyph.number == 0)
      return metrics_.horizontalAdvance(qtText(text));
    sum += glyph.advance;
  }
  return sum;
}

FontHeights PaperFace::heights() const {
  return {metrics_.ascent(), metrics_.descent(), std::max(0.0, metrics_.leading())};
}

void PaperFace::draw(QPainter& painter, std::string_view text) const {
  std::vector<const Glyph*> glyphs;
  if (!spell(text, glyphs)) {
    painter.setFont(font_);
    painter.drawText(QPointF(0, 0), qtText(text));
    return;
  }
  QList<quint32> numbers;
  QList<QPointF> places;
  double x = 0;
  for (const Glyph* glyph : glyphs) {
    numbers.append(glyph->number);
    places.append(QPointF(x, 0));
    x += glyph->advance;
  }
  QGlyphRun run;
  run.setRawFont(raw_);
  run.setGlyphIndexes(numbers);
  run.setPositions(places);
  painter.drawGlyphRun(QPointF(0, 0), run);
}

const PdfFont* PaperFace::pdfFont() const {
  if (!pdfFontKnown_)
    pdfFont_ = PdfFont::of(raw_, bold_, italic_);
  pdfFontKnown_ = true;
  return pdfFont_.get();
}

const PaperFace& PaperFaces::of(const TextFont& font) const {
  const auto found = known_.find(std::tie(font.family, font.bold, font.italic));
  if (found != known_.end())
    return found->second;
  return known_.emplace(Key{font.family, font.bold, font.italic}, PaperFace(font)).first->second;
}

double QtFontMeasure::advance(const TextFont& font, std::string_view text) const {
  return faces_.of(font).advance(text) * paperScale(font);
}

FontHeights QtFontMeasure::heights(const TextFont& font) const {
  const FontHeights heights = faces_.of(font).heights();
  const double scale = paperScale(font);
  return {heights.ascent * scale, heights.descent * scale, heights.leading * scale};
}

}  // namespace zelvo
