#include "ui/writing/qt_letter.h"

#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <ranges>
#include <span>
#include <utility>

#include "ui/qt_text.h"
#include "ui/writing/text_blocks.h"
#include "ui/writing/text_formats.h"

namespace zelvo {

namespace {

// What a part of the text stands for, and its number among those of its kind.
constexpr int kParagraph = QTextFormat::UserProperty + 1;
constexpr int kSpacer = QTextFormat::UserProperty + 2;  // a line that the widget needs before and behind a table
constexpr int kRow = QTextFormat::UserProperty + 3;
constexpr int kKind = QTextFormat::UserProperty + 4;
constexpr int kIndex = QTextFormat::UserProperty + 5;

// A sign of the text that is no letter.
enum Sign { kPicture = 1, kLive, kPageBreak, kSectionBreak };

constexpr QChar kSign = QChar::ObjectReplacementCharacter;

bool isBreak(int kind) {
  return kind == kPageBreak || kind == kSectionBreak;
}

// Line breaks inside a paragraph have a sign of their own in the widget.
QString shownText(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
}

std::string readText(QString text) {
  return text.replace(QChar(QChar::LineSeparator), QLatin1Char('\n')).toStdString();
}

QImage noteImage(const QString& note, int width) {
  constexpr int kHeight = 14;
  QImage image(width, kHeight, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  QFont font;
  font.setPixelSize(kHeight - 3);
  painter.setFont(font);
  painter.setPen(QPen(QColor(0x70, 0x78, 0x82), 1, Qt::DashLine));
  const int words = painter.fontMetrics().horizontalAdvance(note) + 12;
  if (words < width) {
    painter.drawLine(0, kHeight / 2, (width - words) / 2, kHeight / 2);
    painter.drawLine((width + words) / 2, kHeight / 2, width, kHeight / 2);
  }
  painter.drawText(image.rect(), Qt::AlignCenter, note);
  return image;
}

QImage imageOf(const Picture& picture) {
  const QImage whole =
      QImage::fromData(reinterpret_cast<const uchar*>(picture.bytes.data()), static_cast<int>(picture.bytes.size()));
  const double width = whole.width();
  const double height = whole.height();
  return whole.copy(qRound(width * picture.cropLeft), qRound(height * picture.cropTop),
                    qRound(width * (1 - picture.cropLeft - picture.cropRight)),
                    qRound(height * (1 - picture.cropTop - picture.cropBottom)));
}

// A sign that shows a picture. The same picture twice is two of them.
void insertSign(QTextCursor& cursor, QTextCharFormat letters, std::pair<int, std::size_t> sign, const QImage& image,
                QSizeF size) {
  const QString name = QStringLiteral("letter/%1/%2").arg(sign.first).arg(sign.second);
  cursor.document()->addResource(QTextDocument::ImageResource, QUrl(name), image);
  QTextImageFormat format;
  format.merge(letters);
  format.setName(name);
  format.setWidth(size.width());
  format.setHeight(size.height());
  format.setProperty(kKind, sign.first);
  format.setProperty(kIndex, static_cast<int>(sign.second));
  cursor.insertImage(format);
}

// The letters and signs of a block, in order.
template <class Visit>
void eachPiece(const QTextBlock& block, const Visit& visit) {
  for (auto part = block.begin(); !part.atEnd(); ++part) {
    const QTextFragment fragment = part.fragment();
    const QString text = fragment.text();
    const int kind = fragment.charFormat().intProperty(kKind);
    qsizetype from = 0;
    for (qsizetype at = 0; at <= text.size(); ++at) {
      const bool sign = at < text.size() && text[at] == kSign && kind != 0;
      if (at < text.size() && !sign)
        continue;
      if (at > from)
        visit(fragment.charFormat(), text.mid(from, at - from), 0);
      if (sign)
        visit(fragment.charFormat(), text.mid(at, 1), kind);
      from = at + 1;
    }
  }
}

// A spacer and a break that stands alone are no paragraphs of the letter.
QtLetter::Share shareOf(const QTextBlock& block) {
  bool letters = false;
  std::uint32_t breaks = 0;
  eachPiece(block, [&](const QTextCharFormat&, const QString&, int kind) {
    breaks += isBreak(kind) ? 1 : 0;
    letters = letters || !isBreak(kind);
  });
  const bool paragraph = letters || (breaks == 0 && !block.blockFormat().hasProperty(kSpacer));
  return {breaks + (paragraph ? 1 : 0), paragraph ? 1u : 0u};
}

// A table gives its row with the first of its blocks.
void countTable(BlockSpan span, std::vector<QtLetter::Share>& shares) {
  shares.push_back({1, 1});
  shares.resize(shares.size() + static_cast<std::size_t>(span.last - span.first), {0, 1});
}

}  // namespace

void QtLetter::show(const Document& letter, QTextDocument& text) {
  frame_ = letter;
  frame_.body.clear();
  paragraphs_.clear();
  rows_.clear();
  sections_.clear();
  pictures_.clear();
  fresh_ = true;
  text.clear();
  text.setUndoRedoEnabled(false);
  QTextOption tabs = text.defaultTextOption();
  tabs.setTabStopDistance(pixelsOf(letter.defaultTab));
  text.setDefaultTextOption(tabs);
  QTextCursor cursor(&text);
  cursor.beginEditBlock();
  for (const Block& block : letter.body)
    showBlock(cursor, block);
  if (fresh_) {
    QTextBlockFormat spacer;
    spacer.setProperty(kSpacer, true);
    cursor.setBlockFormat(spacer);
  }
  cursor.endEditBlock();
  count(text);
  changed_.reset();
}

void QtLetter::showBlock(QTextCursor& cursor, const Block& block) {
  if (const auto* paragraph = std::get_if<Paragraph>(&block))
    showParagraph(cursor, *paragraph);
  else if (const auto* row = std::get_if<TableRow>(&block))
    showRow(cursor, *row);
  else if (const auto* section = std::get_if<SectionBreak>(&block)) {
    sections_.push_back(*section);
    showBreak(cursor, kSectionBreak, sections_.size() - 1);
  } else {
    showBreak(cursor, kPageBreak, 0);
  }
}

void QtLetter::startBlock(QTextCursor& cursor, const QTextBlockFormat& format, const QTextCharFormat& letters) {
  if (!std::exchange(fresh_, false))
    return cursor.insertBlock(format, letters);
  cursor.setBlockFormat(format);
  cursor.setBlockCharFormat(letters);
}

void QtLetter::showParagraph(QTextCursor& cursor, const Paragraph& paragraph) {
  paragraphs_.push_back(paragraph);
  paragraphs_.back().runs.clear();
  QTextBlockFormat format = formatOf(paragraph.style);
  format.setProperty(kParagraph, static_cast<int>(paragraphs_.size() - 1));
  startBlock(cursor, format, formatOf(paragraph.end));
  for (const Run& run : paragraph.runs)
    showRun(cursor, run);
}

void QtLetter::showRun(QTextCursor& cursor, const Run& run) {
  const QTextCharFormat letters = formatOf(run.style);
  if (run.picture) {
    pictures_.push_back(run.picture);
    insertSign(cursor, letters, {kPicture, pictures_.size() - 1}, imageOf(*run.picture),
               QSizeF(pixelsOf(run.picture->width), pixelsOf(run.picture->height)));
  } else if (run.live != LiveField::None) {
    const QString shown = run.live == LiveField::PageNumber ? QStringLiteral("page") : QStringLiteral("pages");
    const QImage image = noteImage(shown, 40);
    insertSign(cursor, letters, {kLive, static_cast<std::size_t>(run.live)}, image, image.size());
  } else {
    cursor.insertText(shownText(run.text), letters);
  }
}

void QtLetter::showBreak(QTextCursor& cursor, int kind, std::size_t index) {
  startBlock(cursor, {}, {});
  const QImage image = noteImage(kind == kPageBreak ? QStringLiteral("page break") : QStringLiteral("section break"),
                                 std::max(100, lineWidth() - 40));
  insertSign(cursor, {}, {kind, index}, image, image.size());
}

// Every row is a table of its own: rows of one letter may have their edges anywhere.
void QtLetter::showRow(QTextCursor& cursor, const TableRow& row) {
  if (row.cells.empty())
    return;
  QTextBlockFormat spacer;
  spacer.setProperty(kSpacer, true);
  startBlock(cursor, spacer, {});
  rows_.push_back(row);
  for (Cell& cell : rows_.back().cells)
    cell.paragraphs.clear();
  QTextTableFormat format = formatOf(row);
  format.setProperty(kRow, static_cast<int>(rows_.size() - 1));
  QTextTable* table = cursor.insertTable(1, static_cast<int>(row.cells.size()), format);
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    QTextCursor inside = table->cellAt(0, static_cast<int>(i)).firstCursorPosition();
    fresh_ = true;
    for (const Paragraph& paragraph : row.cells[i].paragraphs)
      showParagraph(inside, paragraph);
  }
  cursor.setPosition(table->lastPosition() + 1);
  fresh_ = true;
}

bool QtLetter::showPart(const std::vector<Block>& body, std::size_t at, std::size_t gone, std::size_t end,
                        QTextDocument& text) {
  const auto first = static_cast<std::size_t>(numberOf(at));
  const auto plain = [](const Share& share) { return share.blocks == 1 && share.paragraphs == 1; };
  const auto paragraph = [](const Block& block) { return std::holds_alternative<Paragraph>(block); };
  const std::span shares = std::span(shares_).subspan(std::min(first, shares_.size()));
  const std::span come = std::span(body).subspan(at, end - at);
  if (gone == 0 || come.empty() || shares.size() < gone || !std::ranges::all_of(shares.first(gone), plain) ||
      !std::ranges::all_of(come, paragraph))
    return gone == 0 && come.empty();
  const QTextBlock begin = text.findBlockByNumber(static_cast<int>(first));
  const QTextBlock last = text.findBlockByNumber(static_cast<int>(first + gone - 1));
  if (tableOf(begin) || tableOf(last))
    return false;
  QTextCursor cursor(begin);
  cursor.beginEditBlock();
  cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
  fresh_ = true;
  for (const Block& block : come)
    showParagraph(cursor, std::get<Paragraph>(block));
  cursor.endEditBlock();
  takeChange(text);
  return true;
}

Document QtLetter::read(const QTextDocument& text) const {
  Document letter = frame_;
  letter.body = readSpan(text, {0, text.blockCount() - 1}).body;
  return letter;
}

void QtLetter::count(const QTextDocument& text) {
  shares_.clear();
  eachPart(
      text, {0, text.blockCount() - 1}, [this](const QTextBlock& block) { shares_.push_back(shareOf(block)); },
      [this](const QTextTable& table) { countTable(spanOf(table), shares_); });
}

QtLetter::Reading QtLetter::readSpan(const QTextDocument& text, BlockSpan span) const {
  Reading reading;
  eachPart(
      text, span, [&](const QTextBlock& block) { readBlock(block, reading); },
      [&](const QTextTable& table) { readTable(table, reading); });
  return reading;
}

void QtLetter::readBlock(const QTextBlock& block, Reading& reading) const {
  eachPiece(block, [&](const QTextCharFormat& format, const QString&, int kind) {
    if (kind == kPageBreak)
      reading.body.emplace_back(std::in_place_type<PageBreak>);
    else if (kind == kSectionBreak)
      reading.body.push_back(sections_.at(static_cast<std::size_t>(format.intProperty(kIndex))));
  });
  reading.shares.push_back(shareOf(block));
  if (reading.shares.back().paragraphs > 0)
    reading.body.emplace_back(std::in_place_type<Paragraph>, readParagraph(block));
}

void QtLetter::readTable(const QTextTable& table, Reading& reading) const {
  countTable(spanOf(table), reading.shares);
  reading.body.emplace_back(std::in_place_type<TableRow>, readRow(table));
}

Paragraph QtLetter::readParagraph(const QTextBlock& block) const {
  ++blocksRead_;
  Paragraph paragraph;
  const QTextBlockFormat format = block.blockFormat();
  if (format.hasProperty(kParagraph))
    paragraph = paragraphs_.at(static_cast<std::size_t>(format.intProperty(kParagraph)));
  paragraph.style.alignment = alignmentOf(format);
  paragraph.end = styleOf(block.charFormat());
  eachPiece(block, [&](const QTextCharFormat& letters, const QString& text, int kind) {
    if (isBreak(kind))
      return;
    Run run{styleOf(letters), kind == 0 ? readText(text) : std::string(), LiveField::None, nullptr};
    if (kind == kPicture)
      run.picture = pictures_.at(static_cast<std::size_t>(letters.intProperty(kIndex)));
    else if (kind == kLive)
      run.live = static_cast<LiveField>(letters.intProperty(kIndex));
    paragraph.runs.push_back(std::move(run));
  });
  tidyRuns(paragraph.runs);
  return paragraph;
}

TableRow QtLetter::readRow(const QTextTable& table) const {
  TableRow row = rows_.at(static_cast<std::size_t>(table.format().intProperty(kRow)));
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const QTextTableCell cell = table.cellAt(0, static_cast<int>(i));
    for (auto part = cell.begin(); !part.atEnd(); ++part)
      if (part.currentBlock().isValid())
        row.cells[i].paragraphs.push_back(readParagraph(part.currentBlock()));
  }
  return row;
}

void QtLetter::noteChange(const QTextDocument& text, int from, int added) {
  BlockSpan span = changedSpan(text, from, added);
  if (changed_) {  // an earlier one may have moved
    const int grown = text.blockCount() - counted_;
    span.first = std::min(span.first, changed_->first);
    span.last = std::min(std::max({span.last, changed_->last, changed_->last + grown}), text.blockCount() - 1);
  }
  changed_ = span;
  counted_ = text.blockCount();
}

BodyChange QtLetter::takeChange(const QTextDocument& text) {
  if (!changed_)
    return {};
  const BlockSpan span = withTables(text, *std::exchange(changed_, std::nullopt));
  Reading reading = readSpan(text, span);
  const auto behind = shares_.size() - static_cast<std::size_t>(text.blockCount() - 1 - span.last);
  const std::size_t at = blocksBefore(span.first);
  const std::size_t gone = blocksBefore(static_cast<int>(behind)) - at;
  const auto first = shares_.begin() + span.first;
  const auto last = shares_.begin() + static_cast<std::ptrdiff_t>(behind);
  shares_.insert(shares_.erase(first, last), reading.shares.begin(), reading.shares.end());
  return {at, gone, std::move(reading.body)};
}

// How many blocks of the letter stand before a block of the text.
std::size_t QtLetter::blocksBefore(int number) const {
  std::size_t sum = 0;
  for (const Share& share : std::span(shares_).first(static_cast<std::size_t>(number)))
    sum += share.blocks;
  return sum;
}

// The first block of the text that shows a block of the letter.
int QtLetter::numberOf(std::size_t block) const {
  std::size_t sum = 0;
  int number = 0;
  for (; static_cast<std::size_t>(number) < shares_.size(); ++number)
    if (sum += shares_[static_cast<std::size_t>(number)].blocks; sum > block)
      break;
  return number;
}

int QtLetter::positionOf(const QTextDocument& text, TextPlace place) const {
  std::size_t left = place.paragraph + 1;
  const auto found = std::ranges::find_if(shares_, [&left](const Share& share) {
    left -= std::min<std::size_t>(left, share.paragraphs);
    return left == 0;
  });
  if (found == shares_.end())
    return std::max(0, text.characterCount() - 1);
  const QTextBlock block = text.findBlockByNumber(static_cast<int>(found - shares_.begin()));
  qsizetype inside = 0;
  std::size_t further = place.offset;
  eachPiece(block, [&](const QTextCharFormat&, const QString& piece, int kind) {
    const std::size_t size = kind == 0 ? static_cast<std::size_t>(readText(piece).size()) : isBreak(kind) ? 0 : 1;
    const std::size_t taken = std::min(further, size);
    if (taken == size)
      inside += piece.size();
    else
      inside += QString::fromUtf8(readText(piece).substr(0, taken).c_str()).size();
    further -= taken;
  });
  return block.position() + static_cast<int>(place.offset == 0 ? 0 : inside);
}

TextPlace QtLetter::placeOf(const QTextDocument& text, int position) const {
  const QTextBlock found = text.findBlock(position);
  const auto number = static_cast<std::size_t>(std::max(0, found.blockNumber()));
  TextPlace place;
  for (const Share& share : std::span(shares_).first(std::min(number, shares_.size())))
    place.paragraph += share.paragraphs;
  if (number >= shares_.size() || shares_[number].paragraphs == 0)
    return place;
  qsizetype left = position - found.position();
  eachPiece(found, [&](const QTextCharFormat&, const QString& piece, int kind) {
    const QString before = piece.left(std::max<qsizetype>(0, left));
    left -= piece.size();
    if (!before.isEmpty())
      place.offset += kind == 0 ? readText(before).size() : isBreak(kind) ? 0 : 1;
  });
  return place;
}

int QtLetter::lineWidth() const {
  constexpr int kPaper = 12240, kSide = 720, kNarrowest = 1440;
  const PageSetup& page = frame_.page;
  const int line = page.width.value_or(kPaper) - page.left.value_or(kSide) - page.right.value_or(kSide);
  return static_cast<int>(pixelsOf(std::max(line, kNarrowest)));
}

}  // namespace zelvo
