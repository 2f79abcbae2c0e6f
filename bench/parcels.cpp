#include <random>

#include "base/files.h"
#include "clock.h"
#include "data/mdb.h"
#include "measures.h"

namespace zelvo::bench {

namespace {

constexpr std::size_t lookUps = 3000;

std::string keyOf(std::size_t parcel) {
  return std::to_string(parcel / 2000 + 1) + "-0-0-" + std::to_string(parcel / 50 % 40 + 1) + "-" +
         std::to_string(parcel % 50 + 1);
}

Result<void> makeRegistry(const std::string& path, std::size_t count) {
  const Table& parcels = *findTable("SBL");
  if (auto made = createDatabase(path, parcels); !made)
    return made;
  const auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error();
  std::size_t parcel = 0;
  return bulkInsert(**connection, parcels, {"SBLF", "ASSOC", "LOCN1", "OTHER", "FAILED", "VIOL"},
                    [&](std::vector<Value>& row) {
                      row = {keyOf(parcel), "Smith, John", std::to_string(parcel) + " Main Street", 0, 0, 0};
                      return parcel++ < count;
                    });
}

}  // namespace

Result<std::string> findParcels(Arguments arguments) {
  const std::string path = joinPath(arguments[0], "sbl.mdb");
  const auto count = static_cast<std::size_t>(std::atoll(arguments[1].c_str()));
  if (auto made = FileExists(path) ? Result<void>() : makeRegistry(path, count); !made)
    return made.error();
  Session session;
  session.dataFolder = arguments[0];
  mdb registry(session);
  std::mt19937 dice(20260309);
  std::vector<double> times;
  for (std::size_t i = 0; i < lookUps; ++i) {
    const std::string key = keyOf(dice() % count);
    const Stopwatch watch;
    const auto there = registry.SBLExists(key);
    times.push_back(watch.microseconds());
    if (!there || !*there)
      return there ? Error{Trouble::Failed, "There is no parcel " + key + "."} : there.error();
  }
  return std::to_string(middle(times));
}

}  // namespace zelvo::bench
