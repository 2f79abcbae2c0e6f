#include "ui/qt_face.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>

#include "sample_screen.h"
#include "ui/date_box.h"

namespace zelvo::testing {
namespace {

/// What the first sample does not have: options, pages, a clickable warning, and a button that opens the other screen.
class ChoiceScreen : public Screen {
 public:
  explicit ChoiceScreen(Desk& itsDesk) : Screen(itsDesk, "ChoiceFrm", "Choices") {
    Label28.clickable = Label28.warning = true;
    onClick(Label28, [this] { ++violations; });
    onClick(other, [this] { desk.screens.open("SampleFrm"); });
    onClick(wait, [this] {
      desk.clock.pause(0.05);
      desk.screens.close(*this);
    });
  }
  ~ChoiceScreen() override { ++destroyed; }

  Label Label28{*this, "Label28", "This property had a Violation"};
  Option year{*this, "Option1", "&Year", "period", 0};
  Option month{*this, "Option1", "&Month", "period", 1};
  Option all{*this, "Option2", "&All", "kind"};
  Tabs SSTab1{*this, "SSTab1", {"Permit", "List"}};
  Button other{*this, "other", "&Other"};
  Button wait{*this, "wait", "&Wait"};
  int violations = 0;
  static inline int destroyed = 0;
};

class FaceTest : public WindowTest {
 protected:
  FaceTest() {
    screens.learn("ChoiceFrm", [](Desk& desk) { return std::make_unique<ChoiceScreen>(desk); });
    choices = static_cast<ChoiceScreen*>(screens.open("ChoiceFrm"));
    window = house.face.windowOf(*choices);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  }
  ChoiceScreen* choices;
};

TEST_F(FaceTest, OptionsOfAGroupExcludeEachOtherAndNoOthers) {
  press("Option1(0)");
  press("Option2");
  press("Option1(1)");
  EXPECT_FALSE(choices->year.chosen);
  EXPECT_TRUE(choices->month.chosen);
  EXPECT_TRUE(choices->all.chosen);
  EXPECT_FALSE(the<QRadioButton>("Option1(0)")->isChecked());
  choices->month.chosen = false;
  house.face.refresh();
  EXPECT_FALSE(the<QRadioButton>("Option1(1)")->isChecked()) << "a group may have none chosen";
}

TEST_F(FaceTest, PagesTurnBothWays) {
  choices->SSTab1.current = 1;
  house.face.refresh();
  EXPECT_EQ(the<QTabWidget>("SSTab1")->currentIndex(), 1);
  the<QTabWidget>("SSTab1")->setCurrentIndex(0);
  EXPECT_EQ(choices->SSTab1.current, 0u);
}

TEST_F(FaceTest, AClickableLabelIsReachedByMouseAndKey) {
  press("Label28");
  the("Label28")->setFocus();
  key(Qt::Key_Space);
  EXPECT_EQ(choices->violations, 2);
}

TEST_F(FaceTest, TheWindowThatTheUserTurnsToIsInFront) {
  press("other");
  EXPECT_EQ(screens.front(), screen);
  window->activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([&] { return screens.front() == choices; }, 2000));
}

TEST_F(FaceTest, AScreenThatClosesItselfGoesWhenItsHandlerIsDone) {
  const int before = ChoiceScreen::destroyed;
  const QPointer<ScreenWindow> itsWindow = window;
  press("wait");
  EXPECT_EQ(ChoiceScreen::destroyed, before + 1);
  EXPECT_EQ(screens.front(), screen);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(itsWindow);
}

TEST_F(WindowTest, TheCalendarPicksADayAndAListEntryIsPicked) {
  auto* box = static_cast<DateBox*>(the("DTPicker1"));
  type("DTPicker1", "3/9/2025");
  box->openCalendar();
  auto* calendar = box->findChild<QCalendarWidget*>();
  ASSERT_TRUE(calendar);
  EXPECT_EQ(calendar->selectedDate(), QDate(2025, 3, 9));
  emit calendar->clicked(QDate(2025, 3, 17));
  EXPECT_EQ(screen->DTPicker1.date, (Date{2025, 3, 17}));
  EXPECT_EQ(box->text(), "03/17/2025");

  the("Combo2")->setFocus();
  key(Qt::Key_Down);
  EXPECT_EQ(screen->Combo2.text, "ADMIN");
  key(Qt::Key_Down);
  EXPECT_EQ(screen->Combo2.text, "USER");
}

TEST_F(WindowTest, ThePrinterDialogOffersAFileAndKeepsTheCopies) {
  PrintOptions options;
  whenBox<QDialog>([](QDialog& dialog) {
    auto* names = dialog.findChild<QComboBox*>();
    names->setCurrentIndex(names->count() - 1);
    dialog.findChild<QSpinBox*>()->setValue(3);
    dialog.accept();
  });
  EXPECT_TRUE(house.printing.choosePrinter(options));
  EXPECT_EQ(options.copies, 3);
  EXPECT_EQ(options.printer, "Save as a PDF file");
  whenBox<QDialog>([](QDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(house.printing.choosePrinter(options));
}

}  // namespace
}  // namespace zelvo::testing
