// What stands in the PDFs that go to the printer and into the records: read, measured and looked at from outside.

#include "ui/printing/pages_pdf.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QRegularExpression>

#include "documents/document_reader.h"
#include "documents/picture_file.h"
#include "pdf_reading.h"
#include "support/metafile.h"
#include "ui/printing/page_painter.h"
#include "ui/qt_text.h"

namespace zelvo::testing {
namespace {

PagedDocument pageOf(std::vector<TextPiece> texts) {
  PagedDocument document;
  document.pages.resize(1);
  document.pages[0].texts = std::move(texts);
  return document;
}

std::string pdfOfText(const std::string& text, const TextFont& font = {}) {
  return pdfOf(pageOf({{1440, 1440, 0, text, font, {}}}), "Letter").value();
}

std::string pdfOfLetter(const std::string& body) {
  const QtFontMeasure fonts;
  return pdfOf(layOutPages(readDocument("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}" + body + "}"), {}, fonts), "Letter")
      .value();
}

Picture pictureOf(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, format);
  return readPicture(bytes.toStdString()).value();
}

// A square of four colours.
QImage fourColours(QImage::Format format) {
  QImage image(60, 60, QImage::Format_RGB32);
  const QColor colours[] = {Qt::red, Qt::green, Qt::blue, Qt::black};
  for (int y = 0; y < 60; ++y)
    for (int x = 0; x < 60; ++x)
      image.setPixelColor(x, y, colours[x / 30 + y / 30 * 2]);
  return image.convertToFormat(format);
}

PagedDocument pageOf(const Picture& picture) {
  PagedDocument document;
  document.pages.resize(1);
  document.pages[0].pictures.push_back({1440, 2880, 1440, 720, std::make_shared<Picture>(picture)});
  return document;
}

bool canBeWritten(const char* text) {
  for (const QString& family : QFontDatabase::families())
    if (QFontMetrics(QFont(family)).inFont(QString::fromUtf8(text).front()))
      return true;
  return false;
}

// Without what a reader adds of its own: blanks where signs stand far apart, and which way a text is read.
std::string lettersOf(std::string_view text) {
  QString letters;
  for (const QChar letter : qtText(text).normalized(QString::NormalizationForm_C))
    if (!letter.isSpace() && (letter < QChar(0x202A) || letter > QChar(0x202E)))
      letters += letter;
  return letters.toStdString();
}

TEST(PagesPdf, TextReadsBackAsItWasWritten) {
  const char* texts[] = {"Permit 26-0012, \u00A7 7 \u2014 \u201CJos\u00E9\u201D",
                         "fi fl \uFB01 AV To <(a)> \\ 50%",
                         "\u0414\u043E\u043C \u03A9\u2126 \u1EC7 \u2082",
                         "Jose\u0301 n\u0303",
                         "\u2611 \u25CF \u2192 \u00BD",
                         "permit \u4E2D\u6587, then on",
                         "\u5EFA\u7BC9\u78BA\u8A8D \u3053\u308C",
                         "\U0001F600 \U0001F4A9",
                         "\uC548\uB155 \u05D0",
                         "\u0633\u0645\u064A\u0631"};
  for (const char* family : {"Times New Roman", "Courier New", "Nimbus Sans", "C059"})
    for (const char* text : texts)
      for (const bool bold : {false, true})
        EXPECT_EQ(lettersOf(wordsIn(pdfOfText(text, {family, 12, bold, bold}))), lettersOf(text)) << family;
  EXPECT_EQ(wordsIn(pdfOfText(texts[0])), texts[0]);
  EXPECT_EQ(wordsIn(pdfOfText("fixed\u00A0blank\u200B\x01 unseen")), "fixed blank unseen");
}

// A line of several fonts goes on where the one before ended.
TEST(PagesPdf, WordsStandWhereTheyWereLaidOut) {
  const QtFontMeasure fonts;
  const std::string line = "Permit \u4E2D\u6587 e\u0301a \u2611 end";
  for (const bool bold : {false, true}) {
    const TextFont font{"Arial", 20, bold, bold};
    const double before = fonts.advance(font, line.substr(0, line.size() - 3)), end = fonts.advance(font, "end");
    const QString boxes = boxesIn(pdfOfText(line, font));
    const auto found =
        QRegularExpression("xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\"[^>]*>end<").match(boxes);
    ASSERT_TRUE(found.hasMatch()) << boxes.toStdString();
    EXPECT_NEAR(found.captured(1).toDouble(), 72 + before / 20, 0.3);
    EXPECT_NEAR(found.captured(2).toDouble(), 72 + (before + end) / 20, 0.3);
  }
}

// Bold letters of a font that has none are thickened, slanted ones lean.
TEST(PagesPdf, BoldIsBolderInEveryFont) {
  for (const char* family : {"Times New Roman", "Arial", "Courier New", "Droid Sans Fallback", "Nimbus Sans", "C059"})
    for (const char* text : {"Permit number", "\u4E2D\u6587\u6587"}) {
      if (!canBeWritten(text))
        continue;
      const double usual = darknessOf(seenPdf(pdfOfText(text, {family, 24, false, false})));
      EXPECT_GT(darknessOf(seenPdf(pdfOfText(text, {family, 24, true, false}))), usual * 1.08) << family << text;
      const QImage upright = seenPdf(pdfOfText(text, {family, 24, false, false}));
      EXPECT_GT(differenceOf(upright, seenPdf(pdfOfText(text, {family, 24, false, true}))), 0.2) << family << text;
    }
}

TEST(PagesPdf, EveryLookOfALetterIsSeen) {
  const std::string table = "{\\colortbl;\\red255\\green0\\blue0;\\red255\\green255\\blue0;}\\fs48 ";
  const auto seen = [&](const char* look) { return seenPdf(pdfOfLetter(table + "{" + look + " HHHH}")); };
  const QImage plain = seen("");
  const double ink = darknessOf(plain);
  EXPECT_GT(darknessOf(seen("\\ul")), ink * 1.05);
  EXPECT_GT(darknessOf(seen("\\strike")), ink * 1.02);
  EXPECT_LT(darknessOf(seen("\\super")), ink * 0.6);
  EXPECT_GT(differenceOf(seen("\\super"), seen("\\sub")), 1.0) << "at another height";
  const auto holds = [](const QImage& image, QRgb colour) {
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixel(x, y) == colour)
          return true;
    return false;
  };
  EXPECT_TRUE(holds(seen("\\cf1"), qRgb(255, 0, 0)));
  EXPECT_FALSE(holds(seen("\\cf1"), qRgb(0, 0, 0)));
  EXPECT_TRUE(holds(seen("\\highlight2"), qRgb(255, 255, 0)));
  EXPECT_TRUE(holds(seen("\\highlight2"), qRgb(0, 0, 0))) << "the letters stand on it";
}

TEST(PagesPdf, PicturesOfEveryKindStandAtTheirPlace) {
  struct Row {
    const char* why;
    QImage image;
    const char* format;
    int off;  // what a colour may differ
  };
  const QImage usual = fourColours(QImage::Format_RGB32);
  const Row rows[] = {{"a drawing of many colours", usual, "png", 0},
                      {"a drawing of few colours", fourColours(QImage::Format_Indexed8), "png", 0},
                      {"one that lets the paper through", fourColours(QImage::Format_ARGB32), "png", 0},
                      {"a bitmap", usual, "bmp", 0},
                      {"a bitmap of few colours", fourColours(QImage::Format_Indexed8), "bmp", 0},
                      {"a photograph", usual, "jpg", 40}};
  for (const Row& row : rows) {
    Picture picture = pictureOf(row.image, row.format);
    const auto dot = [&](const QImage& page, int x, int y) {
      const QRgb is = page.pixel(96 + x, 192 + y);
      return QColor(qRed(is) > 255 - row.off - 1 ? 255
                    : qRed(is) <= row.off        ? 0
                                                 : qRed(is),
                    qGreen(is) > 255 - row.off - 1 ? 255
                    : qGreen(is) <= row.off        ? 0
                                                   : qGreen(is),
                    qBlue(is) > 255 - row.off - 1 ? 255
                    : qBlue(is) <= row.off        ? 0
                                                  : qBlue(is));
    };
    const QImage whole = seenPdf(pdfOf(pageOf(picture), "Letter").value());
    EXPECT_EQ(dot(whole, 20, 10), QColor(Qt::red)) << row.why;
    EXPECT_EQ(dot(whole, 76, 10), QColor(Qt::green)) << row.why;
    EXPECT_EQ(dot(whole, 20, 38), QColor(Qt::blue)) << row.why;
    EXPECT_EQ(dot(whole, 76, 38), QColor(Qt::black)) << row.why;
    EXPECT_EQ(whole.pixel(92, 200), qRgb(255, 255, 255)) << row.why << ": nothing beside it";
    EXPECT_EQ(whole.pixel(120, 192 + 52), qRgb(255, 255, 255)) << row.why << ": nothing below it";
    picture.cropLeft = 0.5;
    picture.cropBottom = 0.5;
    const QImage part = seenPdf(pdfOf(pageOf(picture), "Letter").value());
    EXPECT_EQ(dot(part, 10, 6), QColor(Qt::green)) << row.why;
    EXPECT_EQ(dot(part, 86, 42), QColor(Qt::green)) << row.why << ": the quarter fills its place";
    EXPECT_EQ(part.pixel(92, 200), qRgb(255, 255, 255)) << row.why << ": what is cut off is not seen";
  }
}

TEST(PagesPdf, AStampOfTwoColoursStaysSmall) {
  QImage stamp(800, 800, QImage::Format_Mono);
  stamp.fill(1);
  for (int i = 0; i < 800; ++i)
    stamp.setPixel(i, i, 0);
  for (const char* format : {"png", "bmp"}) {
    const std::string pdf = pdfOf(pageOf(pictureOf(stamp, format)), "Letter").value();
    EXPECT_LT(pdf.size(), 8000u) << format;
    EXPECT_NE(pdf.find("/BitsPerComponent 1"), std::string::npos) << format;
    EXPECT_NEAR(darknessOf(seenPdf(pdf)), 0, 40) << format << ": a line, not a block";
  }
}

// The letterhead of a hundred letters would make the file a hundred times as large.
TEST(PagesPdf, APictureGoesInOnceAndAPhotographAsItIs) {
  const Picture photo = pictureOf(fourColours(QImage::Format_RGB32), "jpg");
  PagedDocument document = pageOf(photo);
  for (int i = 0; i < 9; ++i)
    document.pages.push_back(pageOf(photo).pages[0]);
  const std::string pdf = pdfOf(document, "Letter").value();
  const std::size_t first = pdf.find(photo.bytes);
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(pdf.find(photo.bytes, first + 1), std::string::npos);
  EXPECT_EQ(readPdf(pdf, "pdfimages", {"-list", "roster.pdf"}).count('\n'), 2 + 10) << "shown on every page";
}

TEST(PagesPdf, ABrokenPictureLeavesItsPlaceEmpty) {
  std::string photo = pictureOf(fourColours(QImage::Format_RGB32), "jpg").bytes;
  const std::string drawing = pictureOf(fourColours(QImage::Format_RGB32), "png").bytes;
  for (const std::string& bytes : {drawing.substr(0, 60), drawing.substr(0, 30) + std::string(40, 'x'),
                                   photo.substr(0, photo.size() / 3), std::string("\xFF\xD8\xFF"), std::string()}) {
    Picture picture;
    picture.bytes = bytes;
    PagedDocument document = pageOf(picture);
    document.pages[0].texts.push_back({1440, 1440, 0, "Dear owner", {}, {}});
    EXPECT_EQ(wordsIn(pdfOf(document, "Letter").value()), "Dear owner") << bytes.size();
  }
}

TEST(PagesPdf, PagesHaveTheirOwnPaper) {
  PagedDocument document;
  document.pages.resize(3);
  document.pages[1].width = 15840;
  document.pages[1].height = 12240;
  document.pages[2].width = 11906;
  document.pages[2].height = 16838;
  const QByteArray facts =
      readPdf(pdfOf(document, "Letter").value(), "pdfinfo", {"-f", "1", "-l", "3", "roster.pdf"}).simplified();
  for (const char* size : {"Page 1 size: 612 x 792", "Page 2 size: 792 x 612", "Page 3 size: 595.3 x 841.9"})
    EXPECT_TRUE(facts.contains(size)) << size << facts.toStdString();
}

Page pageOfManyLooks() {
  Page page;
  page.width = 15840;
  page.height = 12240;
  page.shades.push_back({1400, 1200, 3000, 300, {255, 220, 0}});
  const std::string text = "Se\u00F1or (O\u2019Brien) \u00A7 7 \u2014 \u0414\u043E\u043C <26-0012> \\ 50% e\u0301";
  double line = 1440;
  for (const char* family : {"Times New Roman", "Arial", "Courier New"})
    for (const bool bold : {false, true})
      for (const bool italic : {false, true})
        page.texts.push_back({1440.5, line += 700, 0, text, {family, line / 500, bold, italic}, {0, 64, 255}});
  page.rules.push_back({1440, 9000.5, 6000, 10, {128, 0, 0}});
  Picture seal;
  seal.kind = PictureKind::Metafile;
  seal.cropLeft = 0.2;
  seal.bytes = metafile(record(0x02FC, {0, 255, 0, 0}) + record(0x012D, {0}) + record(0x0418, {190, 90, 10, 10}) +
                        record(0x02FA, {0, 4, 0, 0, 0xFF}) + record(0x012D, {1}) +
                        record(0x0325, {3, 10, 20, 30, 140, 90, 60}) + record(0x0A32, {100, 50, 4, 0}, "Town"));
  page.pictures.push_back({9000, 1500, 4000, 5000, std::make_shared<Picture>(seal)});
  page.pictures.push_back(
      {1440, 9500, 1440, 1440, std::make_shared<Picture>(pictureOf(fourColours(QImage::Format_ARGB32), "png"))});
  return page;
}

// What the preview shows is what comes out of the printer.
TEST(PagesPdf, LooksAsThePreview) {
  PagedDocument document;
  document.pages = {pageOfManyLooks()};
  const QImage printed = seenPdf(pdfOf(document, "Letter").value());
  ASSERT_EQ(printed.size(), QSize(1056, 816));
  QImage shown(printed.size(), QImage::Format_RGB32);
  shown.fill(Qt::white);
  QPainter painter(&shown);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.scale(96 / 1440.0, 96 / 1440.0);
  PagePainter().paint(painter, document.pages[0]);
  painter.end();
  EXPECT_GT(darknessOf(printed), 10000);
  EXPECT_LT(differenceOf(printed, shown), 0.1);
}

}  // namespace
}  // namespace zelvo::testing
