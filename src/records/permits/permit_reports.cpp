#include "records/permits/permit_reports.h"

#include <algorithm>

#include "base/date_names.h"
#include "base/text.h"
#include "data/query_text.h"
#include "documents/reports/report_printer.h"
#include "records/other_records.h"
#include "records/permits/insurance_report.h"
#include "records/permits/permit_certificates.h"
#include "records/permits/permit_letter.h"
#include "records/permits/permit_mailing.h"
#include "records/record_report.h"
#include "records/sub_records/sub_record_kind.h"

namespace zelvo {

namespace {

constexpr std::string_view kParcel = "*SBL";  // put together from the parts that the row holds
constexpr int kExpiringDays = 60;

constexpr ReportColumn kPermitColumns[] = {
    {"PERMIT", "PERMIT", 9},   {"DATE", "VD3", 8},    {"S-B-L", kParcel, 14},         {"OWNER", "OWNNAME1", 22},
    {"LOCATION", "LOCN1", 22}, {"FOR", "PRMFOR", 10}, {"COST", "APPXCOST", 11, true}, {"FEE", "FILEFEE", 9, true}};
constexpr ReportColumn kUseColumns[] = {
    {"PERMIT", "PERMIT", 9}, {"DATE", "VD3", 8},     {"OWNER", "OWNNAME1", 22},      {"LOCATION", "LOCN1", 22},
    {"FOR", "PRMFOR", 10},   {"USE", "USEBLDG", 15}, {"COST", "APPXCOST", 11, true}, {"FEE", "FILEFEE", 9, true}};
constexpr ReportColumn kExpiryColumns[] = {
    {"PERMIT", "PERMIT", 9},   {"DATE", "VD3", 8},        {"EXPIRES", "VD4", 8}, {"S-B-L", kParcel, 14},
    {"OWNER", "OWNNAME1", 22}, {"LOCATION", "LOCN1", 22}, {"FOR", "PRMFOR", 10}, {"PHONE", "OWNPHONE", 14}};
constexpr ReportColumn kCertificateColumns[] = {{"PERMIT", "PERMIT", 9},   {"CERT", "CERTNO", 10},
                                                {"DATE", "DATECO", 8},     {"S-B-L", kParcel, 14},
                                                {"APPLICANT", "NAME", 24}, {"LOCATION", "PLOCN", 24}};
constexpr ReportColumn kParcelColumns[] = {{"S-B-L", "SBLF", 24}, {"OWNER", "ASSOC", 24}, {"LOCATION", "LOCN1", 36}};
constexpr ReportColumn kInsuranceColumns[] = {{"PERMIT", "RECNO", 9},  {"COMPANY", "INSCO1", 24}, {"TYPE", "ITYP1", 20},
                                              {"CERT #", "ICERT", 12}, {"FROM", "IFR1", 8},       {"TO", "ITO1", 8},
                                              {"PROJECT", "IPROJ", 24}};

struct Asked {
  const ReportFrm& form;
  Date today;
};

// ---- the words of the queries and titles

std::string day(Date date) {
  return "#" + datePicture(date, "mm/dd/yyyy") + "#";
}

std::string shortDay(Date date) {
  return datePicture(date, "mm/dd/yy");
}

std::string between(std::string_view column, Date after, Date before) {
  const std::string name = "[" + std::string(column) + "]";
  return name + " > " + day(after) + " and " + name + " < " + day(before);
}

std::string fromTodayOn(std::string_view column, Date today) {
  const std::string name = "[" + std::string(column) + "]";
  return name + " >= " + day(today) + " and " + name + " <= " + day(addDays(today, kExpiringDays));
}

std::string permits(std::string_view condition, std::string_view order) {
  return "Select * from BLDGPERM where " + std::string(condition) + " order by [" + std::string(order) + "]";
}

std::string afterAndBefore(std::string_view what, const Asked& asked) {
  return std::string(what) + shortDay(asked.form.from()) + " AND BEFORE " + shortDay(asked.form.to());
}

std::string period(const ReportFrm& form) {
  const std::string year = std::to_string(form.year());
  return form.month() == 0 ? year : upper(monthNames[static_cast<std::size_t>(form.month()) - 1]) + " " + year;
}

// By their values: permits of former days have "3" for the month, those of today "03".
std::string inPeriod(const ReportFrm& form) {
  const std::string ofYear = "[FILEYEAR] = " + std::to_string(form.year() % 100);
  return form.month() == 0 ? ofYear : "[FILEMONTH] = " + std::to_string(form.month()) + " and " + ofYear;
}

std::string ofTypeAndUse(const ReportFrm& form) {
  return (form.type().empty() ? "" : " and " + columnIs("PRMFOR", form.type())) +
         (form.use().empty() ? "" : " and " + columnIs("USEBLDG", form.use()));
}

std::string typeAndUseTitle(const Asked& asked) {
  const std::string type = asked.form.type().empty() ? "ALL" : upper(asked.form.type());
  return type + " PERMITS FOR " + period(asked.form) + (asked.form.use().empty() ? "" : ", " + upper(asked.form.use()));
}

constexpr std::string_view kNotClosed = " and [VIOLOPEN] <> 'C'";

// ---- the listings

struct PermitReport {
  ReportOffer offer;
  std::string_view file;
  ReportKind kind;
  std::string (*query)(const Asked&);
  std::string (*title)(const Asked&);
  std::string_view letter = {};   ///< to the owners, where the listing can be that instead
  bool withoutOccupancy = false;  ///< only permits that have no certificate of occupancy
};

constexpr PermitReport kReports[] = {
    {{"Monthly permits", kAskMonth},
     "db1.mdb",
     {.header = "\\permhead.rtf", .columns = kPermitColumns},
     [](const Asked& a) { return permits(inPeriod(a.form), "FILEDATE"); },
     [](const Asked& a) { return "MONTHLY PERMITS FOR " + period(a.form); }},
    {{"Permits by year, month, type, use", kAskAnyMonth | kAskType | kAskUse},
     "db1.mdb",
     {.header = "\\permhead2.rtf", .columns = kUseColumns},
     [](const Asked& a) { return permits(inPeriod(a.form) + ofTypeAndUse(a.form), "PERMIT"); },
     typeAndUseTitle},
    {{"Expired permits", kAskDates | kAskType | kAskToOwners},
     "db1.mdb",
     {.header = "\\exphead.rtf", .columns = kExpiryColumns},
     [](const Asked& a) {
       return permits(between("VD4", a.form.from(), a.form.to()) + ofTypeAndUse(a.form) + std::string(kNotClosed),
                      "VD4");
     },
     [](const Asked& a) { return afterAndBefore("EXPIRED BUILDING PERMITS AFTER ", a); },
     "\\expired.rtf"},
    {{"Expiring permits", kAskToOwners},
     "db1.mdb",
     {.header = "\\exphead.rtf", .columns = kExpiryColumns},
     [](const Asked& a) { return permits(fromTodayOn("VD4", a.today) + std::string(kNotClosed), "VD4"); },
     [](const Asked& a) { return "EXPIRING BUILDING PERMITS WITHIN 60 DAYS FROM " + shortDay(a.today); },
     "\\expiring.rtf"},
    {{"Closed permits", 0},
     "db1.mdb",
     {.header = "\\permhead2.rtf", .columns = kUseColumns},
     [](const Asked&) { return permits("[VIOLOPEN] = 'C'", "PERMIT"); },
     [](const Asked&) { return std::string("CLOSED BUILDING PERMITS"); }},
    {{"Open permits", 0},
     "db1.mdb",
     {.header = "\\permhead2.rtf", .columns = kUseColumns},
     [](const Asked&) { return permits("[VIOLOPEN] = 'O'", "PERMIT"); },
     [](const Asked&) { return std::string("OPEN BUILDING PERMITS"); }},
    {{"Dwelling permits without certificate", kAskDates},
     "db1.mdb",
     {.header = "\\nocohead.rtf", .columns = kPermitColumns},
     [](const Asked& a) {
       return permits(between("VD3", a.form.from(), a.form.to()) + " and [PRMFOR] = 'Dwelling'", "PERMIT");
     },
     [](const Asked&) { return std::string("DWELLING PERMITS WITH NO CERTIFICATE OF OCCUPANCY"); },
     {},
     true},
    {{"Permits with certificate", 0},
     "db4.mdb",
     {.header = "\\withcohead.rtf", .columns = kCertificateColumns},
     [](const Asked&) { return std::string("Select * from CERTOCCU where [TYPE] = 'O' order by [PERMIT]"); },
     [](const Asked&) { return std::string("PERMITS WITH CERTIFICATE OF OCCUPANCY"); }},
    {{"Parcels without dwelling permit", 0},
     "sbl.mdb",
     {.header = "\\sblhead.rtf", .columns = kParcelColumns},
     [](const Asked&) { return std::string("Select * from SBL where [PERMIT] = '?' order by [SBLF]"); },
     [](const Asked&) { return std::string("SBL's WITH NO DWELLING TYPE PERMIT"); }},
    {{"Expired insurance", kAskDates},
     "db7.mdb",
     {.header = "\\expinshead.rtf", .columns = kInsuranceColumns},
     [](const Asked& a) {
       const Date before = std::min(a.form.to(), kNoEndDate);
       return "Select * from INSBASE where " + between("ITO1", a.form.from(), before) + " order by [ITO1]";
     },
     [](const Asked& a) { return afterAndBefore("EXPIRED INSURANCE AFTER ", a); }},
    {{"Expiring insurance", 0},
     "db7.mdb",
     {.header = "\\expinshead.rtf", .columns = kInsuranceColumns},
     [](const Asked& a) { return "Select * from INSBASE where " + fromTodayOn("ITO1", a.today) + " order by [ITO1]"; },
     [](const Asked& a) { return "EXPIRING INSURANCE WITHIN 60 DAYS FROM " + shortDay(a.today); }},
};
constexpr ReportOffer kInsuranceOfPermit{"Insurance of this permit", 0};

// ---- making one

std::string valueFor(const Recordset& row, std::string_view field, ParcelParts& parts) {
  if (field == kParcel)
    return parcelInLetters(row, parts);
  const Column* column = row.table().find(field);
  return column && column->type == ColumnType::Number ? reportAmount(row, field) : reportValue(row, field);
}

Result<void> list(const PermitListing& listing, const PermitReport& report, const Asked& asked, Recordset& records) {
  RecordReportRows rows(records, report.kind.columns, [&](const Recordset& row, std::string_view field) {
    return valueFor(row, field, listing.parcels.parts);
  });
  if (report.withoutOccupancy) {
    const auto certificates = otherDatabase(listing.desk, "db4.mdb");
    if (!certificates)
      return certificates.error();
    rows.wanted = [open = *certificates](const Recordset& row) {
      return !hasOccupancyCertificate(*open, row.text("PERMIT"));
    };
  }
  return ReportPrinter(listing.desk, listing.letters).run(report.kind, report.title(asked), rows, asked.form.output());
}

Result<void> make(const PermitListing& listing, const PermitReport& report, const ReportFrm& form) {
  const Asked asked{form, listing.desk.clock.now().date};
  const auto records = otherRows(listing.desk, report.file, report.query(asked));
  if (!records)
    return records.error();
  if (form.output() == ReportOutput::Labels)
    return printOwnerLabels(listing, **records, report.title(asked));
  if (form.output() == ReportOutput::Letters)
    return printOwnerLetters(listing, **records, report.letter, report.title(asked));
  return list(listing, report, asked, **records);
}

}  // namespace

std::vector<ReportOffer> permitReports() {
  std::vector<ReportOffer> offers;
  for (const PermitReport& report : kReports)
    offers.push_back(report.offer);
  offers.push_back(kInsuranceOfPermit);
  return offers;
}

Result<void> listPermits(const PermitListing& listing, std::string_view report, const std::vector<std::string>& types,
                         const std::vector<std::string>& uses) {
  ReportFrm form(listing.desk, "Reports", permitReports(), report, types, uses);
  listing.desk.screens.showModal(form);
  if (!form.accepted() || listing.desk.ended())
    return {};
  if (form.report() == kInsuranceOfPermit.name)
    return listInsurance(listing, form.output());
  const auto* chosen =
      std::ranges::find(kReports, form.report(), [](const PermitReport& one) { return one.offer.name; });
  return make(listing, *chosen, form);
}

}  // namespace zelvo
