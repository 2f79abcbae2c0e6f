#include "data/convert_sbl.h"

#include <filesystem>

#include "base/files.h"
#include "base/text.h"
#include "data/connection.h"
#include "data/data_folder.h"
#include "data/database_care.h"
#include "data/moving/table_copy.h"
#include "data/postgres/extend.h"
#include "data/query_text.h"
#include "data/recordset.h"
#include "data/server_folder.h"
#include "data/sqlite/alone.h"
#include "data/sqlite/create.h"

namespace zelvo {

namespace {

constexpr std::string_view kConverting = "Converting SBL info..";
constexpr std::size_t kExtendedFields = 18;

std::string registryIn(const Session& session) {
  return joinPath(session.dataFolder, "\\sbl.mdb");
}

bool somethingAt(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(std::filesystem::symlink_status(path, unknown));
}

/// "sbl13.mdb", else "sbl13-2.mdb" and so on: what is there is somebody's.
std::string freeName(const Session& session, const std::string& stem) {
  std::string path = joinPath(session.dataFolder, stem + ".mdb");
  for (int number = 2; somethingAt(path); ++number)
    path = joinPath(session.dataFolder, stem + "-" + std::to_string(number) + ".mdb");
  return path;
}

/// A file that goes with the conversion that made it, unless it is kept.
class Provisional {
 public:
  explicit Provisional(std::string name) : path(std::move(name)) {}
  Provisional(const Provisional&) = delete;
  Provisional& operator=(const Provisional&) = delete;
  ~Provisional() {
    if (!kept && made)
      (void)(deleteFile(path).ok() && removeJournal(path).ok());
  }

  const std::string path;
  bool made = false;
  bool kept = false;
};

Error alreadyExtended() {
  return {Trouble::Duplicate, "The parcel registry has the extended layout already. There is nothing to convert."};
}

Error countsDiffer(std::size_t were, std::size_t are) {
  return {Trouble::Failed, "The new parcel registry has " + std::to_string(are) + " parcels where the old one has " +
                               std::to_string(were) + ". The old one stays in its place: look whether the blank " +
                               "\"sbl18.mdb\" of the program's folder \"wrk\" is empty, and try again."};
}

Result<std::size_t> countOf(Engine& engine, const Table& table) {
  const auto all = engine.select("Select * from " + std::string(table.name));
  return all ? Result<std::size_t>(all->rows.size()) : all.error();
}

/// Fills the new registry from the old one; gives the number of parcels.
Result<std::size_t> fill(const std::string& from, const std::string& to) {
  const auto old = openEngine(from);
  const auto fresh = old ? openEngine(to) : old.error();
  if (!fresh)
    return fresh.error();
  const auto fields = (*old)->table("SBL");
  if (!fields)
    return fields.error();
  if ((*fields)->columns.size() == kExtendedFields)
    return alreadyExtended();
  if (auto copied = copyRows(**old, **fields, **fresh); !copied)
    return copied.error();
  const auto were = countOf(**old, **fields), are = countOf(**fresh, **fields);
  if (!were || !are)
    return were ? are : were;
  return *were == *are ? are : countsDiffer(*were, *are);
}

Result<ConvertedRegistry> convertFile(const Session& session, std::chrono::milliseconds patience) {
  const auto registry = sqlite::openAlone(registryIn(session), patience);
  if (!registry)
    return registry.error();
  Provisional old(freeName(session, "sbl13")), fresh(freeName(session, "sbl18"));
  if (auto copied = sqlite::copyDatabaseFile(**registry, old.path); !copied)
    return copied.error();
  old.made = true;
  if (auto blank = putBlank(session.programFolder, extendedParcelTable(), fresh.path); !blank)
    return blank.error();
  fresh.made = true;
  const auto filled = fill(old.path, fresh.path);
  if (!filled)
    return filled.error();
  if (auto placed = sqlite::replaceDatabaseFile(fresh.path, **registry); !placed)
    return placed.error();
  old.kept = true;
  return ConvertedRegistry{*filled, old.path, {}};
}

Result<ConvertedRegistry> convertOnServer(const Session& session) {
  const auto registry = openEngine(registryIn(session));
  const auto table = registry ? (*registry)->table("SBL") : registry.error();
  if (!table)
    return table.error();
  if ((*table)->columns.size() == kExtendedFields)
    return alreadyExtended();
  if (auto extended = postgres::extendOnServer(registryIn(session), extendedParcelTable()); !extended)
    return extended.error();
  const auto parcels = countOf(**registry, **table);
  return parcels ? Result<ConvertedRegistry>({*parcels, {}, {}}) : parcels.error();
}

}  // namespace

Result<ConvertedRegistry> convertOldSBLtoSBL18(const Session& session, const ShowStatus& show,
                                               std::chrono::milliseconds patience) {
  show(kConverting);
  auto converted = keepsOnServer(session.dataFolder) ? convertOnServer(session) : convertFile(session, patience);
  show("");
  if (converted)
    if (const auto noted = noteExtendedLayout(session.dataFolder); !noted)
      converted->versionTrouble = noted.error().message;
  return converted;
}

Result<void> noteExtendedLayout(std::string_view dataFolder) {
  if (parcelLayoutIn(dataFolder) == static_cast<int>(kExtendedFields))
    return {};
  return writeLines(joinPath(dataFolder, "\\sblversion.txt"), {std::to_string(kExtendedFields)});
}

// ---- a second registry

namespace {

constexpr std::string_view kAllParcels = "Select * from SBL order by [SBLF]";

Result<std::unique_ptr<Recordset>> parcelsIn(const std::string& path) {
  auto opened = Connection::open(connectionText(path));
  return opened ? Recordset::open(std::move(*opened), kAllParcels) : opened.error();
}

std::vector<std::string_view> commonColumns(const Table& one, const Table& other) {
  std::vector<std::string_view> columns;
  for (const Column& column : one.columns)
    if (other.find(column.name))
      columns.push_back(column.name);
  return columns;
}

}  // namespace

Result<SecondRegistry> secondRegistry(const Session& session) {
  SecondRegistry second;
  const std::string path = joinPath(session.dataFolder, "\\sbl18.mdb");
  if (keepsOnServer(session.dataFolder) || !FileExists(path))
    return second;
  const auto parcels = parcelsIn(path);
  const auto registry = parcels ? Connection::open(connectionText(registryIn(session))) : parcels.error();
  if (!registry)
    return registry.error();
  second.path = path;
  const std::size_t key = (*parcels)->table().position("SBLF");
  for (std::size_t row = 0; row < (*parcels)->RecordCount(); ++row) {
    const std::string text = (*parcels)->cell(row, key).text();
    const auto known = (*registry)->exists("SBL", columnIs("SBLF", text));
    if (!known)
      return known.error();
    if (!*known && !trim(text).empty())
      second.lacking.push_back(row);
  }
  return second;
}

Result<void> carryOver(const Session& session, const SecondRegistry& second) {
  const auto parcels = parcelsIn(second.path);
  const auto registry = parcels ? Connection::open(connectionText(registryIn(session))) : parcels.error();
  const auto table = registry ? (*registry)->table("SBL") : registry.error();
  if (!table)
    return table.error();
  const auto columns = commonColumns((*parcels)->table(), **table);
  std::size_t next = 0;
  return bulkInsert(**registry, **table, columns, [&](std::vector<Value>& row) {
    if (next == second.lacking.size())
      return false;
    for (std::size_t column = 0; column < columns.size(); ++column)
      row[column] = (*parcels)->cell(second.lacking[next], (*parcels)->table().position(columns[column]));
    ++next;
    return true;
  });
}

}  // namespace zelvo
