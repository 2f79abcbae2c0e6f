// Violations of the codes, and the actions taken on them.

#include <algorithm>

#include "app/town/town_tables.h"
#include "base/text.h"

namespace zelvo {

namespace {

struct Offense {
  std::string_view text, section, title, remedy;
};
constexpr Offense kOffenses[] = {
    {"Porch roof rotted and unsafe.", "304.10", "Stairways, decks, porches", "Repair or remove the porch."},
    {"Pool without a barrier.", "303.2", "Pool enclosures", "Put up an approved fence."},
    {"Unregistered vehicles on the lawn.", "302.8", "Motor vehicles", "Remove the vehicles."},
    {"Addition built without a permit.", "105.1", "Permits required", "Apply for a permit or remove the addition."},
    {"Rubbish and garbage in the yard.", "308.1", "Rubbish and garbage", "Clear the yard."},
    {"Exit blocked by stored goods.", "702.1", "Means of egress", "Clear the exit and keep it clear."},
};

struct Violation {
  std::string number;
  Parcel parcel;
  Date date, followUp, resolved;
  const Offense* offense = nullptr;
  std::string_view action, inspector;
  bool workStopped = false, ticket = false;
};

// The office's sign for a violation that has no such date.
constexpr Date kNoDate = {1899, 12, 31};

constexpr TownCell<Violation> kViolationCells[] = {
    {"RECNO", [](const Violation& v) -> Value { return v.number; }},
    {"INCDYEAR", [](const Violation& v) -> Value { return std::to_string(v.date.year); }},
    {"INCDNUMB", [](const Violation& v) -> Value { return v.number; }},
    {"INCTYPE", [](const Violation&) -> Value { return "Code"; }},
    {"SEC", [](const Violation& v) -> Value { return v.parcel.sec; }},
    {"BLK", [](const Violation& v) -> Value { return v.parcel.blk; }},
    {"LOT", [](const Violation& v) -> Value { return v.parcel.lot; }},
    {"LOD", [](const Violation& v) -> Value { return v.parcel.lod; }},
    {"SUD", [](const Violation& v) -> Value { return v.parcel.sud; }},
    {"LOCN", [](const Violation& v) -> Value { return v.parcel.location; }},
    {"ACTION", [](const Violation& v) -> Value { return v.action; }},
    {"ASUD", [](const Violation& v) -> Value { return v.workStopped ? "1" : ""; }},
    {"VIOLDATE", [](const Violation& v) -> Value { return v.date; }},
    {"MONT", [](const Violation& v) -> Value { return datePicture(v.date, "mm"); }},
    {"DATE", [](const Violation& v) -> Value { return datePicture(v.date, "dd"); }},
    {"YEAR", [](const Violation& v) -> Value { return datePicture(v.date, "yyyy"); }},
    {"OFFENSDATE", [](const Violation& v) -> Value { return v.date; }},
    {"OFFMONT", [](const Violation& v) -> Value { return datePicture(v.date, "mm"); }},
    {"OFFDATE", [](const Violation& v) -> Value { return datePicture(v.date, "dd"); }},
    {"OFFYEAR", [](const Violation& v) -> Value { return datePicture(v.date, "yyyy"); }},
    {"OFFTIMEHR", [](const Violation&) -> Value { return "10:30"; }},
    {"OFFTIMEAM", [](const Violation&) -> Value { return "AM"; }},
    {"DTEFU", [](const Violation& v) -> Value { return v.followUp; }},
    {"FUMONT", [](const Violation& v) -> Value { return datePicture(v.followUp, "mm"); }},
    {"FUDATE", [](const Violation& v) -> Value { return datePicture(v.followUp, "dd"); }},
    {"FUYEAR", [](const Violation& v) -> Value { return datePicture(v.followUp, "yyyy"); }},
    {"RESDATE", [](const Violation& v) -> Value { return v.resolved; }},
    {"NAME1", [](const Violation& v) -> Value { return v.parcel.owner.name; }},
    {"ADDR1", [](const Violation& v) -> Value { return v.parcel.owner.address; }},
    {"PHONE", [](const Violation& v) -> Value { return v.parcel.owner.phone; }},
    {"OFFENSE", [](const Violation& v) -> Value { return v.offense->text; }},
    {"STATTYPE", [](const Violation&) -> Value { return "Property Maintenance"; }},
    {"STATSEC", [](const Violation& v) -> Value { return v.offense->section; }},
    {"STATTITLE", [](const Violation& v) -> Value { return v.offense->title; }},
    {"LAWTYPE", [](const Violation&) -> Value { return "Zoning"; }},
    {"LAWSEC", [](const Violation&) -> Value { return "140-12"; }},
    {"LAWTITLE", [](const Violation&) -> Value { return "Upkeep of property"; }},
    {"CORRACTN", [](const Violation& v) -> Value { return v.offense->remedy; }},
    {"INSP", [](const Violation& v) -> Value { return v.inspector; }},
    {"TITLE", [](const Violation&) -> Value { return "Code Enforcement Officer"; }},
    {"COURTDT", [](const Violation& v) -> Value { return v.ticket ? addDays(v.followUp, 30) : kNoDate; }},
    {"COURTHR", [](const Violation& v) -> Value { return v.ticket ? "05:30" : "--:--"; }},
    {"COURTAMPM", [](const Violation& v) -> Value { return v.ticket ? "PM" : ""; }},
    {"JUDGE", [](const Violation& v) -> Value { return v.ticket ? "Hon. Marguerite Désir" : ""; }},
    {"TICKNUMB", [](const Violation& v) -> Value { return v.ticket ? "T" + v.number : std::string(); }},
    {"SPARE1", [](const Violation& v) -> Value { return v.ticket ? datePicture(v.date, "yyyy") : ""; }},
    {"SPARE2", [](const Violation& v) -> Value { return v.ticket ? datePicture(v.date, "mm") : ""; }},
    {"GISLINK", [](const Violation& v) -> Value { return v.parcel.coordinates; }},
    {"BYUSER", [](const Violation&) -> Value { return "inspector"; }},
    {"TSTAMP",
     [](const Violation& v) -> Value {
       return DateTime{v.date, 11 * 3600};
     }},
};

constexpr std::size_t kParcelsAViolation = 20;
// A prime spreads the violations over the town, no parcel twice.
constexpr std::size_t kStride = 7919;

std::string_view actionAfter(long days, Dice& dice) {
  if (days > 150)
    return dice.chance(80) ? "C" : dice.chance(50) ? "P" : "O";
  return dice.chance(20) ? "C" : dice.chance(50) ? "P" : "O";
}

Violation violationAt(const TownPlan& plan, std::size_t index) {
  Dice dice(plan.seed, Subject::Violation, index);
  Violation violation;
  violation.number = std::to_string(index + 1);
  violation.parcel = parcelAt(plan.seed, (index * kStride + 11) % plan.parcels);
  violation.date = NumberSeries(violationCount(plan)).date(index);
  violation.followUp = addDays(violation.date, dice.between(14, 45));
  violation.action = actionAfter(daysBetween(violation.date, kTownToday), dice);
  violation.resolved = violation.action == "C" ? std::min(violation.followUp, kTownToday) : kNoDate;
  violation.offense = &dice.pick(kOffenses);
  violation.inspector = dice.pick(kInspectors);
  violation.workStopped = dice.chance(10);
  violation.ticket = dice.chance(25);
  return violation;
}

// ---- actions: of two violations one has two

struct Action {
  Violation violation;
  int sequence = 1;
  Date date;
  bool last = true;
};

constexpr TownCell<Action> kActionCells[] = {
    {"RECNO", [](const Action& a) -> Value { return a.violation.number; }},
    {"SEQ", [](const Action& a) -> Value { return a.sequence; }},
    {"DTEINSP", [](const Action& a) -> Value { return a.date; }},
    {"RESDATE", [](const Action& a) -> Value { return a.last ? a.violation.resolved : kNoDate; }},
    {"RESTIMEHR", [](const Action&) -> Value { return "--:--"; }},
    {"NAME", [](const Action& a) -> Value { return a.violation.inspector; }},
    {"INIT", [](const Action& a) -> Value { return left(a.violation.inspector, 1); }},
    {"CORRACTN", [](const Action& a) -> Value { return a.violation.offense->remedy; }},
    {"ACTION", [](const Action& a) -> Value { return a.last ? a.violation.action : "O"; }},
    {"ANOTES", [](const Action& a) -> Value { return a.last ? "Visited again." : "Spoke with the owner."; }},
};

Action actionAt(const TownPlan& plan, std::size_t index) {
  Action action;
  action.violation = violationAt(plan, index * 2 / 3);
  action.sequence = index % 3 == 1 ? 2 : 1;
  action.last = index % 3 != 0;
  action.date = std::min(addDays(action.violation.date, 10 * action.sequence), kTownToday);
  return action;
}

}  // namespace

std::size_t violationCount(const TownPlan& plan) {
  return plan.parcels / kParcelsAViolation;
}

Result<void> fillViolations(TableFiller& filler, const TownPlan& plan, TownNotes& notes) {
  return filler.fill<Violation>("VIOLDATA", kViolationCells, violationCount(plan), [&](std::size_t index) {
    Violation violation = violationAt(plan, index);
    if (violation.action != "C") {
      notes.parcels[violation.parcel.index].violation = 1;
      notes.parcels[violation.parcel.index].note =
          "Violation " + violation.number + ": " + std::string(violation.offense->text);
    }
    return violation;
  });
}

Result<void> fillActions(TableFiller& filler, const TownPlan& plan) {
  return filler.fill<Action>("ORDINSP", kActionCells, violationCount(plan) / 2 * 3,
                             [&](std::size_t index) { return actionAt(plan, index); });
}

}  // namespace zelvo
