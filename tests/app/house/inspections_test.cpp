// An inspector's day in the sample town, from the sign-in to the paper.

#include "base/files.h"
#include "documents/document_reader.h"
#include "sample_town.h"

namespace zelvo::testing {
namespace {

class TownInspections : public SampleTown {
 protected:
  /// The script of an inspector who opens the inspections.
  std::string inspect(std::string_view script) {
    return run("set Text1 inspector\nset Text2 inspector\nclick cmdOK\nclick inspections\n" + std::string(script));
  }
  std::string printed(const char* number) {
    return plainText(readDocument(folder.read("town/program/printed/" + std::string(number) + ".rtf")));
  }
  static std::string complaint() {
    return "click INew\nset Combo1 COMPLAINT\nset Combo2 Safety\nset Combo3 QC\nset Combo4 Open\nset Text1(2) 999\n"
           "set Text1(3) 1\nset Text1(4) 2\nset Text1(9) 1 Hill St\nset Text1(12) Ned\nset Text1(15) Loud\n"
           "set DTPicker3 03/05/2026\n";
  }
};

TEST_F(TownInspections, AComplaintIsReceivedResolvedAndSeenInTheRegistry) {
  const std::string look = "query sbl.mdb Select * from SBL where [SBLF] = '999-0-0-1-2'\n";
  const std::string output = inspect(complaint() + "answer Yes\nclick IAdd\nshow Text1(1)\n" + look +
                                     "click IEdit\nset Text2 nothing found\nclick ISave\nshow Text1(15)\n" + look);
  EXPECT_EQ(linesWith(output, "error"), "");
  EXPECT_EQ(linesWith(output, "Text1(1)"), "Text1(1) = 451\n");
  EXPECT_EQ(linesWith(output, "Text1(15)"), "Text1(15) = Loud*** RESOLVED nothing found **\n");
  EXPECT_NE(output.find(" | 0 | 2 | 0 | ICN 451"), std::string::npos) << output;
  EXPECT_NE(output.find(" | 0 | 0 | 0 | ICN 451"), std::string::npos) << output;
  EXPECT_EQ(folder.read("town/data/ihi.txt"), "452\r\n");
}

TEST_F(TownInspections, EveryPrintoutAndListingComesOutOfTheTownsOwnTemplates) {
  std::string script = "choose ListView1 1\n";
  for (const char* type : {"Inspection Report", "Detail of Inspection"})
    script += "click iPrint\nset Combo1 " + std::string(type) + "\nclick cmdPrint\n";
  script += "choose ListView1 2\nclick iPrint\nset Combo1 Record of Complaint\nclick cmdPrint\n";
  for (const char* report : {"Next inspection dates\nset DTPicker1 01/01/2020\nset DTPicker2 01/01/2030",
                             "Report by type", "Monthly field inspections\nset DTPicker1 03/02/2026",
                             "Complaints for a period\nset DTPicker1 01/01/2020\nset DTPicker2 01/01/2030"})
    script += "click iReports\nset Combo1 " + std::string(report) + "\nclick cmdOK\n";
  const std::string output = inspect(script);
  EXPECT_EQ(linesWith(output, "error") + linesWith(output, "message"), "");
  const std::pair<const char*, const char*> holds[] = {{"0001", "INSPECTION CATEGORY: BLDG"},
                                                       {"0002", "DETAIL OF INSPECTION 1"},
                                                       {"0003", "RECORD OF COMPLAINT"},
                                                       {"0004", "NEXT INSPECTION DATE REPORT"},
                                                       {"0005", "BUILDING CATEGORY"},
                                                       {"0006", "FIELD INSPECTIONS FOR MARCH 2026"},
                                                       {"0007", "COMPLAINTS FROM 01/01/20 TO 01/01/30"}};
  for (const auto& [number, text] : holds) {
    const std::string paper = printed(number);
    EXPECT_NE(paper.find(text), std::string::npos) << paper;
    EXPECT_EQ(paper.find('%'), std::string::npos) << "a code was not filled: " << paper;
  }
  EXPECT_NE(printed("0001").find("Building Inspections"), std::string::npos);
  EXPECT_NE(printed("0007").find("TOTAL = "), std::string::npos);
}

}  // namespace
}  // namespace zelvo::testing
