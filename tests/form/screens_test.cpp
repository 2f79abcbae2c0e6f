// The order in which screens come and go, as handlers open and close them while they run.

#include <gtest/gtest.h>

#include "support/scripted_desk.h"

namespace zelvo::testing {
namespace {

using Names = std::vector<std::string>;

/// A screen whose one button does what the test wants.
class Door : public Screen {
 public:
  Door(Desk& itsDesk, std::string_view name) : Screen(itsDesk, name, name) {
    onClick(Knock, [this] {
      if (knocked)
        knocked(*this);
    });
  }
  void closeFromInside() { closeMe(); }

  Button Knock{*this, "Knock", "&Knock"};
  std::function<void(Door&)> knocked;
  std::function<void(Door&)> firstShown;
  int activations = 0;

 private:
  void Form_Activate(bool first) override {
    ++activations;
    if (first && firstShown)
      firstShown(*this);
  }
};

class ScreensTest : public ::testing::Test {
 protected:
  ScreensTest() {
    for (const char* name : {"A", "B", "C"})
      at.screens.learn(name, [this, name](Desk& desk) {
        auto door = std::make_unique<Door>(desk, name);
        door->firstShown = whenShown;
        return door;
      });
  }
  Door& door(std::string_view name) { return *dynamic_cast<Door*>(at.screens.open(name)); }
  Names order() const {
    Names names;
    for (const Screen* screen : at.screens.all())
      names.push_back(screen->name());
    return names;
  }

  ScriptedDesk at;
  std::function<void(Door&)> whenShown;
};

TEST_F(ScreensTest, TheFrontOneGivesWayToTheOneBehindIt) {
  Door& a = door("A");
  Door& b = door("B");
  Door& c = door("C");
  EXPECT_EQ(order(), (Names{"C", "B", "A"}));
  at.screens.bringToFront(a);
  EXPECT_EQ(order(), (Names{"A", "C", "B"}));
  at.came.clear();
  at.screens.close(c);
  EXPECT_EQ(order(), (Names{"A", "B"}));
  EXPECT_EQ(at.came, Names{}) << "one that goes behind the front changes nothing in front";
  at.screens.close(a);
  EXPECT_EQ(at.came, Names{"B"});
  EXPECT_EQ(b.activations, 2);
  at.screens.close(c);
  EXPECT_EQ(order(), Names{"B"}) << "one that is closed already";
}

TEST_F(ScreensTest, AScreenLivesUntilItsHandlerIsDone) {
  Door& a = door("A");
  std::string said;
  a.knocked = [&](Door& self) {
    self.closeFromInside();
    self.closeFromInside();
    EXPECT_FALSE(at.screens.isOpen(self));
    EXPECT_FALSE(self.userClicks(self.Knock).ok()) << "nobody works in a closed screen";
    at.screens.open("B");
    said = self.name() + self.Knock.caption;
  };
  at.click(a, "Knock");
  EXPECT_EQ(said, "A&Knock");
  EXPECT_EQ(order(), Names{"B"});
  at.screens.sweep();
  Door& again = door("A");
  EXPECT_EQ(again.activations, 1) << "a closed screen opens anew";
}

TEST_F(ScreensTest, OneThatClosesItselfAsItIsShownNeverTakesTheFront) {
  door("A");
  whenShown = [](Door& self) { self.closeFromInside(); };
  at.screens.open("B");
  EXPECT_EQ(order(), Names{"A"});
  EXPECT_EQ(at.came, (Names{"A", "B", "A"}));
  EXPECT_TRUE(at.screens.showModal("C")) << "and one that is waited for ends at once";
  EXPECT_EQ(order(), Names{"A"});
}

TEST_F(ScreensTest, AScreenOpenedByAnotherAsItIsShownStandsBeforeIt) {
  whenShown = [this](Door& self) {
    if (self.name() == "A")
      at.screens.open("B");
  };
  at.screens.open("A");
  EXPECT_EQ(order(), (Names{"B", "A"}));
}

TEST_F(ScreensTest, EachModalScreenWaitsForTheOneItOpened) {
  Door& a = door("A");
  Door outer(at.desk, "Outer"), inner(at.desk, "Inner");
  Names log;
  at.when("Outer", [&](Screen& screen) {
    at.click(screen, "Knock");
    log.push_back("outer works on");
    EXPECT_TRUE(at.screens.reachable(screen));
    screen.userCloses();
  });
  at.when("Inner", [&](Screen& screen) {
    EXPECT_EQ(order(), (Names{"Inner", "Outer", "A"}));
    for (Screen* waiting : {static_cast<Screen*>(&outer), static_cast<Screen*>(&a)}) {
      EXPECT_FALSE(at.screens.reachable(*waiting)) << waiting->name();
      waiting->userCloses();
      EXPECT_TRUE(at.screens.isOpen(*waiting)) << waiting->name();
      at.screens.bringToFront(*waiting);
      EXPECT_EQ(at.screens.front(), &screen) << waiting->name() << " stays behind";
    }
    EXPECT_EQ(at.screens.open("A"), &a);
    EXPECT_FALSE(at.screens.reachable(a)) << "asking for it does not end its wait";
    screen.userCloses();
    log.push_back("inner closed");
  });
  outer.knocked = [&](Door&) {
    at.screens.showModal(inner);
    log.push_back("inner gone");
  };
  at.screens.showModal(outer);
  log.push_back("outer gone");
  EXPECT_EQ(log, (Names{"inner closed", "inner gone", "outer works on", "outer gone"}));
  EXPECT_EQ(order(), Names{"A"});
}

TEST_F(ScreensTest, TheEndOfTheProgramLeavesEveryWait) {
  Door& a = door("A");
  Door outer(at.desk, "Outer"), inner(at.desk, "Inner");
  at.session.screenChanged = at.displaySwitched = true;
  at.when("Outer", [&](Screen& screen) { at.click(screen, "Knock"); });
  at.when("Inner", [&](Screen&) {
    at.desk.end("quit");
    at.desk.end("something else");
  });
  outer.knocked = [&](Door&) { at.screens.showModal(inner); };
  at.came.clear();
  at.screens.showModal(outer);
  EXPECT_EQ(order(), Names{"A"});
  EXPECT_EQ(at.came, (Names{"Outer", "Inner"})) << "nothing comes to the front of a program that ends";
  EXPECT_EQ(at.session.ended, "quit") << "the first reason stays";
  EXPECT_FALSE(at.displaySwitched);
  EXPECT_EQ(a.activations, 1);
}

TEST_F(ScreensTest, TroubleInsideAModalScreenStaysInside) {
  Door outer(at.desk, "Outer");
  outer.knocked = [](Door&) { throw std::runtime_error("no room"); };
  at.when("Outer", [&](Screen& screen) {
    at.expect(" Outer", "This could not be finished:\n\nno room...");
    at.click(screen, "Knock");
    EXPECT_TRUE(at.screens.isOpen(screen));
  });
  at.screens.showModal(outer);
  EXPECT_FALSE(at.screens.isOpen(outer));
  EXPECT_FALSE(at.screens.showModal("Nowhere"));
}

// ---- what the controls promise

TEST(Messages, AreAnsweredByTheirPresetButton) {
  struct Row {
    Buttons buttons;
    Answer preset, answered;
  };
  const Row rows[] = {{Buttons::OK, Answer::OK, Answer::OK},
                      {Buttons::OK, Answer::No, Answer::OK},
                      {Buttons::OKCancel, Answer::Cancel, Answer::Cancel},
                      {Buttons::OKCancel, Answer::Yes, Answer::OK},
                      {Buttons::YesNo, Answer::OK, Answer::Yes},
                      {Buttons::YesNo, Answer::No, Answer::No},
                      {Buttons::YesNo, Answer::Cancel, Answer::Yes},
                      {Buttons::YesNoCancel, Answer::Cancel, Answer::Cancel}};
  for (const Row& row : rows)
    EXPECT_EQ(nameOf(presetOf({"", "", row.buttons, Icon::None, row.preset})), nameOf(row.answered))
        << answersOf(row.buttons).size() << " buttons, " << nameOf(row.preset);
}

/// Rows that are counted as they are asked for.
struct CountedRows : ListRows {
  std::size_t count() const override { return 1'000'000; }
  std::string cell(std::size_t row, std::size_t column) const override {
    ++asked;
    return column == 0 ? "26-" + std::to_string(row) : "";
  }
  mutable std::size_t asked = 0;
};

TEST(Lists, OfAMillionRowsAreAskedForNoMoreThanIsSought) {
  ScriptedDesk at;
  Door screen(at.desk, "Door");
  ListView list(screen, "List");
  const auto rows = std::make_shared<CountedRows>();
  list.rows = rows;
  struct Row {
    const char* sought;
    std::optional<std::size_t> found;
    std::size_t mostAsked;
  };
  const Row wanted[] = {{"1", 0, 0},
                        {"1000000", 999'999, 0},
                        {" 12 ", 11, 0},
                        {"26-7", 7, 8},
                        {" 26-7 ", 7, 8},
                        {"26-999999", 999'999, 1'000'000},
                        {"1000001", {}, 1'000'000},
                        {"9999999999999", {}, 1'000'000},
                        {"-1", {}, 1'000'000}};
  for (const Row& row : wanted) {
    rows->asked = 0;
    EXPECT_EQ(list.findRow(row.sought), row.found) << row.sought;
    EXPECT_LE(rows->asked, row.mostAsked) << row.sought;
  }
  EXPECT_EQ(list.shown(), "1000000 rows, 0 columns");
  list.rows = nullptr;
  EXPECT_EQ(list.findRow("1"), std::nullopt);
}

TEST(ControlArrays, AreKnownByNameAndIndexInTheOrderOfTheTabKey) {
  ScriptedDesk at;
  Door screen(at.desk, "Door");
  ControlArray<TextBox> boxes(screen, "Text1", {2, 1});
  Label between(screen, "Label1", "between");
  ControlGroup<TextBox> more(boxes, {0});
  Names order;
  for (const Control* control : screen.controls())
    order.push_back(control->id());
  EXPECT_EQ(order, (Names{"Knock", "Text1(2)", "Text1(1)", "Label1", "Text1(0)"}));
  boxes(1).text = "one";
  EXPECT_EQ(at.shown(screen, "Text1(1)"), "one");
  EXPECT_EQ(screen.find("Text1", 0), &boxes(0));
  for (const char* none : {"Text1", "Text1(3)", "Text1(01)", "text1(1)", "Text1(1", ""})
    EXPECT_EQ(screen.findById(none), nullptr) << none;
  EXPECT_FALSE(boxes.has(3));
  EXPECT_THROW(boxes(3), std::out_of_range);
}

TEST(Options, ExcludeOneAnotherWithinTheirGroupOnly) {
  ScriptedDesk at;
  Door screen(at.desk, "Door");
  Option yes(screen, "Option1", "Yes", "answer"), no(screen, "Option2", "No", "answer");
  Option paid(screen, "Option3", "Paid", "money");
  Option locked(screen, "Option4", "Free", "money");
  at.screens.open("Door");
  for (Option* option : {&yes, &paid})
    ASSERT_TRUE(option->enter("1").ok());
  ASSERT_TRUE(no.enter("1").ok());
  locked.locked = true;
  EXPECT_FALSE(locked.enter("1").ok());
  EXPECT_TRUE(!yes.chosen && no.chosen && paid.chosen && !locked.chosen);
}

TEST(TabPages, AreTakenByCaptionBeforeTheirNumber) {
  ScriptedDesk at;
  Door screen(at.desk, "Door");
  Tabs pages(screen, "Pages", {"&Record", "1", "Save && Close"});
  struct Row {
    const char* typed;
    bool taken;
    std::size_t page;
  };
  for (const Row& row : {Row{"3", true, 2}, Row{"1", true, 1}, Row{"RECORD", true, 0}, Row{"Save & Close", true, 2},
                         Row{"0", false, 2}, Row{"4", false, 2}, Row{"", false, 2}, Row{"Rec", false, 2}}) {
    EXPECT_EQ(pages.enter(row.typed).ok(), row.taken) << row.typed;
    EXPECT_EQ(pages.current, row.page) << row.typed;
  }
}

}  // namespace
}  // namespace zelvo::testing
