#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/date.h"

namespace zelvo {

/// What a field of a row holds: nothing, a text, a number, or a date with its time of day.
class Value {
 public:
  Value() = default;
  Value(std::string text) : held_(std::move(text)) {}
  Value(std::string_view text) : held_(std::string(text)) {}
  Value(const char* text) : held_(std::string(text)) {}
  Value(double number) : held_(number) {}
  Value(std::int64_t number) : held_(static_cast<double>(number)) {}
  Value(int number) : held_(static_cast<double>(number)) {}
  Value(DateTime moment) : held_(moment) {}
  Value(Date date) : held_(DateTime{date, 0}) {}

  bool isNull() const { return std::holds_alternative<std::monostate>(held_); }
  bool isText() const { return std::holds_alternative<std::string>(held_); }
  bool isNumber() const { return std::holds_alternative<double>(held_); }
  bool isDate() const { return std::holds_alternative<DateTime>(held_); }

  /// As the screens show it: null is empty, a number as Str gives it, a date m/d/yyyy with its time only when it has
  /// one.
  std::string text() const;
  /// The text that it holds, without copying it; empty for anything but a text.
  std::string_view heldText() const { return isText() ? std::string_view(std::get<std::string>(held_)) : ""; }
  /// Null is 0, a text its lenient number.
  double number() const;
  /// Nothing for null and for a text that is no date.
  std::optional<DateTime> moment() const;

  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, std::string, double, DateTime> held_;
};

}  // namespace zelvo
