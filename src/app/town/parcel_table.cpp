// The parcel registry, made last: its flags and permits come from all the others.

#include "app/town/town_tables.h"
#include "base/text.h"

namespace zelvo {

namespace {

struct Registered {
  Parcel parcel;
  const TownNotes::OfParcel* notes = nullptr;
  std::string permit;   ///< the last one; "?" where there is no dwelling
  std::string history;  ///< every permit, a "*" behind each
  bool remark = false;
  std::string note;
};

// Here and there the office has something else to remember of a parcel.
constexpr std::size_t kParcelsARemark = 37;
constexpr std::string_view kRemark = "Lot line in dispute with the neighbor; see the survey.";

constexpr TownCell<Registered> kParcelCells[] = {
    {"SBLF", [](const Registered& r) -> Value { return r.parcel.key; }},
    {"ASSOC", [](const Registered& r) -> Value { return left(r.parcel.owner.name, 20); }},
    {"PERMIT", [](const Registered& r) -> Value { return r.permit; }},
    {"HISTORICAL", [](const Registered& r) -> Value { return r.history; }},
    {"LOCN1", [](const Registered& r) -> Value { return r.parcel.location; }},
    {"OTHER", [](const Registered& r) -> Value { return r.remark ? 1 : 0; }},
    {"FAILED", [](const Registered& r) -> Value { return r.notes->failed; }},
    {"VIOL", [](const Registered& r) -> Value { return r.notes->violation; }},
    {"NOTES", [](const Registered& r) -> Value { return r.note; }},
    {"CITY", [](const Registered& r) -> Value { return split(r.parcel.mailing, ',').front(); }},
    {"STATE", [](const Registered& r) -> Value { return left(right(r.parcel.mailing, 8), 2); }},
    {"ZIP", [](const Registered& r) -> Value { return right(r.parcel.mailing, 5); }},
    {"GISLINK", [](const Registered& r) -> Value { return r.parcel.coordinates; }},
};

Registered registeredAt(const TownPlan& plan, const TownNotes& notes, std::size_t index) {
  Registered registered;
  registered.parcel = parcelAt(plan.seed, index);
  registered.notes = &notes.parcels[index];
  for (const std::uint32_t permit : registered.notes->permits) {
    registered.permit = plan.permits.number(permit);
    registered.history += registered.permit + "*";
  }
  registered.remark = registered.notes->note.empty() && index % kParcelsARemark == 0;
  registered.note = registered.remark ? kRemark : registered.notes->note;
  if (registered.permit.empty() && registered.parcel.vacant)
    registered.permit = "?";
  return registered;
}

}  // namespace

Result<void> fillParcels(TableFiller& filler, const TownPlan& plan, const TownNotes& notes) {
  return filler.fill<Registered>("SBL", kParcelCells, plan.parcels,
                                 [&](std::size_t index) { return registeredAt(plan, notes, index); });
}

}  // namespace zelvo
