#include "ui/printing/file_font.h"

#include <algorithm>
#include <cmath>

#include "ui/printing/character_map.h"

namespace zelvo {

namespace {

std::string widthsOf(const std::vector<PdfGlyph>& glyphs) {
  std::string widths = "[";
  for (const PdfGlyph& glyph : glyphs) {
    widths += std::to_string(glyph.number) + "[";
    appendThousandths(widths, std::llround(glyph.width * 1000));
    widths += "]";
  }
  return widths + "]";
}

std::string charactersOf(const std::vector<PdfGlyph>& glyphs) {
  std::vector<PdfCode> codes;
  for (const PdfGlyph& glyph : glyphs)
    if (glyph.character != 0)
      codes.emplace_back(glyph.number, glyph.character);
  return characterMap(codes, 2);
}

}  // namespace

void FileFont::pack(std::vector<PdfGlyph> glyphs) const {
  std::sort(glyphs.begin(), glyphs.end(), [](const PdfGlyph& a, const PdfGlyph& b) { return a.number < b.number; });
  if (glyphs == packedGlyphs_)
    return;
  std::set<quint32> numbers;
  for (const PdfGlyph& glyph : glyphs)
    numbers.insert(glyph.number);
  const QByteArray part = program_.part(std::move(numbers));
  fileSize_ = static_cast<std::size_t>(part.size());
  file_ = packedForPdf({part.constData(), fileSize_}, true);
  characters_ = packedForPdf(charactersOf(glyphs), true);
  widths_ = widthsOf(glyphs);
  packedGlyphs_ = std::move(glyphs);
}

int FileFont::addDescriptor(PdfFile& file) const {
  const double scale = 1000 / program_.unitsPerEm();
  const auto scaled = [scale](int units) { return std::to_string(std::lround(units * scale)); };
  std::string box;
  for (const int edge : program_.box())
    box += scaled(edge) + " ";
  const int fontFile =
      file.addPacked(file_, program_.isCompact() ? "/Subtype/CIDFontType0C" : "/Length1 " + std::to_string(fileSize_));
  return file.add("<</Type/FontDescriptor/FontName" + name_ + "/Flags 4/FontBBox[" + box + "]/ItalicAngle 0/Ascent " +
                  scaled(program_.ascent()) + "/Descent " + scaled(program_.descent()) + "/CapHeight " +
                  scaled(program_.ascent()) + "/StemV 80" + (program_.isCompact() ? "/FontFile3 " : "/FontFile2 ") +
                  pdfReference(fontFile) + ">>");
}

int FileFont::addTo(PdfFile& file, std::vector<PdfGlyph> glyphs) const {
  pack(std::move(glyphs));
  const int descriptor = addDescriptor(file);
  const int characters = file.addPacked(characters_, "");
  const int letters = file.add(
      "<</Type/Font" +
      std::string(program_.isCompact() ? "/Subtype/CIDFontType0" : "/Subtype/CIDFontType2/CIDToGIDMap/Identity") +
      "/BaseFont" + name_ + "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
      pdfReference(descriptor) + "/W" + widths_ + ">>");
  return file.add("<</Type/Font/Subtype/Type0/BaseFont" + name_ + "/Encoding/Identity-H/DescendantFonts[" +
                  pdfReference(letters) + "]/ToUnicode " + pdfReference(characters) + ">>");
}

}  // namespace zelvo
