#include "ui/printing/paper_font.h"

#include <QGlyphRun>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <functional>
#include <iterator>

#include "base/text.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

constexpr int kTwipsAPoint = 20;
constexpr double kEndless = 1e7;  // pixels; longer than any text

// Fonts that the office's older letters name and no computer of today has.
QString familyOf(const std::string& family) {
  if (alike(family, "MS Sans Serif") || alike(family, "Helv") || alike(family, "System"))
    return QStringLiteral("Arial");
  if (alike(family, "MS Serif") || alike(family, "Tms Rmn"))
    return QStringLiteral("Times New Roman");
  return QString::fromStdString(family);
}

struct Characters {
  char32_t first, last;
};

// Characters that do not join with their neighbours: of the western scripts, Greek, Cyrillic, those of East Asia that
// have no letters of parts, and the signs.
bool standsAlone(char32_t character) {
  static constexpr Characters alone[] = {{0x20, 0xAC},       {0xAE, 0x2FF},      {0x370, 0x482},     {0x48A, 0x58F},
                                         {0x10A0, 0x10FF},   {0x1E00, 0x200B},   {0x2010, 0x2027},   {0x2030, 0x205F},
                                         {0x2070, 0x20CF},   {0x2100, 0x2CFF},   {0x2E00, 0x3029},   {0x3030, 0x3098},
                                         {0x309B, 0xA4CF},   {0xA720, 0xA7FF},   {0xAC00, 0xD7A3},   {0xE000, 0xFAFF},
                                         {0xFE30, 0xFE4F},   {0xFF00, 0xFFFD},   {0x1D400, 0x1D7FF}, {0x1F000, 0x1F1E5},
                                         {0x1F200, 0x1F3FA}, {0x1F400, 0x1FAFF}, {0x20000, 0x3FFFF}};
  const auto* behind = std::upper_bound(std::begin(alone), std::end(alone), character,
                                        [](char32_t c, const Characters& range) { return c < range.first; });
  return behind != std::begin(alone) && character <= (behind - 1)->last;
}

// Marks that are kept in a text and never drawn.
bool isUnseen(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x200B;
}

// A text as the system lays it out, with its beginning on the base line.
class LaidText {
 public:
  LaidText(const QString& text, const QFont& font) : layout_(text, font), length_(static_cast<int>(text.size())) {
    layout_.beginLayout();
    QTextLine line = layout_.createLine();
    line.setLineWidth(kEndless);
    layout_.endLayout();
    origin_ = {line.naturalTextRect().left(), line.y() + line.ascent()};
  }

  int length() const { return length_; }
  /// Behind the characters that belong together from this one on.
  int endOf(int begin) const { return std::max(begin + 1, layout_.nextCursorPosition(begin)); }

  std::vector<PlacedGlyph> glyphs(int begin, int end, const std::function<const RealFont&(const QRawFont&)>& known) {
    std::vector<PlacedGlyph> glyphs;
    for (const QGlyphRun& run : layout_.glyphRuns(begin, end - begin)) {
      const RealFont& font = known(run.rawFont());
      const QList<quint32> numbers = run.glyphIndexes();
      const QList<QPointF> places = run.positions();
      for (qsizetype i = 0; i < numbers.size(); ++i) {
        const QPointF at = places[i] - origin_;
        glyphs.push_back({{&font, numbers[i], font.advanceOf(numbers[i]), 0}, at.x(), at.y()});
      }
    }
    return glyphs;
  }

 private:
  QTextLayout layout_;
  int length_;
  QPointF origin_;
};

bool startTogether(const std::vector<PlacedGlyph>& a, const std::vector<PlacedGlyph>& b) {
  return a.front().x == b.front().x && a.front().y == b.front().y && a.front().glyph.number == b.front().glyph.number;
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

PaperFace::PaperFace(const TextFont& font, const RealFonts& fonts)
    : font_(paperFont(font)),
      metrics_(font_),
      bold_(font.bold),
      italic_(font.italic),
      fonts_(fonts),
      own_(fonts.of(QRawFont::fromFont(font_), bold_, italic_)) {}

const PaperGlyph& PaperFace::glyphOf(char32_t character) const {
  const auto [place, isNew] = known_.try_emplace(character);
  if (isNew)
    place->second = find(character);
  return place->second;
}

PaperGlyph PaperFace::find(char32_t character) const {
  if (!own_.raw().isValid() || !standsAlone(character))
    return {nullptr, 0, 0, character};
  if (const quint32 number = own_.glyphOf(character))
    return {&own_, number, own_.advanceOf(number), character};
  return lent(character);
}

// Finding the font that has a character takes long. Who has one of a script has the others; signs are of no script.
PaperGlyph PaperFace::lent(char32_t character) const {
  const int script = QChar::script(character);
  const RealFont*& lender = lenders_[script];
  if (lender && script > QChar::Script_Common)
    if (const quint32 number = lender->glyphOf(character))
      return {lender, number, lender->advanceOf(number), character};
  std::string text;
  appendCharacter(text, character);
  std::vector<PlacedGlyph> glyphs = laidOut(text);
  if (glyphs.size() != 1)
    return {nullptr, 0, 0, character};
  PaperGlyph& glyph = glyphs.front().glyph;
  if (glyph.number != 0)
    lender = glyph.font;
  glyph.character = character;
  return glyph;
}

bool PaperFace::spell(std::string_view text, std::vector<const PaperGlyph*>& glyphs) const {
  glyphs.reserve(glyphs.size() + text.size());
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = nextCharacter(text, position);
    if (isUnseen(character))
      continue;
    glyphs.push_back(&glyphOf(character));
    if (!glyphs.back()->font)
      return false;
  }
  return true;
}

std::vector<PlacedGlyph> PaperFace::set(std::string_view text) const {
  std::vector<const PaperGlyph*> spelled;
  if (!spell(text, spelled))
    return laidOut(text);
  std::vector<PlacedGlyph> glyphs;
  double x = 0;
  for (const PaperGlyph* glyph : spelled) {
    glyphs.push_back({*glyph, x, 0});
    x += glyph->advance;
  }
  return glyphs;
}

std::vector<PlacedGlyph> PaperFace::laidOut(std::string_view text) const {
  std::vector<PlacedGlyph> glyphs;
  for (const GlyphCluster& cluster : clusters(text))
    glyphs.insert(glyphs.end(), cluster.glyphs.begin(), cluster.glyphs.end());
  return glyphs;
}

// Characters that have no glyph of their own belong to those before them.
std::vector<GlyphCluster> PaperFace::clusters(std::string_view text) const {
  std::vector<GlyphCluster> clusters;
  const QString characters = qtText(text);
  LaidText laid(characters, font_);
  const auto known = [this](const QRawFont& raw) -> const RealFont& { return fonts_.of(raw, bold_, italic_); };
  for (int begin = 0, end = 0; begin < laid.length(); begin = end) {
    end = laid.endOf(begin);
    GlyphCluster cluster{characters.mid(begin, end - begin).toStdString(), laid.glyphs(begin, end, known)};
    if (clusters.empty() || (!cluster.glyphs.empty() && !startTogether(cluster.glyphs, clusters.back().glyphs)))
      clusters.push_back(std::move(cluster));
    else
      clusters.back().text += cluster.text;
    if (clusters.back().glyphs.empty())
      clusters.pop_back();
  }
  std::stable_sort(clusters.begin(), clusters.end(), [](const GlyphCluster& a, const GlyphCluster& b) {
    return a.glyphs.front().x < b.glyphs.front().x;
  });
  return clusters;
}

double PaperFace::advance(std::string_view text) const {
  double sum = 0;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = nextCharacter(text, position);
    if (isUnseen(character))
      continue;
    const PaperGlyph& glyph = glyphOf(character);
    if (!glyph.font)
      return metrics_.horizontalAdvance(qtText(text));
    sum += glyph.advance;
  }
  return sum;
}

FontHeights PaperFace::heights() const {
  return {metrics_.ascent(), metrics_.descent(), std::max(0.0, metrics_.leading())};
}

void PaperFace::draw(QPainter& painter, std::string_view text) const {
  const std::vector<PlacedGlyph> glyphs = set(text);
  for (std::size_t next = 0; next < glyphs.size();) {
    const RealFont* font = glyphs[next].glyph.font;
    QList<quint32> numbers;
    QList<QPointF> places;
    for (; next < glyphs.size() && glyphs[next].glyph.font == font; ++next) {
      numbers.append(glyphs[next].glyph.number);
      places.append(QPointF(glyphs[next].x, glyphs[next].y));
    }
    QGlyphRun run;
    run.setRawFont(font->raw());
    run.setGlyphIndexes(numbers);
    run.setPositions(places);
    painter.drawGlyphRun(QPointF(0, 0), run);
  }
}

const PaperFace& PaperFaces::of(const TextFont& font) const {
  const auto found = known_.find(std::tie(font.family, font.bold, font.italic));
  if (found != known_.end())
    return found->second;
  return known_.try_emplace(Key{font.family, font.bold, font.italic}, font, fonts_).first->second;
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
