#include <gtest/gtest.h>
#include <QComboBox>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <set>

#include "base/files.h"
#include "base/text.h"
#include "documents/document_reader.h"
#include "documents/labels/label_font.h"
#include "documents/labels/label_frm.h"
#include "documents/labels/label_sheets.h"
#include "support/temp_folder.h"
#include "ui/printing/pages_pdf.h"
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

// Owners as the rolls have them; each line begins with the number of its label.
LabelText hardLabel(int i) {
  const std::string number = std::to_string(i) + "/";
  const std::vector<LabelText> hard = {
      {"Cholmondeley-Featherstonehaugh & Daughters", "12 Mill Road", "Alder Glen, NY 12009"},
      {std::string(60, 'W'), "Mill", "Alder"},
      {"Smith, John", "c/o Hollis", "Unit 7, Building C", "Quarry Lane Extension", "Alder Glen, NY 12009-0417"},
      {},
      {"Zoë Łódź-Ærøskøbing", "%nm {%25} \\par }", "100 % 'Öl' \"x\""}};
  LabelText lines;
  for (const std::string& line : hard[static_cast<std::size_t>(i) % hard.size()])
    lines.push_back(number + line);
  return lines;
}

// The label of a sheet on which a word lies with all of its box; -1 when it lies on none.
int labelUnder(const Word& word, const SheetGrid& grid) {
  constexpr double kPoints = 72;
  for (int i = 0; i < grid.across * grid.down; ++i) {
    const SheetArea area = areaOf(grid, {i / grid.across + 1, i % grid.across + 1});
    if (word.left >= area.left * kPoints && word.right <= (area.left + area.width) * kPoints &&
        word.top >= area.top * kPoints && word.bottom <= (area.top + area.height) * kPoints)
      return i;
  }
  return -1;
}

// The printed sheets are measured: every word lies on the label that it was meant for, on each layout of the catalogue.
TEST_F(LabelWindow, EveryWordOfThePdfLiesOnItsLabel) {
  for (const std::string& name : screen->Combo1.items) {
    const LabelLayout layout = *readLabelLayout(folder.path(), name);
    const int onSheet = layout.grid.across * layout.grid.down;
    const int skipped = layout.grid.across + 1;  // begins with the second label of the second row
    std::vector<LabelText> labels;
    for (int i = 0; i <= onSheet; ++i)
      labels.push_back(hardLabel(i));
    for (const int first : {0, skipped}) {
      const SheetPlace start{first / layout.grid.across + 1, first % layout.grid.across + 1};
      const auto sheets = makeLabelSheets(labels, {name, layout, start}, ArialWidths());
      const auto pages = wordsOf(*pdfOf(layOutPages(readDocument(sheets.rtf), {}, QtFontMeasure()), "Labels"));
      ASSERT_EQ(pages.size(), 2u) << name << ": the label behind the last one of a sheet is on the next";
      std::set<int> seen;
      for (std::size_t page = 0; page < pages.size(); ++page)
        for (const Word& word : pages[page]) {
          const int under = labelUnder(word, layout.grid);
          ASSERT_GE(under, 0) << name << ": " << word.text.toStdString();
          const int label = under + static_cast<int>(page) * onSheet - first;
          if (const auto slash = word.text.indexOf('/'); slash > 0 && word.text[0].isDigit()) {
            EXPECT_EQ(word.text.left(slash).toInt(), label) << name;
            seen.insert(label);
          }
        }
      for (int i = 0; i <= onSheet; ++i)
        EXPECT_EQ(seen.contains(i), !labels[static_cast<std::size_t>(i)].empty()) << name << ", label " << i;
    }
  }
}

}  // namespace
}  // namespace zelvo::testing
