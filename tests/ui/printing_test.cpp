#include <QFontInfo>
#include <QPainterPath>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "base/files.h"
#include "pdf_reading.h"
#include "sample_screen.h"
#include "support/metafile.h"
#include "ui/printing/font_program.h"
#include "ui/printing/pages_pdf.h"
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
  const RealFonts fonts;
  for (const char* text :
       {"Permit 26-0012, \u00A7 7 \u2014 \u201CJos\u00E9\u201D", "fi fl AV To", "e\u0301 \u4E2D\u6587 \U0001F600"}) {
    const QFont font = paperFont(kCourier10);
    EXPECT_NEAR(PaperFace(kCourier10, fonts).advance(text), QFontMetricsF(font).horizontalAdvance(text), 1) << text;
  }
}

// An accented letter is drawn with the outlines of two others, which have to come along.
TEST(Paper, ThePartOfAFontDrawsItsLettersAsTheWholeFont) {
  const QRawFont whole = QRawFont::fromFont(paperFont({"Times New Roman", 10, false, false}));
  const auto program = FontProgram::of(whole);
  ASSERT_TRUE(program);
  EXPECT_FALSE(FontProgram::of(QRawFont()));
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
