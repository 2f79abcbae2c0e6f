#include "app/town/parcel.h"

#include <array>
#include <cstdio>

#include "data/parcel_key.h"

namespace zelvo {

namespace {

constexpr std::size_t kLots = 25, kBlocks = 8, kSuffixes = 3;
constexpr std::size_t kFirstSection = 12;
// Behind the twentieth lot stand the lots that were cut from an older one and share its number.
constexpr std::size_t kWholeLots = 20;
constexpr std::array<std::size_t, kLots - kWholeLots> kDividedLots = {5, 5, 11, 14, 14};
constexpr std::array<std::string_view, kLots - kWholeLots> kDivisions = {"1", "2", "1", "1", "2"};

constexpr std::string_view kBusinessUses[] = {"Commercial", "Mercantile", "Assembly", "Industrial", "Agricultural"};
constexpr std::string_view kHomeUses[] = {"One Family", "One Family", "One Family", "One Family",
                                          "One Family", "Two Family", "Two Family", "Multi Family"};
constexpr std::string_view kHeating[] = {"Hot water, oil", "Forced air, natural gas", "Electric baseboard",
                                         "Heat pump",      "Hot water, natural gas",  "Steam, oil"};

void numberParcel(Parcel& parcel) {
  const std::size_t lot = parcel.index % kLots, block = parcel.index / kLots, section = block / kBlocks;
  parcel.sec = std::to_string(kFirstSection + section / kSuffixes);
  parcel.sud = section % kSuffixes == 0 ? "" : std::to_string(section % kSuffixes);
  parcel.blk = std::to_string(block % kBlocks + 1);
  parcel.lot = std::to_string(lot < kWholeLots ? lot + 1 : kDividedLots[lot - kWholeLots]);
  parcel.lod = lot < kWholeLots ? "" : kDivisions[lot - kWholeLots];
  const auto part = [](const std::string& text) { return text.empty() ? std::string("0") : text; };
  parcel.key = TrimSBL(parcel.sec + "-" + part(parcel.sud) + "-0-" + parcel.blk + "-" + parcel.lot + "-" +
                       part(parcel.lod) + "-0-0");
  // A street a block; when the streets run out, they go on with higher house numbers.
  parcel.location = std::to_string(block / 32 * 100 + 2 * lot + 1 + block % 2) + " " + std::string(street(block));
}

void settleOwner(Parcel& parcel, Dice& dice) {
  if (dice.chance(15))
    parcel.owner = neighbour(dice);
  else
    parcel.owner = personAt(parcel.location + ", " + std::string(kTownCity), dice);
  parcel.mailing = parcel.owner.address.substr(parcel.owner.address.find(',') + 2);
}

void build(Parcel& parcel, Dice& dice) {
  parcel.vacant = dice.chance(14);
  parcel.business = dice.chance(12);
  parcel.use = parcel.business ? dice.pick(kBusinessUses) : dice.pick(kHomeUses);
  parcel.zone = parcel.business ? (dice.chance(70) ? "C-1" : "M-1") : (dice.chance(60) ? "R-1" : "R-2");
  parcel.width = dice.between(12, 40) * 5;
  parcel.depth = dice.between(20, 60) * 5;
  parcel.families = parcel.use == "Two Family" ? 2 : parcel.use == "Multi Family" ? dice.between(3, 8) : 1;
  parcel.stories = dice.between(1, parcel.families > 2 ? 4 : 2);
  parcel.rooms = dice.between(2, 4) * parcel.families;
  parcel.baths = dice.between(1, 2) * parcel.families;
  parcel.heating = dice.pick(kHeating);
}

// Five digits behind the point are about a yard.
std::string coordinates(Dice& dice) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "42.%05d,-74.%05d", dice.between(68000, 74000), dice.between(1000, 9000));
  return text.data();
}

}  // namespace

Parcel parcelAt(std::uint64_t seed, std::size_t index) {
  Parcel parcel;
  parcel.index = index;
  Dice dice(seed, Subject::Parcel, index);
  numberParcel(parcel);
  settleOwner(parcel, dice);
  build(parcel, dice);
  parcel.coordinates = coordinates(dice);
  return parcel;
}

}  // namespace zelvo
