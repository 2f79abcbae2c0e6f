#include "data/lookup/parcel_search.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "data/dialect/like_pattern.h"
#include "data/parcel_key.h"
#include "data/query_text.h"

namespace zelvo {

namespace {

// ---- keys

constexpr std::size_t kParts = 8;
constexpr std::size_t kFewestParts = 3;  // a key is never trimmed below them
/// The parts of a key, in its order; an empty one may be anything.
using WantedParts = std::array<std::string, kParts>;

/// Which part of the key the boxes 3 to 6 fill.
constexpr std::pair<int, std::size_t> kBoxes[] = {{3, 3}, {4, 4}, {5, 5}, {6, 6}};

std::string inBox(const Screen& form, int box) {
  const Control* control = form.find("Text1", box);
  return control ? upper(cleanSBL(trim(control->shown()))) : "";
}

WantedParts wantedParts(const Screen& form) {
  WantedParts wanted;
  const std::string section = inBox(form, 2);
  const std::size_t point = section.find('.');
  wanted[0] = section.substr(0, point);
  if (point != std::string::npos)
    wanted[1] = section.substr(point + 1);
  for (const auto& [box, part] : kBoxes)
    wanted[part] = inBox(form, box);
  return wanted;
}

bool hasWildcard(std::string_view part) {
  return part.find_first_of("%_[") != std::string_view::npos;
}

/// What the key begins with, as far as it is known without a gap.
std::string leading(const WantedParts& wanted) {
  std::string text;
  for (const std::string& part : wanted) {
    if (part.empty() || hasWildcard(part))
      break;
    text += (text.empty() ? "" : "-") + part;
  }
  return text;
}

/// "." comes right behind "-": one range of the index holds the key itself and all that go on with a further part.
std::string beginsWith(std::string_view column, const std::string& begin) {
  const std::string name = "[" + std::string(column) + "]";
  const std::string text = replaceAll(begin, "'", "''");
  return name + " >= '" + text + "' AND " + name + " < '" + text + ".' AND (" + columnIs(column, begin) + " OR " +
         name + " >= '" + text + "-')";
}

bool mayBeZero(std::string_view part) {
  return part.empty() || dialect::LikePattern(part).matches("0");
}

std::string anyParts(std::size_t count) {
  std::string pattern = "%";
  for (std::size_t part = 1; part < count; ++part)
    pattern += "-%";
  return pattern;
}

/// The keys of just so many parts. A % may run over a "-", but not in a key that has as many of them as the pattern.
std::string ofLength(std::string_view column, const WantedParts& wanted, std::size_t count) {
  std::string pattern;
  for (std::size_t part = 0; part < count; ++part)
    pattern += (part == 0 ? "" : "-") + (wanted[part].empty() ? "%" : wanted[part]);
  return "(" + columnLike(column, pattern) + " AND NOT " + columnLike(column, anyParts(count + 1)) + ")";
}

std::string ofAnyLength(std::string_view column, const WantedParts& wanted) {
  std::string condition;
  for (std::size_t count = kFewestParts; count <= kParts; ++count)
    if (std::all_of(wanted.begin() + static_cast<std::ptrdiff_t>(count), wanted.end(), mayBeZero))
      condition += (condition.empty() ? "" : " OR ") + ofLength(column, wanted, count);
  return "(" + condition + ")";
}

}  // namespace

std::string keyCondition(const Screen& form, std::string_view column) {
  if (!SBLfilled(form))
    return "";
  const WantedParts wanted = wantedParts(form);
  const std::string begin = leading(wanted);
  const auto known = static_cast<std::size_t>(std::count(begin.begin(), begin.end(), '-')) + (begin.empty() ? 0 : 1);
  const bool beginOnly = std::all_of(wanted.begin() + static_cast<std::ptrdiff_t>(known), wanted.end(),
                                     [](const std::string& part) { return part.empty(); });
  if (begin.empty() || !beginOnly)
    return (begin.empty() ? "" : beginsWith(column, begin) + " AND ") + ofAnyLength(column, wanted);
  return beginsWith(column, begin);
}

std::string holds(std::string_view column, std::string_view typed) {
  return columnLike(column, "%" + std::string(trim(typed)) + "%");
}

}  // namespace zelvo
