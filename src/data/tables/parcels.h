#pragma once

#include <span>

#include "data/tables/columns.h"

// The parcel registry and the imported real-property roll.

// One column a line, however short.
// clang-format off

namespace zelvo::tables {

/// The extended layout. The old one ends with GISLINK: an office keeps the layout it has until it converts its parcels.
inline constexpr std::array extendedParcels = {
    text("SBLF", 40),
    text("ASSOC", 20),
    text("PERMIT", 20),
    memo("HISTORICAL"),
    text("LOCN1", 70),
    whole("OTHER", 2),
    whole("FAILED", 2),
    whole("VIOL", 2),
    memo("NOTES"),
    text("CITY", 30),
    text("STATE", 20),
    text("ZIP", 10),
    text("GISLINK", 50),
    text("CONTACT", 80),
    text("MAILING", 120),
    text("EASTCOORD", 20),
    text("NORTHCOORD", 20),
    whole("COMPLAINT", 2),
};
static_assert(extendedParcels.size() == 18);

inline constexpr std::span<const Column> parcels = std::span<const Column>(extendedParcels).first(13);
static_assert(parcels.back().name == "GISLINK");

inline constexpr std::array roll = {
    text("RSBLF", 40),
    text("RSSBL", 40),
    text("RASSOC", 30),
    text("RCONTACT", 30),
    text("RLOCN1", 80),
    text("RADDR1", 80),
    text("RCOORD1", 20),
    text("RCOORD2", 20),
    text("RMAP", 20),
    text("RPRICE", 20),
    memo("RNOTES"),
    date("TSTAMP"),
    text("FLAG", 10),
};
static_assert(roll.size() == 13);

}  // namespace zelvo::tables

// clang-format on
