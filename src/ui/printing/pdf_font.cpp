#include "ui/printing/pdf_font.h"

#include <cmath>

#include "ui/qt_text.h"

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

std::string hexOf(quint32 number) {
  return QByteArray::number(number, 16).rightJustified(4, '0').toStdString();
}

// Which character each glyph stands for, so that the text of a PDF can be searched and copied.
std::string characterMap(const std::vector<PdfGlyph>& glyphs) {
  constexpr std::size_t mostALot = 100;
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n/CIDSystemInfo <</Registry (Adobe) /Ordering "
      "(UCS) /Supplement 0>> def\n/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n<0000> "
      "<FFFF>\nendcodespacerange\n";
  for (std::size_t first = 0; first < glyphs.size(); first += mostALot) {
    const std::size_t end = std::min(first + mostALot, glyphs.size());
    map += std::to_string(end - first) + " beginbfchar\n";
    for (std::size_t i = first; i < end; ++i)
      map += "<" + hexOf(glyphs[i].number) + "> <" + hexOf(glyphs[i].character) + ">\n";
    map += "endbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

std::string widthsOf(const std::vector<PdfGlyph>& glyphs) {
  std::string widths = "[";
  for (const PdfGlyph& glyph : glyphs) {
    widths += std::to_string(glyph.number) + "[";
    appendThousandths(widths, std::llround(glyph.width * 1000));
    widths += "]";
  }
  return widths + "]";
}

}  // namespace

std::shared_ptr<const PdfFont> PdfFont::of(const QRawFont& font, bool bold, bool italic) {
  auto program = FontProgram::of(font, bold, italic);
  if (!program)
    return nullptr;
  const std::shared_ptr<PdfFont> result(new PdfFont(std::move(*program)));
  result->name_ = pdfName(font);
  result->italic_ = italic;
  return result;
}

void PdfFont::pack(const std::vector<PdfGlyph>& glyphs) const {
  if (glyphs == packedGlyphs_)
    return;
  std::set<quint32> numbers;
  for (const PdfGlyph& glyph : glyphs)
    numbers.insert(glyph.number);
  const QByteArray part = program_.part(numbers);
  fileSize_ = static_cast<std::size_t>(part.size());
  file_ = packedForPdf({part.constData(), fileSize_}, true);
  characters_ = packedForPdf(characterMap(glyphs), true);
  widths_ = widthsOf(glyphs);
  packedGlyphs_ = glyphs;
}

int PdfFont::addDescriptor(PdfFile& file, const std::string& name) const {
  constexpr int symbolic = 4, slanted = 64;
  const double scale = 1000 / program_.unitsPerEm();
  const auto scaled = [scale](int units) { return std::to_string(std::lround(units * scale)); };
  std::string box;
  for (const int edge : program_.box())
    box += scaled(edge) + " ";
  const int fontFile = file.addPacked(file_, "/Length1 " + std::to_string(fileSize_));
  return file.add("<</Type/FontDescriptor/FontName" + name + "/Flags " +
                  std::to_string(symbolic + (italic_ ? slanted : 0)) + "/FontBBox[" + box + "]/ItalicAngle " +
                  (italic_ ? "-12" : "0") + "/Ascent " + scaled(program_.ascent()) + "/Descent " +
                  scaled(program_.descent()) + "/CapHeight " + scaled(program_.ascent()) + "/StemV 80/FontFile2 " +
                  pdfReference(fontFile) + ">>");
}

int PdfFont::addTo(PdfFile& file, const std::vector<PdfGlyph>& glyphs) const {
  pack(glyphs);
  const int descriptor = addDescriptor(file, name_);
  const int characters = file.addPacked(characters_, "");
  const int letters = file.add(
      "<</Type/Font/Subtype/CIDFontType2/BaseFont" + name_ +
      "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/CIDToGIDMap/Identity/FontDescriptor " +
      pdfReference(descriptor) + "/W" + widths_ + ">>");
  return file.add("<</Type/Font/Subtype/Type0/BaseFont" + name_ + "/Encoding/Identity-H/DescendantFonts[" +
                  pdfReference(letters) + "]/ToUnicode " + pdfReference(characters) + ">>");
}

}  // namespace zelvo
