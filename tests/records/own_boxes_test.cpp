#include <gtest/gtest.h>

#include "permit_office.h"

namespace zelvo::testing {
namespace {

/// The page for what offices kept in former days: a permit that holds such values, and one that does not.
class FormerColumns : public PermitOffice {
 protected:
  FormerColumns() {
    addOther("26-1");
    auto row = permitsNow();
    for (const auto& [column, value] : {std::pair("JOB", "J-17"),
                                        {"BIN", "1002345"},
                                        {"TOILETS", "3"},
                                        {"HEATPLT1", "Oil burner, 1962"},
                                        {"REMARKS1", "see roll 4"},
                                        {"WKTOBEG", "at once"},
                                        {"VD2", "03/09/1987"},
                                        {"FEE2", "12.345678901"}})
      row->set(column, value);
    EXPECT_TRUE(row->Update().ok());
    EXPECT_TRUE(parcels.SBLAdd("999-5-0-3-45", "26-1", "Smith", "", "14 Mill Road").ok());
  }
  std::string stored(std::string_view condition) {
    const auto row = look("db1.mdb", "Select * from BLDGPERM where " + std::string(condition));
    std::string text = std::to_string(row->RecordCount());
    for (const char* column : {"JOB", "BIN", "TOILETS", "HEATPLT1", "REMARKS1", "WKTOBEG", "VD2", "FEE2"})
      text += "|" + (row->Eof() ? "" : row->get(column).isNull() ? "null" : row->text(column));
    return text;
  }
  static constexpr const char* whole = "1|J-17|1002345|3|Oil burner, 1962|see roll 4|at once|3/9/1987|12.345678901";
};

TEST_F(FormerColumns, AreShownAndStayAsTheyAreUntilSomebodyTypes) {
  APermits& permits = open();
  EXPECT_EQ(at.shown(permits, "TextJob"), "J-17");
  EXPECT_EQ(at.shown(permits, "TextDate2"), "03/09/1987");
  at.click(permits, "IEdit");
  typePermit(permits);
  at.click(permits, "ISave");
  EXPECT_EQ(stored("[PERMIT] = '26-1'"), whole);
  at.click(permits, "IEdit");
  at.set(permits, "TextHeat", "Gas");
  at.set(permits, "TextFee2", "$1,250");
  at.set(permits, "TextDate2", "");
  at.click(permits, "ISave");
  EXPECT_EQ(stored("[PERMIT] = '26-1'"), "1|J-17|1002345|3|Gas|see roll 4|at once|null|1250");
}

TEST_F(FormerColumns, ANewPermitLeavesThemToTheStoreAndACopyTakesThemOver) {
  APermits& permits = open();
  at.click(permits, "INew");
  EXPECT_EQ(at.shown(permits, "TextJob"), "");
  typePermit(permits);
  at.click(permits, "IAdd");
  EXPECT_EQ(stored("[PERMIT] = '26-2'"), "1|null|null|null|null|null|null|null|null");
  at.click(permits, "IMoveFirst");
  at.click(permits, "ICopy");
  typePermit(permits);
  at.click(permits, "IAdd");
  const std::string copied = stored("[PERMIT] = '26-3'");
  EXPECT_EQ(copied, std::string(whole).substr(0, copied.size())) << "cut to the width of an amount, and nothing else";
  EXPECT_TRUE(copied.ends_with("|12.34567")) << copied;
}

TEST_F(FormerColumns, AreLookedForByExample) {
  APermits& permits = open();
  addOther("26-2");
  for (const auto& [box, typed] :
       {std::pair("TextRemarks", "ROLL 4"), {"TextJob", "17"}, {"TextDate2", "3/9/87"}, {"TextFee2", "12.345678901"}}) {
    at.click(permits, "ILocate");
    at.set(permits, box, typed);
    at.click(permits, "ILocate");
    EXPECT_EQ(at.shown(permits, "lblStatus"), "Record 1 of 1") << box;
  }
}

TEST_F(FormerColumns, ADateThatIsNoneIsToldWhereItStands) {
  APermits& permits = open();
  at.click(permits, "IEdit");
  typePermit(permits);
  at.set(permits, "TextDate2", "soon");
  at.expect(" Date Error", "\"soon\" is no date.\nPlease write dates as mm/dd/yyyy.");
  at.click(permits, "ISave");
  EXPECT_EQ(at.shown(permits, "TextDate2"), "soon");
  EXPECT_EQ(stored("[PERMIT] = '26-1'"), whole);
}

}  // namespace
}  // namespace zelvo::testing
