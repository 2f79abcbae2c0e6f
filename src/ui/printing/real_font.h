#pragma once

#include <QRawFont>
#include <map>
#include <memory>
#include <tuple>

#include "ui/printing/pdf_font.h"

namespace zelvo {

/// A font of this computer in one style, in the one size in which texts are measured and drawn.
class RealFont {
 public:
  RealFont(const QRawFont& raw, bool bold, bool italic) : raw_(raw), bold_(bold), italic_(italic) {}

  const QRawFont& raw() const { return raw_; }
  quint32 glyphOf(char32_t character) const;  ///< 0: the font has none
  double advanceOf(quint32 glyph) const;      ///< in pixels
  /// The font as PDFs take it along, made once for all letters.
  const PdfFont& pdfFont() const;

 private:
  QRawFont raw_;
  bool bold_, italic_;
  mutable std::shared_ptr<const PdfFont> pdfFont_;
};

/// The fonts that letters needed so far. Two fonts of a letter for which the computer has the same one share it.
class RealFonts {
 public:
  const RealFont& of(const QRawFont& raw, bool bold, bool italic) const;

 private:
  using Key = std::tuple<QString, QString, bool, bool>;
  mutable std::map<Key, RealFont> known_;
};

}  // namespace zelvo
