#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "app/town/people.h"

namespace zelvo {

/// A tax parcel with its owner and what stands on it. Key parts that are not used are empty.
struct Parcel {
  std::size_t index = 0;
  std::string sec, sud, blk, lot, lod;
  std::string key;       ///< as the registry keeps it: 12-5-0-3-45
  std::string location;  ///< "12 Mill Road"
  Person owner;
  std::string mailing;  ///< city, state and zip of the owner's address
  std::string zone;
  std::string use;  ///< of its building
  bool vacant = false;
  bool business = false;
  int width = 0, depth = 0;  ///< of the lot, in feet
  int stories = 1, families = 1, rooms = 0, baths = 1;
  std::string heating;
  std::string coordinates;  ///< latitude, a comma, longitude
};

Parcel parcelAt(std::uint64_t seed, std::size_t index);

}  // namespace zelvo
