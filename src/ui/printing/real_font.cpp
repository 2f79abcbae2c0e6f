#include "ui/printing/real_font.h"

namespace zelvo {

quint32 RealFont::glyphOf(char32_t character) const {
  const QString text = QString::fromUcs4(&character, 1);
  quint32 glyphs[2] = {0, 0};
  int count = 2;
  return raw_.glyphIndexesForChars(text.constData(), static_cast<int>(text.size()), glyphs, &count) && count == 1
             ? glyphs[0]
             : 0;
}

double RealFont::advanceOf(quint32 glyph) const {
  QPointF advance;
  return raw_.advancesForGlyphIndexes(&glyph, &advance, 1) ? advance.x() : 0;
}

const PdfFont& RealFont::pdfFont() const {
  if (!pdfFont_)
    pdfFont_ = PdfFont::of(raw_, bold_, italic_);
  return *pdfFont_;
}

const RealFont& RealFonts::of(const QRawFont& raw, bool bold, bool italic) const {
  return known_.try_emplace(Key{raw.familyName(), raw.styleName(), bold, italic}, raw, bold, italic).first->second;
}

}  // namespace zelvo
