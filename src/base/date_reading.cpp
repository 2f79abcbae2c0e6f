#include <charconv>

#include "base/date.h"
#include "base/date_names.h"
#include "base/text.h"

namespace zelvo {

namespace {

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Takes a date or a time apart from its left end; each part taken is gone from what is left.
class Parts {
 public:
  explicit Parts(std::string_view text) : rest_(trim(text)) {}

  bool atEnd() const { return rest_.empty(); }

  /// A number of `least` to `most` digits, not followed by another one.
  std::optional<int> number(std::size_t least, std::size_t most) {
    std::size_t digits = 0;
    while (digits < rest_.size() && isDigit(rest_[digits]))
      ++digits;
    if (digits < least || digits > most)
      return {};
    int value = 0;
    std::from_chars(rest_.data(), rest_.data() + digits, value);
    digits_ = digits;
    rest_.remove_prefix(digits);
    return value;
  }
  /// How many digits the last number had.
  std::size_t digits() const { return digits_; }

  bool take(char c) {
    if (rest_.empty() || rest_.front() != c)
      return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::string_view word() {
    std::size_t letters = 0;
    while (letters < rest_.size() && isLetter(rest_[letters]))
      ++letters;
    const std::string_view word = rest_.substr(0, letters);
    rest_.remove_prefix(letters);
    return word;
  }

  void skipBlanks() { rest_ = trimLeft(rest_); }

 private:
  std::string_view rest_;
  std::size_t digits_ = 0;
};

std::optional<Date> validOnly(Date date) {
  return date.valid() ? std::optional<Date>(date) : std::nullopt;
}

/// A year of four digits, or of two, of which the office means 1930 to 2029.
std::optional<int> takeYear(Parts& parts) {
  const auto year = parts.number(2, 4);
  if (!year || parts.digits() == 3)
    return {};
  if (parts.digits() == 4)
    return year;
  return *year < 30 ? 2000 + *year : 1900 + *year;
}

/// Two or one digits each and a year, with the same sign between them.
std::optional<Date> readNumbers(std::string_view text, char separator) {
  Parts parts(text);
  const auto month = parts.number(1, 2);
  if (!month || !parts.take(separator))
    return {};
  const auto day = parts.number(1, 2);
  if (!day || !parts.take(separator))
    return {};
  const auto year = takeYear(parts);
  if (!year || !parts.atEnd())
    return {};
  return validOnly({*year, *month, *day});
}

/// Month and day, of the year given.
std::optional<Date> readDayOfYear(std::string_view text, int year) {
  Parts parts(text);
  const auto month = parts.number(1, 2);
  if (!month || !(parts.take('/') || parts.take('-')))
    return {};
  const auto day = parts.number(1, 2);
  if (!day || !parts.atEnd())
    return {};
  return validOnly({year, *month, *day});
}

/// Six or eight digits and nothing between them.
std::optional<Date> readUnsigned(std::string_view text) {
  if (text.find_first_not_of("0123456789") != std::string_view::npos || (text.size() != 6 && text.size() != 8))
    return {};
  const std::string parted =
      std::string(text.substr(0, 2)) + "/" + std::string(text.substr(2, 2)) + "/" + std::string(text.substr(4));
  return readNumbers(parted, '/');
}

std::optional<Date> readDaysFrom(std::string_view text, Date today) {
  Parts parts(text);
  const bool later = parts.take('+');
  if (!later && !parts.take('-'))
    return {};
  const auto days = parts.number(1, 5);
  if (!days || !parts.atEnd())
    return {};
  return addDays(today, later ? *days : -*days);
}

int monthNamed(std::string_view name) {
  for (std::size_t i = 0; i < monthNames.size(); ++i) {
    if (alike(name, monthNames[i]))
      return static_cast<int>(i) + 1;
  }
  return 0;
}

std::optional<Date> readNamed(std::string_view text) {
  Parts parts(text);
  const int month = monthNamed(parts.word());
  parts.skipBlanks();
  const auto day = parts.number(1, 2);
  if (month == 0 || !day || !parts.take(','))
    return {};
  parts.skipBlanks();
  const auto year = parts.number(4, 4);
  if (!year || !parts.atEnd())
    return {};
  return validOnly({*year, month, *day});
}

/// The hour as a clock of 24 hours has it; none when the hour and AM or PM do not go together.
std::optional<int> hourOfDay(int hour, std::string_view half) {
  if (half.empty())
    return hour < 24 ? std::optional<int>(hour) : std::nullopt;
  if (hour < 1 || hour > 12 || !(alike(half, "AM") || alike(half, "PM")))
    return {};
  return hour % 12 + (alike(half, "PM") ? 12 : 0);
}

/// The second of the day.
std::optional<int> readTime(std::string_view text) {
  Parts parts(text);
  const auto hour = parts.number(1, 2);
  if (!hour || !parts.take(':'))
    return {};
  const auto minute = parts.number(2, 2);
  const bool withSeconds = parts.take(':');
  const auto second = withSeconds ? parts.number(2, 2) : std::optional<int>(0);
  parts.skipBlanks();
  const auto full = hourOfDay(*hour, parts.word());
  if (!minute || !second || !full || !parts.atEnd() || *minute > 59 || *second > 59)
    return {};
  return *full * 3600 + *minute * 60 + *second;
}

/// Where the time begins behind a date: after the last blank before the first colon.
std::size_t timeBegin(std::string_view text) {
  const std::size_t blank = text.substr(0, text.find(':')).find_last_of(" \t");
  return blank == std::string_view::npos ? 0 : blank + 1;
}

std::optional<Date> readIsoDay(std::string_view text) {
  Parts parts(text);
  const auto year = parts.number(4, 4);
  if (!year || !parts.take('-'))
    return {};
  const auto month = parts.number(2, 2);
  if (!month || !parts.take('-'))
    return {};
  const auto day = parts.number(2, 2);
  if (!day || !parts.atEnd())
    return {};
  return validOnly({*year, *month, *day});
}

/// A day and, behind a blank, a time of day: each as its reader knows it.
std::optional<DateTime> readMoment(std::string_view text, std::optional<Date> (*readDay)(std::string_view)) {
  const std::string_view trimmed = trim(text);
  const bool timed = trimmed.find(':') != std::string_view::npos;
  const std::size_t begin = timed ? timeBegin(trimmed) : trimmed.size();
  const auto day = readDay(trimmed.substr(0, begin));
  const auto second = timed ? readTime(trimmed.substr(begin)) : std::optional<int>(0);
  if (!day || !second)
    return {};
  return DateTime{*day, *second};
}

}  // namespace

std::optional<Date> parseDate(std::string_view text) {
  if (const auto date = readNumbers(text, '/'))
    return date;
  if (const auto date = readNumbers(text, '-'))
    return date;
  return readNamed(text);
}

std::optional<Date> typedDate(std::string_view text, Date today) {
  text = trim(text);
  if (alike(text, "t"))
    return today;
  for (const auto read :
       {parseDate(text), readDayOfYear(text, today.year), readUnsigned(text), readDaysFrom(text, today)})
    if (read)
      return read;
  return {};
}

std::optional<DateTime> parseDateTime(std::string_view text) {
  return readMoment(text, parseDate);
}

std::optional<DateTime> parseIso(std::string_view text) {
  return readMoment(text, readIsoDay);
}

}  // namespace zelvo
