#include "data/dialect/like_pattern.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace zelvo::dialect {

namespace {

constexpr std::array<char, 256> lowerBytes = [] {
  std::array<char, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i)
    table[i] = static_cast<char>(i >= 'A' && i <= 'Z' ? i + 32 : i);
  return table;
}();

char lowered(char c) {
  return lowerBytes[static_cast<unsigned char>(c)];
}

bool isBeyondAscii(char c) {
  return static_cast<unsigned char>(c) >= 0x80;
}

char32_t nextPlain(std::string_view text, std::size_t& position) {
  if (!isBeyondAscii(text[position]))
    return static_cast<unsigned char>(lowered(text[position++]));
  return plainBeyondAscii(nextCharacter(text, position));
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) {
  for (std::size_t at = 0; at < pattern.size();) {
    const char c = pattern[at];
    const std::size_t end = c == '[' ? pattern.find(']', at) : std::string_view::npos;
    if (end != std::string_view::npos) {
      if (end > at + 1)
        elements_.push_back(classOf(pattern.substr(at + 1, end - at - 1)));
      at = end + 1;
      continue;
    }
    const char32_t letter = nextPlain(pattern, at);
    if (c == '%' && !elements_.empty() && elements_.back().kind == Element::Kind::Run)
      continue;
    elements_.push_back({c == '%'   ? Element::Kind::Run
                         : c == '_' ? Element::Kind::One
                                    : Element::Kind::Letter,
                         letter});
  }
  findNeedle();
}

LikePattern::Element LikePattern::classOf(std::string_view inside) const {
  Element element{Element::Kind::Class};
  element.negated = inside.size() > 1 && inside.front() == '!';
  for (std::size_t at = element.negated ? 1 : 0; at < inside.size();) {
    const char32_t first = nextPlain(inside, at);
    char32_t last = first;
    if (at + 1 < inside.size() && inside[at] == '-') {
      ++at;
      last = nextPlain(inside, at);
    }
    element.ranges.emplace_back(first, last);
  }
  return element;
}

bool LikePattern::Element::takes(char32_t character) const {
  if (kind != Kind::Class)
    return kind == Kind::One || letter == character;
  for (const auto& [first, last] : ranges)
    if (character >= first && character <= last)
      return !negated;
  return negated;
}

void LikePattern::findNeedle() {
  const auto isRun = [](const Element& element) { return element.kind == Element::Kind::Run; };
  if (elements_.size() < 3 || !isRun(elements_.front()) || !isRun(elements_.back()))
    return;
  std::u32string needle;
  for (std::size_t i = 1; i + 1 < elements_.size(); ++i) {
    if (elements_[i].kind != Element::Kind::Letter)
      return;
    needle.push_back(elements_[i].letter);
  }
  needle_ = std::move(needle);
  if (std::all_of(needle_.begin(), needle_.end(), [](char32_t letter) { return letter < 0x80; }))
    findSkips();
}

// A plain needle is first held against the bytes of a text, as most texts have plain letters alone.
void LikePattern::findSkips() {
  plainNeedle_.assign(needle_.begin(), needle_.end());
  const std::size_t last = plainNeedle_.size() - 1;
  const auto skip = [](std::size_t bytes) { return static_cast<std::uint8_t>(std::min<std::size_t>(bytes, 255)); };
  skips_.fill(skip(plainNeedle_.size()));
  for (std::size_t byte = 0; byte < skips_.size(); ++byte) {
    const std::size_t at = last == 0 ? std::string::npos : plainNeedle_.rfind(lowerBytes[byte], last - 1);
    if (at != std::string::npos)
      skips_[byte] = skip(last - at);
  }
}

bool LikePattern::holdsPlainNeedle(std::string_view text) const {
  const std::size_t last = plainNeedle_.size() - 1;
  for (std::size_t at = last; at < text.size(); at += skips_[static_cast<unsigned char>(text[at])]) {
    std::size_t left = last + 1;
    while (left > 0 && lowered(text[at + left - last - 1]) == plainNeedle_[left - 1])
      --left;
    if (left == 0)
      return true;
  }
  return false;
}

// A text that is not all plain letters, written with plain ones as far as it has them. A letter that has none stands
// for itself as a byte that no plain needle holds.
bool LikePattern::holdsPlainNeedleWithoutAccents(std::string_view text) const {
  constexpr char other = '\xFF';
  std::array<char, 256> plain;
  if (text.size() > plain.size())
    return holdsNeedle(text);
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t letter = nextPlain(text, at);
    plain[length++] = letter < 0x80 ? static_cast<char>(letter) : other;
  }
  return holdsPlainNeedle({plain.data(), length});
}

// A letter of the text with an accent may stand for a plain one of the needle.
bool LikePattern::holdsNeedle(std::string_view text) const {
  const char first = needle_.front() < 0x80 ? static_cast<char>(needle_.front()) : '\0';
  for (std::size_t at = 0; at < text.size(); ++at)
    if ((isBeyondAscii(text[at]) || lowered(text[at]) == first) && needleAt(text, at))
      return true;
  return false;
}

bool LikePattern::needleAt(std::string_view text, std::size_t at) const {
  for (const char32_t letter : needle_)
    if (at >= text.size() || nextPlain(text, at) != letter)
      return false;
  return true;
}

// When the text stops fitting, only the last run that was passed can still take one character more: those before it
// have found the earliest place that they can have.
bool LikePattern::matches(std::string_view text) const {
  if (!plainNeedle_.empty())
    return holdsPlainNeedle(text) || (!isAscii(text) && holdsPlainNeedleWithoutAccents(text));
  if (!needle_.empty())
    return holdsNeedle(text);
  constexpr std::size_t none = std::string_view::npos;
  std::size_t element = 0;
  std::size_t at = 0;
  std::size_t afterRun = none;
  std::size_t runEnd = 0;
  while (at < text.size()) {
    std::size_t behind = at;
    if (element < elements_.size() && elements_[element].kind == Element::Kind::Run) {
      afterRun = ++element;
      runEnd = at;
    } else if (element < elements_.size() && elements_[element].takes(nextPlain(text, behind))) {
      ++element;
      at = behind;
    } else if (afterRun != none) {
      nextCharacter(text, runEnd);
      element = afterRun;
      at = runEnd;
    } else {
      return false;
    }
  }
  while (element < elements_.size() && elements_[element].kind == Element::Kind::Run)
    ++element;
  return element == elements_.size();
}

}  // namespace zelvo::dialect
