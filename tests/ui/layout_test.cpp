#include "ui/layout.h"

#include <QLabel>
#include <QLineEdit>

#include "sample_screen.h"

namespace zelvo::testing {
namespace {

class LayoutTest : public WindowTest {
 protected:
  std::vector<LayoutRow> whole() const {
    return {field("Text1(2)"),  field("Text1(18)", "&Owner"),
            field("Combo1"),    field("Combo2"),
            field("DTPicker1"), field("Check3"),
            field("Text2"),     field("ListView1"),
            foot("ask"),        foot("done"),
            foot("cmdOK"),      foot("Quit"),
            foot("next")};
  }
};

TEST_F(LayoutTest, AWholeLayoutAndTheOneMadeForScreensWithoutATableHaveNoProblems) {
  const auto rows = whole();
  EXPECT_EQ(layoutProblems(*screen, {"SampleFrm", rows}), std::vector<std::string>{});
  const StackedLayout stacked(*screen);
  EXPECT_EQ(layoutProblems(*screen, stacked.layout()), std::vector<std::string>{});
}

TEST_F(LayoutTest, DisagreementsAreNamed) {
  const std::pair<LayoutRow, const char*> table[] = {
      {field("Text1(99)"), "Text1(99) is placed, but the screen has no such control"},
      {page(0), "page 0 is laid out, but the screen has 0 pages"},
  };
  for (const auto& [row, problem] : table) {
    auto rows = whole();
    rows.push_back(row);
    EXPECT_EQ(layoutProblems(*screen, {"SampleFrm", rows}), std::vector<std::string>{problem});
  }
  auto rows = whole();
  rows[2] = field("Combo1", "&Date of it");
  EXPECT_EQ(layoutProblems(*screen, {"SampleFrm", rows}),
            std::vector<std::string>{"the access key D is given to Combo1 and to Check3"});
  rows = whole();
  rows.insert(rows.begin() + 2, field("Text1(18)"));
  EXPECT_EQ(layoutProblems(*screen, {"SampleFrm", rows}), std::vector<std::string>{"Text1(18) is placed 2 times"});
  rows = whole();
  std::swap(rows[2], rows[3]);
  EXPECT_EQ(layoutProblems(*screen, {"SampleFrm", rows}),
            std::vector<std::string>{"the Tab key comes to Combo1 before Combo2, which stands ahead of it"});
  rows.erase(rows.begin() + 3);
  EXPECT_EQ(layoutProblems(*screen, {"SampleFrm", rows}), std::vector<std::string>{"Combo1 is placed nowhere"});
  EXPECT_EQ(layoutProblems(*screen, {"OtherFrm", whole()}).front(), "the layout of OtherFrm is none of SampleFrm");
  Tabs tabs(*screen, "SSTab1", {"&Details"});
  EXPECT_EQ(layoutProblems(*screen, {"SampleFrm", whole()}),
            std::vector<std::string>{"the access key D is given to &Details and to Check3"});
}

/// Only builds: nobody does anything in it.
struct Nobody : UserActions {
  std::vector<std::string> offers(const Control&) override { return {}; }
  void sets(Control&, const std::string&) override {}
  void changes(Control&, const std::function<void()>&) override {}
  void clicks(Control&) override {}
  void leaves(Control&) override {}
  void chooses(ListView&, std::size_t) override {}
  void opensRow(ListView&, std::size_t) override {}
  void sorts(ListView&, std::size_t) override {}
  void picks(TextBox&, const std::string&) override {}
  void complains(const std::string&) override {}
};

TEST_F(LayoutTest, CaptionsLeadToTheirFieldsAndForgottenControlsAreStillThere) {
  const std::vector<LayoutRow> rows = {group("Owner"), field("Text1(18)", "&Owner", 20), foot("cmdOK")};
  QMainWindow built;
  Nobody nobody;
  const BuiltForm form = buildForm(built, *screen, {"SampleFrm", rows}, nobody);
  for (const auto& view : form.views)
    view->refresh();
  const auto* box = built.findChild<QLineEdit*>("Text1(18)");
  ASSERT_TRUE(box);
  QLabel* caption = nullptr;
  for (QLabel* label : built.findChildren<QLabel*>())
    if (label->buddy() == box)
      caption = label;
  ASSERT_TRUE(caption);
  EXPECT_EQ(caption->text(), "&Owner *") << "marked, since it must be filled";
  for (const Control* control : screen->controls())
    EXPECT_TRUE(built.findChild<QObject*>(QString::fromStdString(control->id()))) << control->id();
  delete built.takeCentralWidget();
}

TEST_F(LayoutTest, ColumnsGoBelowEachOtherWhereTheWindowIsNarrow) {
  const std::vector<LayoutRow> rows = {column(), field("Text1(2)", "Section", 12),
                                       column(), field("Text1(18)", "Owner", 12),
                                       column(), field("Text2", "Notes", 0, kFill)};
  QMainWindow built;
  Nobody nobody;
  const BuiltForm form = buildForm(built, *screen, {"SampleFrm", rows}, nobody);
  const auto place = [&](const char* id) {
    const auto* box = built.findChild<QWidget*>(id);
    return QRect(box->mapTo(&built, QPoint(0, 0)), box->size());
  };
  built.show();
  built.resize(1300, 500);
  settle();
  EXPECT_EQ(place("Text1(2)").top(), place("Text1(18)").top());
  EXPECT_GT(place("Text1(18)").left(), place("Text1(2)").right());
  built.resize(300, 500);
  settle();
  EXPECT_GT(place("Text1(18)").top(), place("Text1(2)").bottom());
  EXPECT_LE(place("Text1(18)").right(), 300) << "a page is scrolled downward, never sideways";
  delete built.takeCentralWidget();
}

}  // namespace
}  // namespace zelvo::testing
