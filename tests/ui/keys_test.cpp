#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>

#include "sample_screen.h"
#include "ui/screen_window.h"

namespace zelvo::testing {
namespace {

/// The sample screen as a record screen is: no button waits for Enter.
class KeysTest : public WindowTest {
 protected:
  KeysTest() {
    screen->cmdOK.isDefault = false;
    auto rows = std::make_shared<MemoryRows>();
    rows->rows = {{"26-1", "Smith"}, {"26-2", "Jones"}};
    screen->ListView1.rows = rows;
    house.face.refresh();
  }
  std::string focused() { return window->focusWidget() ? window->focusWidget()->objectName().toStdString() : ""; }
};

TEST_F(KeysTest, EnterMovesOnFromBoxToBoxAndPressesNothing) {
  the("Text1(2)")->setFocus();
  for (const char* id : {"Text1(18)", "Combo1", "Combo2", "DTPicker1", "Check3", "Text2"}) {
    key(Qt::Key_Return);
    EXPECT_EQ(focused(), id);
  }
  key(Qt::Key_Return);
  EXPECT_EQ(screen->Text2.text, "\n") << "a text of many lines keeps its Enter";
  the("DTPicker1")->setFocus();
  key(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(focused(), "Combo2");
  EXPECT_EQ(screen->events, std::vector<std::string>{});
  the("ask")->setFocus();
  screen->done.enabled = true;
  the("done")->setFocus();
  key(Qt::Key_Enter);
  EXPECT_EQ(screen->events, std::vector<std::string>{"done"}) << "a button that has the focus is pressed";
}

TEST_F(KeysTest, EnterTellsTheBoxThatIsLeftAndPassesLockedOnes) {
  type("Text1(18)", "Smith");
  screen->Combo1.locked = true;
  house.face.refresh();
  key(Qt::Key_Return);
  EXPECT_EQ(focused(), "Combo2");
  EXPECT_TRUE(heardSoon("left owner"));
}

TEST_F(KeysTest, AKeyTypedAtOnceIntoTheNextBoxIsNotLostToWhatTheLastOneShows) {
  QTest::keyClicks(the("Text1(18)"), "Lopez");
  the("Text1(18)")->setFocus();
  QTest::keyClicks(the("Text1(18)"), " A");
  the("Text1(2)")->setFocus();
  QTest::keyClicks(the("Text1(2)"), "r-1");
  EXPECT_EQ(screen->status, "left Lopez A");
  EXPECT_EQ(screen->Text1(2).text + the<QLineEdit>("Text1(2)")->text().toStdString(), "R-1R-1");
}

TEST_F(KeysTest, WhereAButtonWaitsForEnterItIsPressed) {
  screen->cmdOK.isDefault = true;
  type("Text1(18)", "Smith");
  key(Qt::Key_Return);
  EXPECT_EQ(screen->events.back(), "ok Smith");
}

TEST_F(KeysTest, AShortcutPressesItsButtonFromAnyBoxAndTheFocusStays) {
  for (const char* id : {"Text1(18)", "Combo1", "DTPicker1", "Text2", "ListView1"}) {
    SCOPED_TRACE(id);
    screen->done.enabled = true;
    screen->events.clear();
    house.face.refresh();
    the(id)->setFocus();
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(screen->events, std::vector<std::string>{"done"});
    EXPECT_EQ(focused(), id);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(screen->events.size(), 1u) << "a disabled button is not pressed";
  }
  EXPECT_EQ(the("done")->toolTip(), "Done (Ctrl+S)");
}

TEST_F(KeysTest, AShortcutComesAfterTheBoxWasTakenAndIsHeldUpByNonsense) {
  type("Text1(18)", "Smith");
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(screen->events, (std::vector<std::string>{"left owner", "done"}));
  screen->done.enabled = true;
  type("Text1(2)", "bad");
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(screen->events.back(), "refused");
  EXPECT_EQ(focused(), "Text1(2)");
  the<QLineEdit>("Text1(2)")->clear();
  type("DTPicker1", "soon");
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(screen->events.back(), "refused");
  EXPECT_EQ(focused(), "DTPicker1");
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "soon");
}

TEST_F(KeysTest, ThePageKeysBrowseExceptWhereTheyTurnAPage) {
  for (const char* id : {"Text1(18)", "Combo1", "Combo2", "DTPicker1", "Check3"}) {
    SCOPED_TRACE(id);
    screen->events.clear();
    the(id)->setFocus();
    key(Qt::Key_PageDown);
    EXPECT_EQ(screen->events, std::vector<std::string>{"next"});
    EXPECT_EQ(focused(), id);
  }
  for (const char* id : {"Text2", "ListView1"}) {
    SCOPED_TRACE(id);
    screen->events.clear();
    the(id)->setFocus();
    key(Qt::Key_PageDown);
    EXPECT_NE(screen->events, std::vector<std::string>{"next"});
  }
}

TEST_F(KeysTest, ABoxThatMustBeFilledIsTintedWhileItIsEmpty) {
  const auto ground = [this](const char* id) { return the(id)->palette().color(QPalette::Base); };
  const QColor paper = ground("Text1(2)");
  EXPECT_NE(ground("Text1(18)"), paper);
  type("Text1(18)", "S");
  EXPECT_EQ(ground("Text1(18)"), paper);
  key(Qt::Key_Backspace);
  EXPECT_NE(ground("Text1(18)"), paper);
  screen->Text1(18).required = false;
  house.face.refresh();
  EXPECT_EQ(ground("Text1(18)"), paper);
}

TEST_F(KeysTest, ABoxOffersWhatWasTypedBeforeAndTakesNoKeyFromTheTyping) {
  auto* box = the<QLineEdit>("Text1(18)");
  const auto list = [&] { return box->completer() && box->completer()->popup()->isVisible(); };
  const auto keyIntoList = [&](Qt::Key which, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(box->completer()->popup(), which, with);
    settle();
  };
  type("Text1(18)", "x");
  EXPECT_FALSE(list());
  key(Qt::Key_Backspace);
  type("Text1(18)", "S");
  ASSERT_TRUE(list());
  EXPECT_EQ(screen->Text1(18).text, "S") << "nothing is put there unasked";
  keyIntoList(Qt::Key_M);
  EXPECT_EQ(screen->Text1(18).text, "Sm");
  keyIntoList(Qt::Key_Escape);
  EXPECT_FALSE(list());
  EXPECT_EQ(screen->Text1(18).text + box->text().toStdString(), "SmSm");

  box->clear();
  type("Text1(18)", "S");
  ASSERT_TRUE(list());
  keyIntoList(Qt::Key_Tab);
  EXPECT_FALSE(list());
  EXPECT_EQ(screen->Text1(18).text + focused(), "SCombo1") << "Tab goes on with what was typed";

  box->clear();
  type("Text1(18)", "S");
  ASSERT_TRUE(list());
  keyIntoList(Qt::Key_Down);
  EXPECT_EQ(screen->Text1(18).text, "Smith, John") << "what is seen in the box is what the screen has";
  keyIntoList(Qt::Key_Down);
  keyIntoList(Qt::Key_Return);
  EXPECT_FALSE(list());
  EXPECT_EQ(screen->Text1(18).text + box->text().toStdString(), "SmytheSmythe");
  EXPECT_EQ(focused(), "Combo1") << "and Enter goes on";

  box->clear();
  type("Text1(18)", "S");
  ASSERT_TRUE(list());
  keyIntoList(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(screen->events.back(), "done");
}

TEST_F(KeysTest, AScreenHearsWhenTypingRests) {
  type("Text1(2)", "a");
  type("Text1(2)", "b");
  EXPECT_TRUE(heardSoon("rested AB"));
  EXPECT_EQ(screen->events.size(), 1u);
}

/// Says something and takes nothing.
class Notice : public Screen {
 public:
  explicit Notice(Desk& itsDesk) : Screen(itsDesk, "Notice", "Notice") {}
  Label Label1{*this, "Label1", "One moment please.."};
};

TEST_F(WindowTest, WhatIsTypedWhileANoticeShowsComesIntoTheNextWindow) {
  screens.learn("Notice", [](Desk& desk) { return std::make_unique<Notice>(desk); });
  screen->focus = &screen->Text1(2);
  Screen* notice = screens.open("Notice");
  QTest::keyClicks(house.face.windowOf(*notice), "ab");
  QTest::keyClick(house.face.windowOf(*notice), Qt::Key_Tab);
  QTest::keyClicks(house.face.windowOf(*notice), "cd");
  settle();
  EXPECT_EQ(screen->Text1(2).text, "");
  screens.close(*notice);
  EXPECT_TRUE(QTest::qWaitFor([&] { return screen->Text1(18).text == "cd"; }, 2000));
  EXPECT_EQ(screen->Text1(2).text, "AB");
}

TEST_F(KeysTest, EscThrowsNothingAway) {
  for (const char* id : {"Text1(18)", "Combo1", "DTPicker1", "Text2"})
    type(id, "soon");
  for (const char* id : {"Text1(18)", "Combo1", "DTPicker1", "Text2"}) {
    the(id)->setFocus();
    key(Qt::Key_Escape);
  }
  EXPECT_EQ(screen->Text1(18).text + screen->Combo1.text + screen->Text2.text, "soonsoonsoon");
  EXPECT_EQ(the<QLineEdit>("DTPicker1")->text(), "soon");
  EXPECT_TRUE(screens.isOpen(*screen));
}

}  // namespace
}  // namespace zelvo::testing
