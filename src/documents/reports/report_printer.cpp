#include "documents/reports/report_printer.h"

#include "base/files.h"
#include "base/text.h"
#include "documents/reports/report_document.h"
#include "documents/rtf_reader.h"
#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

// The office may have written its report header in any editor.
std::string asRichText(std::string_view text) {
  if (text.empty() || isRichText(text))
    return std::string(text);
  return "{\\rtf1\\ansi\\uc1\\pard " + rtfText(text) + "\\par}";
}

}  // namespace

std::vector<std::string> reportOutputs() {
  return {"Print", "Preview", "Save as rich text", "Save for a spreadsheet"};
}

// Filled in memory: "\tmp.rtf" stays what was printed last, until the listing itself is.
Result<std::string> ReportPrinter::heading(const ReportKind& kind) {
  const Session& session = desk_.session;
  const bool own = !kind.header.empty() && FileExists(joinPath(session.formsFolder, kind.header));
  const auto top = own ? letters_.read(kind.header) : Result<std::string>(asRichText(session.reportHeader));
  return top && !top->empty() ? letters_.fill(*top) : top;
}

void ReportPrinter::tellEmpty() {
  desk_.messages.tell(" Record(s) not Found", "No records meet the criteria.");
}

Result<void> ReportPrinter::run(const ReportKind& kind, std::string_view title, ReportRows& rows, ReportOutput output) {
  if (output == ReportOutput::Preview)
    desk_.session.print.preview = true;
  const bool onPaper = output == ReportOutput::Printer || output == ReportOutput::Preview;
  return onPaper ? print(kind, title, rows) : save(kind, title, rows, output);
}

Result<void> ReportPrinter::print(const ReportKind& kind, std::string_view title, ReportRows& rows) {
  const auto top = heading(kind);
  if (!top)
    return top.error();
  const MadeReport report = makeReport(kind, title, *top, rows, desk_.session.print);
  if (report.rows == 0) {
    tellEmpty();
    return {};
  }
  return letters_.printText(report.text, title);
}

Result<void> ReportPrinter::save(const ReportKind& kind, std::string_view title, ReportRows& rows,
                                 ReportOutput output) {
  const bool sheet = output == ReportOutput::Spreadsheet;
  const auto top = sheet ? Result<std::string>(std::string()) : heading(kind);
  if (!top)
    return top.error();
  const MadeReport report =
      sheet ? makeSpreadsheet(kind, rows) : makeReport(kind, title, *top, rows, desk_.session.print);
  if (report.rows == 0) {
    tellEmpty();
    return {};
  }
  const FilePicker picker{
      "Save the report", sheet ? "Spreadsheets (*.csv)|*.csv" : "Rich text documents (*.rtf)|*.rtf", {}};
  const auto path = desk_.pickers.saveFile(picker, fileNameFor(title, sheet ? ".csv" : ".rtf"));
  return path ? replaceFile(*path, report.text) : Result<void>();
}

}  // namespace zelvo
