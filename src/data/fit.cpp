#include "data/fit.h"

#include <cmath>

#include "base/text.h"

namespace zelvo {

namespace {

Error refused(const Column& column, const Value& value, std::string_view why) {
  std::string message = "\"" + value.text() + "\" cannot be stored as " + std::string(column.name) + ": ";
  return {Trouble::BadInput, message.append(why)};
}

bool isMoment(const DateTime& moment) {
  return moment.date.valid() && moment.second >= 0 && moment.second < 86400;
}

Value fittedText(const Column& column, const Value& value) {
  std::string text = value.text();
  if (column.type == ColumnType::Text)
    text.resize(left(text, static_cast<std::size_t>(column.length)).size());
  return text;
}

Result<Value> fittedDate(const Column& column, const Value& value) {
  if (value.isText() && trim(value.text()).empty())
    return Value();
  const auto moment = value.moment();
  if (!moment || !isMoment(*moment))
    return refused(column, value, "it is no date. Type month, day and year, as 3/15/2026.");
  return Value(*moment);
}

// Half to even, as the office's other sums round.
Result<Value> fittedNumber(const Column& column, const Value& value) {
  const double number = value.number();
  if (!std::isfinite(number))
    return refused(column, value, "it is no number. Type a number.");
  return Value(column.type == ColumnType::Number ? number : std::nearbyint(number));
}

}  // namespace

bool fits(const Column& column, const Value& value) {
  switch (column.type) {
    case ColumnType::Text:
      return value.isNull() || (value.isText() && value.heldText().size() <= static_cast<std::size_t>(column.length));
    case ColumnType::Memo:
      return value.isNull() || value.isText();
    case ColumnType::Date:
      return value.isNull() || (value.isDate() && isMoment(*value.moment()));
    case ColumnType::Number:
      return value.isNull() || (value.isNumber() && std::isfinite(value.number()));
    case ColumnType::Integer:
    case ColumnType::Counter:
      break;
  }
  return value.isNull();
}

Result<Value> fitted(const Column& column, Value value) {
  if (fits(column, value))
    return value;
  switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return fittedText(column, value);
    case ColumnType::Date:
      return fittedDate(column, value);
    case ColumnType::Number:
    case ColumnType::Integer:
    case ColumnType::Counter:
      break;
  }
  return fittedNumber(column, value);
}

}  // namespace zelvo
