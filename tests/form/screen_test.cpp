#include <gtest/gtest.h>

#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {
namespace {

/// A small screen with one control of every kind that a user works with.
class Counter : public Screen {
 public:
  explicit Counter(Desk& itsDesk, std::string_view name = "Counter") : Screen(itsDesk, name, "Counter") {
    onClick(Go, [this] { ++clicks; });
    onClick(Fail, [] { throw std::runtime_error("the disk is full"); });
    onClick(Tick, [this] { ++ticks; });
    onClick(Entry, [this] { ++clicks; });
    onLeave(Amount, [this] { left = Amount.text; });
    onChoose(Rows, [this] { chosen = *Rows.selected; });
    Due.holdsDate = true;
    Kind.items = {"Dwelling", "Garage"};
    Kind.freeText = false;
    Rows.columns = {{"Key"}, {"Name"}};
    auto rows = std::make_shared<MemoryRows>();
    rows->rows = {{"26-1", "Smith"}, {"26-2", "Jones"}};
    Rows.rows = rows;
  }

  TextBox Amount{*this, "Amount"};
  TextBox Due{*this, "Due"};
  ControlArray<TextBox> Text1{*this, "Text1", {2, 3}};
  Button Go{*this, "Go", "&Go"};
  Button Fail{*this, "Fail", "&Fail"};
  CheckBox Tick{*this, "Tick", "Tick"};
  Option First{*this, "Option1", "First", "choice"};
  Option Second{*this, "Option2", "Second", "choice"};
  Combo Kind{*this, "Kind"};
  DatePicker Day{*this, "Day"};
  Tabs Pages{*this, "Pages", {"&Record", "List"}};
  ListView Rows{*this, "Rows"};
  Menu File{*this, "File", "&File"};
  MenuEntry Entry{*this, File, "Entry", "&Entry"};

  int clicks = 0;
  int ticks = 0;
  std::string left;
  std::size_t chosen = 99;
};

class ScreenTest : public ::testing::Test {
 protected:
  ScreenTest() {
    at.screens.learn("Counter", [](Desk& desk) { return std::make_unique<Counter>(desk); });
    screen = dynamic_cast<Counter*>(at.screens.open("Counter"));
  }
  ScriptedDesk at;
  Counter* screen = nullptr;
};

TEST_F(ScreenTest, ADateTypedShortStandsInFullOnceItsBoxIsLeft) {
  at.set(*screen, "Due", "+7");
  EXPECT_EQ(screen->Due.text, "+7") << "not while it is typed";
  at.leave(*screen, "Due");
  EXPECT_EQ(screen->Due.text, "03/16/2026");
  at.set(*screen, "Due", "soon");
  at.leave(*screen, "Due");
  EXPECT_EQ(screen->Due.text, "soon") << "what cannot be read stays as it was typed";
  EXPECT_EQ(screen->status.substr(0, 18), "\"soon\" is no date:");
  at.set(*screen, "Due", "");
  at.leave(*screen, "Due");
  EXPECT_EQ(screen->Due.text, "");
  EXPECT_EQ(screen->status, "");
  at.set(*screen, "Day", "t");
  EXPECT_EQ(screen->Day.date, (Date{2026, 3, 9}));
}

TEST_F(ScreenTest, EveryControlTakesWhatItCanAndRefusesTheRest) {
  struct Row {
    const char* control;
    const char* value;
    const char* shown;  // what it shows afterwards
    bool taken;
  };
  const Row rows[] = {{"Amount", "12 é", "12 é", true},
                      {"Amount", "two\nlines", "12 é", false},
                      {"Amount", "", "", true},
                      {"Text1(3)", "45", "45", true},
                      {"Tick", "1", "1", true},
                      {"Tick", "yes", "1", false},
                      {"Option2", "1", "1", true},
                      {"Option2", "0", "1", false},
                      {"Kind", "gaRAGE", "Garage", true},
                      {"Kind", "Barn", "Garage", false},
                      {"Kind", "", "", true},
                      {"Day", "2/28/26", "02/28/2026", true},
                      {"Day", "2/30/26", "02/28/2026", false},
                      {"Day", "", "", true},
                      {"Pages", "2", "List", true},
                      {"Pages", "record", "&Record", true},
                      {"Pages", "3", "&Record", false},
                      {"Go", "x", "&Go", false}};
  for (const Row& row : rows) {
    Control& control = at.control(*screen, row.control);
    EXPECT_EQ(screen->userSets(control, row.value).ok(), row.taken) << row.control << " <- " << row.value;
    EXPECT_EQ(control.shown(), row.shown) << row.control << " <- " << row.value;
  }
}

TEST_F(ScreenTest, PasswordShowsAStarForEachCharacter) {
  screen->Amount.password = true;
  at.set(*screen, "Amount", "été");
  EXPECT_EQ(screen->Amount.shown(), "***");
}

TEST_F(ScreenTest, TickingAndChoosingDoWhatAClickDoes) {
  at.click(*screen, "Tick");
  at.set(*screen, "Tick", "0");
  EXPECT_EQ(screen->ticks, 2);
  at.click(*screen, "Option1");
  at.click(*screen, "Option2");
  EXPECT_FALSE(screen->First.chosen);
  EXPECT_TRUE(screen->Second.chosen);
}

TEST_F(ScreenTest, HiddenDisabledAndLockedControlsRefuse) {
  screen->Go.enabled = false;
  EXPECT_FALSE(screen->userClicks(screen->Go).ok());
  screen->Go.enabled = true;
  screen->Go.visible = false;
  EXPECT_FALSE(screen->userClicks(screen->Go).ok());
  screen->Amount.text = "60";
  screen->Amount.locked = true;
  EXPECT_FALSE(screen->userSets(screen->Amount, "61").ok());
  EXPECT_EQ(screen->Amount.text, "60");
  screen->File.enabled = false;
  EXPECT_FALSE(screen->userClicks(screen->Entry).ok());
  EXPECT_EQ(screen->clicks, 0);
}

TEST_F(ScreenTest, RowsAreFoundByNumberAndByTheirFirstColumn) {
  const std::pair<const char*, std::optional<std::size_t>> wanted[] = {
      {"1", 0}, {"26-2", 1}, {"3", std::nullopt}, {"0", std::nullopt}, {"Smith", std::nullopt}};
  for (const auto& [text, row] : wanted)
    EXPECT_EQ(screen->Rows.findRow(text), row) << text;
  at.choose(*screen, "Rows", "26-2");
  EXPECT_EQ(screen->chosen, 1u);
}

TEST_F(ScreenTest, TroubleInAHandlerIsToldAndWhatWasTypedStays) {
  at.set(*screen, "Amount", "60");
  at.expect(" Counter", "This could not be finished:\n\nthe disk is full...");
  at.click(*screen, "Fail");
  EXPECT_EQ(screen->Amount.text, "60");
}

TEST_F(ScreenTest, ScreenBehindAModalOneWaits) {
  Counter modal(at.desk, "Modal");
  at.when("Modal", [&](Screen& front) {
    EXPECT_FALSE(screen->userClicks(screen->Go).ok());
    at.click(front, "Go");
    front.userCloses();
  });
  at.screens.showModal(modal);
  EXPECT_EQ(modal.clicks, 1);
  EXPECT_EQ(at.came, (std::vector<std::string>{"Counter", "Modal", "Counter"}));
  at.click(*screen, "Go");
  EXPECT_EQ(screen->clicks, 1);
}

TEST_F(ScreenTest, OpeningAnOpenScreenBringsItToTheFront) {
  at.screens.learn("Other", [](Desk& desk) { return std::make_unique<Counter>(desk, "Other"); });
  at.screens.open("Other");
  EXPECT_EQ(at.screens.open("Counter"), screen);
  EXPECT_EQ(at.screens.front(), screen);
  EXPECT_EQ(at.screens.all().size(), 2u);
  EXPECT_EQ(at.screens.open("Nowhere"), nullptr);
}

TEST(OpenDocumentTest, CommandDependsOnTheKindOfDocument) {
  struct Row {
    const char* target;
    const char* command;
  };
  const Row rows[] = {{"/data/plan.pdf", "\"/bin/true\" \"/data/plan.pdf\""},
                      {"https://codes/x?a=1", "\"/bin/true\" https://codes/x?a=1"},
                      {"/office/Updater.EXE", "/office/Updater.EXE"}};
  for (const Row& row : rows) {
    ScriptedDesk at;
    at.session.defaultBrowser = "/bin/true ";
    at.session.defaultBrowserFound = true;
    OpenDocument(at.desk, row.target);
    EXPECT_EQ(at.started, std::vector<std::string>{row.command}) << row.target;
  }
}

TEST(OpenDocumentTest, ProgramEndsWithoutABrowser) {
  ScriptedDesk none;
  none.expect("Zelvo", "The browser selected cannot be found on your computer. Please contact your administrator.");
  OpenDocument(none.desk, "HTTP://codes.example");
  EXPECT_TRUE(none.desk.ended());
  ScriptedDesk at;
  at.session.defaultBrowser = "/nowhere/browser ";
  at.session.defaultBrowserFound = true;
  at.expect("Zelvo", "The browser selected cannot be found on your computer. Please contact your administrator.");
  OpenDocument(at.desk, "/data/plan.pdf");
  EXPECT_TRUE(at.desk.ended());
  EXPECT_TRUE(at.started.empty());
}

}  // namespace
}  // namespace zelvo::testing
