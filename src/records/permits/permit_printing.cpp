// Printing of permit documents: which letter or listing belongs to which entry of the print menu.

#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "documents/print_frm.h"
#include "documents/reports/report_printer.h"
#include "records/permits/a_permits.h"
#include "records/permits/permit_letter.h"
#include "records/permits/permit_reports.h"
#include "records/pick_list.h"
#include "records/record_report.h"

namespace zelvo {

namespace {

struct PermitDocument {
  std::string_view name;
  std::string_view letter;
};

constexpr PermitDocument kDocuments[] = {
    {"Building Permit", "\\bldgperm.rtf"},       {"Expiring Permit", "\\expiring.rtf"},
    {"Expired Permit", "\\expired.rtf"},         {"Permit Notice", "\\pnotice.rtf"},
    {"Blank Red Ball", "\\predball.rtf"},        {"Label for Mailing", "lab.rtf"},
    {"Disapproval Notice", "\\disapproval.rtf"},
};

std::string letterOf(std::string_view document) {
  for (const PermitDocument& known : kDocuments)
    if (known.name == document)
      return std::string(known.letter);
  return std::string(document) + (upper(right(document, 4)) == ".RTF" ? "" : ".rtf");
}

constexpr std::string_view kReceipt = "Receipt";

std::vector<std::string> documentNames(const Session& session) {
  std::vector<std::string> names;
  for (const PermitDocument& document : kDocuments)
    names.emplace_back(document.name);
  for (std::string& line : pickList(session, "\\pcustom.txt"))
    names.push_back(std::move(line));
  names.emplace_back(kReceipt);
  for (const ReportOffer& report : permitReports())
    names.emplace_back(report.name);
  return names;
}

constexpr ReportColumn kReceiptColumns[] = {{"FEES", "", 40}, {"AMOUNT", "", 14, true}};
constexpr ReportKind kReceiptKind{.header = "", .columns = kReceiptColumns, .totals = {}};
constexpr std::string_view kReceiptAmount = "#######.#0";

struct Fee {
  std::string_view called, column;
};
constexpr Fee kFees[] = {
    {"Permit fee", "FILEFEE"}, {"C/O fee", "COFEE"}, {"Second fee", "FEE2"}, {"Other fee", "RFEE"}};

// Who paid for what, then each fee that the permit has, and their sum.
std::vector<std::vector<std::string>> receiptLines(const Recordset& permit) {
  std::vector<std::vector<std::string>> lines = {{"Owner: " + permit.text("OWNNAME1")},
                                                 {"Location: " + permit.text("LOCN1")}};
  double sum = 0;
  for (const Fee& fee : kFees) {
    const double amount = permit.get(fee.column).number();
    if (amount != 0)
      lines.push_back({std::string(fee.called), numberPicture(amount, kReceiptAmount)});
    sum += amount;
  }
  lines.push_back({"TOTAL", numberPicture(sum, kReceiptAmount)});
  return lines;
}

}  // namespace

void APermits::iPrint_Click() {
  PrintFrm options(desk, "Print Permit " + key(), documentNames(desk.session), PrintFrom::Record);
  desk.screens.showModal(options);
  if (!options.accepted() || desk.ended())
    return;
  const auto printed = printChosen(desk.session.print.type);
  showAttachments();
  tellTrouble(printed);
}

Result<void> APermits::printChosen(const std::string& type) {
  if (type == kReceipt)
    return printreceipt();
  const auto reports = permitReports();
  if (std::ranges::find(reports, type, &ReportOffer::name) == reports.end())
    return doprint(type);
  return listPermits({desk, parcels(), letters_, labels_, key()}, type, Combo2.items, Combo1.items);
}

Result<void> APermits::printreceipt() {
  ListedRows lines(receiptLines(records()));
  return ReportPrinter(desk, letters_).run(kReceiptKind, "PERMIT " + key(), lines, ReportOutput::Printer);
}

Result<void> APermits::doprint(std::string_view document) {
  fillFromPermit(records(), parcels(), desk.session, letters_.context);
  letters_.context.counter = 1;
  showStatus("Printing to default printer...");
  auto printed = letters_.print(letterOf(document), document, keeper());
  showStatus("");
  return printed;
}

}  // namespace zelvo
