#include "data/catalogue.h"

#include <algorithm>

#include "base/text.h"
#include "data/tables/certificates.h"
#include "data/tables/enforcement.h"
#include "data/tables/fire.h"
#include "data/tables/meetings.h"
#include "data/tables/parcels.h"
#include "data/tables/permits.h"
#include "data/tables/zoning.h"

namespace zelvo {

namespace {

template <std::size_t N>
using Indexes = std::array<std::string_view, N>;

// Beside its key a table has an index for what the screens look its rows up by: the parcel, the record they belong to,
// and the order in which it is browsed.
constexpr Indexes<1> onParcel = {"SEC,BLK,LOT"};
constexpr Indexes<2> onPermit = {"SEC,BLK,LOT", "PERMIT"};
constexpr Indexes<3> onCertificate = {"SEC,BLK,LOT", "PERMIT", "CERTOCCN"};
constexpr Indexes<3> onAffidavit = {"SEC,BLK,LOT", "PERMIT", "AFFIN"};
constexpr Indexes<3> onIncident = {"SEC,BLK,LOT", "PERMIT", "INCDNUMB"};
constexpr Indexes<1> onOwnRecord = {"RECNO"};
constexpr Indexes<2> onSequence = {"SEC,BLK,LOT", "BLDGPRM"};
constexpr Indexes<2> onProperty = {"SEC,BLK,LOT", "FSBL"};
constexpr Indexes<2> onInspectedProperty = {"SEC,BLK,LOT", "FISBL"};
constexpr Indexes<2> onCase = {"PBFCASE", "PBFPROJNAME"};

// Certificates and affidavits are numbered anew each year, or by hand: only year and sequence together name one.
constexpr Table numbered[] = {
    {0, "fins.mdb", "FINSP", "FireInsp    ", "FISEQ", "FISEQ", tables::fireInspections, onInspectedProperty},
    {1, "db1.mdb", "BLDGPERM", "Permits     ", "PERMIT", "PERMIT", tables::buildingPermits, onParcel},
    {2, "db2.mdb", "INSPDTL", "Inspections ", "RECNO", "RECNO", tables::inspections, onPermit},
    {3, "db3.mdb", "AFFIDAVI", "Affidavits  ", "FILENO", "AFFIN", tables::affidavits, onAffidavit},
    {4, "db4.mdb", "CERTOCCU", "Certificates", "CERTNO", "CERTOCCN", tables::certificates, onCertificate},
    {5, "db5.mdb", "VIOLDATA", "Violations  ", "RECNO", "INCDNUMB", tables::violations, onIncident},
    {6, "db6.mdb", "ORDINSP", "Actions     ", "", "RECNO", tables::actions, onOwnRecord},
    {7, "db7.mdb", "INSBASE", "Insurance   ", "", "RECNO", tables::insurances, onOwnRecord},
    {8, "db8.mdb", "ZONEDAT", "Zoning      ", "ZNPERMIT", "FILEDATE", tables::zoningPermits, onSequence},
    {9, "fdb.mdb", "FPARCEL", "FireInsDB   ", "FSEQ", "FSEQ", tables::fireProperties, onProperty},
    {10, "cont.mdb", "CONBASE", "Contacts    ", "", "RECNO", tables::contacts, onOwnRecord},
    {11, "meeting.mdb", "MEETING", "Schedule    ", "RECNO", "RECNO", tables::meetings, {}},
    {12, "pbfees.mdb", "PBFEES", "Fees        ", "SEQ", "SEQ", tables::fees, onCase},
    {-1, "sbl.mdb", "SBL", "", "SBLF", "SBLF", tables::parcels, {}},
    {-1, "rps.mdb", "RPS", "", "RSBLF", "RSBLF", tables::roll, {}},
};
static_assert(std::size(numbered) == 15);

constexpr Table extended{-1, "sbl18.mdb", "SBL", "", "SBLF", "SBLF", tables::extendedParcels, {}};

bool sameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && alike(a, b);
}

const Table* findBy(std::string_view Table::*name, std::string_view wanted) {
  const auto found = std::find_if(std::begin(numbered), std::end(numbered),
                                  [&](const Table& table) { return sameName(table.*name, wanted); });
  return found == std::end(numbered) ? nullptr : found;
}

}  // namespace

std::size_t Table::position(std::string_view column) const {
  const auto found =
      std::find_if(columns.begin(), columns.end(), [&](const Column& own) { return sameName(own.name, column); });
  return static_cast<std::size_t>(found - columns.begin());
}

const Column* Table::find(std::string_view column) const {
  const std::size_t at = position(column);
  return at < columns.size() ? &columns[at] : nullptr;
}

std::span<const Table> catalogue() {
  return numbered;
}

const Table* findTable(std::string_view name) {
  return findBy(&Table::name, name);
}

const Table* findTableOfFile(std::string_view file) {
  return sameName(file, extended.file) ? &extended : findBy(&Table::file, file);
}

const Table& extendedParcelTable() {
  return extended;
}

std::span<const Column> fieldDescriptors(std::string_view table) {
  const Table* found = findTable(table);
  const bool listed = found && (found->name == "BLDGPERM" || found->name == "FPARCEL" || found->name == "ZONEDAT");
  return listed ? found->columns : std::span<const Column>();
}

std::string connectionText(std::string_view path) {
  return "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + std::string(path) + ";";
}

}  // namespace zelvo
