#include "enforcement/inspections/parcel_matters.h"

#include "base/text.h"
#include "data/no_dbfound.h"
#include "data/parcel_key.h"
#include "data/recordset.h"
#include "records/field_copy.h"
#include "records/record_report.h"

namespace zelvo {

namespace {

constexpr std::size_t kMost = 50;

/// Where matters of a kind are kept, and how a row tells of one.
struct Source {
  ParcelMatter::Kind kind;
  std::string_view file, table, standing;  ///< the condition of those that are open
  std::string_view date;
  std::string_view what[2];
};

constexpr Source kSources[] = {
    {ParcelMatter::Kind::FailedInspection,
     "db2.mdb",
     "INSPDTL",
     "[INSPRESULT] = 'F'",
     "DATEINSP",
     {"INSPTYPE", "INSPCOMM1"}},
    {ParcelMatter::Kind::Violation,
     "db5.mdb",
     "VIOLDATA",
     "([ACTION] = 'O' or [ACTION] = 'P')",
     "VIOLDATE",
     {"OFFENSE", "LOCN"}},
};

std::string described(const Recordset& row, const Source& source) {
  std::string text = row.text(source.what[0]);
  const std::string more = row.text(source.what[1]);
  return more.empty() ? text : text + ": " + more;
}

void addMatters(const Session& session, const Source& source, const std::string& parcel, std::string_view but,
                std::vector<ParcelMatter>& matters) {
  const auto text = reachableConnection(session, source.file);
  const auto connection = text ? Connection::open(*text) : text.error();
  const auto rows = connection ? Recordset::open(*connection, "Select * from " + std::string(source.table) + " where " +
                                                                  parcel + " " + std::string(source.standing))
                               : connection.error();
  if (!rows)
    return;
  Recordset& row = **rows;
  for (std::size_t found = 0; !row.Eof() && found < kMost; row.MoveNext()) {
    const bool own = source.kind == ParcelMatter::Kind::FailedInspection && row.text("RECNO") == but;
    if (own || row.text("STATUS") == "V")
      continue;
    matters.push_back({source.kind, row.text("RECNO"), reportValue(row, source.date), described(row, source)});
    ++found;
  }
}

}  // namespace

std::vector<ParcelMatter> openMatters(const Session& session, const Screen& screen, std::string_view but) {
  std::vector<ParcelMatter> matters;
  for (int part : {2, 3, 4})
    if (boxText(screen, part).empty())
      return matters;
  for (const Source& source : kSources)
    addMatters(session, source, SBL2SQL(screen), but, matters);
  return matters;
}

}  // namespace zelvo
