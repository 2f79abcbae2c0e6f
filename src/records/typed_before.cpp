#include "records/typed_before.h"

#include <algorithm>

#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::size_t kLately = 1'000;  ///< records; what is older an office hardly types again
constexpr std::size_t kMost = 8;        ///< offers that are taken in at a glance
constexpr int kShortest = 10;           ///< width of a column; shorter texts are typed faster than chosen

std::string_view textBehind(std::string_view text, std::size_t from) {
  return trim(text.substr(std::min(from, text.size())));
}

}  // namespace

bool beginsAlike(std::string_view text, std::string_view typed) {
  return alike(left(text, length(typed)), typed);
}

bool TypedBefore::offers(const Column& column) {
  return column.type == ColumnType::Text && column.length >= kShortest;
}

void TypedBefore::read(const Recordset& records) {
  rows_ = records.newest(kLately);
  ranked_.clear();
}

const std::vector<std::string>& TypedBefore::textsOf(std::size_t column, std::size_t from) {
  const auto [ranked, isNew] = ranked_.try_emplace(column);
  if (!isNew)
    return ranked->second;
  std::map<std::string, std::size_t> times;
  for (const auto& row : rows_)
    if (const std::string text(textBehind(row[column].text(), from)); !text.empty() && ++times[text] == 1)
      ranked->second.push_back(text);
  std::stable_sort(ranked->second.begin(), ranked->second.end(),
                   [&](const std::string& a, const std::string& b) { return times[a] > times[b]; });
  return ranked->second;
}

std::vector<std::string> TypedBefore::beginning(const Table& table, std::string_view column, std::string_view typed,
                                                std::size_t from) {
  std::vector<std::string> found;
  const std::size_t position = table.position(column);
  if (position == table.columns.size())
    return found;
  for (const std::string& text : textsOf(position, from)) {
    if (found.size() == kMost)
      break;
    if (text != typed && beginsAlike(text, typed))
      found.push_back(text);
  }
  return found;
}

}  // namespace zelvo
