#pragma once

#include "data/tables/columns.h"

// One column a line, however short.
// clang-format off

namespace zelvo::tables {

/// MJUL is the day number that orders the events of a year.
inline constexpr std::array meetings = {
    counter("RECNO"),
    text("MRECNO", 20),
    date("MDATE"),
    text("MTIME", 20),
    text("MDUR", 30),
    text("MFREQ", 1),
    text("MREC", 10),
    text("MRMID", 30),
    text("MNAME", 80),
    text("MLOC", 80),
    text("MBY", 40),
    memo("MNOTES"),
    text("MYEAR", 4),
    text("EXTRA2", 30),
    whole("MJUL"),
};
static_assert(meetings.size() == 15);

}  // namespace zelvo::tables

// clang-format on
