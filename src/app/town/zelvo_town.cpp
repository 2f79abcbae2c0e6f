// zelvo-town: makes a sample town of any size, for trying the program out and for measuring it.

#include <iostream>

#include "app/town/make_town.h"

int main(int count, char** arguments) {
  using namespace zelvo;
  const auto options = townOptions({arguments + 1, static_cast<std::size_t>(count > 0 ? count - 1 : 0)});
  if (!options) {
    std::cerr << "zelvo-town: " << options.error().message << "\n\n" << kTownUsage;
    return 2;
  }
  if (options->help) {
    std::cout << kTownUsage;
    return 0;
  }
  if (const auto made = makeTown(*options, std::cerr); !made) {
    std::cerr << "zelvo-town: " << made.error().message << "\n";
    return 1;
  }
  std::cout << "The town is ready: start Zelvo with --program-folder " << options->folder << "/program\n";
  return 0;
}
