#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "app/house/house.h"
#include "base/files.h"
#include "data/connection.h"
#include "data/lookup/sync_sbl.h"
#include "data/no_dbfound.h"
#include "documents/preview/pages_frm.h"
#include "documents/print_frm.h"
#include "documents/reports/report_frm.h"
#include "enforcement/inspections/inspection_report_frm.h"
#include "enforcement/inspections/permit_rows.h"
#include "records/columns_frm.h"
#include "records/conflict_frm.h"
#include "records/note_frm.h"
#include "shell/backup/progress_frm.h"
#include "shell/first_run.h"
#include "shell/preferences/pref_frm.h"
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
    for (const char* table : {"BLDGPERM", "INSPDTL", "SBL"})
      EXPECT_TRUE(createDatabase(joinPath(folder.path(), findTable(table)->file), *findTable(table)).ok());
  }

  TempFolder folder;
  ScriptedDesk at;
  House house{at.desk};
};

TEST_F(OfficeLayouts, PlaceEveryControlOnceAndFitTheDisplay) {
  for (const char* name : {"PswFrm", "pswhelp", "MenuFrm", "frmAbout", "LoadingFrm", "coordsfrm", "Preview", "UserMgr",
                           "LabelFrm", "restorefrm", "PrefFrm", "APermits", "BInspections"}) {
    Screen* screen = at.screens.open(name);
    ASSERT_NE(screen, nullptr) << name;
    check(*screen);
  }
  UserEdit user(at.desk, User{}, UserEdit::Rights::MayChange, {});
  check(user);
  NewFrm fresh(at.desk, {});
  check(fresh);
  ProgressFrm waiting(at.desk, "Backup", "Backing up", {});
  check(waiting);
  FirstRun first(at.desk, folder.path());
  check(first);
  ConflictFrm conflict(at.desk, "Somebody changed it.", {});
  check(conflict);
  ColumnsFrm columns(at.desk, {}, {});
  check(columns);
  mdb parcels(at.session);
  NoteFrm notes(at.desk, parcels, "12-0-0-3-45");
  check(notes);
  EntryFrm entry(at.desk, "Code", "FOOTING");
  check(entry);
  PrintFrm options(at.desk, "Print Permit 26-1", {"Building Permit"});
  check(options);
  InspReportFrm inspections(at.desk);
  check(inspections);
  auto permits = permitsWith(at.desk, "");
  PermitChoice which(at.desk, std::move(*permits));
  check(which);
  ReportFrm period(at.desk, "Monthly permits");
  check(period);
  PagesFrm pages(at.desk, {{"Building Permit", folder.file("tmp.rtf"), {}}, {}});
  check(pages);
  for (const char* name : {"Editor", "HeaderFrm"})
    check(*at.screens.open(name));
}

TEST_F(OfficeLayouts, PlaceTheParcelsToo) {
  for (const char* name : {"sblloc", "adloc", "conloc", "rpsloc", "sblinfo", "SBLEdit"}) {
    Screen* screen = at.screens.open(name);
    ASSERT_NE(screen, nullptr) << name;
    check(*screen);
  }
  mdb parcels(at.session);
  syncSBL synchronizing(at.desk, parcels);
  check(synchronizing);
  noDbfound search(at.desk, *findTable("BLDGPERM"), "/lost/db1.mdb");
  check(search);
}

TEST_F(OfficeLayouts, WhatIsGivenUpNeedNotBeRight) {
  auto* permits = at.screens.open("APermits");
  StillHost host;
  ScreenWindow window(*permits, host);
  const auto press = [&](const char* id) {
    QTest::mouseClick(window.findChild<QAbstractButton*>(id), Qt::LeftButton);
    window.refresh();
  };
  window.show();
  press("INew");
  auto* date = window.findChild<QLineEdit*>("DTPicker1");
  date->setFocus();
  date->selectAll();
  QTest::keyClicks(date, "soon");
  press("IAdd");
  EXPECT_EQ(date->text(), "soon") << "nothing is stored, and the user is led back";
  press("ICancel");
  EXPECT_TRUE(static_cast<Button*>(permits->find("INew"))->enabled);
  EXPECT_NE(date->text(), "soon");
}

TEST_F(OfficeLayouts, APageTurnedToTakesTheFocus) {
  StillHost host;
  ScreenWindow window(*at.screens.open("APermits"), host);
  window.show();
  auto* pages = window.findChild<QTabWidget*>("SSTab1");
  pages->setCurrentIndex(1);
  EXPECT_EQ(window.focusWidget()->objectName(), "ListView1") << "the arrow keys walk through the list at once";
  pages->tabBar()->setFocus();
  pages->setCurrentIndex(0);
  EXPECT_EQ(window.focusWidget(), pages->tabBar()) << "on the tabs themselves they go on turning";
}

TEST_F(OfficeLayouts, TheArrowKeysGoToTheTileThatLiesThere) {
  Screen* menu = at.screens.open("MenuFrm");
  StillHost host;
  ScreenWindow window(*menu, host);
  window.show();
  window.findChild<QWidget*>("Image1")->setFocus();
  const std::pair<Qt::Key, const char*> walk[] = {
      {Qt::Key_Left, "Image1"}, {Qt::Key_Right, "Image2"}, {Qt::Key_Down, "Image5"},  {Qt::Key_Left, "Image4"},
      {Qt::Key_Down, "Image7"}, {Qt::Key_Down, "Image7"},  {Qt::Key_Right, "Image8"}, {Qt::Key_Up, "Image5"}};
  for (const auto& [key, tile] : walk) {
    QTest::keyClick(window.focusWidget(), key);
    EXPECT_EQ(window.focusWidget()->objectName(), tile);
  }
}

}  // namespace
}  // namespace zelvo::testing
