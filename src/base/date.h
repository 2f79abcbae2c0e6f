#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo {

/// A day of the calendar, years 100 to 9999.
struct Date {
  int year = 1899;
  int month = 12;
  int day = 30;

  auto operator<=>(const Date&) const = default;
  bool valid() const;
};

/// A day and the time of day, to the second.
struct DateTime {
  Date date;
  int second = 0;  ///< of the day, 0 to 86399

  auto operator<=>(const DateTime&) const = default;
};

/// Sunday is 0.
int weekday(Date date);
/// The day so many days later, or earlier; beyond the calendar it stops at its first or last day.
Date addDays(Date date, long days);
/// The same day so many months later, or earlier; the last day of the month where that has no such day. Beyond the
/// calendar it stops as addDays does.
Date addMonths(Date date, int months);
/// The days from `from` to `to`, negative when `to` is earlier.
long daysBetween(Date from, Date to);

/// The text as a date: m/d/yy, m/d/yyyy (also with "-"), or "mmmm d, yyyy"; two-digit years 00-29 are 2000-2029, 30-99
/// are 1930-1999. Anything else, the 29th of February of a common year included, is none. "09-12" is none.
std::optional<Date> parseDate(std::string_view text);
/// A date as fast hands type it: all that parseDate takes, m/d of this year, mmddyy and mmddyyyy without signs, "t" for
/// today, "+7" and "-3" for days from today (not from what the box held: the clerk counts from the calendar on the
/// wall). Anything else is none.
std::optional<Date> typedDate(std::string_view text, Date today);
/// As parseDate, with an optional time behind it: "h:mm", "h:mm:ss", either with AM or PM.
std::optional<DateTime> parseDateTime(std::string_view text);

/// The moment in a picture: "mm/dd/yyyy", "mmmm dd, yyyy", "dddd, mmmm dd, yyyy", "hh:mm AM/PM", "h:mm AMPM",
/// "m/d/yyyy". "mm" right after "h" or "hh" and any characters between them is minutes; AMPM and AM/PM make the hour
/// 12-hour. English
/// always. A date that is none gives an empty text.
std::string datePicture(const DateTime& moment, std::string_view picture);
std::string datePicture(Date date, std::string_view picture);
/// m/d/yyyy and h:mm:ss AM/PM, as a default installation shows them.
std::string shortDate(Date date);
std::string timeText(const DateTime& moment);

/// "yyyy-mm-dd" at midnight, else "yyyy-mm-dd hh:mm:ss": how dates lie in the store, where they order as text.
std::string isoText(const DateTime& moment);
std::optional<DateTime> parseIso(std::string_view text);

}  // namespace zelvo
