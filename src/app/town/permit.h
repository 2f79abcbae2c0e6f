#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "app/town/number_series.h"
#include "app/town/parcel.h"

namespace zelvo {

/// A kind of work that the office gives permits for.
struct WorkKind {
  std::string_view permitFor;
  std::array<std::string_view, 3> descriptions;
  std::string_view material;
  int leastCost, mostCost;  ///< in dollars
  int leastFeet, mostFeet;  ///< of a side
  int share;                ///< permits in a hundred
  bool certified;           ///< ends with a certificate of occupancy or compliance
  bool drawn;               ///< by an architect
};
std::span<const WorkKind> workKinds();
/// The uses of buildings that permits are given for.
std::span<const std::string_view> buildingUses();

/// What is invented of the whole town: everything in it follows from this.
struct TownPlan {
  std::uint64_t seed = 1;
  std::size_t parcels = 400;
  NumberSeries permits{300};
};

struct Permit {
  std::string number, year, sequence;
  Date filed, expires;
  bool closed = false, voided = false;
  const WorkKind* work = nullptr;
  Parcel parcel;
  Person builder;
  std::optional<Person> architect;
  std::string description, dimensions, notes;
  double cost = 0, fee = 0, certificateFee = 0, reviewFee = 0;
  std::string_view clerk;
  int minute = 0;  ///< of the day, when it was stored
};

Permit permitAt(const TownPlan& plan, std::size_t index);

}  // namespace zelvo
