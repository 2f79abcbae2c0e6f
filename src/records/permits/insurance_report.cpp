#include "records/permits/insurance_report.h"

#include "base/files.h"
#include "base/text.h"
#include "data/query_text.h"
#include "records/other_records.h"
#include "records/record_report.h"
#include "records/sub_records/sub_record_kind.h"

namespace zelvo {

namespace {

constexpr int kLineLength = 88;
constexpr ReportColumn kLine[] = {{"INSURANCE", "", kLineLength}};
constexpr ReportKind kInsurance{.header = "\\ins.rtf", .columns = kLine, .totals = {}};

using Lines = std::vector<std::vector<std::string>>;

// A text over as many lines as it needs; a word that is longer than a line is left to the listing.
void addText(Lines& lines, std::string_view text) {
  for (const std::string& paragraph : linesOf(text)) {
    std::string line;
    for (const std::string& word : split(paragraph, ' ')) {
      if (!line.empty() && length(line) + 1 + length(word) > kLineLength)
        lines.push_back({std::exchange(line, "")});
      line += (line.empty() ? "" : " ") + word;
    }
    lines.push_back({line});
  }
}

std::string dateIn(const Recordset& row, std::string_view column) {
  const auto moment = row.get(column).moment();
  return moment && moment->date == kNoEndDate ? std::string(kNoEndText) : reportValue(row, column);
}

void addInsurance(Lines& lines, const Recordset& row) {
  addText(lines, "INSURANCE TYPE: " + row.text("ITYP1"));
  addText(lines, "POLICY EFFECTIVE DATE FROM: " + dateIn(row, "IFR1") + " TO " + dateIn(row, "ITO1"));
  addText(lines, "CARRIER: " + row.text("INSCO1"));
  addText(lines, "PHONE CONTACT: " + row.text("IPHONE1"));
  addText(lines, "CERT HOLDER: " + row.text("ISSUED"));
  addText(lines, "PROJECT: " + row.text("IPROJ"));
  addText(lines, "NOTES / PROVISIONS: " + row.text("INOTES"));
  lines.push_back({""});
}

}  // namespace

Result<void> listInsurance(const PermitListing& listing, ReportOutput output) {
  const auto rows = otherRows(listing.desk, "db7.mdb",
                              "Select * from INSBASE where " + columnIs("RECNO", listing.permit) + " order by SEQ");
  if (!rows)
    return rows.error();
  Lines lines;
  for (; !(*rows)->Eof(); (*rows)->MoveNext())
    addInsurance(lines, **rows);
  if (lines.empty()) {
    listing.desk.messages.tell(" Insurance", "Nothing to print.");
    return {};
  }
  ListedRows listed(std::move(lines));
  return ReportPrinter(listing.desk, listing.letters).run(kInsurance, "PERMIT: " + listing.permit, listed, output);
}

}  // namespace zelvo
