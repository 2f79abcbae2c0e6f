#include <gtest/gtest.h>

#include "base/text.h"
#include "documents/document_reader.h"
#include "permit_office.h"

namespace zelvo::testing {
namespace {

class ListedOffice : public PermitOffice {
 protected:
  ListedOffice() {
    const char* permits[][4] = {{"26-1", "Miller", "5 Oak Road", "Brick"},
                                {"26-2", "adams", "1 Mill Street", "Wood"},
                                {"26-3", "Baker", "", "Brick"}};
    for (const auto& permit : permits) {
      addOther(permit[0]);
      auto row = permitsNow();
      row->MoveLast();
      row->set("OWNNAME1", permit[1]), row->set("LOCN1", permit[2]), row->set("MATL", permit[3]);
      EXPECT_TRUE(row->Update().ok());
    }
  }

  /// The cells of one column of the list, row by row.
  std::string column(std::size_t number) {
    const auto& list = dynamic_cast<const ListView&>(at.control(open(), "ListView1"));
    std::vector<std::string> cells;
    for (std::size_t row = 0; row < list.count(); ++row)
      cells.push_back(list.rows->cell(row, number));
    return join(cells, "|");
  }

  void sort(std::size_t by) {
    auto& list = dynamic_cast<ListView&>(at.control(open(), "ListView1"));
    EXPECT_TRUE(open().userSorts(list, by).ok());
  }
  void filter(std::string_view text) {
    at.set(open(), "txtFilter", text);
    at.leave(open(), "txtFilter");
  }
};

TEST_F(ListedOffice, HeadOfAColumnSortsAndTheRecordStaysInSight) {
  APermits& permits = open();
  at.click(permits, "IMoveLast");
  sort(4);
  EXPECT_EQ(column(4), "adams|Baker|Miller");
  EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-3");
  EXPECT_EQ(at.shown(permits, "lblStatus"), "Record 2 of 3");
  sort(4);
  EXPECT_EQ(column(4), "Miller|Baker|adams");
  sort(0);
  EXPECT_EQ(column(0), "26-1|26-2|26-3");
}

TEST_F(ListedOffice, FilterNarrowsWhatWasAskedForAndGoesWithIt) {
  APermits& permits = open();
  filter("mill");
  EXPECT_EQ(column(0), "26-1|26-2");
  filter("MILLER");
  EXPECT_EQ(column(0), "26-1");
  EXPECT_EQ(at.shown(permits, "lblStatus"), "Record 1 of 1");
  filter("no such thing");
  EXPECT_EQ(at.shown(permits, "lblStatus"), "no such records");
  EXPECT_TRUE(at.control(permits, "txtFilter").enabled);
  filter("");
  EXPECT_EQ(column(0), "26-1|26-2|26-3");

  at.click(permits, "ILocate");
  at.set(permits, "Text4", "brick");
  at.click(permits, "ILocate");
  filter("o'ak");
  EXPECT_EQ(column(0), "");
  filter("oak");
  EXPECT_EQ(column(0), "26-1");
  sort(4);
  EXPECT_EQ(column(0), "26-1") << "filter and order hold together";
  at.click(permits, "iReset");
  EXPECT_EQ(column(0), "26-1|26-2|26-3");
  EXPECT_EQ(at.shown(permits, "txtFilter"), "");
}

TEST_F(ListedOffice, FilterFollowsTheTypingAndTheFilterStays) {
  APermits& permits = open();
  Control& box = at.control(permits, "txtFilter");
  at.set(permits, "txtFilter", "mill");
  permits.userRests(box);
  EXPECT_EQ(column(0), "26-1|26-2");
  at.set(permits, "txtFilter", "mille");
  permits.userRests(box);
  EXPECT_EQ(column(0) + at.shown(permits, "txtFilter"), "26-1mille");
  at.leave(permits, "txtFilter");
  EXPECT_EQ(column(0), "26-1");
}

TEST_F(ListedOffice, ChosenColumnsAreRememberedOnThisComputer) {
  at.when("ColumnsFrm", [&](Screen& columns) {
    at.choose(columns, "ListView1", "3");  // " Use "
    at.click(columns, "cmdTurn");
    auto& list = dynamic_cast<ListView&>(at.control(columns, "ListView1"));
    for (std::size_t row = 0; row < list.count(); ++row)
      if (list.rows->cell(row, 1) == "MATL")
        at.choose(columns, "ListView1", std::to_string(row + 1));
    at.click(columns, "cmdTurn");
    at.click(columns, "cmdUp");
    at.click(columns, "cmdOK");
  });
  at.click(open(), "cmdColumns");
  EXPECT_EQ(at.shown(open(), "ListView1"), "3 rows, 5 columns");
  EXPECT_EQ(column(4), "Brick|Wood|Brick");
  at.click(open(), "Quit");
  EXPECT_EQ(column(4), "Brick|Wood|Brick");

  at.when("ColumnsFrm", [&](Screen& columns) {
    at.click(columns, "cmdUsual");
    at.click(columns, "cmdOK");
  });
  at.click(open(), "cmdColumns");
  EXPECT_EQ(column(4), "Miller|adams|Baker");
}

TEST_F(ListedOffice, DamagedChoiceOfColumnsGivesTheUsualOnes) {
  ASSERT_TRUE(makeFolder(at.session.programFolder + "/lists").ok());
  ASSERT_TRUE(replaceFile(at.session.programFolder + "/lists/APermits.txt", "NOSUCH,5,x\r\n\xff\xff,,\r\n\r\n").ok());
  EXPECT_EQ(at.shown(open(), "ListView1"), "3 rows, 5 columns");
}

TEST_F(ListedOffice, TheListedRowsArePrintedAndSavedAsTheyStand) {
  APermits& permits = open();
  filter("mill");
  sort(4);
  sort(4);
  at.pick(folder.file("list.csv"));
  at.click(permits, "cmdSaveList");
  EXPECT_EQ(folder.read("list.csv"),
            "\xEF\xBB\xBFPermit,Type,Use,Location,Owner\r\n26-1,,,5 Oak Road,Miller\r\n26-2,,,1 Mill Street,adams\r\n");
  at.click(permits, "cmdPrintList");
  ASSERT_EQ(at.printed.size(), 1u);
  EXPECT_EQ(at.printed[0].title, "Building Permits with \"mill\"");
  const std::string text = plainText(readDocument(folder.read("tmp.rtf")));
  EXPECT_LT(text.find("Miller"), text.find("adams")) << text;
  EXPECT_TRUE(text.ends_with("TOTAL = 2\n")) << text;
  EXPECT_EQ(at.shown(permits, "lblStatus"), "Record 1 of 2") << "the record stays where it is";
}

}  // namespace
}  // namespace zelvo::testing
