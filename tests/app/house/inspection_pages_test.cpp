// Every printout and listing of inspections of a sample town, laid out on pages, and read back from them.

#include <algorithm>
#include <regex>

#include "base/files.h"
#include "base/text.h"
#include "sample_town.h"

namespace zelvo::testing {
namespace {

using Lines = std::vector<std::string>;

/// A page's text in lines, without those that are blank; of several blanks one.
Lines squeezed(const std::string& pages) {
  Lines lines;
  for (const std::string& line : split(replaceAll(pages, "\f", "\n"), '\n')) {
    const std::string one = std::regex_replace(line, std::regex(" +"), " ");
    if (!trim(one).empty())
      lines.emplace_back(trim(one));
  }
  return lines;
}

bool holds(const Lines& lines, std::string_view line) {
  return std::ranges::find(lines, line) != lines.end();
}

struct Listing {
  const char* asked;  ///< what is filled into the question
  const char* title;
  Lines heads;
  const char* row;        ///< one of them as it must stand there
  const char* condition;  ///< of the rows, voided ones apart
};

const Lines kHeads = {"ICN DATE S-B-L PERMIT LOCATION TYPE RESULT BY COMMENTS"};
const Lines kComplaintHeads = {"DATE S-B-L POS. OWNER NAME COMPLAINANT", "INV.ASSGN RES COMPLAINT"};

const Listing listings[] = {
    {"set Combo1 Next inspection dates\nset DTPicker1 04/11/2023\nset DTPicker2 01/17/2026\n",
     "NEXT INSPECTION DATE REPORT",
     {"ICN NEXT DATE S-B-L PERMIT LOCATION TYPE RESULT BY COMMENTS"},
     "111 04/21/23 04/07/23 12-8-8 23-13 16 Schoolhouse Road 05 Rough Plumbing Failed Ruth Calloway No smoke detector "
     "in h...",
     "[INSPDATE] > #04/11/2023# and [INSPDATE] < #01/17/2026#"},
    {"set Combo1 Report by type\n", "BUILDING CATEGORY", kHeads,
     "283 03/04/25 12.1-4-8 25-5 16 Elm Street 05 Rough Plumbing Passed Ruth Calloway Guard rail height corrected "
     "whil...",
     "[INSPCATEG] = 'B'"},
    {"set Combo1 Report by type\nset Combo2 OTHER\nset Combo3 27 Well\n", "OTHER CATEGORY", kHeads,
     "145 08/18/23 12.1-7-16 23-36 31 Hemlock Drive 27 Well Passed Walt O'Rourke Set back four feet from the walk...",
     "[INSPCATEG] = 'O' and [INSPTYPE] = '27 Well'"},
    {"set Combo1 Report by type\nset Combo2 COMPLAINT\n",
     "COMPLAINTS",
     {"ICN DATE S-B-L OWNER COMPLAINANT INV.ASSGN RES COMPLAINT"},
     "110 03/28/23 12.1-7-10 Samuel Thibault Paula Marsh Ruth Calloway Resolved Water runs from the lot onto the "
     "road...",
     "[INSPCATEG] = 'C'"},
    {"set Combo1 Monthly field inspections\nset DTPicker1 03/31/2025\n", "FIELD INSPECTIONS FOR MARCH 2025", kHeads,
     "285 03/11/25 12.1-8-7 25-6 14 Van Horn Road 25 Culvert Passed Dana Whitlock Set back four feet from the walk...",
     "[INSPMONT] = 3 and [INSPYEAR] = 2025 and [INSPCATEG] <> 'C'"},
};

class InspectionPages : public SampleTown {
 protected:
  void SetUp() override {
    if (pagesOf(town() + "/forms/insprep.rtf").empty())
      GTEST_SKIP() << "pages are made by the windows' part of the program";
  }

  std::string inspect(const std::string& script) {
    return run("set Text1 inspector\nset Text2 inspector\nclick cmdOK\nclick inspections\n" + script);
  }
  static std::string find(const std::string& icn) { return "click ILocate\nset Text1(1) " + icn + "\nclick ILocate\n"; }
  /// The only sheet that a script prints, as it reads on its pages.
  Lines sheet(const std::string& script) {
    const std::string printed = linesWith(inspect(script), "printed: ");
    return squeezed(pagesOf(std::string(trim(printed.substr(printed.find(" -> ") + 4)))));
  }
  Lines printout(const std::string& icn, const std::string& type) {
    return sheet(find(icn) + "click iPrint\nset Combo1 " + type + "\nclick cmdPrint\n");
  }
  Lines listing(const std::string& asked) { return sheet("click iReports\n" + asked + "click cmdOK\n"); }

  /// A column of the rows that answer a condition and are not voided.
  Lines stored(const std::string& condition, std::size_t column = 0) {
    Lines values;
    const std::string rows = inspect("query db2.mdb Select * from INSPDTL where " + condition + "\n");
    const std::size_t from = rows.find('\n', rows.find("db2.mdb: "));
    for (const std::string& row : split(rows.substr(from + 1), '\n'))
      if (const auto cells = split(replaceAll(row, " | ", "|"), '|'); cells.size() > kStatus && cells[kStatus] != "V")
        values.push_back(cells[column]);
    return values;
  }
  void voidRecords(const Lines& icns) {
    std::string script;
    for (const std::string& icn : icns)
      script += find(icn) + "answer Yes\nclick delr\n";
    EXPECT_EQ(linesWith(inspect(script), "error"), "");
  }

  static constexpr std::size_t kComplainant = 22, kStatus = 30;
};

/// The numbers that the lines of a listing begin with.
Lines icnsOf(const Lines& lines) {
  Lines icns;
  std::smatch found;
  for (const std::string& line : lines)
    if (std::regex_search(line, found, std::regex("^(\\d+) \\d\\d/\\d\\d/\\d\\d ")))
      icns.push_back(found[1]);
  return icns;
}

TEST_F(InspectionPages, ListingsHoldTheirRowsAndNoOther) {
  voidRecords({"283", "287", "290", "105", "145", "195"});
  voidRecords({"283", "145"});  // and these are restored
  for (const Listing& row : listings) {
    SCOPED_TRACE(row.asked);
    const Lines pages = listing(row.asked);
    for (const Lines& expected : {Lines{"TOWN OF ALDER GLEN", row.title, row.row}, row.heads})
      for (const std::string& line : expected)
        EXPECT_TRUE(holds(pages, line)) << line;
    Lines icns = icnsOf(pages), expected = stored(row.condition);
    std::ranges::sort(icns);
    std::ranges::sort(expected);
    EXPECT_EQ(icns, expected);
    EXPECT_TRUE(holds(pages, "TOTAL = " + std::to_string(expected.size())));
  }
}

TEST_F(InspectionPages, ComplaintsInFullStandInBlocksUnderTheHeadsOfEveryPage) {
  voidRecords({"290"});
  const std::pair<const char*, const char*> rows[] = {
      {"set Combo1 Complaints of a month\nset DTPicker1 05/09/2022\n",
       "[NRECNO] > #04/30/2022# and [NRECNO] < #06/01/2022#"},
      {"set Combo1 Complaints for a period\nset DTPicker1 01/01/2020\nset DTPicker2 01/01/2030\n",
       "[NRECNO] > #01/01/2020# and [NRECNO] < #01/01/2030#"},
      {"set Combo1 Complaints for a period\nset DTPicker1 01/01/2020\nset DTPicker2 01/01/2030\nset Combo4 calloway\n",
       "[NRECNO] > #01/01/2020# and [NRECNO] < #01/01/2030# and [INSVEST] like '%calloway%'"}};
  for (const auto& [asked, condition] : rows) {
    SCOPED_TRACE(asked);
    const Lines pages = listing(asked);
    const auto times = [&pages](std::string_view line) { return std::count(pages.begin(), pages.end(), line); };
    const auto sheets =
        std::count_if(pages.begin(), pages.end(), [](const std::string& line) { return line.starts_with("Page "); });
    EXPECT_EQ(times("DATE S-B-L POS. OWNER NAME COMPLAINANT"), sheets);
    EXPECT_EQ(times("INV.ASSGN RES COMPLAINT"), sheets);
    EXPECT_EQ(times(std::string(92, '=')), sheets);
    Lines names = stored(condition, kComplainant);
    EXPECT_TRUE(holds(pages, "TOTAL = " + std::to_string(names.size())));
    std::erase_if(names, [&pages](const std::string& name) {
      return std::ranges::any_of(pages, [&](const std::string& line) { return line.ends_with(" " + name); });
    });
    EXPECT_EQ(names, Lines());
  }
  EXPECT_NE(
      linesWith(inspect("click iReports\nset Combo1 Complaints of a month\nset DTPicker1 03/01/2025\nclick cmdOK\n"),
                "message: [ Record(s) not Found] No records meet the criteria. "),
      "")
      << "the one of that month is voided";
}

TEST_F(InspectionPages, PrintoutsTellOfTheInspectionUnderTheHeadingOfItsCategory) {
  const struct {
    const char *icn, *type;
    Lines lines;
  } rows[] = {
      {"1",
       "Inspection Report",
       {"Building Inspections", "INSPECTION REPORT", "Permit: 22-1", "Parcel: 12.1-3-2", "INSPECTION CATEGORY: BLDG",
        "INSPECTION TYPE: 04 Framing", "DATE OF INSPECTION: 01/19/22", "INSPECTION RESULTS: Passed BY: Dana Whitlock",
        "INSPECTION COMMENTS: Insulation certificate posted.", "INSPECTION TYPE: 08 Chimney"}},
      {"45",
       "Inspection Report",
       {"Other Inspections", "INSPECTION CATEGORY: OTHER", "INSPECTION TYPE: 23 Demolition",
        "INSPECTION COMMENTS: Set back four feet from the walk as approved; owner to p..."}},
      {"111",
       "Detail of Inspection",
       {"DETAIL OF INSPECTION 111", "Owner: Olga Okafor, (518) 555-0167", "Inspected: 04/07/2023 by Ruth Calloway",
        "Next inspection: 04/21/2023", "INSPECTION RESULTS: Failed BY: Ruth Calloway"}},
      {"110",
       "Record of Complaint",
       {"RECORD OF COMPLAINT 110", "Received: 03/28/2023", "Complainant: Paula Marsh", "Kind: Ice/Snow Removal",
        "Nature: Water runs from the lot onto the road.*** RESOLVED nothing found **",
        "INSPECTION RESULTS: Resolved BY: Ruth Calloway"}}};
  for (const auto& [icn, type, lines] : rows) {
    const Lines page = printout(icn, type);
    for (const std::string& line : lines)
      EXPECT_TRUE(holds(page, line)) << type << ": " << line;
  }
  EXPECT_EQ(std::ranges::count(printout("5", "Inspection Report"), "INSPECTION CATEGORY: OTHER"), 1)
      << "those of the building are not in it";
}

TEST_F(InspectionPages, AChecklistSaysWhichInspectionItIsOf) {
  const Lines page = sheet(find("1") + "click iChecklist\nclick cmdPrint\n");
  for (const char* line : {"CHECKLIST 04 Framing", "Permit: 22-1 ICN: 1 Date: 01/19/2022 Inspector: Dana Whitlock",
                           "3 Station Street, parcel 12.1-3-2", "[ ] yes [ ] no Work is as drawn"})
    EXPECT_TRUE(holds(page, line)) << line;
  EXPECT_TRUE(FileExists(data("docs/021~1.rtf"))) << "kept with the inspection";
}

}  // namespace
}  // namespace zelvo::testing
