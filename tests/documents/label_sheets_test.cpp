// Labels on paper: every text on its own label, whatever the sheet and however long the name.

#include "documents/labels/label_sheets.h"

#include <gtest/gtest.h>

#include <set>

#include "documents/labels/label_fit.h"
#include "documents/labels/label_font.h"
#include "documents/labels/label_places.h"
#include "fixed_pitch.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

constexpr double kTwips = 1440;

/// The pages of label sheets as they would be printed.
PagedDocument paged(const LabelSheets& sheets, const FontMeasure& measure) {
  return layOutPages(readDocument(sheets.rtf), PrintOptions{}, measure);
}

std::string at(SheetPlace place) {
  return std::to_string(place.row) + "," + std::to_string(place.column);
}

/// Every text of a page with the label that it stands on, "1,2 Smith"; one that leaves its label says so.
std::vector<std::string> textsByLabel(const Page& page, const SheetGrid& grid) {
  std::vector<std::string> texts;
  for (const TextPiece& piece : page.texts) {
    const auto place = placeAt(grid, piece.x / kTwips, piece.baseline / kTwips);
    const SheetArea area = place ? areaOf(grid, *place) : SheetArea{};
    const double size = piece.font.points * 20;
    const bool inside = place && piece.baseline - 0.9 * size >= area.top * kTwips &&
                        piece.baseline + 0.25 * size <= (area.top + area.height) * kTwips &&
                        piece.x + piece.width <= (area.left + area.width) * kTwips &&
                        piece.x + piece.width <= grid.paperWidth * kTwips;
    texts.push_back((place ? at(*place) : "beside the labels") + (inside ? " " : " sticks out: ") + piece.text);
  }
  return texts;
}

std::vector<LabelText> numbered(int count) {
  std::vector<LabelText> labels;
  for (int i = 1; i <= count; ++i)
    labels.push_back({std::to_string(i)});
  return labels;
}

LabelSettings sheetOf(const LabelLayout& layout, SheetPlace start = {}) {
  return {"", layout, start};
}

/// The layouts that come with the program, and the built-in one.
class LabelSheet : public ::testing::Test {
 protected:
  LabelSheet() {
    EXPECT_TRUE(makeLabelLayouts(folder.path()).ok());
    layouts.push_back(LabelLayout{});
    for (const std::string& name : labelCatalogue(folder.path()))
      layouts.push_back(*readLabelLayout(folder.path(), name));
    EXPECT_EQ(layouts.size(), 7u);
  }

  TempFolder folder;
  std::vector<LabelLayout> layouts;
};

TEST_F(LabelSheet, NoTextLeavesItsLabelOnAnyLayout) {
  const LabelText hard[] = {
      {"Smith, John", "12 Mill Road", "Alder Glen, NY 12009"},
      {"The Honourable Bartholomew Featherstonehaugh-Cholmondeley III and Family", "1 A", "B"},
      {"W", std::string(200, 'W'), "Alder Glen"},
      {"Zoë {Æther} \\ Łódź & Sons", "c/o the very long name of a company that nobody can read to its end, Inc.", "X"},
      {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}};
  const ArialWidths arial;
  const FixedPitch fixed;
  for (const FontMeasure* measure : {static_cast<const FontMeasure*>(&arial), static_cast<const FontMeasure*>(&fixed)})
    for (const LabelLayout& layout : layouts) {
      const int count = layout.grid.across * layout.grid.down;
      std::vector<LabelText> labels;
      for (int i = 0; i < count; ++i)
        labels.push_back(hard[static_cast<std::size_t>(i) % std::size(hard)]);
      const PagedDocument document = paged(makeLabelSheets(labels, sheetOf(layout), *measure), *measure);
      ASSERT_EQ(document.pages.size(), 1u) << layout.description;
      std::set<std::string> filled;
      for (const std::string& text : textsByLabel(document.pages[0], layout.grid)) {
        EXPECT_EQ(text.find("beside"), std::string::npos) << layout.description << ": " << text;
        EXPECT_EQ(text.find("sticks out"), std::string::npos) << layout.description << ": " << text;
        filled.insert(text.substr(0, text.find(' ')));
      }
      EXPECT_EQ(filled.size(), static_cast<std::size_t>(count)) << layout.description << ": every label has its text";
    }
}

TEST_F(LabelSheet, LabelsLieWhereTheSheetHasThemOnEveryPage) {
  for (const LabelLayout& layout : layouts) {
    const SheetGrid& grid = layout.grid;
    const int onSheet = grid.across * grid.down;
    const LabelSheets sheets = makeLabelSheets(numbered(2 * onSheet + 1), sheetOf(layout), ArialWidths());
    const PagedDocument document = paged(sheets, ArialWidths());
    ASSERT_EQ(document.pages.size(), 3u) << layout.description;
    EXPECT_EQ(sheets.sheets, 3);
    for (int i = 0; i < 2 * onSheet; ++i) {
      const TextPiece& piece =
          document.pages[static_cast<std::size_t>(i / onSheet)].texts.at(static_cast<std::size_t>(i % onSheet));
      const SheetArea area = areaOf(grid, {i % onSheet / grid.across + 1, i % grid.across + 1});
      EXPECT_EQ(piece.text, std::to_string(i + 1));
      EXPECT_NEAR(piece.x, area.left * kTwips + 160, 1) << layout.description << " " << i;
      const double middle = piece.baseline - piece.font.points * 20 * (0.905 - 1.15 / 2);
      EXPECT_NEAR(middle, (area.top + area.height / 2) * kTwips, 8) << layout.description << " " << i;
    }
  }
}

TEST_F(LabelSheet, PrintingBeginsAtTheChosenLabel) {
  struct Row {
    const char* why;
    SheetPlace start;
    int labels;
    std::vector<std::string> first, last;  // on the first and on the last page
    int sheets;
    SheetPlace next;
  };
  const Row rows[] = {{"a new sheet", {1, 1}, 2, {"1,1 1", "1,2 2"}, {"1,1 1", "1,2 2"}, 1, {1, 3}},
                      {"in the middle", {4, 2}, 3, {"4,2 1", "4,3 2", "5,1 3"}, {"4,2 1", "4,3 2", "5,1 3"}, 1, {5, 2}},
                      {"the last label of a sheet", {10, 3}, 2, {"10,3 1"}, {"1,1 2"}, 2, {1, 2}},
                      {"one that fills the sheet", {10, 2}, 2, {"10,2 1", "10,3 2"}, {"10,2 1", "10,3 2"}, 1, {1, 1}},
                      {"a place that the sheet does not have", {11, 4}, 1, {"1,1 1"}, {"1,1 1"}, 1, {1, 2}}};
  for (const Row& row : rows) {
    const LabelSettings settings = sheetOf(LabelLayout{}, row.start);
    const LabelSheets sheets = makeLabelSheets(numbered(row.labels), settings, ArialWidths());
    const PagedDocument document = paged(sheets, ArialWidths());
    ASSERT_EQ(static_cast<int>(document.pages.size()), row.sheets) << row.why;
    EXPECT_EQ(sheets.sheets, row.sheets) << row.why;
    EXPECT_EQ(textsByLabel(document.pages.front(), settings.layout.grid), row.first) << row.why;
    EXPECT_EQ(textsByLabel(document.pages.back(), settings.layout.grid), row.last) << row.why;
    EXPECT_EQ(sheets.next, row.next) << row.why << ": " << at(sheets.next);
  }
}

// A sheet that is shifted by its margins loses the labels that no longer lie on the paper.
TEST_F(LabelSheet, LabelsBesideThePaperAreLeftOut) {
  LabelSettings settings = sheetOf(LabelLayout{});
  settings.layout.grid.top = 2.5;
  settings.layout.grid.left = 1;
  EXPECT_EQ(LabelPlaces(settings.layout.grid).count(), 8 * 2);
  const LabelSheets sheets = makeLabelSheets(numbered(17), settings, ArialWidths());
  const PagedDocument document = paged(sheets, ArialWidths());
  ASSERT_EQ(document.pages.size(), 2u);
  EXPECT_EQ(textsByLabel(document.pages[0], settings.layout.grid).at(15), "8,2 16");
  EXPECT_EQ(textsByLabel(document.pages[1], settings.layout.grid), (std::vector<std::string>{"1,1 17"}));
  settings.layout.grid.left = 8;
  EXPECT_EQ(makeLabelSheets(numbered(1), settings, ArialWidths()).sheets, 0);
  EXPECT_EQ(makeLabelSheets({}, sheetOf(LabelLayout{}), ArialWidths()).sheets, 0);
}

// 60 letters of 12 twips a point are 720 twips a point wide: 7,920 at 11 points, 5,040 at 7.
TEST(LabelFit, ShrinksThenWrapsThenCuts) {
  const std::string sixty = "abcdefghi abcdefghi abcdefghi abcdefghi abcdefghi abcdefghi.";
  const TextFont eleven{"Arial", 11, false, false};
  struct Row {
    const char* why;
    double width, height;
    std::vector<std::string> lines;
    double points;
    std::vector<std::string> fitted;
  };
  const Row rows[] = {{"room enough", 8000, 500, {sixty, "X"}, 11, {sixty, "X"}},
                      {"smaller letters are narrow enough", 6000, 500, {sixty, "X"}, 8, {sixty, "X"}},
                      {"smaller letters are low enough", 8000, 320, {sixty, "X"}, 8, {sixty, "X"}},
                      {"over two lines, in letters as large as they may be",
                       4000,
                       660,
                       {sixty, "X"},
                       11,
                       {"abcdefghi abcdefghi abcdefghi", "abcdefghi abcdefghi abcdefghi.", "X"}},
                      {"in the smallest ones the rest is cut",
                       1764,
                       420,
                       {sixty, "X"},
                       7,
                       {"abcdefghi abcdefghi", "abcdefghi abcdefgh...", "X"}},
                      {"lines for which the label is too low share one, and the city is there",
                       5040,
                       280,
                       {"Smith, John", "c/o Hollis", "Unit 7", "Quarry Lane Extension", "Alder Glen, NY 12009"},
                       7,
                       {"Smith, John, c/o Hollis, Unit 7", "Quarry Lane Extension, Alder Glen, NY 12009"}},
                      {"a word without blanks is cut where the label ends",
                       840,
                       280,
                       {std::string(40, 'w'), "X"},
                       7,
                       {"wwwwwww...", "X"}}};
  for (const Row& row : rows) {
    const FittedLabel fitted = fitLabel(row.lines, row.width, row.height, eleven, FixedPitch());
    EXPECT_EQ(fitted.points, row.points) << row.why;
    EXPECT_EQ(fitted.lines, row.fitted) << row.why;
  }
}

TEST(LabelText, IsTheNameAndWhatTheSplitterMakesOfTheAddress) {
  struct Row {
    const char *name, *block;
    LabelText lines;
  };
  const Row rows[] = {
      {"Smith, John", "12 Mill Road, Alder Glen, NY 12009", {"Smith, John", "12 Mill Road", "Alder Glen, NY 12009"}},
      {" Hollis\r\n& Daughters\n", "3 Quarry\r\n Lane ,  X ", {"Hollis", "& Daughters", "3 Quarry Lane", "X"}},
      {"", "12 Mill Road", {"12 Mill Road", "<no city state zip>"}},
      {"Smith", "", {"Smith", "<no address>", "<no city state zip>"}}};
  for (const Row& row : rows)
    EXPECT_EQ(labelText(row.name, row.block), row.lines) << row.name << " / " << row.block;
}

TEST(LabelPrinting, LeavesMarginsAndLandscapeToTheSheet) {
  TempFolder folder;
  testing::ScriptedDesk office;
  office.session.programFolder = folder.path();
  office.session.print.landscape = office.session.print.marginsSet = true;
  office.session.print.left = 3;
  const auto printed = printLabels(office.desk, numbered(2), {}, "Labels");
  ASSERT_TRUE(printed) << printed.error().message;
  ASSERT_EQ(office.printed.size(), 1u);
  EXPECT_FALSE(office.printed[0].options.landscape || office.printed[0].options.marginsSet);
  EXPECT_EQ(folder.read("tmp.rtf"), printed->rtf);
  EXPECT_FALSE(printLabels(office.desk, {}, {}, "Labels"));
  EXPECT_EQ(office.printed.size(), 1u);
}

}  // namespace
}  // namespace zelvo
