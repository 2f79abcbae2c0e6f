#include <gtest/gtest.h>

#include <algorithm>

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
  using Answers = std::vector<std::pair<const char*, const char*>>;

  /// Prints an entry of the print menu, and answers what the listing asks.
  void printEntry(const char* entry, const Answers& answers = {}) {
    at.when("PrintFrm", [this, entry](Screen& options) {
      at.set(options, "Combo1", entry);
      at.click(options, "cmdPrint");
    });
    at.when("ReportFrm", [this, answers](Screen& form) {
      for (const auto& [control, value] : answers)
        at.set(form, control, value);
      at.click(form, "cmdOK");
    });
    at.click(open(), "iPrint");
  }
  void list(const char* month, const char* output = "Print") {
    printEntry("Monthly permits", {{"Combo1", month}, {"Text1", "2026"}, {"Combo2", output}});
  }
  std::vector<std::string> linesPrinted() { return linesOf(plainText(readDocument(folder.read("tmp.rtf")))); }

  void make(const char* table) { ASSERT_TRUE(createDatabase(path(findTable(table)->file), *findTable(table)).ok()); }
  using Values = std::vector<std::pair<const char*, Value>>;
  void store(std::string_view table, const Values& values) {
    auto rows = look(findTable(table)->file, "Select * from " + std::string(table));
    rows->AddNew();
    for (const auto& [column, value] : values)
      rows->set(column, value);
    ASSERT_TRUE(rows->Update().ok());
  }
  void permit(const char* number, const Values& more) {
    Values values = {{"PERMIT", number}, {"VIOLOPEN", "O"}, {"OWNADDR1", "1 Mill Road, Alder Glen, NY 12009"}};
    values.insert(values.end(), more.begin(), more.end());
    store("BLDGPERM", values);
  }
  /// The first words of the printed rows, in their order.
  std::string rowsPrinted() {
    const auto lines = linesPrinted();
    std::string keys;
    for (std::size_t i = 4; i < lines.size() && !lines[i].empty(); ++i)
      keys += (keys.empty() ? "" : " ") + lines[i].substr(0, lines[i].find(' '));
    return keys;
  }
};

TEST_F(PermitReports, ThePermitsOfAMonthInTheOrderOfTheirDays) {
  file("26-2", {2026, 3, 20}, "Smith, John", 1000);
  file("26-1", {2026, 3, 2}, "O'Brien, Zoë", 48500.5);
  file("25-9", {2025, 3, 9}, "Last year", 1);
  file("26-3", {2026, 4, 1}, "Next month", 1);
  addRow("BLDGPERM", {{"PERMIT", "26-4"}, {"FILEMONTH", "3"}, {"FILEDATE", "30"}, {"FILEYEAR", "26"}});
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
  EXPECT_TRUE(lines[6].starts_with("26-4 ")) << "written as in former days\n" << text;
  EXPECT_EQ(lines.back(), "TOTAL = 3");

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

/// An office in March 2026 with something for every listing.
class ListedPermits : public PermitReports {
 protected:
  ListedPermits() {
    for (const char* table : {"CERTOCCU", "INSBASE"})
      make(table);
    permit("25-1", {{"OWNNAME1", "Ann Old"},
                    {"VD3", "03/01/2025"},
                    {"VD4", "03/01/2026"},
                    {"FILEYEAR", "25"},
                    {"FILEMONTH", "03"},
                    {"PRMFOR", "Dwelling"},
                    {"USEBLDG", "One Family"}});
    permit("25-2", {{"OWNNAME1", "Ben Done"},
                    {"VD3", "04/01/2025"},
                    {"VD4", "02/01/2026"},
                    {"FILEYEAR", "25"},
                    {"FILEMONTH", "04"},
                    {"PRMFOR", "Garage"},
                    {"VIOLOPEN", "C"}});
    permit("25-3", {{"OWNNAME1", "Cy Late"},
                    {"VD3", "05/01/2025"},
                    {"VD4", "02/15/2026"},
                    {"FILEYEAR", "25"},
                    {"FILEMONTH", "05"},
                    {"PRMFOR", "Deck"}});
    permit("26-1", {{"OWNNAME1", "Di Soon"},
                    {"VD3", "01/02/2026"},
                    {"VD4", "03/09/2026"},
                    {"FILEYEAR", "26"},
                    {"FILEMONTH", "01"},
                    {"PRMFOR", "Dwelling"}});
    permit("26-2", {{"OWNNAME1", "Ed Soon"},
                    {"VD3", "01/03/2026"},
                    {"VD4", "05/08/2026"},
                    {"FILEYEAR", "26"},
                    {"FILEMONTH", "01"},
                    {"PRMFOR", "Deck"}});
    permit("26-3", {{"OWNNAME1", "Flo Far"},
                    {"VD3", "01/04/2026"},
                    {"VD4", "05/09/2026"},
                    {"FILEYEAR", "26"},
                    {"FILEMONTH", "01"},
                    {"PRMFOR", "Deck"}});
    store("CERTOCCU", {{"PERMIT", "25-1"}, {"TYPE", "O"}, {"CERTNO", "26-7"}, {"CERTOCCN", "7"}});
    store("CERTOCCU", {{"PERMIT", "26-1"}, {"TYPE", "C"}, {"CERTNO", "26-8"}, {"CERTOCCN", "8"}});
    store("SBL", {{"SBLF", "1-2-3"}, {"PERMIT", "?"}});
    store("SBL", {{"SBLF", "1-2-4"}, {"PERMIT", "25-1"}});
    for (const auto& [number, end] : {std::pair("25-1", "02/01/2026"), {"26-1", "04/01/2026"}, {"26-2", "12/31/2298"}})
      store("INSBASE", {{"RECNO", number}, {"INSCO1", "Mutual"}, {"ITYP1", "Disability"}, {"ITO1", end}});
  }
};

TEST_F(ListedPermits, EachListsWhatItSays) {
  struct Row {
    const char* report;
    Answers answers;
    const char *title, *rows;
  };
  const std::pair<const char*, const char*> after = {"DTPicker1", "01/01/2025"}, before = {"DTPicker2", "03/09/2026"};
  for (const Row& row : std::initializer_list<Row>{
           {"Permits by year, month, type, use",
            {{"Text1", "2025"}, {"Combo1", "(all)"}},
            "ALL PERMITS FOR 2025",
            "25-1 25-2 25-3"},
           {"Permits by year, month, type, use",
            {{"Text1", "2025"}, {"Combo1", "March"}, {"Combo4", "Dwelling"}, {"Combo5", "One Family"}},
            "DWELLING PERMITS FOR MARCH 2025, ONE FAMILY",
            "25-1"},
           {"Expired permits",
            {after, before},
            "EXPIRED BUILDING PERMITS AFTER 01/01/25 AND BEFORE 03/09/26",
            "25-3 25-1"},
           {"Expired permits",
            {after, before, {"Combo4", "Deck"}},
            "EXPIRED BUILDING PERMITS AFTER 01/01/25 AND BEFORE 03/09/26",
            "25-3"},
           {"Expiring permits", {}, "EXPIRING BUILDING PERMITS WITHIN 60 DAYS FROM 03/09/26", "26-1 26-2"},
           {"Closed permits", {}, "CLOSED BUILDING PERMITS", "25-2"},
           {"Open permits", {}, "OPEN BUILDING PERMITS", "25-1 25-3 26-1 26-2 26-3"},
           {"Dwelling permits without certificate",
            {after, before},
            "DWELLING PERMITS WITH NO CERTIFICATE OF OCCUPANCY",
            "26-1"},
           {"Permits with certificate", {}, "PERMITS WITH CERTIFICATE OF OCCUPANCY", "25-1"},
           {"Parcels without dwelling permit", {}, "SBL's WITH NO DWELLING TYPE PERMIT", "1-2-3"},
           {"Expired insurance", {after, before}, "EXPIRED INSURANCE AFTER 01/01/25 AND BEFORE 03/09/26", "25-1"},
           {"Expired insurance",
            {after, {"DTPicker2", "12/31/2299"}},
            "EXPIRED INSURANCE AFTER 01/01/25 AND BEFORE 12/31/99",
            "25-1 26-1"},
           {"Expiring insurance", {}, "EXPIRING INSURANCE WITHIN 60 DAYS FROM 03/09/26", "26-1"}}) {
    SCOPED_TRACE(row.report);
    printEntry(row.report, row.answers);
    const auto lines = linesPrinted();
    EXPECT_EQ(at.printed.back().title, row.title);
    EXPECT_EQ(lines.front(), row.title);
    EXPECT_EQ(rowsPrinted(), row.rows);
    const std::string rows = row.rows;
    EXPECT_EQ(lines.back(), "TOTAL = " + std::to_string(std::count(rows.begin(), rows.end(), ' ') + 1));
  }
}

TEST_F(ListedPermits, AllThatIsKnownOfTheInsuranceOfThePermit) {
  printEntry("Insurance of this permit");
  const auto lines = linesPrinted();
  EXPECT_EQ(lines.front(), "PERMIT: 25-1");
  for (const char* wanted :
       {"INSURANCE TYPE: Disability", "POLICY EFFECTIVE DATE FROM:  TO 02/01/26", "CARRIER: Mutual"})
    EXPECT_NE(std::find(lines.begin(), lines.end(), wanted), lines.end()) << wanted;
  at.click(open(), "IMoveNext");
  at.expect(" Insurance", "Nothing to print.");
  printEntry("Insurance of this permit");
}

TEST_F(ListedPermits, TheOwnersOfExpiredPermitsGetLettersOrLabels) {
  ASSERT_TRUE(replaceFile(folder.file("forms/expired.rtf"), "{\\rtf1 ## %nm, %01\\par}").ok());
  const Answers dates = {{"DTPicker1", "01/01/2025"}, {"DTPicker2", "03/09/2026"}};
  const auto wanting = [&dates](const char* output) {
    Answers answers = dates;
    answers.emplace_back("Combo2", output);
    return answers;
  };
  const std::string title = "EXPIRED BUILDING PERMITS AFTER 01/01/25 AND BEFORE 03/09/26\n\nThis prints 2";
  at.expect(" Mailing", title + " form letters.\nDo you want to go on?", Answer::Yes);
  printEntry("Expired permits", wanting("Form letters"));
  EXPECT_EQ(at.printed.size(), 2u);
  EXPECT_EQ(linesPrinted().front(), "2 Ann Old, 25-1");

  at.expect(" Mailing", title + " labels.\nDo you want to go on?", Answer::Yes);
  at.when("LabelFrm", [this](Screen& sheet) { at.click(sheet, "cmdOK"); });
  printEntry("Expired permits", wanting("Mailing labels"));
  ASSERT_EQ(at.printed.size(), 3u);
  const std::string text = plainText(readDocument(folder.read("tmp.rtf")));
  EXPECT_NE(text.find("Cy Late"), std::string::npos) << text;
  EXPECT_NE(text.find("Ann Old"), std::string::npos) << text;
  EXPECT_EQ(labelSettings.start, (SheetPlace{1, 3})) << "the next ones begin where these end";

  at.expect(" Mailing", title + " labels.\nDo you want to go on?", Answer::No);
  printEntry("Expired permits", wanting("Mailing labels"));
  EXPECT_EQ(at.printed.size(), 3u);
}

TEST_F(PermitReports, AReceiptOfWhatThePermitCosts) {
  permit("26-1", {{"OWNNAME1", "Smith, John"}, {"FILEFEE", 310}, {"COFEE", 75.5}});
  printEntry("Receipt");
  const auto lines = linesPrinted();
  EXPECT_EQ(lines.front(), "PERMIT 26-1");
  const auto amount = [&lines](const char* what) {
    const auto line = std::ranges::find_if(lines, [what](const std::string& one) { return one.starts_with(what); });
    return line == lines.end() ? "none" : line->substr(line->rfind(' ') + 1);
  };
  EXPECT_EQ(amount("Permit fee"), "310.00");
  EXPECT_EQ(amount("C/O fee"), "75.50");
  EXPECT_EQ(amount("Other fee"), "none");
  EXPECT_EQ(amount("TOTAL"), "385.50");
}

}  // namespace
}  // namespace zelvo::testing
