#include "enforcement/inspections/complaint_listing.h"

#include "base/text.h"
#include "documents/reports/report_shape.h"
#include "documents/rtf_writer.h"
#include "enforcement/code_tables.h"
#include "enforcement/inspections/inspection_codes.h"
#include "enforcement/inspections/inspection_reports.h"

namespace zelvo {

namespace {

constexpr std::string_view kLook = "\\pard\\plain\\f0\\fs18 ";
constexpr std::string_view kTitle = "\\pard\\plain\\qc\\f0\\fs18\\b %sh\\b0\\par\r\n";
constexpr std::string_view kHeads[] = {"DATE         S-B-L         POS. OWNER NAME           COMPLAINANT",
                                       "INV.ASSGN        RES       COMPLAINT"};
// Where the heads stand.
constexpr std::size_t kParcelAt = 13, kOwnerAt = 27, kComplainantAt = 53, kResultAt = 17, kTextAt = 27;
constexpr std::size_t kLine = 92;
constexpr std::size_t kGap = 1;

std::string lineOf(std::string_view text) {
  return rtfText(trimRight(text)) + "\\par\r\n";
}

/// The title with the heads of the columns, as they stand over every page.
std::string heads() {
  std::string rtf = std::string(kTitle) + std::string(kLook) + "\\par\r\n";
  for (const std::string_view head : kHeads)
    rtf += lineOf(head);
  return rtf + lineOf(std::string(kLine, '='));
}

/// The document down to the first complaint: the letterhead is on the first page alone, the pages are numbered.
std::string opening() {
  std::string rtf =
      "{\\rtf1\\ansi\\uc1{\\fonttbl{\\f0\\fmodern\\fcharset0\\fprq1 Courier New;}}\\titlepg\r\n{\\header " + heads() +
      "}\r\n";
  for (const char* footer : {"footer", "footerf"})
    rtf += "{\\" + std::string(footer) + "\\pard\\plain\\qr\\f0\\fs16 " + std::string(kRtfPageNumber) + "\\par}\r\n";
  return rtf + "\\pard\\plain\\qc\\f0\\fs18 %mh\\par\r\n" + heads();
}

/// The text in lines of at most `width` characters, broken at blanks where there are any.
std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines(1);
  for (const std::string& word : split(shortened(text, text.size()), ' ')) {
    std::string_view rest = word;
    if (!lines.back().empty() && length(lines.back()) + 1 + length(rest) > width)
      lines.emplace_back();
    if (!lines.back().empty())
      lines.back() += ' ';
    for (; length(rest) > width; rest.remove_prefix(left(rest, width).size())) {
      lines.back() = left(rest, width);
      lines.emplace_back();
    }
    lines.back() += rest;
  }
  return lines;
}

std::string cell(std::string_view text, std::size_t from, std::size_t to) {
  return padRight(shortened(text, to - from - kGap), to - from);
}

/// A complaint, whole on one page.
std::string blockOf(const Recordset& row) {
  std::string block = cell(reportDate(row, "NRECNO"), 0, kParcelAt) + cell(parcelOf(row), kParcelAt, kOwnerAt) +
                      cell(row.text("OWNNAME1"), kOwnerAt, kComplainantAt) +
                      shortened(row.text("COMNAME1"), kLine - kComplainantAt);
  std::string before = cell(row.text("INSVEST"), 0, kResultAt) +
                       cell(shownCode(row.text("INSPRESULT"), RCode2Combo), kResultAt, kTextAt);
  for (const std::string& line : wrapped(row.text("NATURE"), kLine - kTextAt)) {
    block += "\n" + before + line;
    before.assign(kTextAt, ' ');
  }
  return "\\pard\\plain\\keep\\f0\\fs18 " + lineOf(block) + "\\par\r\n";
}

}  // namespace

Result<void> printComplaints(Desk& desk, LetterPrinter& letters, Recordset& complaints, std::string_view title) {
  std::string blocks;
  std::size_t count = 0;
  for (; !complaints.Eof(); complaints.MoveNext())
    if (complaints.text("STATUS") != "V") {
      blocks += blockOf(complaints);
      ++count;
    }
  if (count == 0) {
    desk.messages.tell(" Record(s) not Found", "No records meet the criteria.");
    return {};
  }
  letters.context.subheading = title;
  const auto top = letters.fill(opening() + "}");
  if (!top)
    return top.error();
  return letters.printText(
      top->substr(0, top->size() - 1) + blocks + std::string(kLook) + lineOf("TOTAL = " + std::to_string(count)) + "}",
      title);
}

}  // namespace zelvo
