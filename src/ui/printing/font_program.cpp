#include "ui/printing/font_program.h"

#include <QtEndian>
#include <vector>

namespace zelvo {

namespace {

// Where the tables of a font file keep what is needed of them, in bytes.
constexpr qsizetype kHeadUnits = 18, kHeadBox = 36, kHeadLongPlaces = 50, kHeadSize = 54;
constexpr qsizetype kHheaAscent = 4, kHheaDescent = 6, kHheaWidths = 34, kHheaSize = 36;
constexpr qsizetype kMaxpGlyphs = 4, kMaxpSize = 6;
constexpr qsizetype kRightsOfUse = 8;  // of the table OS/2

template <class Number>
Number numberAt(const QByteArray& table, qsizetype at) {
  return at + static_cast<qsizetype>(sizeof(Number)) <= table.size() ? qFromBigEndian<Number>(table.constData() + at)
                                                                     : Number{};
}

template <class Number>
void putNumber(QByteArray& table, qsizetype at, Number number) {
  qToBigEndian(number, table.data() + at);
}

template <class Number>
void appendNumber(QByteArray& table, Number number) {
  table.resize(table.size() + static_cast<qsizetype>(sizeof(Number)));
  putNumber(table, table.size() - static_cast<qsizetype>(sizeof(Number)), number);
}

void padTable(QByteArray& table) {
  while (table.size() % 4 != 0)
    table.append('\0');
}

quint32 checkSum(const QByteArray& table) {
  quint32 sum = 0;
  for (qsizetype at = 0; at < table.size(); at += 4)
    sum += numberAt<quint32>(table, at);
  return sum;
}

struct NamedTable {
  const char* name;
  QByteArray bytes;
};

// The tables come in the order of their names.
QByteArray fontFile(const std::vector<NamedTable>& tables) {
  const auto count = static_cast<quint16>(tables.size());
  quint16 power = 0;
  while ((2 << power) <= count)
    ++power;
  const auto range = static_cast<quint16>(16 << power);
  QByteArray file;
  appendNumber<quint32>(file, 0x00010000);
  for (const quint16 number : {count, range, power, static_cast<quint16>(count * 16 - range)})
    appendNumber(file, number);
  QByteArray body;
  for (const NamedTable& table : tables) {
    QByteArray bytes = table.bytes;
    padTable(bytes);
    file.append(table.name, 4);
    appendNumber<quint32>(file, checkSum(bytes));
    appendNumber<quint32>(file, static_cast<quint32>(12 + 16 * tables.size()) + static_cast<quint32>(body.size()));
    appendNumber<quint32>(file, static_cast<quint32>(table.bytes.size()));
    body += bytes;
  }
  return file + body;
}

// Behind the list of the compact format that begins there; the place of its first entry.
std::pair<qsizetype, qsizetype> listAt(const QByteArray& table, qsizetype at) {
  const qsizetype count = numberAt<quint16>(table, at), size = numberAt<quint8>(table, at + 2);
  if (count == 0)
    return {at + 2, at + 2};
  const qsizetype entries = at + 2 + (count + 1) * size;
  qsizetype end = 0;
  for (qsizetype i = 0; i < size; ++i)
    end = end << 8 | numberAt<quint8>(table, at + 3 + count * size + i);
  return {entries + end, entries + 1};
}

// Small enough, and its glyphs have no names other than their numbers: fonts of East Asia are larger and name them.
bool mayGoWhole(const QByteArray& compact) {
  constexpr qsizetype mostBytes = 400'000, headerSize = 2, firstOperator = 16;
  if (compact.isEmpty() || compact.size() > mostBytes)
    return false;
  const qsizetype topList = listAt(compact, numberAt<quint8>(compact, headerSize)).first;
  const qsizetype top = listAt(compact, topList).second;
  return !compact.mid(top, firstOperator).contains(QByteArray("\x0C\x1E", 2));
}

}  // namespace

std::optional<FontProgram> FontProgram::of(const QRawFont& font) {
  constexpr quint16 keptByMaker = 2, bitmapsOnly = 0x200;
  FontProgram program;
  program.head_ = font.fontTable("head");
  program.hhea_ = font.fontTable("hhea");
  program.maxp_ = font.fontTable("maxp");
  program.hmtx_ = font.fontTable("hmtx");
  program.loca_ = font.fontTable("loca");
  program.glyf_ = font.fontTable("glyf");
  if (program.glyf_.isEmpty())
    program.cff_ = font.fontTable("CFF ");
  program.cvt_ = font.fontTable("cvt ");
  program.fpgm_ = font.fontTable("fpgm");
  program.prep_ = font.fontTable("prep");
  const auto rights = numberAt<quint16>(font.fontTable("OS/2"), kRightsOfUse);
  const bool mayGo = (rights & 0xF) != keptByMaker && (rights & bitmapsOnly) == 0;
  if (!program.isWhole() || !mayGo || !font.fontTable("fvar").isEmpty())
    return std::nullopt;
  return program;
}

bool FontProgram::isWhole() const {
  return head_.size() >= kHeadSize && hhea_.size() >= kHheaSize && maxp_.size() >= kMaxpSize && unitsPerEm() > 0 &&
         (mayGoWhole(cff_) ||
          (numberAt<quint16>(hhea_, kHheaWidths) > 0 && !hmtx_.isEmpty() && !loca_.isEmpty() && !glyf_.isEmpty()));
}

double FontProgram::unitsPerEm() const {
  return numberAt<quint16>(head_, kHeadUnits);
}

std::array<int, 4> FontProgram::box() const {
  std::array<int, 4> box{};
  for (std::size_t i = 0; i < box.size(); ++i)
    box[i] = numberAt<qint16>(head_, kHeadBox + 2 * static_cast<qsizetype>(i));
  return box;
}

int FontProgram::ascent() const {
  return numberAt<qint16>(hhea_, kHheaAscent);
}

int FontProgram::descent() const {
  return numberAt<qint16>(hhea_, kHheaDescent);
}

QByteArray FontProgram::outline(quint32 glyph) const {
  const bool longPlaces = numberAt<quint16>(head_, kHeadLongPlaces) != 0;
  const auto place = [&](qsizetype i) -> qsizetype {
    return longPlaces ? numberAt<quint32>(loca_, i * 4) : qsizetype{2} * numberAt<quint16>(loca_, i * 2);
  };
  const qsizetype begin = place(glyph), end = place(qsizetype{glyph} + 1);
  return begin < end && end <= glyf_.size() ? glyf_.mid(begin, end - begin) : QByteArray();
}

// An accented letter is made of the outlines of others.
void FontProgram::addComponents(quint32 glyph, std::set<quint32>& glyphs) const {
  constexpr quint16 wordPlaces = 1, oneScale = 8, more = 0x20, twoScales = 0x40, fourScales = 0x80;
  const QByteArray bytes = outline(glyph);
  if (numberAt<qint16>(bytes, 0) >= 0)
    return;
  quint16 flags = more;
  for (qsizetype at = 10; (flags & more) != 0 && at + 4 <= bytes.size();) {
    flags = numberAt<quint16>(bytes, at);
    const auto component = numberAt<quint16>(bytes, at + 2);
    if (glyphs.insert(component).second)
      addComponents(component, glyphs);
    at += (flags & wordPlaces) != 0 ? 8 : 6;
    at += (flags & oneScale) != 0 ? 2 : (flags & twoScales) != 0 ? 4 : (flags & fourScales) != 0 ? 8 : 0;
  }
}

QByteArray FontProgram::part(std::set<quint32> glyphs) const {
  if (isCompact())
    return cff_;
  glyphs.insert(0);
  for (const quint32 glyph : std::set<quint32>(glyphs))
    addComponents(glyph, glyphs);
  const quint32 count = *glyphs.rbegin() + 1;
  QByteArray outlines, places;
  for (quint32 glyph = 0; glyph < count; ++glyph) {
    appendNumber(places, static_cast<quint32>(outlines.size()));
    if (glyphs.contains(glyph))
      outlines += outline(glyph);
    padTable(outlines);
  }
  appendNumber(places, static_cast<quint32>(outlines.size()));
  QByteArray head = head_, hhea = hhea_, maxp = maxp_;
  const auto widths = std::min(quint32{numberAt<quint16>(hhea_, kHheaWidths)}, count);
  putNumber<quint16>(head, kHeadLongPlaces, 1);
  putNumber(hhea, kHheaWidths, static_cast<quint16>(widths));
  putNumber(maxp, kMaxpGlyphs, static_cast<quint16>(count));
  const QByteArray metrics = hmtx_.left(qsizetype{widths} * 4 + qsizetype{count - widths} * 2);
  std::vector<NamedTable> tables;
  for (const NamedTable& table : {NamedTable{"cvt ", cvt_},
                                  {"fpgm", fpgm_},
                                  {"glyf", outlines},
                                  {"head", head},
                                  {"hhea", hhea},
                                  {"hmtx", metrics},
                                  {"loca", places},
                                  {"maxp", maxp},
                                  {"prep", prep_}})
    if (!table.bytes.isEmpty())
      tables.push_back(table);
  return fontFile(tables);
}

}  // namespace zelvo
