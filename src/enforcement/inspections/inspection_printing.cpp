// The documents of an inspection: the report on a permit's inspections, the detail of one, the record of a complaint,
// and the checklist that an inspector fills.

#include "base/files.h"
#include "base/text.h"
#include "data/parcel_key.h"
#include "data/query_text.h"
#include "documents/print_frm.h"
#include "documents/reports/report_heading.h"
#include "documents/reports/report_shape.h"
#include "documents/rtf_writer.h"
#include "enforcement/code_tables.h"
#include "enforcement/inspections/b_inspections.h"
#include "enforcement/inspections/inspection_codes.h"
#include "enforcement/inspections/inspection_reports.h"

namespace zelvo {

using namespace inspection_box;

namespace {

constexpr std::string_view kLineSize = "\\fs18 ";  // 9 point
constexpr std::size_t kValueWidth = 59;            // behind a label, on paper with margins of 1.25 inches

std::string_view headingOf(std::string_view category) {
  return upper(category) == "B" ? "\\inspbhead.rtf" : upper(category) == "O" ? "\\inspohead.rtf" : "";
}

std::string letterDate(const DatePicker& picker) {
  return picker.date ? datePicture(*picker.date, "mm/dd/yy") : "";
}

std::string pickedText(const Combo& combo) {
  return trim(combo.text) == kSelect ? "" : combo.text;
}

std::string asRichLines(int font, const std::vector<std::string>& lines) {
  std::string rtf = "\\pard\\plain\\uc1\\f" + std::to_string(font) + std::string(kLineSize);
  for (const std::string& line : lines)
    rtf += rtfText(line) + "\\par\r\n";
  return rtf;
}

}  // namespace

// ---- what the letters are filled with

// docs/letters.md lists the values for the office. They are those on the screen: a checklist is filled before its
// inspection is stored.
void BInspections::fillContext(MergeContext& context) {
  const auto box = [this](int index) { return boxText(*this, index); };
  const bool complaint = isCategory("COMPLAINT");
  ParcelParts parts;
  context.parcel = SBLfilled(*this) ? mysbl2SBL(MakeSBL(*this), parts) : "";
  const std::string values[] = {box(1),
                                letterDate(DTPicker1),
                                letterDate(DTPicker2),
                                box(kOwner),
                                box(kLocation),
                                box(kPhone),
                                context.parcel,
                                pickedText(Combo1),
                                pickedText(Combo2),
                                pickedText(Combo4),
                                pickedText(Combo3),
                                box(kPermit),
                                box(kComplainant),
                                box(kComplainantAddress),
                                box(kComplainantPhone),
                                box(kComments),
                                box(kNature),
                                letterDate(DTPicker3),
                                pickedText(Combo5),
                                box(kNotes)};
  context.values.fill("");
  std::copy(std::begin(values), std::end(values), context.values.begin() + 1);
  splitAddress(box(complaint ? kComplainantAddress : kLocation), context);
  context.name = box(complaint ? kComplainant : kOwner);
  context.ln = context.id = box(1);
  context.mi = desk.session.municipality.name;
  context.ms = desk.session.userId;
  context.me = desk.session.municipality.telephone;
  context.counter = 1;
}

Result<std::string> BInspections::PlugVars(std::string_view text) {
  fillContext(letters_.context);
  return letters_.fill(text);
}

std::vector<std::string> BInspections::recordLines(const Recordset& row) const {
  const auto line = [](std::string_view label, std::string_view value) {
    return std::string(label) + shortened(value, kValueWidth);
  };
  return {line("INSPECTION CATEGORY: ", shownCode(row.text("INSPCATEG"), ICode2Combo)),
          line("    INSPECTION TYPE: ", row.text("INSPTYPE")),
          line(" DATE OF INSPECTION: ", reportDate(row, "DATEINSP")),
          line(" INSPECTION RESULTS: ", shownCode(row.text("INSPRESULT"), RCode2Combo)) +
              line("       BY: ", row.text("INSPINIT")),
          line("INSPECTION COMMENTS: ", row.text("INSPCOMM1"))};
}

// ---- the printouts

// The heading is merged first and then stands where the template has its letterhead.
Result<void> BInspections::printWith(std::string_view letter, std::string_view heading, std::string_view title,
                                     const std::vector<std::string>& lines) {
  const auto rtf = letters_.read(letter);
  if (!rtf)
    return rtf.error();
  letters_.context.subheading = upper(title);
  if (const auto top = heading.empty() ? Result<std::string>(std::string()) : letters_.read(heading);
      top && !top->empty())
    letters_.context.letterhead = PlugVars(*top).valueOr("");
  const auto filled = PlugVars(*rtf);
  letters_.context.letterhead.clear();
  if (!filled)
    return filled.error();
  const ReportHeading merged(*filled);
  showStatus("Printing to default printer...");
  auto printed = letters_.printText(merged.opened("") + asRichLines(merged.font(), lines) + "}", title, keeper());
  showStatus("");
  return printed;
}

Result<void> BInspections::PrintInspRep() {
  const std::string permit = records().text("PERMIT");
  const std::string category = records().text("INSPCATEG");
  const auto connection = Connection::open(desk.session.queryFor(QuerySlot::Inspections).connection);
  if (!connection)
    return connection.error();
  const std::string which = permit.empty() ? columnIs("RECNO", key())
                                           : columnIs("PERMIT", permit) + " and " + columnIs("INSPCATEG", category);
  const auto rows = Recordset::open(*connection, "Select * from INSPDTL where " + which + " order by [DATEINSP]");
  if (!rows)
    return rows.error();
  std::vector<std::string> lines;
  for (Recordset& row = **rows; !row.Eof(); row.MoveNext()) {
    if (row.text("STATUS") == "V" && row.text("RECNO") != key())
      continue;
    for (std::string& line : recordLines(row))
      lines.push_back(std::move(line));
    lines.emplace_back();
  }
  return printWith("\\insprep.rtf", headingOf(category), "Inspection Report", lines);
}

Result<void> BInspections::PrintInspDetail() {
  return printWith("\\insprepd.rtf", "", "Detail of Inspection", recordLines(records()));
}

Result<void> BInspections::PrintComplaint() {
  return printWith("\\complaint.rtf", "", "Record of Complaint", recordLines(records()));
}

Result<void> BInspections::doprint(std::string_view type) {
  switch (type.empty() ? '\0' : type.front()) {
    case 'I':
      return PrintInspRep();
    case 'R':
      return PrintComplaint();
    case 'D':
      return PrintInspDetail();
    case 'C':
      iChecklist_Click();
      return {};
    default:
      return Error{Trouble::BadInput, "There is no printout \"" + std::string(type) + "\"."};
  }
}

void BInspections::iPrint_Click() {
  PrintFrm options(desk, "Print Inspection " + key(),
                   {"Inspection Report", "Checklist", "Record of Complaint", "Detail of Inspection"},
                   PrintFrom::Record);
  desk.screens.showModal(options);
  if (!options.accepted() || desk.ended())
    return;
  const auto printed = doprint(desk.session.print.type);
  showAttachments();
  tellTrouble(printed);
}

// ---- the checklist

void BInspections::iChecklist_Click() {
  if (isUnpicked(Combo1.text) || isUnpicked(Combo2.text))
    return desk.messages.tell(" Checklist", "You must select Inspection Category\nand Inspection Type first.",
                              Icon::Exclamation);
  showStatus("Getting Checklist...");
  tellTrouble(openChecklist(joinPath(desk.session.dataFolder, checklistName(Combo1.text, Combo2.text))));
  showStatus("");
}

// The office's own checklist stays empty: what is filled is a copy of it. One for an inspection that is not stored yet
// has no record to be kept with.
Result<void> BInspections::openChecklist(const std::string& path) {
  if (!FileExists(path)) {
    desk.messages.tell(" Checklist", "Checklist not found.", Icon::Exclamation);
    return {};
  }
  const auto rtf = readBytes(path);
  const bool stored = mode() == Mode::Browse && !dbisempty();
  const auto filled = rtf ? PlugVars(*rtf) : rtf;
  return filled ? letters_.openText(*filled, "Checklist", stored ? keeper() : KeepCopy()) : filled.error();
}

void BInspections::iReports_Click() {
  tellTrouble(listInspections(desk, letters_));
}

}  // namespace zelvo
