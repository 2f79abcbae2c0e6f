#include "enforcement/inspections/parcel_matters.h"

#include <map>

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

/// Reads what a parcel has in the table of a source, the latest first.
class ParcelRows {
 public:
  ParcelRows(const Session& session, const Screen& screen)
      : session_(session), condition_(SBL2SQL(screen) + " "), parcel_(TrimSBL(MakeSBL(screen))) {}

  /// The rows that answer a condition; none when the store cannot be read.
  template <typename Each>
  void read(const Source& source, std::string_view standing, Each each) const {
    const auto text = reachableConnection(session_, source.file);
    const auto connection = text ? Connection::open(*text) : text.error();
    const auto rows = connection ? Recordset::open(*connection, queryOf(source, standing)) : connection.error();
    if (!rows)
      return;
    for (Recordset& row = **rows; !row.Eof(); row.MoveNext())
      if (row.text("STATUS") != "V" && isOfParcel(row))
        each(row);
  }

 private:
  std::string queryOf(const Source& source, std::string_view standing) const {
    return "Select * from " + std::string(source.table) + " where " + condition_ + std::string(standing) +
           " order by [" + std::string(source.date) + "] desc";
  }
  // What a box leaves blank the condition leaves open: 12-3 would be 12.1-3 too.
  bool isOfParcel(const Recordset& row) const {
    ParcelParts parts;
    return upper(TrimSBL(currentSBL(row, parts))) == parcel_;
  }

  const Session& session_;
  std::string condition_, parcel_;
};

/// The work that an inspection was about.
std::string workOf(const Recordset& row) {
  return row.text("PERMIT") + "|" + upper(row.text("INSPTYPE"));
}

Date inspectedOn(const Recordset& row) {
  const auto moment = row.get("DATEINSP").moment();
  return moment ? moment->date : Date{};
}

/// When work on the parcel passed, the last time.
using Passed = std::map<std::string, Date>;

Passed passedWork(const ParcelRows& parcel) {
  Passed passed;
  parcel.read(kSources[0], "[INSPRESULT] = 'P'",
              [&passed](const Recordset& row) { passed.try_emplace(workOf(row), inspectedOn(row)); });
  return passed;
}

// What failed and passed since is not open any more.
bool isSettled(const Recordset& failed, const Passed& passed) {
  const auto found = passed.find(workOf(failed));
  return found != passed.end() && inspectedOn(failed) <= found->second;
}

}  // namespace

std::vector<ParcelMatter> openMatters(const Session& session, const Screen& screen, std::string_view but) {
  std::vector<ParcelMatter> matters;
  for (int part : {2, 3, 4})
    if (boxText(screen, part).empty())
      return matters;
  const ParcelRows parcel(session, screen);
  const Passed passed = passedWork(parcel);
  for (const Source& source : kSources) {
    std::size_t found = 0;
    parcel.read(source, source.standing, [&](const Recordset& row) {
      const bool failed = source.kind == ParcelMatter::Kind::FailedInspection;
      if ((failed && (row.text("RECNO") == but || isSettled(row, passed))) || ++found > kMost)
        return;
      matters.push_back({source.kind, row.text("RECNO"), reportValue(row, source.date), described(row, source)});
    });
  }
  return matters;
}

}  // namespace zelvo
