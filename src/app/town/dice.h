#pragma once

#include <cstddef>
#include <cstdint>

namespace zelvo {

/// What the dice are thrown for. Each record has dice of its own, so that its values stand whatever else is made.
enum class Subject : std::uint64_t { Parcel, Permit, Inspection, Violation, Action, Zoning, Fire, Fee, Insurance };

/// The chance behind the invented records: the same on every computer and with every compiler.
class Dice {
 public:
  Dice(std::uint64_t seed, Subject subject, std::size_t record)
      : state_(mixed(mixed(seed) ^ (static_cast<std::uint64_t>(subject) << 48) ^ record)) {}

  /// From 0 to one less than `count`.
  std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }
  /// Both ends included.
  int between(int least, int most) {
    return least + static_cast<int>(below(static_cast<std::size_t>(most - least + 1)));
  }
  bool chance(int percent) { return between(1, 100) <= percent; }
  template <class List>
  const auto& pick(const List& list) {
    return list[below(std::size(list))];
  }

 private:
  std::uint64_t next() { return mixed(state_ += 0x9E3779B97F4A7C15u); }

  // The finisher of a well-known 64-bit mixer: every bit of the number reaches every bit of the result.
  static std::uint64_t mixed(std::uint64_t number) {
    number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9u;
    number = (number ^ (number >> 27)) * 0x94D049BB133111EBu;
    return number ^ (number >> 31);
  }

  std::uint64_t state_;
};

}  // namespace zelvo
