#include "inspection_office.h"

namespace zelvo::testing {
namespace {

/// A few inspections to look for.
class LocatedOffice : public InspectionOffice {
 protected:
  LocatedOffice() {
    addRow("INSPDTL", {{"RECNO", "1"},
                       {"PERMIT", "26-7"},
                       {"INSPCATEG", "B"},
                       {"INSPTYPE", "02 Footing"},
                       {"DATEINSP", "03/02/2026"},
                       {"INSPINIT", "A. Brown"},
                       {"INSPCOMM1", "As drawn."}});
    addRow("INSPDTL", {{"RECNO", "12"},
                       {"PERMIT", "26-70"},
                       {"INSPCATEG", "O"},
                       {"INSPTYPE", "21 Sign"},
                       {"DATEINSP", "03/03/2026"},
                       {"SEC", "12"},
                       {"BLK", "3"},
                       {"LOT", "45"}});
    addRow("INSPDTL", {{"RECNO", "21"},
                       {"INSPCATEG", "C"},
                       {"NATURE", "It's loud"},
                       {"NRECNO", "03/04/2026"},
                       {"COMNAME1", "Ned"},
                       {"COMPHONE", "555"},
                       {"INSVEST", "A. Brown"}});
    addRow("BLDGPERM", {{"PERMIT", "26-8"}, {"OWNNAME1", "O'Brien, Zoë"}, {"LOCN1", "16 Mill Road"}, {"SEC", "12"}});
  }

  std::string shownNumbers(Screen& screen) {
    const auto& list = dynamic_cast<const ListView&>(at.control(screen, "ListView1"));
    std::string numbers;
    for (std::size_t row = 0; row < list.count(); ++row)
      numbers += (row > 0 ? " " : "") + list.rows->cell(row, 0);
    return numbers;
  }
  void find(Screen& screen, const std::vector<std::pair<const char*, const char*>>& typed) {
    EXPECT_EQ(at.shown(screen, "ILocate"), "&Locate");
    at.click(screen, "ILocate");
    EXPECT_EQ(at.shown(screen, "ILocate"), "Find");
    type(screen, typed);
    at.click(screen, "ILocate");
  }
};

TEST_F(LocatedOffice, FindsInspectionsByWhatTheySay) {
  struct Row {
    std::vector<std::pair<const char*, const char*>> typed;
    const char* found;
  };
  const Row rows[] = {{{{"Text1(7)", "26-7"}}, "1 12"},  // a permit number is sought within
                      {{{"Text1(1)", "1"}}, "1"},        // the ICN as a number
                      {{{"Text1(1)", "012"}}, "12"},
                      {{{"Combo1", "OTHER"}}, "12"},
                      {{{"Combo1", "BLDG"}, {"Combo2", "02 Footing"}}, "1"},
                      {{{"DTPicker1", "03/03/2026"}}, "12"},
                      {{{"DTPicker3", "03/04/2026"}}, "21"},
                      {{{"Combo3", "brown"}, {"Text1(11)", "drawn"}}, "1"},
                      {{{"Text1(12)", "ned"}, {"Text1(14)", "55"}, {"Combo5", "Brown"}, {"Text1(15)", "it's"}}, "21"},
                      {{{"Text1(2)", "12"}, {"Text1(4)", "45"}}, "12"}};
  BInspections& screen = open();
  for (const Row& row : rows) {
    find(screen, row.typed);
    EXPECT_EQ(shownNumbers(screen), row.found) << row.typed[0].first << row.typed[0].second;
    at.click(screen, "iReset");
  }
  at.expect(" Record not Found", "Unable to locate a matching record.\nPlease check info for accuracy and try again.");
  find(screen, {{"Text1(1)", "99"}});
  EXPECT_EQ(shownNumbers(screen), "1 12 21");
}

TEST_F(LocatedOffice, FindsAPermitAndShowsItsInspections) {
  BInspections& screen = open();
  find(screen, {{"Option2", "1"}, {"Text1(7)", "26-7"}});
  EXPECT_EQ(shownNumbers(screen), "1");

  find(screen, {{"Option2", "1"}, {"Text1(9)", "16 mill"}});
  EXPECT_EQ(at.shown(screen, "lblStatus"), "No inspections");
  EXPECT_EQ(at.shown(screen, "Text1(7)") + at.shown(screen, "Text1(9)"), "26-816 Mill Road");

  at.when("PermitChoice", [this](Screen& which) {
    EXPECT_EQ(at.shown(which, "ListView1"), "2 rows, 5 columns");
    at.choose(which, "ListView1", "26-7");
    at.click(which, "cmdOK");
  });
  find(screen, {{"Option2", "1"}, {"Text1(8)", "o'brien"}, {"Text1(2)", "12"}});
  EXPECT_EQ(shownNumbers(screen), "1");

  at.expect(" Record not Found", "Unable to locate a matching record.\nPlease check info for accuracy and try again.");
  find(screen, {{"Option2", "1"}, {"Text1(2)", "12.9"}});
  EXPECT_EQ(at.shown(screen, "ILocate"), "Find") << "what was typed stays";
  at.click(screen, "ICancel");
}

TEST_F(LocatedOffice, QuickAddNeedsALocatedPermit) {
  BInspections& screen = open();
  at.expect(" Building Inspections", "You must 'LOCATE' a permit first before adding inspections.");
  at.click(screen, "qcload");
  find(screen, {{"Option2", "1"}, {"Text1(7)", "26-7"}});
  at.click(screen, "qcload");
  const auto row = stored("22");
  EXPECT_EQ(row->text("INSPCOMM1"), "Comments Test ICN 22 Permit 26-7");
  EXPECT_EQ(row->text("INSPCATEG") + row->text("INSPTYPE") + row->text("INSPINIT") + row->text("INSPRESULT"),
            "B01 Plan ReviewQCP");
  EXPECT_EQ(shownNumbers(screen), "1 22");
}

TEST_F(LocatedOffice, AnotherScreenAsksForOneInspection) {
  at.session.hop = "12";
  BInspections& screen = open();
  EXPECT_EQ(at.shown(screen, "Text1(1)"), "12");
  EXPECT_EQ(shownNumbers(screen), "1 12 21");
}

}  // namespace
}  // namespace zelvo::testing
