// What the clerk waits for at a screen, from the press of a button until the screen has answered, without the start of
// the program and the sign-in.

#include <cmath>
#include <fstream>
#include <iostream>
#include <optional>
#include <streambuf>

#include "app/house/house.h"
#include "clock.h"
#include "console/console.h"
#include "measures.h"
#include "shell/start_up.h"

namespace zelvo::bench {

namespace {

/// A script that is handed over line by line. The program asks for a line when it is done with the one before.
class TimedScript : public std::streambuf {
 public:
  explicit TimedScript(std::vector<std::string> lines) : lines_(std::move(lines)) {}

  /// What the last line took; 0 when the program ended before it.
  double lastTook() const { return lastTook_; }

 protected:
  int_type underflow() override {
    if (next_ == lines_.size()) {
      lastTook_ = watch_.microseconds();
      return traits_type::eof();
    }
    line_ = lines_[next_++] + "\n";
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    watch_ = Stopwatch();
    return traits_type::to_int_type(line_.front());
  }

 private:
  std::vector<std::string> lines_;
  std::size_t next_ = 0;
  std::string line_;
  Stopwatch watch_;
  double lastTook_ = 0;
};

/// Takes what is said, and forgets it.
class Silence : public std::streambuf {
 protected:
  int_type overflow(int_type character) override { return traits_type::not_eof(character); }
};

}  // namespace

Result<std::string> workAtScreens(Arguments arguments) {
  std::vector<std::string> lines;
  std::ifstream file(arguments[1]);
  for (std::string line; std::getline(file, line);)
    lines.push_back(line);
  TimedScript script(lines);
  std::istream in(&script);
  Silence silence;
  std::ostream out(&silence);
  ConsoleOptions options;
  options.programFolder = arguments[0];
  // Both outlive the screens, which work with them to the last.
  std::optional<House> house;
  std::optional<StartUp> startUp;
  const int code = Console(options, in, out, std::cerr).run([&](Desk& desk) {
    house.emplace(desk);
    startUp.emplace(desk, desk.session.programFolder);
    startUp->Main();
  });
  if (code != 0 || script.lastTook() == 0)
    return Error{Trouble::Failed, "The script " + arguments[1] + " was not carried out."};
  return std::to_string(std::llround(script.lastTook()));
}

}  // namespace zelvo::bench
