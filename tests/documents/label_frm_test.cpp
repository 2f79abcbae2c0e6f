#include "documents/labels/label_frm.h"

#include <gtest/gtest.h>

#include "base/files.h"
#include "documents/labels/label_printer.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

class LabelSetUp : public ::testing::Test {
 protected:
  LabelSetUp() {
    office.session.programFolder = folder.path();
    office.screens.learn("LabelFrm", [this](Desk& desk) { return std::make_unique<LabelFrm>(desk, settings); });
  }

  LabelFrm& open() {
    if (screen && office.screens.isOpen(*screen))
      office.screens.close(*screen);
    office.screens.sweep();
    screen = dynamic_cast<LabelFrm*>(office.screens.open("LabelFrm"));
    return *screen;
  }
  void writeCatalogue(const std::vector<std::string>& lines) {
    EXPECT_TRUE(makeFolder(folder.file("labels")).ok());
    EXPECT_TRUE(writeLines(folder.file("labels/Catalog.TXT"), lines).ok());
  }
  void type(const char* box, const char* text) {
    office.set(*screen, box, text);
    office.leave(*screen, box);
  }
  std::string shown(const char* id) { return office.shown(*screen, id); }

  TempFolder folder;
  testing::ScriptedDesk office;
  LabelSettings settings;
  LabelFrm* screen = nullptr;
};

TEST_F(LabelSetUp, OffersTheFirstTenLayoutsOfTheCatalogue) {
  std::vector<std::string> lines = {"12"}, ten;
  for (int i = 1; i <= 12; ++i)
    lines.push_back("Sheet " + std::to_string(i));
  ten.assign(lines.begin() + 1, lines.begin() + 11);
  writeCatalogue(lines);
  EXPECT_EQ(open().Combo1.items, ten);
  struct Row {
    const char* why;
    std::vector<std::string> lines, offered;
  };
  const Row rows[] = {{"the number counts", {"1", "A", "B"}, {"A"}},
                      {"fewer lines than promised", {"3", "A"}, {"A"}},
                      {"empty lines are no layouts", {"3", "A", "", "B"}, {"A", "B"}},
                      {"no number", {"A", "B"}, {"Avery® 5160"}},
                      {"an empty file", {}, {"Avery® 5160"}}};
  for (const Row& row : rows) {
    writeCatalogue(row.lines);
    EXPECT_EQ(open().Combo1.items, row.offered) << row.why;
  }
}

TEST_F(LabelSetUp, ChoosingALayoutShowsWhatItsFileSays) {
  writeCatalogue({"3", "Wide", "Gone", "Broken"});
  folder.write("labels/Wide", "Wide ones\r\nwide\r\n2\r\n7\r\n1.33\r\n4\r\n0.8\r\n0.16\r\n0.19\r\n0.01\r\n");
  folder.write("labels/wide.bmp", "BM");
  folder.write("labels/Broken", "Broken\r\n\r\n0\r\nmany\r\n1\r\n2\r\n0.5\r\n0.5\r\n0\r\n0\r\n");
  LabelFrm& labels = open();
  EXPECT_EQ(shown("lblLayout"), "Avery® 5160\n3 across,10 down,1 x 2.63");

  office.set(labels, "Combo1", "Wide");
  EXPECT_EQ(shown("lblLayout"), "Wide ones\n2 across,7 down,1.33 x 4");
  EXPECT_EQ(labels.Image1.picture, folder.file("labels/wide.bmp"));
  EXPECT_EQ(shown("Text1"), "0.8");
  EXPECT_EQ(shown("Text2"), "0.16");
  EXPECT_EQ(labels.Image1.grid, (SheetGrid{2, 7, 1.33, 4, 0.8, 0.16, 0.19, 0.01}));

  office.set(labels, "Combo1", "Gone");
  EXPECT_EQ(shown("lblLayout"), "Avery® 5160\n3 across,10 down,1 x 2.63");
  EXPECT_EQ(shown("Text2"), "0.2");
  EXPECT_EQ(labels.Image1.picture, "");

  office.expect(" Mailing Labels",
                "The label layout \"Broken\" in the folder \"labels\" describes no sheet of labels.\nThe built-in "
                "layout is used instead.");
  office.set(labels, "Combo1", "Broken");
  EXPECT_EQ(labels.Image1.grid, SheetGrid{});
}

TEST_F(LabelSetUp, MarginsTakeDigitsAndAPointAndKeepTheirLimits) {
  struct Row {
    const char *typed, *kept;
  };
  const Row rows[] = {{"5", "3"},      {"0.1", "0.4"}, {"", "0.4"},       {"3", "3"},     {"0.4", "0.4"},
                      {"0.39", "0.4"}, {"3.01", "3"},  {"-1.5in", "1.5"}, {"abc", "0.4"}, {"1,5", "3"}};
  for (const char* box : {"Text1", "Text2"})
    for (const Row& row : rows) {
      open();
      type(box, row.typed);
      EXPECT_EQ(shown(box), row.kept) << box << ": " << row.typed;
    }
}

TEST_F(LabelSetUp, ABottomMarginMovesTheLabels) {
  LabelFrm& labels = open();
  EXPECT_EQ(shown("Text3"), "0.4") << "11 inches less 0.6 and ten labels";
  type("Text3", "0.5");
  EXPECT_EQ(shown("Text1"), "0.5");
  EXPECT_EQ(labels.Image1.grid.top, 0.5);
  type("Text3", "0.1");
  EXPECT_EQ(shown("Text3"), "0.4");
  EXPECT_EQ(shown("Text1"), "0.6");
  EXPECT_EQ(shown("lblBeside"), "");
  type("Text1", "1.5");
  EXPECT_EQ(shown("Text3"), "-0.5");
  EXPECT_EQ(shown("lblBeside"), "3 labels lie beside the paper and stay empty.");
}

// The built-in left margin is smaller than what may be typed, and stands until it is changed.
TEST_F(LabelSetUp, AMarginThatNobodyTouchedStands) {
  open();
  office.leave(*screen, "Text2");
  EXPECT_EQ(shown("Text2"), "0.2");
  office.click(*screen, "cmdOK");
  EXPECT_EQ(settings.layout.grid.left, 0.2);
  open();
  office.set(*screen, "Text2", "0.2");
  office.click(*screen, "cmdOK");
  EXPECT_EQ(settings.layout.grid.left, 0.4) << "Enter confirms from a box that was not left";
}

TEST_F(LabelSetUp, TheFirstLabelIsClickedOrTyped) {
  LabelFrm& labels = open();
  office.set(labels, "Image1", "3, 2");
  EXPECT_EQ(shown("Text4") + "/" + shown("Text5"), "3/2");
  EXPECT_FALSE(labels.userSets(labels.Image1, "11, 1"));
  struct Row {
    const char *box, *typed, *row, *column;
  };
  const Row rows[] = {{"Text4", "7", "7", "2"},           {"Text4", "11", "10", "2"}, {"Text4", "0", "1", "2"},
                      {"Text5", "9", "1", "3"},           {"Text5", "", "1", "1"},    {"Text5", "x2", "1", "2"},
                      {"Text4", "99999999999", "10", "2"}};
  for (const Row& row : rows) {
    type(row.box, row.typed);
    EXPECT_EQ(shown("Text4"), row.row) << row.box << " " << row.typed;
    EXPECT_EQ(shown("Text5"), row.column) << row.box << " " << row.typed;
    EXPECT_EQ(shown("Image1"), std::string(row.row) + ", " + row.column);
  }
}

TEST_F(LabelSetUp, ASmallerSheetHasNoPlaceForAStartBeyondIt) {
  ASSERT_TRUE(makeLabelLayouts(folder.path()).ok());
  open();
  office.set(*screen, "Image1", "10, 3");
  office.set(*screen, "Combo1", "Avery 5164");
  EXPECT_EQ(shown("Image1"), "3, 2");
  EXPECT_EQ(shown("lblLayout"), "Avery® 5164\n2 across,3 down,3.33 x 4");
}

TEST_F(LabelSetUp, OnlyConfirmingChangesTheSharedSettings) {
  ASSERT_TRUE(makeLabelLayouts(folder.path()).ok());
  for (const char* way : {"cmdCancel", "cmdOK"}) {
    open();
    office.set(*screen, "Combo1", "Avery 5163");
    type("Text1", "0.75");
    type("Text2", "0.5");
    office.set(*screen, "Image1", "4, 2");
    office.click(*screen, way);
    if (screen->accepted())
      continue;
    EXPECT_EQ(settings.layout, LabelLayout{});
    EXPECT_EQ(settings.start, SheetPlace{});
  }
  EXPECT_EQ(settings.layout.description, "Avery® 5163");
  EXPECT_EQ(settings.layout.grid.top, 0.75);
  EXPECT_EQ(settings.layout.grid.left, 0.5);
  EXPECT_EQ(settings.start, (SheetPlace{4, 2}));
  EXPECT_EQ(open().Combo1.text, "Avery 5163") << "kept for the run";
  EXPECT_EQ(shown("Text1") + " " + shown("Image1"), "0.75 4, 2");
}

TEST_F(LabelSetUp, TheLayoutsThatComeWithTheProgramFillLetterPaper) {
  ASSERT_TRUE(makeLabelLayouts(folder.path()).ok());
  const auto names = labelCatalogue(folder.path());
  ASSERT_EQ(names.size(), 6u);
  for (const std::string& name : names) {
    const SheetGrid grid = readLabelLayout(folder.path(), name)->grid;
    const SheetArea last = areaOf(grid, {grid.down, grid.across});
    EXPECT_NEAR(last.left + last.width, grid.paperWidth - grid.left, 0.001) << name;
    EXPECT_NEAR(last.top + last.height, grid.paperHeight - grid.top, 0.001) << name;
  }
  folder.write("labels/catalog.txt", "1\r\nOurs\r\n");
  ASSERT_TRUE(makeLabelLayouts(folder.path()).ok());
  EXPECT_EQ(labelCatalogue(folder.path()), std::vector<std::string>{"Ours"}) << "the office's own catalogue stays";
}

TEST_F(LabelSetUp, LabelsGoOntoTheSheetThatIsSetUpAndTheNextOnesGoOnFromThere) {
  LabelPrinter printer(office.desk, settings);
  const std::vector<LabelText> owners(4, {"Smith, John", "12 Mill Road", "Alder Glen, NY 12009"});
  office.when("LabelFrm", [this](Screen& setUp) { office.click(setUp, "cmdCancel"); });
  EXPECT_FALSE(printer.print(owners, "Label for Mailing").valueOr(true)) << "cancelled";
  EXPECT_TRUE(office.printed.empty());

  office.when("LabelFrm", [this](Screen& setUp) {
    office.set(setUp, "Image1", "2, 2");
    office.click(setUp, "cmdOK");
  });
  EXPECT_TRUE(printer.print(owners, "Label for Mailing").valueOr(false));
  ASSERT_EQ(office.printed.size(), 1u);
  EXPECT_EQ(office.printed.front().title, "Label for Mailing");
  EXPECT_EQ(settings.start, (SheetPlace{3, 3})) << "four labels from the second of the second row";

  office.printerSays = Error{Trouble::Failed, "The printer is out of paper."};
  EXPECT_FALSE(printer.print(owners, "Label for Mailing").ok());
  EXPECT_EQ(settings.start, (SheetPlace{2, 2})) << "what was not printed uses no label up";
}

TEST(Sheet, APointLiesOnALabelOrBesideAll) {
  const SheetGrid grid;
  struct Row {
    double x, y;
    std::optional<SheetPlace> place;
  };
  const Row rows[] = {{0.3, 0.7, SheetPlace{1, 1}},   {0.1, 0.7, std::nullopt},  {0.3, 0.5, std::nullopt},
                      {2.82, 0.7, SheetPlace{1, 1}},  {2.9, 0.7, std::nullopt},  {2.96, 1.7, SheetPlace{2, 2}},
                      {8.3, 10.5, SheetPlace{10, 3}}, {8.4, 10.5, std::nullopt}, {8.3, 10.7, std::nullopt}};
  for (const Row& row : rows)
    EXPECT_EQ(placeAt(grid, row.x, row.y), row.place) << row.x << ", " << row.y;
}

}  // namespace
}  // namespace zelvo
