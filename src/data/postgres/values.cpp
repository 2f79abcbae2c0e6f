#include "data/postgres/values.h"

#include <charconv>
#include <cmath>

#include "base/text.h"

namespace zelvo::postgres {

namespace {

constexpr double widestFixed = 1e18;

std::string storable(std::string_view text) {
  std::string whole = isUtf8(text) ? std::string(text) : fromWindows1252(text);
  std::erase(whole, '\0');
  return whole;
}

std::string numberAsText(double number) {
  char text[64];
  const bool whole = std::nearbyint(number) == number && std::abs(number) < widestFixed;
  const auto end = whole ? std::to_chars(text, text + sizeof text, number, std::chars_format::fixed).ptr
                         : std::to_chars(text, text + sizeof text, number).ptr;
  return {text, end};
}

std::uint64_t bigEndian(std::string_view bytes) {
  std::uint64_t number = 0;
  for (const char byte : bytes)
    number = number << 8 | static_cast<unsigned char>(byte);
  return number;
}

std::string_view escapeOf(char c) {
  switch (c) {
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return "";
  }
}

}  // namespace

Parameter parameterOf(const Value& value) {
  if (value.isText())
    return storable(value.heldText());
  if (value.isNumber())
    return numberAsText(value.number());
  return value.isDate() ? Parameter(isoText(*value.moment())) : std::nullopt;
}

Value valueOf(std::string_view text, ColumnType type) {
  if (type == ColumnType::Text || type == ColumnType::Memo)
    return text;
  if (type == ColumnType::Date) {
    const auto moment = parseIso(text);
    return moment ? Value(*moment) : Value(text);
  }
  double number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && std::isfinite(number) ? Value(number) : Value(text);
}

Row asStored(Row row) {
  for (Value& value : row)
    if (value.isText())
      value = storable(value.heldText());
  return row;
}

void appendCopied(std::string& line, const Value& value) {
  const Parameter text = parameterOf(value);
  if (!text) {
    line += "\\N";
    return;
  }
  for (const char c : *text) {
    const std::string_view escape = escapeOf(c);
    if (escape.empty())
      line += c;
    else
      line += escape;
  }
}

RowId idIn(std::string_view text) {
  RowId id = 0;
  std::from_chars(text.data(), text.data() + text.size(), id);
  return id;
}

std::string arrayText(std::span<const RowId> ids) {
  std::string text = "{";
  for (const RowId id : ids)
    text.append(text.size() > 1 ? "," : "").append(std::to_string(id));
  return text + "}";
}

// Twelve bytes of head, eight for each dimension, of which there is one or none; then each id with its size before it.
std::vector<RowId> idsOf(std::string_view bytes) {
  constexpr std::size_t head = 20, sizeOfOne = 12;
  std::vector<RowId> ids;
  if (bytes.size() < head)
    return ids;
  ids.reserve((bytes.size() - head) / sizeOfOne);
  for (std::size_t at = head; at + sizeOfOne <= bytes.size(); at += sizeOfOne)
    ids.push_back(static_cast<RowId>(bigEndian(bytes.substr(at + 4, 8))));
  return ids;
}

}  // namespace zelvo::postgres
