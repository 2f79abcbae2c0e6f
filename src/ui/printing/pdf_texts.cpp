#include "ui/printing/pdf_texts.h"

#include <cmath>
#include <optional>
#include <utility>

#include "base/text.h"

namespace zelvo {

namespace {

// The character that a glyph stands for; nothing when several belong together.
std::optional<char32_t> onlyCharacterOf(const GlyphCluster& cluster) {
  std::size_t position = 0;
  const char32_t character = nextCharacter(cluster.text, position);
  return position == cluster.text.size() && cluster.glyphs.size() == 1 ? std::optional(character) : std::nullopt;
}

}  // namespace

void PdfTexts::begin() {
  content_ += "BT\n";
  font_ = nullptr;
  x_ = y_ = 0;
  slant_ = 0;
}

void PdfTexts::end() {
  thicken(0);
  content_ += "ET\n";
}

void PdfTexts::write(std::string_view text, const TextFont& font, double x, double y) {
  const PaperFace& face = faces_.of(font);
  wantedPoints_ = font.points;
  spelled_.clear();
  if (!face.spell(text, spelled_))
    return writeLaidOut(text, face, font, x, y);
  moveTo(x, y);
  for (const PaperGlyph* glyph : spelled_)
    show(face, *glyph);
  endGlyphs();
}

void PdfTexts::writeLaidOut(std::string_view text, const PaperFace& face, const TextFont& font, double x, double y) {
  const double scale = paperScale(font);
  for (const GlyphCluster& cluster : face.clusters(text)) {
    const std::optional<char32_t> alone = onlyCharacterOf(cluster);
    if (!alone)
      beginMarked(cluster.text);
    for (const PlacedGlyph& placed : cluster.glyphs) {
      PaperGlyph glyph = placed.glyph;
      glyph.character = alone.value_or(0);
      moveTo(x + placed.x * scale, y - placed.y * scale);
      alone ? show(face, glyph) : put(fonts_.nameOf(face, glyph), glyph.advance);
      endGlyphs();
    }
    if (!alone)
      endMarked();
  }
}

// Places are told from where the last text began, but for texts that lean.
void PdfTexts::moveTo(double x, double y) {
  const long long oldX = std::exchange(x_, pdfLength(x)), oldY = std::exchange(y_, pdfLength(y));
  pen_ = 0;
  if (slant_ != 0)
    return lean(0);
  appendThousandths(content_, x_ - oldX);
  appendThousandths(content_, y_ - oldY);
  content_ += "Td\n";
}

void PdfTexts::lean(double slant) {
  if (slant == slant_)
    return;
  endGlyphs();
  slant_ = slant;
  x_ += std::llround(std::exchange(pen_, 0));
  for (const long long number : {1000LL, 0LL, std::llround(slant * 1000), 1000LL, x_, y_})
    appendThousandths(content_, number);
  content_ += "Tm\n";
}

void PdfTexts::show(const PaperFace& face, const PaperGlyph& glyph) {
  const PdfGlyphName name = fonts_.nameOf(face, glyph);
  if (name.readsBack)
    return put(name, glyph.advance);
  std::string character;
  appendCharacter(character, glyph.character);
  endGlyphs();
  beginMarked(character);
  put(name, glyph.advance);
  endGlyphs();
  endMarked();
}

void PdfTexts::put(const PdfGlyphName& name, double advance) {
  if (font_ != name.font || points_ != wantedPoints_)
    takeFont(name);
  lean(name.slant);
  if (!inGlyphs_)
    content_ += '<';
  inGlyphs_ = true;
  appendPdfHex(content_, name.code, name.digits);
  pen_ += advance * wantedPoints_ * 1000 / kPaperFontSize;
}

void PdfTexts::takeFont(const PdfGlyphName& name) {
  endGlyphs();
  font_ = name.font;
  points_ = wantedPoints_;
  content_ += *name.font + " ";
  appendThousandths(content_, std::llround(points_ * 1000));
  content_ += "Tf\n";
  thicken(name.thickening * points_ * 1000);
}

void PdfTexts::thicken(double line) {
  if (line == line_)
    return;
  line_ = line;
  appendThousandths(content_, std::llround(line));
  content_ += line > 0 ? "w 2 Tr\n" : "w 0 Tr\n";
}

void PdfTexts::endGlyphs() {
  if (inGlyphs_)
    content_ += "> Tj\n";
  inGlyphs_ = false;
}

void PdfTexts::beginMarked(std::string_view text) {
  content_ += "/Span<</ActualText" + pdfText(text) + ">>BDC\n";
}

void PdfTexts::endMarked() {
  content_ += "EMC\n";
}

}  // namespace zelvo
