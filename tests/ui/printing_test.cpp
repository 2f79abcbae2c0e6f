#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "base/files.h"
#include "sample_screen.h"
#include "support/metafile.h"
#include "ui/printing/font_program.h"
#include "ui/printing/glyph_pdf.h"
#include "ui/printing/page_painter.h"
#include "ui/printing/paper_font.h"

namespace zelvo::testing {
namespace {

const TextFont kCourier10{"Courier New", 10, false, false};

TEST(Paper, ALineOfAReportIsAsWideAsItsCharacters) {
  ASSERT_TRUE(QFontInfo(QFont("Courier New")).fixedPitch()) << "the Liberation fonts are not installed";
  EXPECT_NEAR(QtFontMeasure().advance(kCourier10, std::string(76, 'M')), 456 * 20, 2);
  const FontHeights heights = QtFontMeasure().heights(kCourier10);
  EXPECT_NEAR(heights.ascent + heights.descent, 226, 4) << "1.13 of 10 points";
}

// What a public program says of a PDF, which lies beside it as roster.pdf.
QByteArray readPdf(const std::string& pdf, const QString& program, const QStringList& arguments) {
  const QTemporaryDir folder;
  EXPECT_TRUE(replaceFile(folder.filePath("roster.pdf").toStdString(), pdf));
  QProcess reader;
  reader.setWorkingDirectory(folder.path());
  reader.start(program, arguments);
  EXPECT_TRUE(reader.waitForFinished()) << program.toStdString() << " is not installed";
  EXPECT_EQ(reader.readAllStandardError().toStdString(), "");
  return reader.readAllStandardOutput();
}

// The words of a PDF with their places, in points.
QString boxesIn(const std::string& pdf) {
  return readPdf(pdf, "pdftotext", {"-bbox", "roster.pdf", "-"});
}

// The printed page is measured, not the intention: 76 characters of 10 point Courier are 456 points wide.
TEST(Paper, ThePdfHasTheWidthThatWasLaidOut) {
  PagedDocument document;
  document.pages.resize(2);
  document.pages[0].texts.push_back({1440, 1440, 9120, std::string(76, 'M'), kCourier10, {}});
  document.pages[1].texts.push_back({720, 1440, 0, "second", kCourier10, {}});
  const auto pdf = pdfOf(document, "Roster");
  ASSERT_TRUE(pdf);
  const QString boxes = boxesIn(*pdf);
  EXPECT_EQ(boxes.count("<page width=\"612.000000\" height=\"792.000000\">"), 2);
  const QRegularExpression word("xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\"[^>]*>M+<");
  const auto found = word.match(boxes);
  ASSERT_TRUE(found.hasMatch()) << boxes.toStdString();
  EXPECT_NEAR(found.captured(1).toDouble(), 72, 0.1);
  EXPECT_NEAR(found.captured(2).toDouble() - found.captured(1).toDouble(), 456, 0.2);
}

TEST(Paper, ADrawingIsPaintedIntoItsPlace) {
  Picture seal;
  seal.kind = PictureKind::Metafile;
  seal.bytes = metafile(record(0x012E, {24}) + record(0x0A32, {100, 50, 4, 0}, "Town"));
  seal.cropLeft = 0.25;
  PagedDocument document;
  document.pages.resize(1);
  document.pages[0].pictures.push_back({1440, 1440, 1440, 1440, std::make_shared<Picture>(seal)});
  const QRegularExpression word("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" [^>]*yMax=\"([0-9.]+)\">Town<");
  const QString words = boxesIn(pdfOf(document, "Seal").value());
  const auto found = word.match(words);
  ASSERT_TRUE(found.hasMatch()) << words.toStdString();
  EXPECT_NEAR(found.captured(1).toDouble(), 72 + 24, 0.5) << "half of the drawing, of which a quarter is cut off";
  EXPECT_LT(found.captured(2).toDouble(), 72 + 36);
  EXPECT_GT(found.captured(3).toDouble(), 72 + 36);
}

// What the fonts do not have is left to the system, and stands behind what they have.
TEST(Paper, TextsOfManyScriptsAreAsWideAsTheyAreDrawn) {
  for (const char* text :
       {"Permit 26-0012, \u00A7 7 \u2014 \u201CJos\u00E9\u201D", "fi fl AV To", "e\u0301 \u4E2D\u6587 \U0001F600"}) {
    const QFont font = paperFont(kCourier10);
    EXPECT_NEAR(PaperFace(kCourier10).advance(text), QFontMetricsF(font).horizontalAdvance(text), 1) << text;
  }
}

Page pageOfManyLooks() {
  Page page;
  page.width = 15840;
  page.height = 12240;
  page.shades.push_back({1400, 1200, 3000, 300, {255, 220, 0}});
  const std::string text = "Se\u00F1or (O\u2019Brien) \u00A7 7 \u2014 \u0414\u043E\u043C <26-0012> \\ 50%";
  double line = 1440;
  for (const char* family : {"Times New Roman", "Arial", "Courier New"})
    for (const bool bold : {false, true})
      for (const bool italic : {false, true})
        page.texts.push_back({1440.5, line += 700, 0, text, {family, line / 500, bold, italic}, {0, 64, 255}});
  page.rules.push_back({1440, 9000.5, 6000, 10, {128, 0, 0}});
  return page;
}

double darknessOf(const QImage& picture) {
  double sum = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      sum += 255 - qGray(picture.pixel(x, y));
  return sum / 255;
}

// How far two pictures differ, against all the ink of the first.
double differenceOf(const QImage& first, QImage second) {
  QPainter painter(&second);
  painter.setCompositionMode(QPainter::CompositionMode_Difference);
  painter.drawImage(0, 0, first);
  painter.end();
  second.invertPixels();
  return darknessOf(second) / darknessOf(first);
}

// Pages of plain text are written glyph for glyph, pages with a picture are painted: nobody may see which.
TEST(Paper, WrittenPagesLookAsPaintedOnes) {
  PagedDocument document;
  document.pages = {pageOfManyLooks(), Page{}};
  const PaperFaces faces;
  const std::string written = pdfOf(document, "Roster", faces).value();
  EXPECT_EQ(glyphPdf(document, "Roster", faces).value().size(), written.size()) << "of the same letter again";
  document.pages[1].pictures.push_back({0, 0, 1, 1, std::make_shared<Picture>()});
  EXPECT_FALSE(glyphPdf(document, "Roster", faces));
  const std::string painted = pdfOf(document, "Roster", faces).value();
  EXPECT_EQ(readPdf(written, "pdftotext", {"roster.pdf", "-"}).toStdString(),
            readPdf(painted, "pdftotext", {"roster.pdf", "-"}).toStdString());
  const auto seen = [](const std::string& pdf) {
    return QImage::fromData(readPdf(pdf, "pdftoppm", {"-r", "96", "-singlefile", "roster.pdf"}))
        .convertToFormat(QImage::Format_RGB32);
  };
  const QImage first = seen(written), second = seen(painted);
  ASSERT_EQ(first.size(), QSize(1056, 816));
  ASSERT_EQ(first.size(), second.size());
  EXPECT_GT(darknessOf(first), 5000);
  EXPECT_LT(differenceOf(first, second), 0.05);
}

// An accented letter is drawn with the outlines of two others, which have to come along.
TEST(Paper, ThePartOfAFontDrawsItsLettersAsTheWholeFont) {
  const QRawFont whole = QRawFont::fromFont(paperFont({"Times New Roman", 10, false, false}));
  const auto program = FontProgram::of(whole, false, false);
  ASSERT_TRUE(program);
  EXPECT_FALSE(FontProgram::of(whole, true, false)) << "bold letters that the font has not";
  EXPECT_FALSE(FontProgram::of(whole, false, true)) << "slanted letters that the font has not";
  EXPECT_FALSE(FontProgram::of(QRawFont(), false, false));
  const QList<quint32> wanted = whole.glyphIndexesForString(QString::fromUtf8("\u00C5g\u00FC\u0416"));
  const QByteArray bytes = program->part({wanted.begin(), wanted.end()});
  EXPECT_LT(bytes.size(), 30000);
  const QRawFont part(bytes, kPaperFontSize, QFont::PreferNoHinting);
  ASSERT_TRUE(part.isValid());
  for (const quint32 glyph : wanted) {
    EXPECT_FALSE(part.pathForGlyph(glyph).isEmpty()) << glyph;
    EXPECT_TRUE(part.pathForGlyph(glyph) == whole.pathForGlyph(glyph)) << glyph;
    EXPECT_EQ(part.advancesForGlyphIndexes({glyph}), whole.advancesForGlyphIndexes({glyph})) << glyph;
  }
  const QList<quint32> other = whole.glyphIndexesForString(QStringLiteral("Q"));
  EXPECT_TRUE(part.pathForGlyph(other.front()).isEmpty()) << "a letter that nobody wrote";
}

TEST(Paper, ThePdfIsNamedAsTheDocument) {
  PagedDocument document;
  document.pages.resize(1);
  const QString facts = readPdf(pdfOf(document, "Se\u00F1or (1) \\ <2>").value(), "pdfinfo", {"roster.pdf"});
  EXPECT_TRUE(facts.contains(QString::fromUtf8("Se\u00F1or (1) \\ <2>"))) << facts.toStdString();
  EXPECT_TRUE(facts.contains("612 x 792 pts (letter)")) << facts.toStdString();
}

TEST(Paper, TextsThatNoFontHasWholeArePainted) {
  for (const char* text : {"\u4E2D", "e\u0301", "\u05D0"}) {
    PagedDocument document;
    document.pages.resize(1);
    document.pages[0].texts.push_back({1440, 1440, 0, text, kCourier10, {}});
    EXPECT_FALSE(glyphPdf(document, "Roster", PaperFaces())) << text;
  }
}

TEST(Paper, ADocumentOfTooManyPagesIsRefused) {
  PagedDocument document;
  document.pages.resize(1);
  document.isCutOff = true;
  const auto refused = pdfOf(document, "Roster");
  ASSERT_FALSE(refused);
  EXPECT_NE(refused.error().message.find("\"Roster\" has more than 2000 pages"), std::string::npos);
}

TEST_F(WindowTest, AMissingDocumentAndAnUnknownPrinterAreErrorsThatSaySo) {
  PrintJob job{"Building Permit", "/no/such/tmp.rtf", {}};
  EXPECT_FALSE(house.printing.print(job));
  const QTemporaryDir folder;
  job.rtfPath = folder.filePath("tmp.rtf").toStdString();
  ASSERT_TRUE(replaceFile(job.rtfPath, "{\\rtf1 Permit}"));
  job.options.printer = "no-such-printer";
  const auto refused = house.printing.print(job);
  ASSERT_FALSE(refused);
  EXPECT_NE(refused.error().message.find("no-such-printer"), std::string::npos);
  EXPECT_TRUE(house.printing.pdfOfJob(job).value().starts_with("%PDF"));
}

}  // namespace
}  // namespace zelvo::testing
