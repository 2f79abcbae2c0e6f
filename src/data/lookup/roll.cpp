#include "data/lookup/roll.h"

#include <filesystem>

#include "base/files.h"
#include "data/query_text.h"
#include "data/server_folder.h"

namespace zelvo {

namespace {

Error noRoll() {
  return {Trouble::NotFound,
          "No tax roll has been imported yet. The administrator imports one with \"Import Tax Parcels\" on the Admin "
          "menu."};
}

bool rollThere(const Session& session, const std::string& path) {
  std::error_code unknown;
  return keepsOnServer(session.dataFolder) || std::filesystem::exists(path, unknown);
}

}  // namespace

Result<std::shared_ptr<Connection>> openRoll(const Session& session) {
  const std::string path = joinPath(session.dataFolder, "\\rps.mdb");
  if (!rollThere(session, path))
    return noRoll();
  auto roll = Connection::open(connectionText(path));
  if (!roll)
    return roll;
  const auto filled = (*roll)->exists("RPS", "not [RSBLF] is null");
  if (!filled)
    return filled.error();
  return *filled ? roll : noRoll();
}

ExtendedParcel parcelFromRoll(const Session& session, std::string_view key) {
  ExtendedParcel parcel;
  parcel.key = key;
  const auto roll = openRoll(session);
  if (!roll)
    return parcel;
  const auto row = Recordset::open(*roll, "Select * from RPS where " + columnIs("RSBLF", key));
  if (!row || (*row)->RecordCount() == 0)
    return parcel;
  const auto known = [&](std::string_view column) {
    std::string text = (*row)->text(column);
    return text == "?" ? std::string() : text;
  };
  parcel.assoc = known("RASSOC");
  parcel.location = known("RLOCN1");
  parcel.contact = known("RCONTACT");
  parcel.mailing = known("RADDR1");
  parcel.east = known("RCOORD1");
  parcel.north = known("RCOORD2");
  return parcel;
}

}  // namespace zelvo
