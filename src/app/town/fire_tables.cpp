// The register of the properties that are inspected for fire safety, and their inspections.

#include <algorithm>

#include "app/town/office_lists.h"
#include "app/town/town_tables.h"
#include "base/number.h"

namespace zelvo {

namespace {

/// A property with its latest inspection.
struct FireProperty {
  std::size_t number = 0;
  Parcel parcel;
  Person contact, occupant;
  Date inspected;
  std::string_view structure, inspector, status, result;
  int area = 0, fee = 0, paid = 0;
  std::array<std::string, std::size(kFireGroups)> results;

  Date next() const { return addDays(inspected, 365); }
};

// Fees of the fire inspections are kept as texts.
Value money(int dollars) {
  return numberPicture(dollars, "#####0.#0");
}

constexpr TownCell<FireProperty> kPropertyCells[] = {
    {"FSBL", [](const FireProperty& f) -> Value { return f.parcel.key; }},
    {"FNEW", [](const FireProperty&) -> Value { return "N"; }},
    {"FSTATUS", [](const FireProperty&) -> Value { return ""; }},
    {"FINSDATE", [](const FireProperty& f) -> Value { return f.inspected; }},
    {"FNEXTTDATE", [](const FireProperty& f) -> Value { return f.next(); }},
    {"FILEDATE", [](const FireProperty& f) -> Value { return addDays(f.inspected, -30); }},
    {"SEC", [](const FireProperty& f) -> Value { return f.parcel.sec; }},
    {"BLK", [](const FireProperty& f) -> Value { return f.parcel.blk; }},
    {"LOT", [](const FireProperty& f) -> Value { return f.parcel.lot; }},
    {"LOD", [](const FireProperty& f) -> Value { return f.parcel.lod; }},
    {"SUD", [](const FireProperty& f) -> Value { return f.parcel.sud; }},
    {"FAPPNAME1", [](const FireProperty& f) -> Value { return f.parcel.owner.name; }},
    {"FAPPADDR1", [](const FireProperty& f) -> Value { return f.parcel.owner.address; }},
    {"FAPPTEL", [](const FireProperty& f) -> Value { return f.parcel.owner.phone; }},
    {"FOWNRNAME1", [](const FireProperty& f) -> Value { return f.parcel.owner.name; }},
    {"FOWNRADDR1", [](const FireProperty& f) -> Value { return f.parcel.owner.address; }},
    {"FOWNEMAIL", [](const FireProperty& f) -> Value { return f.parcel.owner.email; }},
    {"FOWNTEL", [](const FireProperty& f) -> Value { return f.parcel.owner.phone; }},
    {"FBLDGNAME1", [](const FireProperty& f) -> Value { return f.contact.name; }},
    {"FBLDGADDR1", [](const FireProperty& f) -> Value { return f.contact.address; }},
    {"FBLDGTEL", [](const FireProperty& f) -> Value { return f.contact.phone; }},
    {"FEXTRA", [](const FireProperty& f) -> Value { return f.parcel.use; }},
    {"FLOCN1", [](const FireProperty& f) -> Value { return f.parcel.location; }},
    {"FTOTAREA", [](const FireProperty& f) -> Value { return std::to_string(f.area); }},
    {"FSTORIES", [](const FireProperty& f) -> Value { return std::to_string(f.parcel.stories); }},
    {"FTOTFEE", [](const FireProperty& f) -> Value { return money(f.fee); }},
    {"FTOTPAID", [](const FireProperty& f) -> Value { return money(f.paid); }},
    {"FTOTDUE", [](const FireProperty& f) -> Value { return money(f.fee - f.paid); }},
    {"FSTRUCTYPE", [](const FireProperty& f) -> Value { return f.structure; }},
    {"FMAPNO", [](const FireProperty& f) -> Value { return "Sheet " + f.parcel.sec; }},
    {"FGISCOORD", [](const FireProperty& f) -> Value { return f.parcel.coordinates; }},
    {"BYUSER", [](const FireProperty&) -> Value { return "inspector"; }},
    {"TSTAMP",
     [](const FireProperty& f) -> Value {
       return DateTime{f.inspected, 15 * 3600};
     }},
};

constexpr TownCell<FireProperty> kFireInspectionCells[] = {
    {"FISBL", [](const FireProperty& f) -> Value { return f.parcel.key; }},
    {"FCERT", [](const FireProperty& f) -> Value { return "F" + std::to_string(f.number); }},
    {"FISTATUS", [](const FireProperty& f) -> Value { return f.status; }},
    {"FINSDATE", [](const FireProperty& f) -> Value { return f.inspected; }},
    {"FNEXTTDATE", [](const FireProperty& f) -> Value { return f.next(); }},
    {"SEC", [](const FireProperty& f) -> Value { return f.parcel.sec; }},
    {"BLK", [](const FireProperty& f) -> Value { return f.parcel.blk; }},
    {"LOT", [](const FireProperty& f) -> Value { return f.parcel.lot; }},
    {"LOD", [](const FireProperty& f) -> Value { return f.parcel.lod; }},
    {"SUD", [](const FireProperty& f) -> Value { return f.parcel.sud; }},
    {"FOCCNAME1", [](const FireProperty& f) -> Value { return f.occupant.name; }},
    {"FOCCADDR1", [](const FireProperty& f) -> Value { return f.occupant.address; }},
    {"FOCCTEL", [](const FireProperty& f) -> Value { return f.occupant.phone; }},
    {"FOCCEMG", [](const FireProperty& f) -> Value { return f.contact.name + " " + f.contact.phone; }},
    {"FIBLDG", [](const FireProperty&) -> Value { return "1"; }},
    {"FIFL", [](const FireProperty&) -> Value { return "1"; }},
    {"FIUNIT", [](const FireProperty& f) -> Value { return f.parcel.families > 1 ? "A" : "1"; }},
    {"FINSPECTOR", [](const FireProperty& f) -> Value { return f.inspector; }},
    {"FIUSE", [](const FireProperty& f) -> Value { return f.parcel.use; }},
    {"FICLASS", [](const FireProperty& f) -> Value { return f.parcel.business ? "Business" : "Residential"; }},
    {"FITYPE", [](const FireProperty&) -> Value { return "Annual"; }},
    {"FIRESULT", [](const FireProperty& f) -> Value { return f.result; }},
    {"FITOTAREA", [](const FireProperty& f) -> Value { return std::to_string(f.area); }},
    {"FITOTFEE", [](const FireProperty& f) -> Value { return money(f.fee); }},
    {"FTOTPAID", [](const FireProperty& f) -> Value { return money(f.paid); }},
    {"FTOTDUE", [](const FireProperty& f) -> Value { return money(f.fee - f.paid); }},
    {"FIRESULTS01", [](const FireProperty& f) -> Value { return f.results[0]; }},
    {"FIRESULTS02", [](const FireProperty& f) -> Value { return f.results[1]; }},
    {"FIRESULTS03", [](const FireProperty& f) -> Value { return f.results[2]; }},
    {"FLOCN1", [](const FireProperty& f) -> Value { return f.parcel.location; }},
    {"EXTRA1", [](const FireProperty&) -> Value { return "09:00 AM"; }},
    {"EXTRA2", [](const FireProperty&) -> Value { return "0"; }},
    {"BYUSER", [](const FireProperty&) -> Value { return "inspector"; }},
    {"TSTAMP",
     [](const FireProperty& f) -> Value {
       return DateTime{f.inspected, 15 * 3600};
     }},
};

/// Businesses, and houses with more than two families.
std::vector<std::uint32_t> inspectedParcels(const TownPlan& plan) {
  std::vector<std::uint32_t> parcels;
  for (std::size_t index = 0; index < plan.parcels; ++index)
    if (const Parcel parcel = parcelAt(plan.seed, index); !parcel.vacant && (parcel.business || parcel.families > 2))
      parcels.push_back(static_cast<std::uint32_t>(index));
  return parcels;
}

/// A letter for each item of a group: passed, failed or not rated.
std::string groupResults(const FireGroup& group, bool mayFail, Dice& dice) {
  std::string letters;
  for (std::size_t item = 0; item < std::size(group.items); ++item) {
    const int draw = dice.between(1, 100);
    letters += (letters.empty() ? "" : "/") + std::string(draw <= 8 ? "N" : draw <= 30 && mayFail ? "F" : "P");
  }
  return letters;
}

void settleResult(FireProperty& property, Dice& dice) {
  const bool failed = dice.chance(15);
  property.result = failed ? "Failed" : "Passed";
  property.status = failed ? "ReInspection" : dice.chance(20) ? "Scheduled" : dice.chance(10) ? "Pending" : "Complete";
  for (std::size_t group = 0; group < std::size(kFireGroups); ++group)
    property.results[group] = groupResults(kFireGroups[group], failed, dice);
}

FireProperty fireProperty(const TownPlan& plan, std::size_t index, std::size_t parcel) {
  Dice dice(plan.seed, Subject::Fire, index);
  FireProperty property;
  property.number = index + 1;
  property.parcel = parcelAt(plan.seed, parcel);
  property.contact = neighbour(dice);
  property.occupant = personAt(property.parcel.location + ", " + std::string(kTownCity), dice);
  property.inspected = addDays(kTownToday, -dice.between(3, 400));
  property.structure = dice.pick(kStructureTypes);
  property.inspector = dice.pick(kInspectors);
  property.area = property.parcel.width * property.parcel.depth / 8;
  property.fee = 50 + 25 * property.parcel.stories;
  property.paid = dice.chance(85) ? property.fee : 0;
  settleResult(property, dice);
  return property;
}

Result<void> fillFireTable(TableFiller& filler, const TownPlan& plan, std::string_view table,
                           std::span<const TownCell<FireProperty>> cells) {
  const std::vector<std::uint32_t> parcels = inspectedParcels(plan);
  return filler.fill<FireProperty>(table, cells, parcels.size(),
                                   [&](std::size_t index) { return fireProperty(plan, index, parcels[index]); });
}

}  // namespace

Result<void> fillFireProperties(TableFiller& filler, const TownPlan& plan) {
  return fillFireTable(filler, plan, "FPARCEL", kPropertyCells);
}

Result<void> fillFireInspections(TableFiller& filler, const TownPlan& plan) {
  return fillFireTable(filler, plan, "FINSP", kFireInspectionCells);
}

}  // namespace zelvo
