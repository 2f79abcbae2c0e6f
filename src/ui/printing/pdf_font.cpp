#include "ui/printing/pdf_font.h"

#include <algorithm>

#include "ui/printing/file_font.h"
#include "ui/printing/outline_font.h"

namespace zelvo {

namespace {

// The name of the font without what a name in a PDF cannot hold. Six letters in front say that it is a part of one.
std::string pdfName(const QRawFont& font) {
  std::string name = "/ZELVOP+";
  for (const QChar letter : font.familyName() + QLatin1Char('-') + font.styleName())
    if (letter.unicode() < 0x80 && (letter.isLetterOrNumber() || letter == QLatin1Char('-')))
      name += letter.toLatin1();
  return name;
}

// Whether the font says that it has the bold letters, or the italic ones: in its file, or by its name.
bool saysOfItself(const QRawFont& font, int bit, std::initializer_list<const char*> names) {
  constexpr qsizetype style = 45;
  const QByteArray head = font.fontTable("head");
  return (head.size() > style && (head[style] & bit) != 0) || std::any_of(names.begin(), names.end(), [&](auto name) {
           return font.styleName().contains(QLatin1String(name));
         });
}

}  // namespace

std::shared_ptr<const PdfFont> PdfFont::of(const QRawFont& font, bool bold, bool italic) {
  std::shared_ptr<PdfFont> result;
  if (auto program = FontProgram::of(font))
    result = std::make_shared<FileFont>(std::move(*program), pdfName(font));
  else
    result = std::make_shared<OutlineFont>(font);
  result->thickening_ = bold && !saysOfItself(font, 1, {"Bold", "Demi"}) ? 0.03 : 0;
  result->slant_ = italic && !saysOfItself(font, 2, {"Italic", "Oblique"}) ? 0.2 : 0;
  return result;
}

}  // namespace zelvo
