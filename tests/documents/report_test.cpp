// Listings: every column under its head on every page, under the heading that the office made.

#include <gtest/gtest.h>

#include "base/files.h"
#include "documents/reports/report_document.h"
#include "documents/reports/report_frm.h"
#include "documents/reports/report_printer.h"
#include "fixed_pitch.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

constexpr ReportColumn kColumns[] = {{"PERMIT", "PERMIT", 7}, {"OWNER", "OWNNAME1", 12}, {"FEE", "FILEFEE", 8, true}};
constexpr ReportTotal kCountAndFees[] = {{"TOTAL RECS = "}, {"TOTAL FEES = ", 2}};
constexpr ReportKind kPermits{.header = "\\permhead.rtf", .columns = kColumns};

/// Rows out of nowhere, `count` of them, each made by `row`.
class MadeRows : public ReportRows {
 public:
  using Row = std::vector<std::string>;
  explicit MadeRows(std::vector<Row> rows) : MadeRows(rows.size(), [rows](std::size_t i) { return rows[i]; }) {}
  MadeRows(std::size_t count, std::function<Row(std::size_t)> row) : count_(count), row_(std::move(row)) {}
  bool next(Row& values) override {
    if (given_ == count_)
      return false;
    values = row_(given_++);
    return true;
  }

 private:
  std::size_t count_, given_ = 0;
  std::function<Row(std::size_t)> row_;
};

MadeRows numbered(std::size_t count) {
  return {count, [](std::size_t i) { return MadeRows::Row{"26-" + std::to_string(i + 1), "Smith, John", "10"}; }};
}

std::string textOf(const ReportKind& kind, MadeRows rows, std::string_view heading = {}) {
  return plainText(readDocument(makeReport(kind, "PERMITS", heading, rows, {}).text));
}

/// The listing as it is printed in letters of one width.
PagedDocument paged(const ReportKind& kind, MadeRows rows, const PrintOptions& options = {},
                    std::string_view heading = {}) {
  const FixedPitch fixed;
  return layOutPages(readDocument(makeReport(kind, "PERMITS", heading, rows, options).text), options, fixed);
}

/// All texts of a page, joined as they follow one another.
std::string textOf(const Page& page) {
  std::string text;
  for (const TextPiece& piece : page.texts)
    text += piece.text + (piece.text.ends_with(" ") ? "" : "|");
  return text;
}

bool hasText(const Page& page, std::string_view wanted) {
  return textOf(page).find(wanted) != std::string::npos;
}

TEST(Report, StandsInItsColumns) {
  const std::string text = textOf({.header = {}, .columns = kColumns, .totals = kCountAndFees, .rule = "----------"},
                                  MadeRows({{"26-1", "Smith, John", "310.00"},
                                            {"26-2", "O'Brien & Daughters", "1,250.50"},
                                            {"26-3", "Zoë {Æ} \\ Łódź", "$5"},
                                            {"26-1234567", " Two\r\nlines\tand a tab ", ""}}));
  EXPECT_EQ(text,
            "PERMITS\n\n"
            "PERMIT   OWNER              FEE\n"
            "-------------------------------\n"
            "26-1     Smith, John     310.00\n"
            "26-2     O'Brien &...  1,250.50\n"
            "26-3     Zoë {Æ} \\...        $5\n"
            "26-1...  Two lines...\n"
            "\n----------\nTOTAL RECS = 4\nTOTAL FEES = 1565.50\n");
}

TEST(Report, HeadsAreRepeatedAndPagesNumbered) {
  const PagedDocument document = paged(kPermits, numbered(150));
  ASSERT_EQ(document.pages.size(), 3u);
  std::size_t rows = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const Page& page = document.pages[i];
    EXPECT_TRUE(hasText(page, "PERMITS")) << i;
    EXPECT_TRUE(hasText(page, "PERMIT   OWNER              FEE")) << i;
    EXPECT_TRUE(textOf(page).ends_with("Page " + std::to_string(i + 1) + "| of 3|")) << textOf(page);
    for (const TextPiece& piece : page.texts) {
      EXPECT_EQ(piece.font.family, "Courier New");
      rows += piece.text.starts_with("26-") ? 1 : 0;
    }
  }
  EXPECT_EQ(rows, 150u);
  EXPECT_TRUE(hasText(document.pages[2], "TOTAL = 150"));
}

TEST(Report, TakesSizeMarginsAndLandscapeOfThePrintOptions) {
  const auto rowOf = [](const PagedDocument& document) {
    const auto& texts = document.pages.at(0).texts;
    return *std::find_if(texts.begin(), texts.end(), [](const TextPiece& t) { return t.text.starts_with("26-1"); });
  };
  PrintOptions options;
  options.left = options.top = 1.5;
  options.fontSize = 12;
  PagedDocument document = paged(kPermits, numbered(1), options);
  EXPECT_EQ(document.width, 12240);
  EXPECT_EQ(rowOf(document).x, 1.5 * 1440);
  EXPECT_EQ(rowOf(document).font.points, 12);
  options.landscape = true;
  document = paged(kPermits, numbered(1), options);
  EXPECT_EQ(document.width, 15840);
  EXPECT_EQ(document.height, 12240);
  EXPECT_EQ(rowOf(document).x, 1.5 * 1440);
}

// A listing that is too wide is turned, then set smaller; at last its columns are cut. No row ever takes two lines.
TEST(Report, WideListingsFindTheirRoom) {
  struct Row {
    int width;
    bool landscape;
    double points;
  };
  for (const Row& row : {Row{86, false, 10}, Row{90, true, 10}, Row{115, true, 10}, Row{130, true, 9},
                         Row{180, true, 6}, Row{400, true, 6}}) {
    const ReportColumn columns[] = {{"A", "A", 2}, {"B", "B", row.width - 4}};
    const PagedDocument document =
        paged({.header = {}, .columns = columns}, MadeRows({{"x", std::string(500, 'y')}}), {});
    EXPECT_EQ(document.width > document.height, row.landscape) << row.width;
    std::size_t lines = 0;
    for (const TextPiece& piece : document.pages.at(0).texts) {
      lines += piece.text.find("yy") != std::string::npos ? 1 : 0;
      if (piece.text.starts_with("x")) {
        EXPECT_EQ(piece.font.points, row.points) << row.width;
      }
    }
    EXPECT_EQ(lines, 1u) << row.width;
  }
}

TEST(Report, TheOfficesHeadingStaysAsItWasMade) {
  struct Row {
    const char* why;
    std::string heading, before;
  };
  const Row rows[] = {
      {"ended paragraphs", "{\\rtf1\\ansi{\\fonttbl{\\f0 Times New Roman;}}\\pard\\qc\\fs28 TOWN\\par}", "TOWN\n"},
      {"a last paragraph that is not ended", "{\\rtf1{\\fonttbl{\\f3 Arial;}}{\\b TOWN} OF}", "TOWN OF\n"},
      {"no font table, CR LF and the NUL of an old editor", "{\\rtf1\\ansi \\pard TOWN\\par\r\n}\r\n\0", "TOWN\n"},
      {"no stand-ins for foreign letters", "{\\rtf1\\uc0\\pard Z\\u252 rich\\par}", "Zürich\n"},
      {"tables and starred groups", "{\\rtf1{\\*\\generator X;}{\\colortbl;}{\\info{\\title T}}\\pard T\\par}", "T\n"},
      {"a table", "{\\rtf1\\trowd\\cellx3000\\intbl A\\cell\\row\\pard B\\par}", "A\nB\n"},
      {"a heading that is cut off", "{\\rtf1\\pard TOWN", "TOWN\n"},
      {"no text", "{\\rtf1}", ""},
      {"none", "", ""}};
  for (const Row& row : rows) {
    const std::string text = textOf(kPermits, MadeRows({{"1", "é", "2"}}), row.heading);
    EXPECT_EQ(text, row.before +
                        "PERMITS\n\nPERMIT   OWNER              FEE\n-------------------------------\n"
                        "1        é                    2\n\nTOTAL = 1\n")
        << row.why;
  }
}

TEST(Report, TheHeadingsOwnPageMarginsStandOnTheFirstPage) {
  const PagedDocument document =
      paged(kPermits, numbered(150), {},
            "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\margl3000{\\header\\pard Letterhead\\par}{\\footer\\pard Seal\\par}"
            "\\pard TOWN\\par}");
  ASSERT_EQ(document.pages.size(), 3u);
  EXPECT_TRUE(hasText(document.pages[0], "Letterhead"));
  EXPECT_TRUE(hasText(document.pages[0], "Seal"));
  EXPECT_FALSE(hasText(document.pages[1], "Letterhead"));
  EXPECT_TRUE(hasText(document.pages[1], "PERMIT   OWNER"));
  EXPECT_TRUE(hasText(document.pages[1], "Seal"));
}

TEST(Report, AHundredThousandRowsAreWrittenOneByOne) {
  const std::size_t many = 100'000;
  MadeRows rows = numbered(many);
  const MadeReport report = makeReport(kPermits, "PERMITS", {}, rows, {});
  MadeRows noRows = numbered(0);
  const MadeReport none = makeReport(kPermits, "PERMITS", {}, noRows, {});
  EXPECT_EQ(report.rows, many);
  EXPECT_LT(report.text.size(), many * 45) << "a line a row and little more";
  EXPECT_EQ(linesOf(report.text).size() - linesOf(none.text).size(), many) << "no row is lost";
  EXPECT_NE(report.text.find("TOTAL = 100000"), std::string::npos);
}

TEST(Spreadsheet, ValuesAreQuotedAndNoTextIsAFormula) {
  struct Row {
    const char *value, *written;
  };
  const Row rows[] = {{"Smith", "Smith"},
                      {"Smith, John", "\"Smith, John\""},
                      {"6\" pipe", "\"6\"\" pipe\""},
                      {"two\nlines", "\"two\nlines\""},
                      {" blank", "\" blank\""},
                      {"", ""},
                      {"=1+1", "'=1+1"},
                      {"=HYPERLINK(\"x\",\"y\")", "\"'=HYPERLINK(\"\"x\"\",\"\"y\"\")\""},
                      {"+1 518 555 0142", "'+1 518 555 0142"},
                      {"@SUM(A1)", "'@SUM(A1)"},
                      {"-cmd", "'-cmd"},
                      {"\t=1", "'\t=1"},
                      {"-12.50", "-12.50"},
                      {"+3", "+3"},
                      {"26-1", "26-1"},
                      {"Zoë", "Zoë"}};
  for (const Row& row : rows) {
    MadeRows made(1, [&row](std::size_t) { return MadeRows::Row{row.value, "x"}; });
    const MadeReport sheet = makeSpreadsheet(kPermits, made);
    EXPECT_EQ(sheet.text, "\xEF\xBB\xBFPERMIT,OWNER,FEE\r\n" + std::string(row.written) + ",x,\r\n") << row.value;
  }
}

class ReportRun : public ::testing::Test {
 protected:
  ReportRun() {
    office.session.programFolder = office.session.formsFolder = folder.path();
    folder.write("permhead.rtf", "{\\rtf1\\pard Printed %ds for %mi\\par}");
    letters.context.mi = "Alder Glen";
  }
  Result<void> run(std::size_t count, ReportOutput output, const ReportKind& kind = kPermits) {
    MadeRows rows = numbered(count);
    return reports.run(kind, "PERMITS: 3/26", rows, output);
  }

  TempFolder folder;
  testing::ScriptedDesk office;
  LetterPrinter letters{office.desk};
  ReportPrinter reports{office.desk, letters};
};

TEST_F(ReportRun, PrintsUnderItsMergedHeading) {
  ASSERT_TRUE(run(2, ReportOutput::Printer));
  ASSERT_EQ(office.printed.size(), 1u);
  EXPECT_EQ(office.printed[0].title, "PERMITS: 3/26");
  const std::string text = plainText(readDocument(folder.read("tmp.rtf")));
  EXPECT_TRUE(text.starts_with("Printed 3/9/2026 for Alder Glen\nPERMITS: 3/26\n")) << text;
  EXPECT_TRUE(text.ends_with("\nTOTAL = 2\n")) << text;
}

TEST_F(ReportRun, WithoutAHeadingOfItsOwnItHasTheReportHeader) {
  const std::pair<const char*, const char*> headers[] = {
      {"{\\rtf1\\pard Office of %mi\\par}", "Office of Alder Glen\nPERMITS"},
      {"Office", "Office\nPERMITS"},
      {"", "PERMITS"}};
  for (const auto& [header, begin] : headers) {
    office.session.reportHeader = header;
    for (const char* name : {"", "\\gone.rtf"}) {
      ASSERT_TRUE(run(1, ReportOutput::Printer, {.header = name, .columns = kColumns}));
      EXPECT_TRUE(plainText(readDocument(folder.read("tmp.rtf"))).starts_with(begin)) << header << name;
    }
  }
}

TEST_F(ReportRun, AnEmptyOneSaysSoAndGoesNowhere) {
  for (ReportOutput output : {ReportOutput::Printer, ReportOutput::RichText, ReportOutput::Spreadsheet}) {
    office.expect(" Record(s) not Found", "No records meet the criteria.");
    EXPECT_TRUE(run(0, output));
  }
  EXPECT_TRUE(office.printed.empty());
}

TEST_F(ReportRun, IsSavedWhereTheUserSays) {
  EXPECT_TRUE(run(1, ReportOutput::RichText)) << "cancelled";
  office.pick(folder.file("report.rtf"));
  ASSERT_TRUE(run(3, ReportOutput::RichText));
  EXPECT_TRUE(plainText(readDocument(folder.read("report.rtf"))).ends_with("\nTOTAL = 3\n"));
  office.pick(folder.file("report.csv"));
  ASSERT_TRUE(run(1, ReportOutput::Spreadsheet));
  EXPECT_EQ(folder.read("report.csv"), "\xEF\xBB\xBFPERMIT,OWNER,FEE\r\n26-1,\"Smith, John\",10\r\n");
  office.pick(folder.file("gone/report.csv"));
  EXPECT_FALSE(run(1, ReportOutput::Spreadsheet));
  EXPECT_FALSE(FileExists(folder.file("tmp.rtf"))) << "nothing was printed";
  EXPECT_TRUE(office.printed.empty());
}

/// What the clerk enters in the screen that asks for the period.
ReportFrm& asked(ReportFrm& period, testing::ScriptedDesk& office, const std::string& month, const std::string& year) {
  office.when("ReportFrm", [&office, month, year](Screen& screen) {
    office.set(screen, "Combo1", month);
    office.set(screen, "Text1", year);
    office.set(screen, "Combo2", "Save for a spreadsheet");
    office.click(screen, "cmdOK");
  });
  office.screens.showModal(period);
  return period;
}

TEST(ReportPeriod, IsAMonthOfAYear) {
  testing::ScriptedDesk office;
  struct Row {
    const char *month, *year;
    int monthRead, yearRead;
  };
  for (const Row& row : {Row{"March", "2026", 3, 2026}, Row{"December", "25", 12, 2025}, Row{"May", "1999", 5, 1999}}) {
    ReportFrm period(office.desk, "Monthly permits");
    EXPECT_TRUE(asked(period, office, row.month, row.year).accepted()) << row.year;
    EXPECT_EQ(period.month(), row.monthRead);
    EXPECT_EQ(period.year(), row.yearRead);
    EXPECT_EQ(period.output(), ReportOutput::Spreadsheet);
  }
  for (const char* year : {"", "next", "3000", "-5", "20x6"}) {
    ReportFrm period(office.desk, "Monthly permits");
    office.expect(" Monthly permits", "\"" + std::string(year) + "\" is no year.\nPlease write it with four digits.");
    EXPECT_FALSE(asked(period, office, "March", year).accepted()) << year;
  }
}

}  // namespace
}  // namespace zelvo
