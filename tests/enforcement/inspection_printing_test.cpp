#include "documents/document_reader.h"
#include "documents/editor/editor.h"
#include "inspection_office.h"

namespace zelvo::testing {
namespace {

/// Inspections of a permit and complaints, templates to print them with, and who asks for listings.
class PrintingOffice : public InspectionOffice {
 protected:
  PrintingOffice() {
    file("1", "B", "F", "03/02/2026", "Footing not below frost line.");
    file("2", "B", "P", "03/09/2026", std::string(90, 'x'));
    file("3", "O", "P", "03/09/2026", "Sign");
    file("4", "B", "P", "03/04/2026", "struck out", "V");
    complaint("5", "02/28/2026", "Noise", "A. Brown");
    complaint("6", "03/01/2026",
              "Rubbish piled beside the road, every week more of it, and nobody from the house "
              "that it comes from takes it away.",
              "C. Dow");
    complaint("7", "03/31/2026", "Loud", "A. Brown");
    folder.write("forms/insprep.rtf", "{\\rtf1 %mh\\par %sh of %12, %sbl %nm\\par}");
    folder.write("forms/inspbhead.rtf", "{\\rtf1 Building Inspections %dl\\par}");
    folder.write("forms/inspohead.rtf", "{\\rtf1 Other Inspections\\par}");
    folder.write("forms/insprepd.rtf", "{\\rtf1 Detail %01: %16\\par}");
    folder.write("forms/complaint.rtf", "{\\rtf1 %nm, %zp: %17\\par}");
  }

  void file(const char* icn, const char* category, const char* result, const char* date, const std::string& comments,
            const char* status = "") {
    const std::string month(date, 2);
    addRow("INSPDTL", {{"RECNO", icn},
                       {"PERMIT", "26-7"},
                       {"INSPCATEG", category},
                       {"INSPTYPE", "02 Footing"},
                       {"INSPRESULT", result},
                       {"DATEINSP", date},
                       {"INSPDATE", *result == 'F' ? "03/16/2026" : "01/01/1910"},
                       {"INSPMONT", month.c_str()},
                       {"INSPYEAR", "2026"},
                       {"INSPINIT", "A. Brown"},
                       {"OWNNAME1", "O'Brien, Zoë"},
                       {"INSPCOMM1", comments.c_str()},
                       {"STATUS", status},
                       {"SEC", "12"},
                       {"SUD", "5"},
                       {"BLK", "3"},
                       {"LOT", "45"}});
  }
  void complaint(const char* icn, const char* received, const std::string& nature, const char* investigator) {
    addRow("INSPDTL", {{"RECNO", icn},
                       {"INSPCATEG", "C"},
                       {"INSPTYPE", "Safety"},
                       {"INSPRESULT", "O"},
                       {"NRECNO", received},
                       {"NATURE", nature.c_str()},
                       {"INSVEST", investigator},
                       {"OWNNAME1", "O'Brien, Zoë"},
                       {"COMNAME1", "Neighbour, Ned"},
                       {"COMADDR1", "3 Elm St, Alder Glen, NY 12009"},
                       {"SEC", "12"},
                       {"BLK", "3"},
                       {"LOT", "45"}});
  }

  /// The lines of what came out of the printer.
  std::vector<std::string> printed() {
    return at.printed.empty() ? std::vector<std::string>() : linesOf(plainText(readDocument(folder.read("tmp.rtf"))));
  }
  void print(const char* icn, const char* type) {
    BInspections& screen = open();
    at.choose(screen, "ListView1", icn);
    at.when("PrintFrm", [this, type](Screen& options) {
      at.set(options, "Combo1", type);
      at.click(options, "cmdPrint");
    });
    at.click(screen, "iPrint");
  }
  void list(const std::vector<std::pair<const char*, const char*>>& wishes) {
    at.when("InspReportFrm", [this, wishes](Screen& question) {
      type(question, wishes);
      at.click(question, "cmdOK");
    });
    at.click(open(), "iReports");
  }
};

TEST_F(PrintingOffice, TheReportListsTheStandingInspectionsOfThePermitInItsCategory) {
  print("2", "Inspection Report");
  const std::vector<std::string> expected = {"Building Inspections March 09, 2026",
                                             "INSPECTION REPORT of 26-7, 12.5-3-45 O'Brien, Zoë",
                                             "INSPECTION CATEGORY: BLDG",
                                             "    INSPECTION TYPE: 02 Footing",
                                             " DATE OF INSPECTION: 03/02/26",
                                             " INSPECTION RESULTS: Failed       BY: A. Brown",
                                             "INSPECTION COMMENTS: Footing not below frost line.",
                                             "",
                                             "INSPECTION CATEGORY: BLDG",
                                             "    INSPECTION TYPE: 02 Footing",
                                             " DATE OF INSPECTION: 03/09/26",
                                             " INSPECTION RESULTS: Passed       BY: A. Brown",
                                             "INSPECTION COMMENTS: " + std::string(56, 'x') + "..."};
  auto lines = printed();
  std::erase_if(
      lines, [first = true](const std::string& line) mutable { return std::exchange(first, false) && line.empty(); });
  lines.resize(expected.size());
  EXPECT_EQ(lines, expected);
  EXPECT_EQ(at.statusLines.end()[-2], "Printing to default printer...");

  print("3", "Inspection Report");
  EXPECT_EQ(printed()[0], "Other Inspections");
}

TEST_F(PrintingOffice, DetailAndComplaintTellOfOneRecord) {
  print("2", "Detail of Inspection");
  EXPECT_EQ(printed()[0], "Detail 2: " + std::string(90, 'x')) << "the letter has the comments whole";
  EXPECT_EQ(printed()[1], "INSPECTION CATEGORY: BLDG");
  print("7", "Record of Complaint");
  EXPECT_EQ(printed()[0], "Neighbour, Ned, Alder Glen, NY 12009: Loud");
  EXPECT_EQ(at.printed.back().title, "Record of Complaint");
  std::filesystem::remove(folder.file("forms/complaint.rtf"));
  at.expect(" Building Inspections", "The letter \"complaint.rtf\" is not in the forms folder...");
  print("7", "Record of Complaint");
  EXPECT_EQ(at.printed.size(), 2u);
}

TEST_F(PrintingOffice, ListingsHoldWhatTheyAskForWithoutVoidedRecords) {
  struct Row {
    std::vector<std::pair<const char*, const char*>> wishes;
    const char* title;
    std::vector<const char*> icns;
  };
  const Row rows[] = {
      {{{"DTPicker1", "03/15/2026"}, {"DTPicker2", "03/17/2026"}}, "NEXT INSPECTION DATE REPORT", {"1"}},
      {{{"Combo1", "Report by type"}}, "BUILDING CATEGORY", {"1", "2"}},
      {{{"Combo1", "Report by type"}, {"Combo2", "OTHER"}, {"Combo3", "02 Footing"}}, "OTHER CATEGORY", {"3"}},
      {{{"Combo1", "Report by type"}, {"Combo2", "COMPLAINT"}}, "COMPLAINTS ", {"5", "6", "7"}},
      {{{"Combo1", "Monthly field inspections"}, {"DTPicker1", "03/20/2026"}},
       "FIELD INSPECTIONS FOR MARCH 2026",
       {"1", "2", "3"}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    list(row.wishes);
    ASSERT_FALSE(at.printed.empty());
    EXPECT_EQ(at.printed.back().title, row.title);
    const auto lines = printed();
    ASSERT_GE(lines.size(), row.icns.size() + 5);
    for (std::size_t i = 0; i < row.icns.size(); ++i)
      EXPECT_TRUE(lines[4 + i].starts_with(std::string(row.icns[i]) + " ")) << lines[4 + i];
    EXPECT_EQ(lines.back(), "TOTAL = " + std::to_string(row.icns.size()));
  }
  at.expect(" Record(s) not Found", "No records meet the criteria.");
  list({{"DTPicker1", "03/16/2026"}, {"DTPicker2", "03/17/2026"}});
  EXPECT_EQ(at.printed.size(), 5u) << "both days are outside";
}

TEST_F(PrintingOffice, ComplaintsArePrintedInFull) {
  list({{"Combo1", "Complaints of a month"}, {"DTPicker1", "03/09/2026"}});
  const std::vector<std::string> expected = {
      "",
      "COMPLAINTS FOR MARCH 2026",
      "",
      "DATE         S-B-L         POS. OWNER NAME           COMPLAINANT",
      "INV.ASSGN        RES       COMPLAINT",
      std::string(92, '='),
      "03/01/26     12-3-45       O'Brien, Zoë              Neighbour, Ned",
      "C. Dow           Open      Rubbish piled beside the road, every week more of it, and nobody",
      "                           from the house that it comes from takes it away.",
      "",
      "03/31/26     12-3-45       O'Brien, Zoë              Neighbour, Ned",
      "A. Brown         Open      Loud",
      "",
      "TOTAL = 2"};
  EXPECT_EQ(printed(), expected);

  list({{"Combo1", "Complaints for a period"},
        {"DTPicker1", "02/01/2026"},
        {"DTPicker2", "04/01/2026"},
        {"Combo4", "brown"}});
  EXPECT_EQ(printed()[1], "COMPLAINTS FROM 02/01/26 TO 04/01/26");
  EXPECT_EQ(printed().back(), "TOTAL = 2");
  at.expect(" Record(s) not Found", "No records meet the criteria.");
  list({{"Combo1", "Complaints of a month"}, {"DTPicker1", "05/09/2026"}});
}

TEST_F(PrintingOffice, TheChecklistIsFilledInTheEditorPrintedAndKept) {
  at.screens.learn("Editor", [](Desk& desk) { return std::make_unique<Editor>(desk); });
  at.temporary = folder.path();
  BInspections& screen = open();
  at.click(screen, "INew");
  at.expect(" Checklist", "You must select Inspection Category\nand Inspection Type first.");
  at.click(screen, "iChecklist");
  type(screen, {{"Combo1", "COMPLAINT"}, {"Combo2", "Garbage/Sanitation"}});
  at.expect(" Checklist", "Checklist not found.");
  at.click(screen, "iChecklist");
  const std::string empty = "{\\rtf1 Bins closed? %01\\par}";
  folder.write("data/checklist/COMPLAINT Garbage_Sanitation.rtf", empty);
  at.click(screen, "iChecklist");
  EXPECT_EQ(at.shown(*at.screens.front(), "RichTextBox1"), "Bins closed? 8") << "as far as it is entered";
  at.click(*at.screens.front(), "cmdQuit");

  at.click(screen, "ICancel");
  addRow("INSPDTL", {{"RECNO", "8"}, {"INSPCATEG", "C"}, {"INSPTYPE", "Garbage/Sanitation"}});
  at.click(screen, "Quit");
  BInspections& stored = open();
  at.click(stored, "IMoveLast");
  at.click(stored, "iChecklist");
  Screen& editor = *at.screens.front();
  at.set(editor, "RichTextBox1", at.shown(editor, "RichTextBox1") + " yes");
  at.click(editor, "cmdPrint");
  at.click(editor, "cmdQuit");
  EXPECT_EQ(readBytes(path("docs/028~1.pdf")).valueOr("not kept"), "pages of Checklist");
  EXPECT_EQ(at.shown(stored, "ListView2"), "1 rows, 2 columns");
  EXPECT_EQ(folder.read("data/checklist/COMPLAINT Garbage_Sanitation.rtf"), empty);
}

}  // namespace
}  // namespace zelvo::testing
