#include <QApplication>

#include "app/house/house.h"
#include "base/files.h"
#include "data/connection.h"
#include "documents/print_frm.h"
#include "shell/user_edit.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"
#include "ui/layout.h"
#include "ui/screen_window.h"

namespace zelvo::testing {
namespace {

/// Shows what changed, and nothing else happens.
class StillHost : public WindowHost {
  void act(const std::function<void()>& doing) override { doing(); }
  void turnedTo(Screen&) override {}
};

/// Every screen of the office held against its layout table, and its window against the smallest display in use.
class OfficeLayouts : public ::testing::Test {
 protected:
  void check(Screen& screen) {
    SCOPED_TRACE(screen.name());
    const Layout* layout = layoutFor(screen.name());
    ASSERT_NE(layout, nullptr) << "the screen has no layout";
    EXPECT_EQ(layoutProblems(screen, *layout), std::vector<std::string>{});
    StillHost host;
    ScreenWindow window(screen, host);
    window.refresh();
    EXPECT_LE(window.minimumSizeHint().width(), 1366);
    EXPECT_LE(window.minimumSizeHint().height(), 768);
  }

  OfficeLayouts() {
    at.session.programFolder = at.session.dataFolder = folder.path();
    for (const char* table : {"BLDGPERM", "SBL"})
      EXPECT_TRUE(createDatabase(joinPath(folder.path(), findTable(table)->file), *findTable(table)).ok());
  }

  TempFolder folder;
  ScriptedDesk at;
  House house{at.desk};
};

TEST_F(OfficeLayouts, PlaceEveryControlOnceAndFitTheDisplay) {
  for (const char* name :
       {"PswFrm", "pswhelp", "MenuFrm", "frmAbout", "LoadingFrm", "coordsfrm", "Preview", "APermits"}) {
    Screen* screen = at.screens.open(name);
    ASSERT_NE(screen, nullptr) << name;
    check(*screen);
  }
  UserEdit user(at.desk, User{}, UserEdit::Rights::MayChange, {});
  check(user);
  PrintFrm options(at.desk, "Print Permit 26-1", {"Building Permit"});
  check(options);
}

}  // namespace
}  // namespace zelvo::testing
