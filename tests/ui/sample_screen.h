#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "ui/qt_house.h"

namespace zelvo::testing {

/// A screen with one control of each kind, that notes what its handlers were called for.
class SampleScreen : public Screen {
 public:
  explicit SampleScreen(Desk& itsDesk) : Screen(itsDesk, "SampleFrm", "Sample") {
    Combo1.items = {"Dwelling", "Garage", std::string(300, 'W')};
    Combo2.items = {"ADMIN", "USER"};
    Combo2.freeText = false;
    Text1(18).required = Text1(18).suggests = true;
    Text2.manyLines = true;
    ListView1.columns = {{" Permit ", 10, false}, {" Owner ", 30, false}};
    cmdOK.isDefault = true;
    onEdit(Text1(2), [this] { Text1(2).text = std::string(trimmedUpper(Text1(2).text)); });
    onRest(Text1(2), [this] { heard("rested " + Text1(2).text); });
    onLeave(Text1(18), [this] {
      heard("left owner");
      showStatus("left " + Text1(18).text);
    });
    onLeave(Text1(2), [this] {
      if (Text1(2).text != "BAD")
        return;
      heard("refused");
      setFocus(Text1(2), true);
    });
    onClick(done, [this] {
      heard("done");
      done.enabled = false;
    });
    onClick(cmdOK, [this] { heard("ok " + Text1(18).text); });
    done.shortcut = "Ctrl+S";
    next.shortcut = "PgDown";
    onClick(next, [this] { heard("next"); });
    onClick(Quit, [this] { closeMe(); });
    onClick(ask,
            [this] { heard(desk.messages.confirm(" Record Void", "Void it?", Icon::Exclamation) ? "yes" : "no"); });
    onClick(permits, [this] { heard("menu"); });
    onClick(Check3, [this] { Text1(18).enabled = !Check3.checked; });
    onChoose(ListView1, [this] { heard("row " + std::to_string(*ListView1.selected)); });
    onOpenRow(ListView1, [this] { heard("open " + std::to_string(*ListView1.selected)); });
  }

  std::vector<std::string> typedBefore(const Control& box) override {
    return box.shown().starts_with("S") ? std::vector<std::string>{"Smith, John", "Smythe"}
                                        : std::vector<std::string>{};
  }
  bool takesFiles() const override { return takes; }
  void Form_Drop(const std::vector<std::string>& files) override { heard("dropped " + files.front()); }
  bool takes = false;
  void heard(const std::string& what) { events.push_back(what); }
  std::vector<std::string> events;

  Menu File{*this, "File", "&File"};
  MenuEntry permits{*this, File, "permits", "&Building Permits"};
  ControlArray<TextBox> Text1{*this, "Text1", {2, 18}};
  Combo Combo1{*this, "Combo1"};
  Combo Combo2{*this, "Combo2"};
  DatePicker DTPicker1{*this, "DTPicker1"};
  CheckBox Check3{*this, "Check3", "Close&d"};
  TextBox Text2{*this, "Text2"};
  ListView ListView1{*this, "ListView1"};
  Button ask{*this, "ask", "&Void"};
  Button done{*this, "done", "Do&ne"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button Quit{*this, "Quit", "&Quit"};
  Button next{*this, "next", ">"};

 private:
  static std::string trimmedUpper(std::string text) {
    for (char& letter : text)
      letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return text;
  }
};

/// The windows with a sample screen open in them, and the user's hands.
class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    screens.learn("SampleFrm", [](Desk& desk) { return std::make_unique<SampleScreen>(desk); });
    screen = static_cast<SampleScreen*>(screens.open("SampleFrm"));
    window = house.face.windowOf(*screen);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window)) << "access keys need an active window";
  }
  ~WindowTest() override {
    while (Screen* front = screens.front())
      screens.close(*front);
    screens.sweep();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  template <class Widget = QWidget>
  Widget* the(const char* id) {
    auto* found = window->findChild<Widget*>(id);
    if (!found)
      throw std::logic_error(std::string("the window has no ") + id);
    return found;
  }
  void type(const char* id, const char* text) {
    the(id)->setFocus();
    QTest::keyClicks(the(id), text);
    settle();
  }
  void press(const char* id) {
    QTest::mouseClick(the(id), Qt::LeftButton);
    settle();
  }
  void key(Qt::Key which, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(window->focusWidget() ? window->focusWidget() : window, which, with);
    settle();
  }
  static void settle() {
    for (int i = 0; i < 4; ++i)
      QCoreApplication::processEvents();
  }
  /// Does something with the box that comes up next; the test fails when none comes.
  template <class Box>
  static void whenBox(std::function<void(Box&)> then) {
    constexpr int kTries = 100;
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, then, tries = 0]() mutable {
      auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
      if (!box && ++tries < kTries)
        return;
      look->deleteLater();
      look->stop();
      ASSERT_TRUE(box) << "no box came up";
      then(*box);
    });
    look->start(20);
  }
  bool heardSoon(const std::string& what) {
    return QTest::qWaitFor([&] { return !screen->events.empty() && screen->events.back() == what; }, 2000);
  }

  Session session;
  Screens screens;
  QtHouse house{session, screens};
  SampleScreen* screen = nullptr;
  ScreenWindow* window = nullptr;
};

}  // namespace zelvo::testing
