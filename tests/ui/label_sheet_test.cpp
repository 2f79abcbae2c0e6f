#include <gtest/gtest.h>
#include <QComboBox>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "base/files.h"
#include "base/text.h"
#include "documents/document_reader.h"
#include "documents/labels/label_font.h"
#include "documents/labels/label_frm.h"
#include "documents/labels/label_sheets.h"
#include "support/temp_folder.h"
#include "ui/printing/page_painter.h"
#include "ui/qt_house.h"

namespace zelvo::testing {
namespace {

/// The label set-up in its window.
class LabelWindow : public ::testing::Test {
 protected:
  LabelWindow() {
    session.programFolder = folder.path();
    EXPECT_TRUE(makeLabelLayouts(folder.path()).ok());
    screens.learn("LabelFrm", [this](Desk& desk) { return std::make_unique<LabelFrm>(desk, settings); });
    screen = dynamic_cast<LabelFrm*>(screens.open("LabelFrm"));
    sheet = house.face.windowOf(*screen)->findChild<QWidget*>("Image1");
  }
  ~LabelWindow() override {
    screens.close(*screen);
    screens.sweep();
  }

  /// The middle of a label on the drawing, which lies true to scale in the middle of its widget.
  QPoint middleOf(SheetPlace place) const {
    const SheetGrid& grid = screen->Image1.grid;
    const double scale = std::min((sheet->width() - 8) / grid.paperWidth, (sheet->height() - 8) / grid.paperHeight);
    const SheetArea area = areaOf(grid, place);
    return QPointF(sheet->width() / 2.0 + (area.left + area.width / 2 - grid.paperWidth / 2) * scale,
                   sheet->height() / 2.0 + (area.top + area.height / 2 - grid.paperHeight / 2) * scale)
        .toPoint();
  }

  TempFolder folder;
  Session session;
  Screens screens;
  LabelSettings settings;
  QtHouse house{session, screens};
  LabelFrm* screen = nullptr;
  QWidget* sheet = nullptr;
};

TEST_F(LabelWindow, AClickOnTheSheetChoosesTheFirstLabel) {
  for (const SheetPlace place : {SheetPlace{1, 1}, SheetPlace{10, 3}, SheetPlace{4, 2}}) {
    QTest::mouseClick(sheet, Qt::LeftButton, {}, middleOf(place));
    EXPECT_EQ(screen->Image1.chosen, place);
    EXPECT_EQ(screen->Text4.text + "/" + screen->Text5.text,
              std::to_string(place.row) + "/" + std::to_string(place.column));
  }
  QTest::mouseClick(sheet, Qt::LeftButton, {}, QPoint(sheet->width() / 2, 1));
  EXPECT_EQ(screen->Image1.chosen, (SheetPlace{4, 2})) << "the margin is no label";
  auto* layouts = house.face.windowOf(*screen)->findChild<QComboBox*>("Combo1");
  layouts->setCurrentText("Avery 5167");
  emit layouts->activated(layouts->currentIndex());
  QTest::mouseClick(sheet, Qt::LeftButton, {}, middleOf({20, 4}));
  EXPECT_EQ(screen->Image1.chosen, (SheetPlace{20, 4})) << "the drawing is that of the layout at hand";
}

TEST_F(LabelWindow, TheArrowKeysWalkOverTheSheet) {
  sheet->setFocus();
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left, Qt::Key_Left})
    QTest::keyClick(sheet, key);
  EXPECT_EQ(screen->Image1.chosen, (SheetPlace{2, 1}));
}

TEST(LabelFont, IsAsWideAsTheFontThatIsPrinted) {
  const TextFont font{"Arial", 10, false, false};
  for (char32_t c = 0x20; c < 0x100; ++c) {
    if ((c >= 0x7F && c < 0xA1) || c == 0xAD)
      continue;
    std::string letter;
    appendCharacter(letter, c);
    EXPECT_NEAR(ArialWidths().advance(font, letter), QtFontMeasure().advance(font, letter), 0.2) << letter;
  }
  const FontHeights known = ArialWidths().heights(font), real = QtFontMeasure().heights(font);
  EXPECT_NEAR(known.ascent + known.descent + known.leading, real.ascent + real.descent + real.leading, 2);
}

/// The words of a PDF with their boxes, in points, a list a page.
struct Word {
  double left, top, right, bottom;
  QString text;
};
std::vector<std::vector<Word>> wordsOf(const std::string& pdf) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("labels.pdf");
  EXPECT_TRUE(replaceFile(path.toStdString(), pdf).ok());
  QProcess reader;
  reader.start("pdftotext", {"-bbox", path, "-"});
  EXPECT_TRUE(reader.waitForFinished()) << "pdftotext is not installed";
  std::vector<std::vector<Word>> pages;
  const QRegularExpression box(R"x(xMin="([0-9.-]+)" yMin="([0-9.-]+)" xMax="([0-9.-]+)" yMax="([0-9.-]+)">([^<]*)<)x");
  for (const QString& line : QString::fromUtf8(reader.readAllStandardOutput()).split('\n')) {
    if (line.contains("<page "))
      pages.emplace_back();
    if (const auto found = box.match(line); found.hasMatch())
      pages.back().push_back({found.captured(1).toDouble(), found.captured(2).toDouble(), found.captured(3).toDouble(),
                              found.captured(4).toDouble(), found.captured(5)});
  }
  return pages;
}

// The printed sheet is measured: every word lies on the label that it was meant for, on each layout of the catalogue.
TEST_F(LabelWindow, EveryWordOfThePdfLiesOnItsLabel) {
  constexpr double kPoints = 72;
  for (const std::string& name : screen->Combo1.items) {
    const LabelLayout layout = *readLabelLayout(folder.path(), name);
    const SheetGrid& grid = layout.grid;
    const int onSheet = grid.across * grid.down;
    std::vector<LabelText> labels;
    for (int i = 0; i < onSheet + 1; ++i) {
      const std::string number = std::to_string(i);
      labels.push_back({number + "/Cholmondeley-Featherstonehaugh " + number + "/& " + number + "/Daughters",
                        number + "/Mill " + number + "/Road", number + "/Alder"});
    }
    const auto sheets = makeLabelSheets(labels, {name, layout, {1, 1}}, ArialWidths());
    const auto pages = wordsOf(*pdfOf(layOutPages(readDocument(sheets.rtf), {}, QtFontMeasure()), "Labels"));
    ASSERT_EQ(pages.size(), 2u) << name;
    EXPECT_GE(pages[0].size(), static_cast<std::size_t>(onSheet) * 4) << name;
    for (const Word& word : pages[0]) {
      const int i = word.text.section('/', 0, 0).toInt();
      const SheetArea area = areaOf(grid, {i / grid.across + 1, i % grid.across + 1});
      EXPECT_TRUE(word.left >= area.left * kPoints && word.right <= (area.left + area.width) * kPoints &&
                  word.top >= area.top * kPoints && word.bottom <= (area.top + area.height) * kPoints)
          << name << ": " << word.text.toStdString();
    }
  }
}

}  // namespace
}  // namespace zelvo::testing
