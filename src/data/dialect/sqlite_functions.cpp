#include "data/dialect/sqlite_functions.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "base/date.h"
#include "base/number.h"
#include "base/text.h"
#include "data/dialect/like_pattern.h"
#include "data/value.h"

namespace zelvo::dialect {

namespace {

std::string_view textOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value))) : std::string_view();
}

bool isNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}
bool isNumeric(sqlite3_value* value) {
  const int type = sqlite3_value_type(value);
  return type == SQLITE_FLOAT || type == SQLITE_INTEGER;
}

void giveText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// A pattern is taken apart once a statement, however many rows it is held against.
const LikePattern* patternOf(sqlite3_context* context, sqlite3_value* pattern) {
  if (const void* known = sqlite3_get_auxdata(context, 0))
    return static_cast<const LikePattern*>(known);
  auto* made = new LikePattern(textOf(pattern));
  sqlite3_set_auxdata(context, 0, made, [](void* old) { delete static_cast<LikePattern*>(old); });
  // Short of memory the store may have thrown it away at once.
  return static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0));
}

bool isLike(const LikePattern& pattern, sqlite3_value* value) {
  return isNumeric(value) ? pattern.matches(numberText(sqlite3_value_double(value))) : pattern.matches(textOf(value));
}

void zlike(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (isNull(arguments[0]) || isNull(arguments[1]))
    return;
  const LikePattern* pattern = patternOf(context, arguments[0]);
  if (!pattern)
    return sqlite3_result_error_nomem(context);
  sqlite3_result_int(context, isLike(*pattern, arguments[1]) ? 1 : 0);
}

void zfold(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (!isNull(arguments[0]))
    giveText(context, fold(textOf(arguments[0])));
}

/// Months, years and running numbers, which are most of what is asked for by value, need no lenient reading.
std::optional<double> plainDigits(std::string_view text) {
  std::uint32_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size())
    return std::nullopt;
  return number;
}

void znum(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (isNumeric(arguments[0]))
    return sqlite3_result_double(context, sqlite3_value_double(arguments[0]));
  const std::string_view text = textOf(arguments[0]);
  if (const auto digits = plainDigits(text))
    sqlite3_result_double(context, *digits);
  else if (isNumber(text))
    sqlite3_result_double(context, Val(text));
}

void zdate(sqlite3_context* context, int, sqlite3_value** arguments) {
  const std::string_view text = textOf(arguments[0]);
  const auto shown = parseDateTime(text);
  if (const auto moment = shown ? shown : parseIso(text))
    giveText(context, isoText(*moment));
}

void zshown(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (const auto moment = parseIso(textOf(arguments[0])))
    giveText(context, Value(*moment).text());
}

struct Function {
  const char* name;
  int arguments;
  void (*call)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array functions = {Function{"zlike", 2, zlike}, Function{"zfold", 1, zfold}, Function{"znum", 1, znum},
                                  Function{"zdate", 1, zdate}, Function{"zshown", 1, zshown}};

}  // namespace

int registerDialectFunctions(sqlite3* database) {
  constexpr int kind = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  for (const Function& function : functions) {
    const int code = sqlite3_create_function_v2(database, function.name, function.arguments, kind, nullptr,
                                                function.call, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
      return code;
  }
  return SQLITE_OK;
}

}  // namespace zelvo::dialect
