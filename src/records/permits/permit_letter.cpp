#include "records/permits/permit_letter.h"

#include "data/parcel_key.h"

namespace zelvo {

namespace {

// The numbered values of a permit letter, 1 to 25, by the column that each shows. docs/letters.md lists them for the
// office.
constexpr std::string_view kValues[] = {
    "PERMIT",  "VD3",       "VD4",       "OWNNAME1",  "OWNADDR1",  "LOCN1",    "",        "USEBLDG", "PRMFOR",
    "DATA1",   "BLDGNAME1", "BLDGADDR1", "ARCHNAME1", "ARCHADDR1", "APPXCOST", "FILEFEE", "COFEE",   "ZONED",
    "DIMBLDG", "DIMLOT",    "STORIES",   "FAMILIES",  "ROOMS",     "BATHS",    "NOTES"};
static_assert(std::size(kValues) == 25);
constexpr std::size_t kParcelValue = 7;

}  // namespace

std::string parcelInLetters(const Recordset& record, ParcelParts& parts) {
  const std::string key = currentSBL(record, parts);
  return mysbl2SBL(key, parts);
}

void fillFromPermit(const Recordset& permit, mdb& parcels, const Session& session, MergeContext& context) {
  for (std::size_t value = 1; value <= std::size(kValues); ++value)
    context.values[value] = kValues[value - 1].empty() ? "" : permit.text(kValues[value - 1]);
  context.values[kParcelValue] = parcelInLetters(permit, parcels.parts);
  splitAddress(permit.text("OWNADDR1"), context);
  context.parcel = context.values[kParcelValue];
  context.name = permit.text("OWNNAME1");
  context.ln = permit.text("PERMIT");
  context.id = permit.text("PERMIT");
  context.mi = session.municipality.name;
  context.ms = session.userId;
  context.me = session.municipality.telephone;
}

}  // namespace zelvo
