#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "documents/merge.h"

namespace zelvo {

namespace {

// The picture's own width: amounts that stand under one another in a letter end in one column up to 99,999,999.99.
constexpr std::string_view kMoneyPicture = "$##,###,###.#0";
constexpr std::size_t kMoneyWidth = kMoneyPicture.size();

std::string money(std::string_view value) {
  std::string digits(value);
  std::erase_if(digits, [](char c) { return c == '$' || c == ',' || c == ' '; });
  if (!isNumber(digits))
    return std::string(value);
  return padLeft(numberPicture(Val(digits), kMoneyPicture), kMoneyWidth);
}

std::string_view daySuffix(int day) {
  if (day >= 11 && day <= 13)
    return "th";
  switch (day % 10) {
    case 1:
      return "st";
    case 2:
      return "nd";
    case 3:
      return "rd";
    default:
      return "th";
  }
}

std::string ordinalDate(std::string_view value, const DateTime& now) {
  const auto moment = parseDateTime(trim(value));
  const Date date = moment ? moment->date : now.date;
  return std::to_string(date.day) + std::string(daySuffix(date.day)) + " day of " + datePicture(date, "mmmm, yyyy");
}

std::string shortDateOf(std::string_view value) {
  const auto moment = parseDateTime(trim(value));
  return moment ? datePicture(*moment, "mm/dd/yyyy") : std::string(value);
}

std::string timeOf(std::string_view value) {
  auto moment = parseDateTime(trim(value));
  if (!moment)
    moment = parseDateTime("1/1/2000 " + std::string(trim(value)));
  return moment ? datePicture(*moment, "h:mm AMPM") : std::string(value);
}

std::string longDateOf(std::string_view value) {
  const auto date = letterDate(value);
  return date ? datePicture(*date, "mmmm dd, yyyy") : std::string(value);
}

}  // namespace

std::optional<Date> letterDate(std::string_view value) {
  if (value.find('-') != std::string_view::npos)
    return std::nullopt;
  return parseDate(trim(value));
}

std::string formattedValue(char format, std::string_view value, const DateTime& now) {
  switch (format) {
    case '$':
      return money(value);
    case '@':
      return ordinalDate(value, now);
    case '&':
      return shortDateOf(value);
    case '^':
      return timeOf(value);
    default:
      return longDateOf(value);
  }
}

std::string photographName(std::string_view id) {
  constexpr std::size_t longestStem = 8;
  const std::string name = "MP" + std::string(id);
  if (length(name) <= longestStem)
    return name;
  const std::string stem(left(name, longestStem));
  return stem + "." + name.substr(stem.size());
}

void splitAddress(std::string_view block, MergeContext& context) {
  const MergeContext fresh;
  context.name.clear();
  context.address = fresh.address;
  context.cityStateZip = fresh.cityStateZip;
  std::string line(block);
  std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
  const std::size_t comma = line.find(',');
  const std::string address = line.substr(0, comma);
  if (!trim(address).empty())
    context.address = address;
  const std::string rest(comma == std::string::npos ? std::string_view()
                                                    : trim(std::string_view(line).substr(comma + 1)));
  if (!rest.empty())
    context.cityStateZip = rest;
}

}  // namespace zelvo
