#include "ui/screen_window.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTableView>
#include <QWheelEvent>

#include "sample_screen.h"

namespace zelvo::testing {
namespace {

TEST_F(WindowTest, EachKeyIsInItsControlAtOnce) {
  type("Text1(18)", "Sm");
  EXPECT_EQ(screen->Text1(18).text, "Sm");
  type("Text1(18)", "ith");
  EXPECT_EQ(screen->Text1(18).text, "Smith");
  type("Text2", "one");
  key(Qt::Key_Return);
  type("Text2", "two");
  EXPECT_EQ(screen->Text2.text, "one\ntwo");
  type("Combo1", "Dwell");
  EXPECT_EQ(screen->Combo1.text, "Dwell");
  press("Check3");
  EXPECT_TRUE(screen->Check3.checked);
}

TEST_F(WindowTest, AHandlersChangeShowsAndTheCursorStays) {
  type("Text1(2)", "ac");
  the<QLineEdit>("Text1(2)")->setCursorPosition(1);
  type("Text1(2)", "b");
  EXPECT_EQ(the<QLineEdit>("Text1(2)")->text(), "ABC");
  EXPECT_EQ(the<QLineEdit>("Text1(2)")->cursorPosition(), 2);

  press("Check3");
  EXPECT_FALSE(the("Text1(18)")->isEnabled());
  screen->Check3.visible = false;
  screen->caption = "Other";
  screen->status = "Reading database..";
  house.face.refresh();
  EXPECT_FALSE(the("Check3")->isVisible());
  EXPECT_EQ(window->windowTitle(), "Other");
  EXPECT_EQ(window->statusBar()->currentMessage(), "Reading database..");
}

TEST_F(WindowTest, ProgramsChangesAreNoEditsOfTheUser) {
  screen->Text1(2).text = "lower";
  screen->Combo1.text = "Barn";
  screen->Combo2.text = "OLD LEVEL";
  screen->DTPicker1.date = Date{2025, 3, 9};
  screen->Text2.text = "a\r\nb";
  house.face.refresh();
  EXPECT_EQ(screen->Text1(2).text, "lower") << "its edit handler would have made it upper case";
  EXPECT_EQ(the<QComboBox>("Combo1")->currentText(), "Barn") << "a value that the list does not offer is kept";
  EXPECT_EQ(screen->Combo2.text, "OLD LEVEL");
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "03/09/2025");
  EXPECT_EQ(screen->Text2.text, "a\r\nb");
  type("Text2", "x");
  EXPECT_EQ(screen->Text2.text, "xa\r\nb") << "a text keeps the kind of its line ends";
}

TEST_F(WindowTest, FocusRequestsAreFollowed) {
  screen->Text1(18).text = "Smith";
  screen->focus = &screen->Text1(18);
  screen->selectAll = true;
  house.face.refresh();
  EXPECT_EQ(window->focusWidget(), the("Text1(18)"));
  EXPECT_EQ(the<QLineEdit>("Text1(18)")->selectedText(), "Smith");
  EXPECT_EQ(screen->focus, nullptr);
}

TEST_F(WindowTest, TabGoesInTheOrderOfTheControls) {
  the("Text1(2)")->setFocus();
  for (const char* next :
       {"Text1(18)", "Combo1", "Combo2", "DTPicker1", "Check3", "Text2", "ListView1", "ask", "done"}) {
    key(Qt::Key_Tab);
    ASSERT_TRUE(window->focusWidget());
    EXPECT_EQ(window->focusWidget()->objectName(), next);
  }
}

TEST_F(WindowTest, LeavingABoxIsToldOnceAndBeforeThePress) {
  type("Text1(18)", "Smith");
  whenBox<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  key(Qt::Key_V, Qt::AltModifier);
  ASSERT_TRUE(heardSoon("no"));
  press("cmdOK");
  EXPECT_EQ(screen->events, (std::vector<std::string>{"left owner", "no", "ok Smith"}));
}

TEST_F(WindowTest, ARefusedBoxHoldsThePressButNotTheUser) {
  type("Text1(2)", "bad");
  press("done");
  EXPECT_EQ(screen->events, std::vector<std::string>{"refused"}) << "nothing is done, and it is said once";
  EXPECT_EQ(window->focusWidget(), the("Text1(2)"));
  key(Qt::Key_Tab);
  EXPECT_EQ(window->focusWidget(), the("Text1(18)")) << "what it disagrees with may stand in another box";
  EXPECT_EQ(screen->events.size(), 1u) << "a box that is only walked through is not checked anew";
}

TEST_F(WindowTest, AButtonThatGoesGreyHandsTheFocusToNoOtherButton) {
  key(Qt::Key_N, Qt::AltModifier);
  ASSERT_TRUE(heardSoon("done"));
  EXPECT_FALSE(the("done")->isEnabled());
  EXPECT_EQ(window->focusWidget(), the("Text1(2)"));
  key(Qt::Key_Space);
  EXPECT_EQ(screen->events.size(), 1u);
}

TEST_F(WindowTest, EnterPressesTheDefaultButtonAndEscThrowsNothingAway) {
  type("Text1(18)", "Smith");
  key(Qt::Key_Escape);
  EXPECT_EQ(screen->Text1(18).text, "Smith");
  EXPECT_TRUE(screens.isOpen(*screen));
  key(Qt::Key_Return);
  EXPECT_EQ(screen->events.back(), "ok Smith");
}

TEST_F(WindowTest, TheWheelChangesNoValue) {
  screen->Combo1.text = "Dwelling";
  screen->Combo2.text = "ADMIN";
  house.face.refresh();
  for (const char* id : {"Combo1", "Combo2", "DTPicker1"}) {
    QWheelEvent turn(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(the(id), &turn);
  }
  EXPECT_EQ(screen->Combo1.text, "Dwelling");
  EXPECT_EQ(screen->Combo2.text, "ADMIN");
  EXPECT_FALSE(screen->DTPicker1.date);
}

TEST_F(WindowTest, ADateBoxMayBeEmptyAndTakesNoNonsense) {
  type("DTPicker1", "2/28/2025");
  EXPECT_EQ(screen->DTPicker1.date, (Date{2025, 2, 28}));
  key(Qt::Key_Tab);
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "02/28/2025") << "shown in full when it is left";
  the<QLineEdit>("DTPicker1")->selectAll();
  type("DTPicker1", "030926");
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "030926") << "not while it is typed";
  key(Qt::Key_Tab);
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "03/09/2026");

  the<QLineEdit>("DTPicker1")->selectAll();
  type("DTPicker1", "13/45/2025");
  press("cmdOK");
  EXPECT_TRUE(screen->events.empty()) << "nothing is stored while the box holds what is no date";
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "13/45/2025") << "and what was typed is still there";
  EXPECT_NE(window->statusBar()->currentMessage().indexOf("is no date"), -1);

  the<QLineEdit>("DTPicker1")->selectAll();
  key(Qt::Key_Delete);
  EXPECT_FALSE(screen->DTPicker1.date);
  press("cmdOK");
  EXPECT_EQ(screen->events.back(), "ok ");

  type("DTPicker1", "soon");
  screen->DTPicker1.locked = true;
  house.face.refresh();
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "") << "nonsense goes when the typing is over";
  whenBox<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  press("ask");
  EXPECT_EQ(screen->events.back(), "no") << "and holds up nothing any more";
}

TEST_F(WindowTest, WhatIsLockedIsShownAndNotTypedInto) {
  screen->Text1(18).text = "Smith";
  for (Control* control : std::initializer_list<Control*>{&screen->Text1(18), &screen->Combo1, &screen->Combo2,
                                                          &screen->DTPicker1, &screen->Check3})
    control->locked = true;
  house.face.refresh();
  type("Text1(18)", "x");
  type("Combo1", "x");
  type("Combo2", "U");
  type("DTPicker1", "1/1/2025");
  press("Check3");
  EXPECT_EQ(the<QLineEdit>("Text1(18)")->text(), "Smith");
  EXPECT_EQ(the<QComboBox>("Combo1")->currentText(), "");
  EXPECT_EQ(screen->Combo2.text, "");
  EXPECT_FALSE(screen->DTPicker1.date);
  EXPECT_FALSE(the<QCheckBox>("Check3")->isChecked());
}

TEST_F(WindowTest, ALongEntryWidensNothingAndAWindowFitsTheDisplay) {
  EXPECT_LE(the("Combo1")->width(), window->width());
  EXPECT_TRUE(window->QWidget::screen()->availableGeometry().contains(window->geometry()));
}

TEST_F(WindowTest, AMessageIsAskedWithItsTitleAndButtons) {
  whenBox<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), " Record Void");
    EXPECT_EQ(box.text(), "Void it?");
    EXPECT_EQ(box.buttons().size(), 2);
    EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
    QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
  });
  press("ask");
  EXPECT_EQ(screen->events.back(), "yes");
  whenBox<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  press("ask");
  EXPECT_EQ(screen->events.back(), "no") << "Esc never says yes";
}

TEST_F(WindowTest, MenusFollowTheScreen) {
  the<QAction>("permits")->trigger();
  EXPECT_EQ(screen->events.back(), "menu");
  screen->File.enabled = false;
  house.face.refresh();
  EXPECT_FALSE(the<QAction>("File")->isEnabled());
  EXPECT_FALSE(the<QAction>("permits")->isEnabled());
}

/// A million rows that nobody holds in memory; it counts how many were asked for.
class ManyRows : public ListRows {
 public:
  std::size_t count() const override { return 1'000'000; }
  std::string cell(std::size_t row, std::size_t) const override {
    ++asked;
    return std::to_string(1'000'000 + row);
  }
  mutable std::size_t asked = 0;
};

TEST_F(WindowTest, AMillionRowsOpenAndScrollAtOnce) {
  const auto rows = std::make_shared<ManyRows>();
  screen->ListView1.rows = rows;
  screen->ListView1.selected = 700'000;
  QElapsedTimer clock;
  clock.start();
  house.face.refresh();
  settle();
  auto* table = the<QTableView>("ListView1");
  EXPECT_EQ(table->model()->rowCount(), 1'000'000);
  EXPECT_EQ(table->currentIndex().row(), 700'000);
  EXPECT_TRUE(table->viewport()->rect().intersects(table->visualRect(table->currentIndex()))) << "kept in sight";
  EXPECT_LT(rows->asked, 2'000u) << "only rows in sight are read";
  EXPECT_LT(clock.elapsed(), 1'000);

  table->setFocus();
  key(Qt::Key_Down);
  EXPECT_EQ(screen->events.back(), "row 700001");
  key(Qt::Key_Return);
  EXPECT_EQ(screen->events.back(), "open 700001");
  QTest::keyClicks(table, "15000");
  EXPECT_EQ(screen->events.back(), "row 500000") << "the first that begins so";
  QTest::qWait(QApplication::keyboardInputInterval() + 50);
  QTest::keyClicks(table, "x");
  EXPECT_EQ(screen->events.back(), "row 500000");
  EXPECT_LT(rows->asked, 3'000u) << "and the list is not read through for it";
  key(Qt::Key_End);
  EXPECT_EQ(screen->events.back(), "row 999999");
  key(Qt::Key_Home);
  EXPECT_EQ(screen->events.back(), "row 0");
  const auto place = table->visualRect(table->currentIndex()).topLeft();
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place + QPoint(5, 5));
  settle();
  EXPECT_EQ(screen->events.back(), "row 0");
}

TEST_F(WindowTest, ClosingGoesThroughTheScreen) {
  window->close();
  settle();
  EXPECT_EQ(screens.front(), nullptr);
  EXPECT_EQ(house.face.frontWindow(), nullptr);
}

TEST_F(WindowTest, AModalScreenIsWaitedForAndTheProgramsEndLeavesEveryWait) {
  SampleScreen modal(house.desk);
  QTimer::singleShot(20, [&] {
    ScreenWindow* itsWindow = house.face.windowOf(modal);
    ASSERT_TRUE(itsWindow);
    EXPECT_EQ(itsWindow->windowModality(), Qt::ApplicationModal);
    QTest::mouseClick(itsWindow->findChild<QPushButton*>("Quit"), Qt::LeftButton);
  });
  screens.showModal(modal);
  EXPECT_FALSE(screens.isOpen(modal));

  SampleScreen ended(house.desk);
  QTimer::singleShot(20, [&] {
    house.desk.end("quit");
    house.face.processEvents();
  });
  screens.showModal(ended);
  EXPECT_FALSE(screens.isOpen(ended));
}

}  // namespace
}  // namespace zelvo::testing
