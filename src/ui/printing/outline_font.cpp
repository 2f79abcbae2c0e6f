#include "ui/printing/outline_font.h"

#include <QPainterPath>
#include <cmath>

#include "ui/printing/character_map.h"

namespace zelvo {

namespace {

void appendUnits(std::string& object, double units) {
  appendThousandths(object, std::llround(units * 1000));
}

// PDFs count upward.
void appendPath(std::string& content, const QPainterPath& path) {
  int toEndOfCurve = 0;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    appendUnits(content, element.x);
    appendUnits(content, -element.y);
    if (element.type == QPainterPath::MoveToElement)
      content += "m\n";
    else if (element.type == QPainterPath::LineToElement)
      content += "l\n";
    else if (element.type == QPainterPath::CurveToElement)
      toEndOfCurve = 2;
    else if (--toEndOfCurve == 0)
      content += "c\n";
  }
}

}  // namespace

// What draws one letter, in pixels of the font, upward.
std::string OutlineFont::outlineOf(const PdfGlyph& glyph) const {
  const QPainterPath path = font_.pathForGlyph(glyph.number);
  const double line = thickening() * font_.pixelSize(), room = line + 1;
  const QRectF box = path.boundingRect().adjusted(-room, -room, room, room);
  std::string content;
  for (const double number :
       {glyph.width * font_.pixelSize() / 1000, 0.0, box.left(), -box.bottom(), box.right(), -box.top()})
    appendUnits(content, number);
  content += "d1\n";
  if (line > 0) {
    appendUnits(content, line);
    content += "w 1 j\n";
  }
  appendPath(content, path);
  return content + (line > 0 ? "b\n" : "f\n");
}

int OutlineFont::addTo(PdfFile& file, std::vector<PdfGlyph> glyphs) const {
  std::string outlines, names, widths, box;
  std::vector<PdfCode> codes;
  for (unsigned i = 0; i < glyphs.size(); ++i) {
    const std::string name = "/g" + std::to_string(i);
    outlines += name + " " + pdfReference(file.addPacked(packedForPdf(outlineOf(glyphs[i]), false), ""));
    names += name;
    appendUnits(widths, glyphs[i].width * font_.pixelSize() / 1000);
    if (glyphs[i].character != 0)
      codes.emplace_back(i, glyphs[i].character);
  }
  for (const double edge : {0.0, -font_.descent(), font_.maxCharWidth(), font_.ascent()})
    appendUnits(box, edge);
  const int characters = file.addPacked(packedForPdf(characterMap(codes, 1), true), "");
  const std::string scale = QByteArray::number(1 / font_.pixelSize(), 'f', 9).toStdString();
  return file.add("<</Type/Font/Subtype/Type3/FontMatrix[" + scale + " 0 0 " + scale + " 0 0]/FontBBox[" + box +
                  "]/Resources<<>>/FirstChar 0/LastChar " + std::to_string(glyphs.size() - 1) + "/Widths[" + widths +
                  "]/CharProcs<<" + outlines + ">>/Encoding<</Type/Encoding/Differences[0" + names + "]>>/ToUnicode " +
                  pdfReference(characters) + ">>");
}

}  // namespace zelvo
