#include "data/value.h"

#include "base/number.h"

namespace zelvo {

namespace {

constexpr double secondsOfADay = 86400;

/// Old spreadsheets and letters of the office count days from here.
constexpr Date dayZero{1899, 12, 30};

std::string shownMoment(const DateTime& moment) {
  return moment.second == 0 ? shortDate(moment.date) : shortDate(moment.date) + " " + timeText(moment);
}

double dayNumber(const DateTime& moment) {
  return static_cast<double>(daysBetween(dayZero, moment.date)) + moment.second / secondsOfADay;
}

}  // namespace

std::string Value::text() const {
  if (isText())
    return std::get<std::string>(held_);
  if (isNumber())
    return numberText(std::get<double>(held_));
  return isDate() ? shownMoment(std::get<DateTime>(held_)) : std::string();
}

double Value::number() const {
  if (isNumber())
    return std::get<double>(held_);
  if (isText())
    return Val(std::get<std::string>(held_));
  return isDate() ? dayNumber(std::get<DateTime>(held_)) : 0;
}

std::optional<DateTime> Value::moment() const {
  if (isDate())
    return std::get<DateTime>(held_);
  return isText() ? parseDateTime(std::get<std::string>(held_)) : std::nullopt;
}

}  // namespace zelvo
