#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "measures.h"

namespace {

using namespace zelvo;
using namespace zelvo::bench;

struct Measure {
  std::string_view name;
  std::string_view takes;
  std::size_t arguments;
  Result<std::string> (*run)(Arguments);
};

constexpr Measure measures[] = {
    {"open", "DATABASE PERMIT", 2, openPermits},
    {"page", "DATABASE", 1, readFirstPage},
    {"search", "DATABASE QUERY", 2, countFound},
    {"add", "DATABASE COMPUTERS", 2, addPermits},
    {"import", "FILE DATABASE", 2, importPermits},
    {"parcels", "FOLDER COUNT", 2, findParcels},
    {"serve", "FOLDER DATABASE", 2, serve},
    {"letters", "FOLDER COUNT", 2, makeLetters},
    {"screen", "PROGRAMFOLDER SCRIPT", 2, workAtScreens},
};

int usage() {
  for (const Measure& measure : measures)
    std::cerr << "zelvo-bench " << measure.name << " " << measure.takes << "\n";
  return 2;
}

}  // namespace

int main(int count, char** words) {
  const std::vector<std::string> given(words + 1, words + count);
  for (const Measure& measure : measures) {
    if (given.empty() || given.front() != measure.name || given.size() != measure.arguments + 1)
      continue;
    const auto told = measure.run(Arguments(given).subspan(1));
    (told ? std::cout : std::cerr) << (told ? *told : told.error().message) << "\n";
    return told ? 0 : told.error().trouble == Trouble::NotFound ? 3 : 1;
  }
  return usage();
}
