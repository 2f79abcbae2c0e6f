#include "shell/record_openings.h"

#include <algorithm>

#include "data/no_dbfound.h"

namespace zelvo {

namespace {

constexpr RecordOpening kOpenings[] = {
    {"APermits", "Building Permits", QuerySlot::Permits, "db1.mdb", "Select * from BLDGPERM order by PERMIT"},
    {"ZPermits", "Zoning Permits", QuerySlot::Zoning, "db8.mdb", "Select * from ZONEDAT order by BLDGPRM"},
    {"BInspections", "Inspections", QuerySlot::Inspections, "db2.mdb", "Select * from INSPDTL order by [RECNO]"},
    {"CAffidavits", "Affidavits", QuerySlot::Affidavits, "db3.mdb", "Select * from AFFIDAVI order by [AFFIN]"},
    {"CCertificates", "Certificates", QuerySlot::Certificates, "db4.mdb", "Select * from CERTOCCU order by [CERTOCCN]"},
    {"CViolations", "Violations", QuerySlot::Violations, "db5.mdb", "Select * from VIOLDATA order by RECNO"},
    {"FInspections", "Fire Inspections", QuerySlot::FireInspections, "fdb.mdb",
     "Select * from FPARCEL order by [FSEQ]"},
};

}  // namespace

std::span<const RecordOpening> recordOpenings() {
  return kOpenings;
}

Result<void> openRecordScreen(Desk& desk, std::string_view screen) {
  const auto opening = std::ranges::find(kOpenings, screen, &RecordOpening::screen);
  if (opening == std::ranges::end(kOpenings) || !desk.screens.knows(screen))
    return notOffered(opening == std::ranges::end(kOpenings) ? screen : opening->called);
  if (!desk.screens.find(screen)) {
    const auto connection = databaseConnection(desk, opening->file);
    if (!connection)
      return connection.error().trouble == Trouble::Cancelled ? Result<void>() : connection.error();
    desk.session.queryFor(opening->slot) = {*connection, std::string(opening->query)};
  }
  desk.screens.open(screen);
  return {};
}

}  // namespace zelvo
