#include "app/town/permit.h"

#include <algorithm>
#include <cmath>

namespace zelvo {

namespace {

constexpr WorkKind kWork[] = {
    {"Dwelling",
     {"New one-family dwelling", "New house with garage", "Modular dwelling"},
     "Wood frame",
     210'000,
     560'000,
     28,
     60,
     8,
     true,
     true},
    {"Addition",
     {"Rear addition", "Second floor addition", "Sun room"},
     "Wood frame",
     28'000,
     160'000,
     12,
     30,
     12,
     true,
     true},
    {"Alteration",
     {"Kitchen remodel", "Finish basement", "New bathroom"},
     "Wood frame",
     8'000,
     75'000,
     8,
     24,
     14,
     true,
     false},
    {"Deck",
     {"Open deck", "Deck with stairs", "Covered porch"},
     "Treated lumber",
     3'500,
     28'000,
     8,
     20,
     15,
     true,
     false},
    {"Garage",
     {"Detached garage", "Attached two-car garage", "Pole barn"},
     "Wood frame",
     14'000,
     68'000,
     20,
     40,
     7,
     true,
     false},
    {"Pool",
     {"Above-ground pool", "In-ground pool, fence", "Pool with heater"},
     "Vinyl liner",
     6'000,
     72'000,
     15,
     40,
     7,
     true,
     false},
    {"Roof",
     {"Strip and re-roof", "Re-roof, one layer", "Standing seam roof"},
     "Asphalt",
     6'500,
     32'000,
     24,
     60,
     15,
     false,
     false},
    {"Fence",
     {"6 ft stockade fence", "Picket fence", "Chain link fence"},
     "Cedar",
     900,
     9'500,
     40,
     200,
     7,
     false,
     false},
    {"Shed",
     {"Prefabricated shed", "Garden shed", "Shed over 144 sq ft"},
     "Wood",
     1'200,
     9'000,
     8,
     16,
     6,
     false,
     false},
    {"Solar",
     {"Roof-mounted solar panels", "Ground-mounted panels", "Panels with battery"},
     "Aluminum rack",
     16'000,
     58'000,
     10,
     40,
     4,
     true,
     true},
    {"Sign",
     {"Free-standing sign", "Wall sign, not lighted", "Awning with lettering"},
     "Aluminum",
     700,
     8'500,
     3,
     12,
     3,
     false,
     false},
    {"Demolition",
     {"Remove dwelling", "Remove barn", "Remove in-ground pool"},
     "Mixed",
     4'000,
     42'000,
     20,
     50,
     2,
     false,
     false},
};
constexpr int kShares = [] {
  int shares = 0;
  for (const WorkKind& work : kWork)
    shares += work.share;
  return shares;
}();
static_assert(kShares == 100);

constexpr std::string_view kUses[] = {"One Family", "Two Family", "Multi Family", "Commercial",
                                      "Mercantile", "Assembly",   "Industrial",   "Agricultural"};

constexpr std::string_view kNotes[] = {"Call before digging; gas line along the east side.",
                                       "Survey received and filed with the plans.",
                                       "Owner's neighbor O'Neill asked to be told of the footing inspection.",
                                       "Smoke and carbon monoxide detectors required throughout.",
                                       "Septic approval from the county on file.",
                                       "Setback variance granted by the zoning board.",
                                       "Work stopped over the winter; owner will call in spring.",
                                       "Plans revised once; the second set counts.",
                                       "Dog in yard. Use the front gate.",
                                       "Builder's insurance runs out before the work does: ask for a new certificate."};

const WorkKind& chosenWork(Dice& dice) {
  int draw = dice.between(1, kShares);
  const WorkKind* work = kWork;
  while (draw > work->share)
    draw -= (work++)->share;
  return *work;
}

// Most are closed within their year, some never: those are what the list of expired permits is for.
bool isClosed(Date filed, Dice& dice) {
  const long age = daysBetween(filed, kTownToday);
  if (age > 365)
    return dice.chance(93);
  return age > 90 && dice.chance(static_cast<int>(age / 5));
}

double rounded(double amount, double step) {
  return std::round(amount / step) * step;
}

void settleFees(Permit& permit, Dice& dice) {
  const int steps = dice.between(permit.work->leastCost / 100, permit.work->mostCost / 100);
  permit.cost = steps * 100;
  permit.fee = std::max(50.0, rounded(permit.cost * 0.006, 5));
  permit.certificateFee = permit.work->certified ? 75 : 0;
  permit.reviewFee = permit.work->drawn ? std::max(100.0, rounded(permit.cost * 0.001, 0.5)) : 0;
}

void describe(Permit& permit, Dice& dice) {
  const WorkKind& work = *permit.work;
  permit.description = dice.pick(work.descriptions);
  permit.dimensions = std::to_string(dice.between(work.leastFeet, work.mostFeet)) + " x " +
                      std::to_string(dice.between(work.leastFeet, work.mostFeet));
  if (dice.chance(55))
    permit.notes = dice.pick(kNotes);
  if (dice.chance(20))
    permit.notes += (permit.notes.empty() ? "" : "\n") + std::string(dice.pick(kNotes));
}

void settleDates(Permit& permit, const NumberSeries& series, std::size_t index, Dice& dice) {
  permit.number = series.number(index);
  permit.year = series.year(index);
  permit.sequence = std::to_string(series.sequence(index));
  permit.filed = series.date(index);
  permit.expires = addDays(permit.filed, dice.chance(80) ? 365 : 183);
  permit.voided = dice.chance(2);
  permit.closed = isClosed(permit.filed, dice);
  permit.minute = dice.between(8 * 60 + 30, 16 * 60 + 25);
}

}  // namespace

std::span<const WorkKind> workKinds() {
  return kWork;
}

std::span<const std::string_view> buildingUses() {
  return kUses;
}

Permit permitAt(const TownPlan& plan, std::size_t index) {
  Permit permit;
  Dice dice(plan.seed, Subject::Permit, index);
  permit.parcel = parcelAt(plan.seed, dice.below(plan.parcels));
  permit.work = &chosenWork(dice);
  settleDates(permit, plan.permits, index, dice);
  permit.builder = builder(dice);
  if (permit.work->drawn)
    permit.architect = architect(dice);
  describe(permit, dice);
  settleFees(permit, dice);
  permit.clerk = dice.pick(kClerks);
  return permit;
}

}  // namespace zelvo
