#include "enforcement/inspections/inspection_reports.h"

#include "base/date_names.h"
#include "base/text.h"
#include "data/parcel_key.h"
#include "data/query_text.h"
#include "documents/reports/report_printer.h"
#include "enforcement/code_tables.h"
#include "enforcement/inspections/complaint_listing.h"
#include "enforcement/inspections/inspection_codes.h"
#include "enforcement/inspections/inspection_kind.h"
#include "enforcement/inspections/inspection_report_frm.h"
#include "records/record_report.h"
#include "records/search_by_example.h"

namespace zelvo {

namespace {

constexpr std::string_view kParcel = "SBL";  // put together from the parts that the row holds

// The day that an inspection is due leads where that is what is listed.
constexpr ReportColumn kNextColumns[] = {
    {"ICN", "RECNO", 7},     {"NEXT", "INSPDATE", 8},      {"DATE", "DATEINSP", 8},  {"S-B-L", kParcel, 13},
    {"PERMIT", "PERMIT", 8}, {"LOCATION", "OWNADDR1", 20}, {"TYPE", "INSPTYPE", 18}, {"RESULT", "INSPRESULT", 10},
    {"BY", "INSPINIT", 14},  {"COMMENTS", "INSPCOMM1", 25}};
constexpr ReportColumn kColumns[] = {
    {"ICN", "RECNO", 7},          {"DATE", "DATEINSP", 8},      {"S-B-L", kParcel, 13},
    {"PERMIT", "PERMIT", 8},      {"LOCATION", "OWNADDR1", 20}, {"TYPE", "INSPTYPE", 18},
    {"RESULT", "INSPRESULT", 10}, {"BY", "INSPINIT", 14},       {"COMMENTS", "INSPCOMM1", 35}};
constexpr ReportColumn kComplaintColumns[] = {
    {"ICN", "RECNO", 7},       {"DATE", "NRECNO", 8},           {"S-B-L", kParcel, 14},
    {"OWNER", "OWNNAME1", 20}, {"COMPLAINANT", "COMNAME1", 20}, {"INV.ASSGN", "INSVEST", 14},
    {"RES", "INSPRESULT", 10}, {"COMPLAINT", "NATURE", 40}};

constexpr ReportKind kNextListing{.header = {}, .columns = kNextColumns};
constexpr ReportKind kListing{.header = {}, .columns = kColumns};
constexpr ReportKind kFieldListing{.header = "\\inspdhead.rtf", .columns = kColumns};
constexpr ReportKind kComplaintListing{.header = {}, .columns = kComplaintColumns};

std::string shownValue(const Recordset& row, std::string_view field) {
  if (field == kParcel)
    return parcelOf(row);
  if (field == "INSPRESULT")
    return shownCode(row.text(field), RCode2Combo);
  return field == "DATEINSP" || field == "INSPDATE" || field == "NRECNO" ? reportDate(row, field)
                                                                         : reportValue(row, field);
}

/// A listing: its rows, what stands over them, and in what columns.
struct Listing {
  std::string condition, order, title;
  const ReportKind& kind;
};

std::string between(std::string_view column, Date after, Date before) {
  constexpr std::string_view kPicture = "mm/dd/yyyy";  // two digits would be taken for the last century from 2030 on
  const std::string name = "[" + std::string(column) + "]";
  return name + " > #" + datePicture(after, kPicture) + "# and " + name + " < #" + datePicture(before, kPicture) + "#";
}

Date firstOf(Date day) {
  return {day.year, day.month, 1};
}

Date firstOfNext(Date day) {
  return firstOf(addDays(firstOf(day), 31));
}

std::string monthWords(Date day) {
  return upper(monthNames[static_cast<std::size_t>(day.month) - 1]) + " " + std::to_string(day.year);
}

Listing byType(const InspectionReportWish& wish) {
  std::string condition = columnIs("INSPCATEG", wish.category);
  if (!wish.type.empty())
    condition = columnIs("INSPTYPE", wish.type) + " and " + condition;
  if (wish.category == "C")
    return {condition, "[NRECNO], [RECNO]", "COMPLAINTS ", kComplaintListing};
  return {condition, "[DATEINSP], [RECNO]", wish.category == "B" ? "BUILDING CATEGORY" : "OTHER CATEGORY", kListing};
}

Listing monthly(const InspectionReportWish& wish) {
  return {"[INSPMONT] = " + std::to_string(wish.from.month) + " and [INSPYEAR] = " + std::to_string(wish.from.year) +
              " and [INSPCATEG] <> 'C'",
          "[INSPMONT], [DATEINSP]", "FIELD INSPECTIONS FOR " + monthWords(wish.from), kFieldListing};
}

Listing complaints(const InspectionReportWish& wish, Date after, Date before, std::string title) {
  std::string condition = "[NATURE] <> '' and " + between("NRECNO", after, before);
  if (!wish.investigator.empty())
    condition += " and " + columnLike("INSVEST", "%" + wish.investigator + "%");
  return {condition, "[NRECNO]", std::move(title), kComplaintListing};
}

Listing listingFor(const InspectionReportWish& wish) {
  switch (wish.report) {
    case InspectionReport::NextDates:
      return {between("INSPDATE", wish.from, wish.to), "[INSPDATE]", "NEXT INSPECTION DATE REPORT", kNextListing};
    case InspectionReport::ByType:
      return byType(wish);
    case InspectionReport::Monthly:
      return monthly(wish);
    case InspectionReport::Complaints:
      return complaints(
          wish, wish.from, wish.to,
          "COMPLAINTS FROM " + datePicture(wish.from, "mm/dd/yy") + " TO " + datePicture(wish.to, "mm/dd/yy"));
    case InspectionReport::MonthlyComplaints:
      break;
  }
  return complaints(wish, addDays(firstOf(wish.from), -1), firstOfNext(wish.from),
                    "COMPLAINTS FOR " + monthWords(wish.from));
}

bool isVerbose(const InspectionReportWish& wish) {
  return wish.output == ReportOutput::Printer &&
         (wish.report == InspectionReport::Complaints || wish.report == InspectionReport::MonthlyComplaints);
}

}  // namespace

std::string reportDate(const Recordset& inspection, std::string_view column) {
  const auto moment = inspection.get(column).moment();
  return moment && moment->date != kNoInspectionDate ? datePicture(moment->date, "mm/dd/yy") : "";
}

std::string parcelOf(const Recordset& record) {
  ParcelParts parts;
  const std::string key = currentSBL(record, parts);
  return mysbl2SBL(key, parts);
}

Result<void> listInspections(Desk& desk, LetterPrinter& letters) {
  InspReportFrm question(desk);
  desk.screens.showModal(question);
  if (!question.accepted() || desk.ended())
    return {};
  const InspectionReportWish wish = question.wish();
  const auto connection = Connection::open(desk.session.queryFor(QuerySlot::Inspections).connection);
  if (!connection)
    return connection.error();
  const Listing listing = listingFor(wish);
  const auto found =
      Recordset::open(*connection, "Select * from INSPDTL where " + listing.condition + " order by " + listing.order);
  if (!found)
    return found.error();
  if (isVerbose(wish))
    return printComplaints(desk, letters, **found, listing.title);
  RecordReportRows rows(**found, listing.kind.columns, shownValue);
  rows.wanted = [](const Recordset& row) { return row.text("STATUS") != "V"; };
  return ReportPrinter(desk, letters).run(listing.kind, listing.title, rows, wish.output);
}

}  // namespace zelvo
