#include <gtest/gtest.h>

#include "documents/document_reader.h"
#include "permit_office.h"

namespace zelvo::testing {
namespace {

class PermitReports : public PermitOffice {
 protected:
  void file(std::string_view number, Date day, std::string_view owner, double cost) {
    auto row = permitsNow();
    row->AddNew();
    row->set("PERMIT", number);
    row->set("SEC", "12");
    row->set("BLK", "3");
    row->set("LOT", "45");
    row->set("OWNNAME1", owner);
    row->set("APPXCOST", cost);
    row->set("VD3", day);
    row->set("FILEMONTH", datePicture(day, "mm"));
    row->set("FILEDATE", datePicture(day, "dd"));
    row->set("FILEYEAR", datePicture(day, "yy"));
    ASSERT_TRUE(row->Update().ok());
  }
  /// Prints from the print menu, for the month.
  void list(const char* month, const char* output = "Print") {
    at.when("PrintFrm", [this](Screen& options) {
      at.set(options, "Combo1", "Monthly permits");
      at.click(options, "cmdPrint");
    });
    at.when("ReportFrm", [this, month, output](Screen& period) {
      at.set(period, "Combo1", month);
      at.set(period, "Text1", "2026");
      at.set(period, "Combo2", output);
      at.click(period, "cmdOK");
    });
    at.click(open(), "iPrint");
  }
};

TEST_F(PermitReports, ThePermitsOfAMonthInTheOrderOfTheirDays) {
  file("26-2", {2026, 3, 20}, "Smith, John", 1000);
  file("26-1", {2026, 3, 2}, "O'Brien, Zoë", 48500.5);
  file("25-9", {2025, 3, 9}, "Last year", 1);
  file("26-3", {2026, 4, 1}, "Next month", 1);
  list("March");
  ASSERT_EQ(at.printed.size(), 1u);
  EXPECT_EQ(at.printed[0].title, "MONTHLY PERMITS FOR MARCH 2026");
  const std::string text = plainText(readDocument(folder.read("tmp.rtf")));
  const auto lines = linesOf(text);
  ASSERT_GE(lines.size(), 8u) << text;
  EXPECT_EQ(lines[0], "MONTHLY PERMITS FOR MARCH 2026");
  EXPECT_TRUE(lines[4].starts_with("26-1       03/02/26  12-3-45")) << text;
  EXPECT_NE(lines[4].find("O'Brien, Zoë"), std::string::npos) << text;
  EXPECT_TRUE(lines[4].ends_with("48500.50       0.00")) << text;
  EXPECT_TRUE(lines[5].starts_with("26-2       03/20/26")) << text;
  EXPECT_EQ(lines.back(), "TOTAL = 2");

  at.expect(" Record(s) not Found", "No records meet the criteria.");
  list("May");
  EXPECT_EQ(at.printed.size(), 1u);
}

TEST_F(PermitReports, ASpreadsheetOfAMonth) {
  file("26-1", {2026, 3, 2}, "=cmd|' /C calc'!A0", 100);
  at.pick(folder.file("march.csv"));
  list("March", "Save for a spreadsheet");
  EXPECT_EQ(folder.read("march.csv"),
            "\xEF\xBB\xBFPERMIT,DATE,S-B-L,OWNER,LOCATION,FOR,COST,FEE\r\n"
            "26-1,03/02/26,12-3-45,'=cmd|' /C calc'!A0,,,100.00,0.00\r\n");
}

}  // namespace
}  // namespace zelvo::testing
