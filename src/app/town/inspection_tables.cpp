// Inspections and complaints, one table for both.

#include <algorithm>

#include "app/town/office_lists.h"
#include "app/town/town_tables.h"

namespace zelvo {

namespace {

struct Inspection {
  std::string number;
  std::string_view category;
  std::optional<Permit> permit;  ///< none for a complaint, and for many of another kind
  Parcel parcel;
  Person complainant;
  Date date;
  std::string_view type, inspector, result;
  std::string comments, nature;
  int minute = 0;

  bool isComplaint() const { return category == "C"; }
  bool isResolved() const { return result == "R"; }
};

// The office's sign for an inspection without a date to follow.
constexpr Date kNoDate = {1910, 1, 1};

Value permitPart(const Inspection& inspection, std::string Permit::*part) {
  return inspection.permit ? (*inspection.permit).*part : std::string();
}

constexpr TownCell<Inspection> kInspectionCells[] = {
    {"RECNO", [](const Inspection& i) -> Value { return i.number; }},
    {"PERMIT", [](const Inspection& i) -> Value { return permitPart(i, &Permit::number); }},
    {"BLDGPERMYY", [](const Inspection& i) -> Value { return permitPart(i, &Permit::year); }},
    {"BLDGPRM", [](const Inspection& i) -> Value { return permitPart(i, &Permit::sequence); }},
    {"INSPCATEG", [](const Inspection& i) -> Value { return i.category; }},
    {"INSPTYPE", [](const Inspection& i) -> Value { return i.type; }},
    {"INSPMONT", [](const Inspection& i) -> Value { return std::to_string(i.date.month); }},
    {"INSPYEAR", [](const Inspection& i) -> Value { return std::to_string(i.date.year); }},
    {"DATEINSP", [](const Inspection& i) -> Value { return i.date; }},
    {"INSPDATE", [](const Inspection& i) -> Value { return i.result == "F" ? addDays(i.date, 14) : kNoDate; }},
    {"NRECNO", [](const Inspection& i) -> Value { return i.isComplaint() ? Value(i.date) : Value(); }},
    {"INSPINIT", [](const Inspection& i) -> Value { return i.inspector; }},
    {"INSPRESULT", [](const Inspection& i) -> Value { return i.result; }},
    {"INSPCOMM1", [](const Inspection& i) -> Value { return i.comments; }},
    {"OWNNAME1", [](const Inspection& i) -> Value { return i.parcel.owner.name; }},
    {"OWNADDR1", [](const Inspection& i) -> Value { return i.parcel.location; }},
    {"OWNPHONE", [](const Inspection& i) -> Value { return i.parcel.owner.phone; }},
    {"SEC", [](const Inspection& i) -> Value { return i.parcel.sec; }},
    {"BLK", [](const Inspection& i) -> Value { return i.parcel.blk; }},
    {"LOT", [](const Inspection& i) -> Value { return i.parcel.lot; }},
    {"LOD", [](const Inspection& i) -> Value { return i.parcel.lod; }},
    {"SUD", [](const Inspection& i) -> Value { return i.parcel.sud; }},
    {"COMNAME1", [](const Inspection& i) -> Value { return i.complainant.name; }},
    {"COMADDR1", [](const Inspection& i) -> Value { return i.complainant.address; }},
    {"COMPHONE", [](const Inspection& i) -> Value { return i.complainant.phone; }},
    {"INSVEST", [](const Inspection& i) -> Value { return i.isComplaint() ? i.inspector : ""; }},
    {"NATURE", [](const Inspection& i) -> Value { return i.nature; }},
    {"BYUSER", [](const Inspection&) -> Value { return "inspector"; }},
    {"TSTAMP",
     [](const Inspection& i) -> Value {
       return DateTime{i.date, i.minute * 60};
     }},
};

constexpr std::string_view kComments[] = {"As drawn.",
                                          "Rebar and forms in place.",
                                          "No one on site; photographs taken.",
                                          "Guard rail height corrected while there.",
                                          "Approved to backfill.",
                                          "Insulation certificate posted."};
constexpr std::string_view kFaults[] = {"Footing not below frost line.", "Joist hangers missing.",
                                        "No smoke detector in hall.", "Work covered before inspection."};
constexpr std::string_view kOtherComments[] = {
    "Set back four feet from the walk as approved; owner to plant the strip before the end of May.",
    "Culvert pipe 15 inches, as the highway department asked.", "Taken down the next morning."};
constexpr std::string_view kComplaints[] = {
    "Rubbish piled beside the road.",  "Loud work before seven in the morning.",
    "Tree leaning over the sidewalk.", "Water runs from the lot onto the road.",
    "Dog loose every evening.",        "Building work without a permit posted."};
constexpr std::string_view kOutcomes[] = {"owner cleaned up", "nothing found", "sent to the highway department"};

void complain(Inspection& inspection, Dice& dice) {
  inspection.complainant = neighbour(dice);
  inspection.type = dice.pick(kComplaintTypes);
  inspection.nature = dice.pick(kComplaints);
  inspection.result = dice.chance(70) ? "R" : "O";
  if (inspection.isResolved())
    inspection.nature += "*** RESOLVED " + std::string(dice.pick(kOutcomes)) + " **";
}

std::string_view resultOf(int draw) {
  return draw <= 82 ? "P" : draw <= 91 ? "F" : draw <= 97 ? "I" : "E";
}

// A permit is seldom closed over a failed inspection.
void inspect(Inspection& inspection, Dice& dice) {
  inspection.result = resultOf(inspection.permit->closed && dice.chance(75) ? 1 : dice.between(1, 100));
  inspection.type = dice.pick(kBuildingInspections);
  inspection.comments = inspection.result == "F" ? dice.pick(kFaults) : dice.pick(kComments);
}

void inspectOther(Inspection& inspection, Dice& dice) {
  inspection.result = resultOf(dice.between(1, 100));
  inspection.type = dice.pick(kOtherInspections);
  inspection.comments = dice.pick(kOtherComments);
}

constexpr std::size_t kRound = 10, kComplaintOfRound = 9, kOtherOfRound = 4;

std::string_view categoryAt(std::size_t index) {
  return index % kRound == kComplaintOfRound ? "C" : index % kRound == kOtherOfRound ? "O" : "B";
}

// Two permits have three inspections between them. One of ten is a complaint about any parcel instead, and one an
// inspection of another kind, which belongs to the permit every second time.
Inspection inspectionAt(const TownPlan& plan, std::size_t index) {
  Dice dice(plan.seed, Subject::Inspection, index);
  Inspection inspection;
  const Permit permit = permitAt(plan, index * 2 / 3);
  inspection.category = categoryAt(index);
  inspection.number = std::to_string(index + 1);
  inspection.inspector = dice.pick(kInspectors);
  inspection.minute = permit.minute;
  inspection.date = std::min(addDays(permit.filed, dice.between(5, 40)), kTownToday);
  inspection.parcel = inspection.isComplaint() ? parcelAt(plan.seed, dice.below(plan.parcels)) : permit.parcel;
  if (inspection.category == "B" || (inspection.category == "O" && index % (2 * kRound) < kRound))
    inspection.permit = permit;
  const auto fill = inspection.category == "B" ? inspect : inspection.category == "O" ? inspectOther : complain;
  fill(inspection, dice);
  return inspection;
}

// As the inspections screen does it on every store: that an inspection passes takes no flag away.
void raiseFlag(const Inspection& inspection, TownNotes::OfParcel& parcel) {
  constexpr std::int8_t failed = 1, complaint = 2;
  if (inspection.isComplaint())
    parcel.failed = inspection.isResolved() ? std::int8_t{0} : complaint;
  else if (inspection.result == "F")
    parcel.failed = failed;
  if (parcel.failed != 0)
    parcel.note = "ICN " + inspection.number;
}

}  // namespace

std::size_t inspectionCount(const TownPlan& plan) {
  return plan.permits.count() * 3 / 2;
}

Result<void> fillInspections(TableFiller& filler, const TownPlan& plan, TownNotes& notes) {
  return filler.fill<Inspection>("INSPDTL", kInspectionCells, inspectionCount(plan), [&](std::size_t index) {
    Inspection inspection = inspectionAt(plan, index);
    raiseFlag(inspection, notes.parcels[inspection.parcel.index]);
    return inspection;
  });
}

}  // namespace zelvo
