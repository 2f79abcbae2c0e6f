// zelvo-console: the program with text instead of windows.

#include <optional>

#include "app/house/house.h"
#include "console/console.h"
#include "shell/start_up.h"

int main(int argc, char** argv) {
  // Both outlive the screens, which work with them to the last.
  std::optional<zelvo::House> house;
  std::optional<zelvo::StartUp> startUp;
  return zelvo::consoleMain(argc, argv, [&](zelvo::Desk& desk) {
    house.emplace(desk);
    startUp.emplace(desk, desk.session.programFolder);
    startUp->Main();
  });
}
