#include <gtest/gtest.h>

#include "permit_office.h"

namespace zelvo::testing {
namespace {

/// An office with a few permits to look for.
class SearchedOffice : public PermitOffice {
 protected:
  SearchedOffice() {
    addPermit("26-1", {{"OWNNAME1", "O'Brien, Zoë"},
                       {"SEC", "12"},
                       {"SUD", "5"},
                       {"BLK", "3"},
                       {"LOT", "45"},
                       {"VD3", "01/05/2026"},
                       {"VD4", "07/05/2026"},
                       {"APPXCOST", "12500"},
                       {"USEBLDG", "ONE FAMILY"}});
    addPermit("26-2", {{"OWNNAME1", "Smith, John"},
                       {"SEC", "112"},
                       {"BLK", "3"},
                       {"LOT", "45"},
                       {"VD3", "01/06/2026"},
                       {"MM2", "1"},
                       {"LINK02", "|call back"},
                       {"NOTES", "50% done"}});
    addPermit("26-3", {{"OWNNAME1", "SMITHERS, Ann"},
                       {"SEC", "12"},
                       {"BLK", "4"},
                       {"LOT", "1"},
                       {"VD3", "01/07/2026"},
                       {"VIOLOPEN", "C"},
                       {"PRMFOR", "Dwelling"},
                       {"MATL", "Brick"},
                       {"RFEE", "60"}});
  }

  void addPermit(std::string_view key, const std::vector<std::pair<const char*, const char*>>& values) {
    addOther(key);
    auto row = permitsNow();
    ASSERT_TRUE(*row->Find("[PERMIT] = '" + std::string(key) + "'"));
    for (const auto& [column, value] : values)
      row->set(column, value);
    ASSERT_TRUE(row->Update().ok());
  }

  /// The numbers of the permits that the screen shows now.
  std::string shownPermits() {
    const auto& list = dynamic_cast<const ListView&>(at.control(open(), "ListView1"));
    std::string numbers;
    for (std::size_t row = 0; row < list.count(); ++row)
      numbers += (numbers.empty() ? "" : " ") + list.rows->cell(row, 0);
    return numbers;
  }
};

TEST_F(SearchedOffice, FindsWhatHoldsEverythingThatWasTyped) {
  struct Row {
    std::vector<std::pair<const char*, const char*>> typed;
    const char* found;
  };
  const Row rows[] = {
      {{{"Text1(18)", "smith"}}, "26-2 26-3"},
      {{{"Text1(18)", "o'brien, zoË"}}, "26-1"},
      {{{"Text1(18)", "smith"}, {"Text1(2)", "12"}}, "26-3"},  // a section is meant whole
      {{{"Text1(2)", "12.5"}}, "26-1"},
      {{{"Text1(3)", "3"}, {"Text1(4)", "45"}}, "26-1 26-2"},
      {{{"Text1(1)", "-3"}}, "26-3"},
      {{{"Text1(12)", "$12,500"}}, "26-1"},
      {{{"Text2", "60"}}, "26-3"},
      {{{"Combo1", "family"}}, "26-1"},
      {{{"Combo2", "dwell"}}, "26-3"},
      {{{"Text4", "bri"}}, "26-3"},
      {{{"Check1", "1"}}, "26-2"},
      {{{"Check2", "1"}, {"Text5", "back"}}, "26-2"},
      {{{"Check3", "1"}}, "26-3"},
      {{{"DTPicker1", "01/06/2026"}}, "26-2"},
      {{{"DTPicker1", "01/05/2026"}, {"DTPicker2", "01/08/2026"}}, "26-2 26-3"},
      {{{"Text1(13)", "7/5/26"}}, "26-1"},
      {{{"Text1(18)", "sm_th[e,]"}}, "26-2 26-3"},
      {{{"Text1(42)", "%"}}, "26-2"},
  };
  APermits& permits = open();
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.typed[0].first) + " " + row.typed[0].second);
    at.click(permits, "ILocate");
    for (const auto& [box, value] : row.typed)
      at.set(permits, box, value);
    at.click(permits, "ILocate");
    EXPECT_EQ(shownPermits(), row.found);
    EXPECT_EQ(at.shown(permits, "ILocate"), "&Locate");
    EXPECT_FALSE(at.control(permits, "DTPicker2").visible);
  }
  at.click(permits, "iReset");
  EXPECT_EQ(shownPermits(), "26-1 26-2 26-3");
  EXPECT_FALSE(at.control(permits, "iReset").enabled);
}

TEST_F(SearchedOffice, FirstPressEmptiesThePageForWhatIsLookedFor) {
  APermits& permits = open();
  at.click(permits, "ILocate");
  EXPECT_EQ(at.shown(permits, "ILocate"), "Find");
  EXPECT_EQ(at.shown(permits, "DTPicker1"), "01/01/1901");
  EXPECT_EQ(at.shown(permits, "Text1(18)"), "");
  for (const char* off : {"INew", "IEdit", "ISave", "IAdd", "delr", "IMoveNext", "iPrint"})
    EXPECT_FALSE(at.control(permits, off).enabled) << off;
  at.click(permits, "ICancel");
  EXPECT_EQ(at.shown(permits, "Text1(18)"), "O'Brien, Zoë");
  EXPECT_TRUE(at.control(permits, "Text1(18)").locked);
}

TEST_F(SearchedOffice, NothingFoundShowsTheWholeTableAgain) {
  APermits& permits = open();
  at.click(permits, "ILocate");
  at.set(permits, "Text1(18)", "nobody");
  at.expect(" Record not Found", "Unable to locate a matching record.\nPlease check info for accuracy and try again.");
  at.click(permits, "ILocate");
  EXPECT_EQ(shownPermits(), "26-1 26-2 26-3");
}

TEST_F(SearchedOffice, EmptySearchAndADateThatIsNoneStayInTheSearch) {
  APermits& permits = open();
  at.click(permits, "ILocate");
  at.expect(" Building Permits", "Please fill in at least one box with what you look for.");
  at.click(permits, "ILocate");
  at.set(permits, "Text1(13)", "next week");
  at.expect(" Date Error", "\"next week\" is no date....");
  at.click(permits, "ILocate");
  EXPECT_EQ(at.shown(permits, "ILocate"), "Find");
  EXPECT_EQ(at.shown(permits, "Text1(13)"), "next week");
}

TEST_F(SearchedOffice, CopyBeginsANewPermitWithWhatTheOldOneSays) {
  APermits& permits = open();
  at.click(permits, "ICopy");
  EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-4");
  EXPECT_EQ(at.shown(permits, "Text1(18)"), "O'Brien, Zoë");
  EXPECT_EQ(at.shown(permits, "Combo1"), "ONE FAMILY");
  EXPECT_EQ(at.shown(permits, "DTPicker1"), "03/09/2026");
  EXPECT_EQ(at.shown(permits, "Text1(13)"), "");
  at.set(permits, "Text1(17)", "1 Long Road");
  at.set(permits, "Text1(34)", "2 Long Road");
  expectNewParcel();
  at.click(permits, "IAdd");
  auto row = permitsNow();
  ASSERT_TRUE(*row->Find("[PERMIT] = '26-4'"));
  for (const auto& [column, value] :
       {std::pair("OWNNAME1", "O'Brien, Zoë"), std::pair("SUD", "5"), std::pair("USEBLDG", "ONE FAMILY")})
    EXPECT_EQ(row->text(column), value) << column;
}

}  // namespace
}  // namespace zelvo::testing
