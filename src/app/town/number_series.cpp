#include "app/town/number_series.h"

#include <algorithm>

namespace zelvo {

namespace {

constexpr Date kFirstDay = {2022, 1, 3};
constexpr std::size_t kRunningOnFrom = 20'000;
constexpr int kSunday = 0, kSaturday = 6;

Date workingDay(Date date) {
  if (weekday(date) == kSaturday)
    return addDays(date, -1);
  return weekday(date) == kSunday ? addDays(date, -2) : date;
}

}  // namespace

Date NumberSeries::date(std::size_t record) const {
  const auto days = static_cast<std::size_t>(daysBetween(kFirstDay, kTownToday));
  return workingDay(addDays(kFirstDay, static_cast<long>(days * (record + 1) / count_)));
}

std::string NumberSeries::year(std::size_t record) const {
  return datePicture(date(record), "yy");
}

// The dates never go back, so the first record of a year is found by halving.
std::size_t NumberSeries::firstOf(int year) const {
  std::size_t low = 0, high = count_;
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    if (date(middle).year < year)
      low = middle + 1;
    else
      high = middle;
  }
  return low;
}

std::size_t NumberSeries::sequence(std::size_t record) const {
  return record + 1 - (count_ >= kRunningOnFrom ? 0 : firstOf(date(record).year));
}

std::string NumberSeries::number(std::size_t record) const {
  return year(record) + "-" + std::to_string(sequence(record));
}

std::size_t NumberSeries::next() const {
  return count_ + 1 - (count_ >= kRunningOnFrom ? 0 : firstOf(kTownToday.year));
}

}  // namespace zelvo
