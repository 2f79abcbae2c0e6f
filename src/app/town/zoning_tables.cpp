// Zoning permits, and the meetings of the planning board.

#include <algorithm>

#include "app/town/office_lists.h"
#include "app/town/town_tables.h"

namespace zelvo {

namespace {

struct ZoningPermit {
  std::string number, year, sequence;
  Date filed;
  Parcel parcel;
  Person applicant, builder;
  std::string_view type, structure;
  int cost = 0;
  int front = 0, left = 0, right = 0, rear = 0;
  bool variance = false, voided = false;

  int area() const { return parcel.width * parcel.depth; }
};

std::string feet(int value) {
  return std::to_string(value);
}

constexpr TownCell<ZoningPermit> kZoningCells[] = {
    {"ZNPERMIT", [](const ZoningPermit& z) -> Value { return z.number; }},
    {"BLDGPERMYY", [](const ZoningPermit& z) -> Value { return z.year; }},
    {"BLDGPRM", [](const ZoningPermit& z) -> Value { return z.sequence; }},
    {"ZSTATUS", [](const ZoningPermit& z) -> Value { return z.voided ? "V" : ""; }},
    {"ZSUBDIV", [](const ZoningPermit& z) -> Value { return "Glen Section " + z.parcel.sec; }},
    {"ZFILEDATE", [](const ZoningPermit& z) -> Value { return z.filed; }},
    {"ZSTARTDATE", [](const ZoningPermit& z) -> Value { return z.filed; }},
    {"ZEXPIRYDATE", [](const ZoningPermit& z) -> Value { return addDays(z.filed, 365); }},
    {"FILEMONTH", [](const ZoningPermit& z) -> Value { return datePicture(z.filed, "mm"); }},
    {"FILEDATE", [](const ZoningPermit& z) -> Value { return datePicture(z.filed, "dd"); }},
    {"FILEYEAR", [](const ZoningPermit& z) -> Value { return datePicture(z.filed, "yy"); }},
    {"SEC", [](const ZoningPermit& z) -> Value { return z.parcel.sec; }},
    {"BLK", [](const ZoningPermit& z) -> Value { return z.parcel.blk; }},
    {"LOT", [](const ZoningPermit& z) -> Value { return z.parcel.lot; }},
    {"LOD", [](const ZoningPermit& z) -> Value { return z.parcel.lod; }},
    {"SUD", [](const ZoningPermit& z) -> Value { return z.parcel.sud; }},
    {"ZAPPNAME1", [](const ZoningPermit& z) -> Value { return z.applicant.name; }},
    {"ZAPPADDR1", [](const ZoningPermit& z) -> Value { return z.applicant.address; }},
    {"ZAPPEMAIL", [](const ZoningPermit& z) -> Value { return z.applicant.email; }},
    {"ZAPPTEL", [](const ZoningPermit& z) -> Value { return z.applicant.phone; }},
    {"ZOWNRNAME1", [](const ZoningPermit& z) -> Value { return z.parcel.owner.name; }},
    {"ZOWNRADDR1", [](const ZoningPermit& z) -> Value { return z.parcel.owner.address; }},
    {"ZOWNEMAIL", [](const ZoningPermit& z) -> Value { return z.parcel.owner.email; }},
    {"ZOWNTEL", [](const ZoningPermit& z) -> Value { return z.parcel.owner.phone; }},
    {"ZBLDGNAME1", [](const ZoningPermit& z) -> Value { return z.builder.name; }},
    {"ZBLDGADDR1", [](const ZoningPermit& z) -> Value { return z.builder.address; }},
    {"ZBLDGTEL", [](const ZoningPermit& z) -> Value { return z.builder.phone; }},
    {"ZLOCN1", [](const ZoningPermit& z) -> Value { return z.parcel.location; }},
    {"ZVARIANCE", [](const ZoningPermit& z) -> Value { return z.variance ? "Front setback of 5 feet less." : ""; }},
    {"ZFOLLOWUPBY", [](const ZoningPermit& z) -> Value { return z.variance ? kInspectors[0] : ""; }},
    {"ZTYPE", [](const ZoningPermit& z) -> Value { return z.type; }},
    {"ZUSE", [](const ZoningPermit& z) -> Value { return z.parcel.business ? "Retail" : "Single dwelling"; }},
    {"ZCURUSE", [](const ZoningPermit& z) -> Value { return z.parcel.vacant ? "Vacant" : z.parcel.use; }},
    {"ZCOST", [](const ZoningPermit& z) -> Value { return std::to_string(z.cost); }},
    {"ZVALUE", [](const ZoningPermit& z) -> Value { return std::to_string(z.cost * 3); }},
    {"ZCURZONE", [](const ZoningPermit& z) -> Value { return z.parcel.zone; }},
    {"ZLOTWIDTH", [](const ZoningPermit& z) -> Value { return feet(z.parcel.width); }},
    {"ZLOTDEPTH", [](const ZoningPermit& z) -> Value { return feet(z.parcel.depth); }},
    {"ZLOTAREASQF", [](const ZoningPermit& z) -> Value { return feet(z.area()); }},
    {"ZTOTAREASTRUC", [](const ZoningPermit& z) -> Value { return feet(z.area() / 10); }},
    {"ZLOTCOVPCT", [](const ZoningPermit&) -> Value { return "10"; }},
    {"ZSTRUCHEIGHT", [](const ZoningPermit& z) -> Value { return feet(12 * z.parcel.stories); }},
    {"ZSTORIES", [](const ZoningPermit& z) -> Value { return feet(z.parcel.stories); }},
    {"ZUNITS", [](const ZoningPermit& z) -> Value { return feet(z.parcel.families); }},
    {"ZBEDROOMS", [](const ZoningPermit& z) -> Value { return feet(z.parcel.rooms); }},
    {"ZBATHROOMS", [](const ZoningPermit& z) -> Value { return feet(z.parcel.baths); }},
    {"ZSTRUCTYPE", [](const ZoningPermit& z) -> Value { return z.structure; }},
    {"ZSETBFRONT", [](const ZoningPermit& z) -> Value { return feet(z.front); }},
    {"ZSETBLEFT", [](const ZoningPermit& z) -> Value { return feet(z.left); }},
    {"ZSETBRIGHT", [](const ZoningPermit& z) -> Value { return feet(z.right); }},
    {"ZSETBREAR", [](const ZoningPermit& z) -> Value { return feet(z.rear); }},
    {"ZELECTRIC", [](const ZoningPermit&) -> Value { return "Overhead"; }},
    {"ZWATER", [](const ZoningPermit& z) -> Value { return z.parcel.business ? "Town" : "Well"; }},
    {"ZSEWAGE", [](const ZoningPermit& z) -> Value { return z.parcel.business ? "Sewer" : "Septic"; }},
    {"ZSITEPLAN", [](const ZoningPermit&) -> Value { return "1"; }},
    {"ZTOTALFEE", [](const ZoningPermit& z) -> Value { return z.variance ? "150.00" : "75.00"; }},
    {"ZGENNOTES", [](const ZoningPermit& z) -> Value { return z.variance ? "Neighbors told by mail." : ""; }},
    {"ZGISCOORD", [](const ZoningPermit& z) -> Value { return z.parcel.coordinates; }},
    {"BYUSER", [](const ZoningPermit&) -> Value { return "clerk"; }},
    {"TSTAMP",
     [](const ZoningPermit& z) -> Value {
       return DateTime{z.filed, 14 * 3600};
     }},
};

constexpr std::size_t kPermitsAZoning = 10;
constexpr std::string_view kTypes[] = {"Site plan", "Setback", "Lot line", "Accessory structure"};

ZoningPermit zoningAt(const TownPlan& plan, const NumberSeries& series, std::size_t index) {
  Dice dice(plan.seed, Subject::Zoning, index);
  ZoningPermit permit;
  permit.number = series.number(index);
  permit.year = series.year(index);
  permit.sequence = std::to_string(series.sequence(index));
  permit.filed = series.date(index);
  permit.parcel = parcelAt(plan.seed, dice.below(plan.parcels));
  permit.applicant = dice.chance(70) ? permit.parcel.owner : neighbour(dice);
  permit.builder = builder(dice);
  permit.type = dice.pick(kTypes);
  permit.structure = dice.pick(kStructureTypes);
  permit.cost = dice.between(20, 900) * 100;
  permit.front = dice.between(20, 60);
  permit.left = dice.between(8, 30);
  permit.right = dice.between(8, 30);
  permit.rear = dice.between(25, 120);
  permit.variance = dice.chance(15);
  permit.voided = dice.chance(2);
  return permit;
}

// ---- meetings

struct Meeting {
  std::string_view name, place, room, time;
  bool recurring = false;
  std::string_view rule;    ///< week of the month and day of the week, a digit each, from 1
  std::string_view period;  ///< two months, two digits each
  Date date = kTownToday;
};
constexpr Meeting kMeetings[] = {
    {"Planning Board", "Town Hall", "Room 2", "07:00 PM", true, "12", "0104"},
    {"Zoning Board of Appeals", "Town Hall", "Room 2", "07:30 PM", true, "34", "0104"},
    {"Code Committee", "Town Hall", "Room 5", "04:00 PM", true, "53", "0107"},
    {"Budget review with the supervisor", "Town Hall", "Office", "10:00 AM", false, "", "", {2026, 11, 12}},
    {"Hearing: setback at Mill Road", "Town Hall", "Room 2", "06:30 PM", false, "", "", {2026, 11, 24}},
    {"Fire company walk-through", "Firehouse", "", "09:00 AM", false, "", "", {2026, 12, 3}},
    {"Builders' evening", "Library", "Main hall", "06:00 PM", false, "", "", {2027, 1, 14}},
};

constexpr TownCell<Meeting> kMeetingCells[] = {
    {"MNAME", [](const Meeting& m) -> Value { return m.name; }},
    {"MLOC", [](const Meeting& m) -> Value { return m.place; }},
    {"MRMID", [](const Meeting& m) -> Value { return m.room; }},
    {"MTIME", [](const Meeting& m) -> Value { return m.time; }},
    {"MDUR", [](const Meeting&) -> Value { return "2 hours"; }},
    {"MBY", [](const Meeting&) -> Value { return kInspectors[0]; }},
    {"MFREQ", [](const Meeting& m) -> Value { return m.recurring ? "R" : "O"; }},
    {"MREC", [](const Meeting& m) -> Value { return m.rule; }},
    {"EXTRA2", [](const Meeting& m) -> Value { return m.period; }},
    {"MDATE", [](const Meeting& m) -> Value { return m.date; }},
    {"MYEAR", [](const Meeting& m) -> Value { return datePicture(m.date, "yyyy"); }},
    {"MJUL",
     [](const Meeting& m) -> Value {
       return static_cast<int>(daysBetween({m.date.year, 1, 1}, m.date)) + 1;
     }},
};

}  // namespace

NumberSeries zoningPermits(const TownPlan& plan) {
  return NumberSeries(plan.permits.count() / kPermitsAZoning);
}

Result<void> fillZoning(TableFiller& filler, const TownPlan& plan) {
  const NumberSeries series = zoningPermits(plan);
  return filler.fill<ZoningPermit>("ZONEDAT", kZoningCells, series.count(),
                                   [&](std::size_t index) { return zoningAt(plan, series, index); });
}

Result<void> fillMeetings(TableFiller& filler) {
  return filler.fill<Meeting>("MEETING", kMeetingCells, std::size(kMeetings),
                              [](std::size_t index) { return kMeetings[index]; });
}

}  // namespace zelvo
