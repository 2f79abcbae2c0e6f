#include "base/date.h"

#include <algorithm>

namespace zelvo {

namespace {

constexpr int firstYear = 100;
constexpr int lastYear = 9999;
constexpr Date firstDay{firstYear, 1, 1};
constexpr Date lastDay{lastYear, 12, 31};

bool leap(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysIn(int month, int year) {
  constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && leap(year) ? 29 : days[month - 1];
}

// Days are counted over years that begin in March, so that the leap day is a year's last one and every stretch of 400
// years has the same length. Day 0 is 3/1/0000.
constexpr long daysOf400Years = 146097;

long dayNumber(Date date) {
  const long year = date.month > 2 ? date.year : date.year - 1;
  const long month = (date.month + 9) % 12;
  return year * 365 + year / 4 - year / 100 + year / 400 + (month * 153 + 2) / 5 + date.day - 1;
}

Date dayOf(long number) {
  const long era = number / daysOf400Years;
  const long day = number % daysOf400Years;
  const long year = (day - day / 1460 + day / 36524 - day / 146096) / 365;
  const long dayOfYear = day - (year * 365 + year / 4 - year / 100);
  const long month = (dayOfYear * 5 + 2) / 153;
  const long calendarMonth = month < 10 ? month + 3 : month - 9;
  return {static_cast<int>(year + era * 400 + (calendarMonth <= 2 ? 1 : 0)), static_cast<int>(calendarMonth),
          static_cast<int>(dayOfYear - (month * 153 + 2) / 5 + 1)};
}

}  // namespace

bool Date::valid() const {
  return year >= firstYear && year <= lastYear && month >= 1 && month <= 12 && day >= 1 && day <= daysIn(month, year);
}

int weekday(Date date) {
  return static_cast<int>((dayNumber(date) + 3) % 7);
}

Date addDays(Date date, long days) {
  const long low = dayNumber(firstDay) - dayNumber(date);
  const long high = dayNumber(lastDay) - dayNumber(date);
  return dayOf(dayNumber(date) + std::clamp(days, low, high));
}

Date addMonths(Date date, int months) {
  const long count = date.year * 12L + date.month - 1 + months;
  if (count < firstYear * 12L)
    return firstDay;
  if (count >= (lastYear + 1) * 12L)
    return lastDay;
  const int year = static_cast<int>(count / 12), month = static_cast<int>(count % 12) + 1;
  return {year, month, std::min(date.day, daysIn(month, year))};
}

long daysBetween(Date from, Date to) {
  return dayNumber(to) - dayNumber(from);
}

}  // namespace zelvo
