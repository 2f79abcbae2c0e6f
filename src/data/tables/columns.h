#pragma once

#include <array>

#include "data/catalogue.h"

// The kinds of columns, so that a table reads as a list of names, widths and boxes.

namespace zelvo::tables {

constexpr Column text(std::string_view name, int length, int box = 0) {
  return {name, ColumnType::Text, box, length};
}
constexpr Column memo(std::string_view name, int box = 0) {
  return {name, ColumnType::Memo, box, -1};
}
constexpr Column number(std::string_view name, int box = 0) {
  return {name, ColumnType::Number, box, 8};
}
constexpr Column whole(std::string_view name, int length = 8) {
  return {name, ColumnType::Integer, 0, length};
}
constexpr Column date(std::string_view name, int box = 0) {
  return {name, ColumnType::Date, box, 8};
}
constexpr Column counter(std::string_view name) {
  return {name, ColumnType::Counter, 0, -1};
}

}  // namespace zelvo::tables
