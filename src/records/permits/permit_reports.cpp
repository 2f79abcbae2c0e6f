#include "records/permits/permit_reports.h"

#include "base/date_names.h"
#include "base/text.h"
#include "data/parcel_key.h"
#include "data/query_text.h"
#include "documents/reports/report_frm.h"
#include "documents/reports/report_printer.h"
#include "records/record_report.h"

namespace zelvo {

namespace {

constexpr std::string_view kParcel = "SBL";  // put together from the parts that the row holds

constexpr ReportColumn kMonthlyColumns[] = {
    {"PERMIT", "PERMIT", 9},   {"DATE", "VD3", 8},    {"S-B-L", kParcel, 14},         {"OWNER", "OWNNAME1", 22},
    {"LOCATION", "LOCN1", 22}, {"FOR", "PRMFOR", 10}, {"COST", "APPXCOST", 11, true}, {"FEE", "FILEFEE", 9, true}};

constexpr ReportKind kMonthly{.header = "\\permhead.rtf", .columns = kMonthlyColumns};

std::string monthlyQuery(const ReportFrm& period) {
  const Date month{period.year(), period.month(), 1};
  return "Select * from BLDGPERM where " + columnIs("FILEMONTH", datePicture(month, "mm")) + " and " +
         columnIs("FILEYEAR", datePicture(month, "yy")) + " order by [FILEDATE]";
}

std::string monthlyTitle(const ReportFrm& period) {
  return "MONTHLY PERMITS FOR " + upper(monthNames[static_cast<std::size_t>(period.month()) - 1]) + " " +
         std::to_string(period.year());
}

std::string permitValue(const Recordset& permit, std::string_view field, ParcelParts& parts) {
  if (field == kParcel) {
    const std::string key = currentSBL(permit, parts);
    return mysbl2SBL(key, parts);
  }
  return field == "APPXCOST" || field == "FILEFEE" ? reportAmount(permit, field) : reportValue(permit, field);
}

}  // namespace

Result<void> listMonthlyPermits(Desk& desk, mdb& parcels, LetterPrinter& letters) {
  ReportFrm period(desk, kMonthlyPermits);
  desk.screens.showModal(period);
  if (!period.accepted() || desk.ended())
    return {};
  const auto connection = Connection::open(desk.session.queryFor(QuerySlot::Permits).connection);
  if (!connection)
    return connection.error();
  const auto permits = Recordset::open(*connection, monthlyQuery(period));
  if (!permits)
    return permits.error();
  RecordReportRows rows(**permits, kMonthlyColumns, [&parcels](const Recordset& permit, std::string_view field) {
    return permitValue(permit, field, parcels.parts);
  });
  return ReportPrinter(desk, letters).run(kMonthly, monthlyTitle(period), rows, period.output());
}

}  // namespace zelvo
