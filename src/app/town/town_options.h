#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "base/result.h"

namespace zelvo {

/// What the command line of zelvo-town asks for.
struct TownOptions {
  std::string folder;
  std::size_t parcels = 0;
  std::size_t permits = 300;
  std::uint64_t seed = 1;
  bool help = false;
};

inline constexpr std::string_view kTownUsage =
    "Usage: zelvo-town DIR [--parcels N] [--permits N] [--seed N]\n"
    "Makes an invented town in the folder DIR, which must not be there yet or be empty:\n"
    "  DIR/program  settings, users, signature and logo: start Zelvo with --program-folder DIR/program\n"
    "  DIR/data     the databases and lists of the office\n"
    "  DIR/forms    the letters\n"
    "Users: admin, clerk and inspector, each with the name as password.\n"
    "Without numbers a town has 300 permits, and three parcels for every ten permits, but no fewer than 400.\n"
    "The same numbers and the same seed make the same town.\n";

/// The arguments without the program's name. What is wrong with them is told in the error.
Result<TownOptions> townOptions(std::span<const char* const> arguments);

}  // namespace zelvo
