#include <QFontInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "base/files.h"
#include "sample_screen.h"
#include "ui/printing/page_painter.h"

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
  const QTemporaryDir folder;
  const QString path = folder.filePath("roster.pdf");
  ASSERT_TRUE(replaceFile(path.toStdString(), *pdf));
  QProcess reader;
  reader.start("pdftotext", {"-bbox", path, "-"});
  ASSERT_TRUE(reader.waitForFinished()) << "pdftotext is not installed";
  const QString boxes = reader.readAllStandardOutput();
  EXPECT_EQ(boxes.count("<page width=\"612.000000\" height=\"792.000000\">"), 2);
  const QRegularExpression word("xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\"[^>]*>M+<");
  const auto found = word.match(boxes);
  ASSERT_TRUE(found.hasMatch()) << boxes.toStdString();
  EXPECT_NEAR(found.captured(1).toDouble(), 72, 0.1);
  EXPECT_NEAR(found.captured(2).toDouble() - found.captured(1).toDouble(), 456, 0.2);
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
