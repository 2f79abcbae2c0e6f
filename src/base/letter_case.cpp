#include <array>
#include <cstdint>

#include "base/text.h"

namespace zelvo {

namespace {

/// Capitals from `first` to `last`, each `step` apart, whose small letters lie `distance` behind them.
struct Capitals {
  char32_t first;
  char32_t last;
  char32_t step;
  int distance;
};

constexpr Capitals capitals[] = {
    // Latin, with its accents
    {'A', 'Z', 1, 32},
    {0xC0, 0xD6, 1, 32},
    {0xD8, 0xDE, 1, 32},
    {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},
    {0x139, 0x147, 2, 1},
    {0x14A, 0x176, 2, 1},
    {0x178, 0x178, 1, -121},
    {0x179, 0x17D, 2, 1},
    {0x182, 0x184, 2, 1},
    {0x187, 0x18B, 4, 1},
    {0x191, 0x191, 1, 1},
    {0x198, 0x198, 1, 1},
    {0x1A0, 0x1A4, 2, 1},
    {0x1A7, 0x1A7, 1, 1},
    {0x1AC, 0x1AC, 1, 1},
    {0x1AF, 0x1AF, 1, 1},
    {0x1B3, 0x1B5, 2, 1},
    {0x1C4, 0x1CA, 3, 2},
    {0x1CD, 0x1DB, 2, 1},
    {0x1DE, 0x1EE, 2, 1},
    {0x1F1, 0x1F1, 1, 2},
    {0x1F4, 0x1F4, 1, 1},
    {0x1F8, 0x21E, 2, 1},
    {0x222, 0x232, 2, 1},
    {0x246, 0x24E, 2, 1},
    // Greek
    {0x386, 0x386, 1, 38},
    {0x388, 0x38A, 1, 37},
    {0x38C, 0x38C, 1, 64},
    {0x38E, 0x38F, 1, 63},
    {0x391, 0x3A1, 1, 32},
    {0x3A3, 0x3AB, 1, 32},
    {0x3D8, 0x3EE, 2, 1},
    // Cyrillic
    {0x400, 0x40F, 1, 80},
    {0x410, 0x42F, 1, 32},
    {0x460, 0x480, 2, 1},
    {0x48A, 0x4BE, 2, 1},
    {0x4C0, 0x4C0, 1, 15},
    {0x4C1, 0x4CD, 2, 1},
    {0x4D0, 0x52E, 2, 1},
};

constexpr char32_t tableEnd = 0x530;

using CaseTable = std::array<std::uint16_t, tableEnd>;

/// The rules spread out, one entry a character: a search folds every character of a table that it reads through.
constexpr CaseTable spread(bool toLower) {
  CaseTable table{};
  for (char32_t character = 0; character < tableEnd; ++character)
    table[character] = static_cast<std::uint16_t>(character);
  for (const Capitals& rule : capitals) {
    for (char32_t capital = rule.first; capital <= rule.last; capital += rule.step) {
      const auto small = static_cast<char32_t>(static_cast<int>(capital) + rule.distance);
      table[toLower ? capital : small] = static_cast<std::uint16_t>(toLower ? small : capital);
    }
  }
  return table;
}

constexpr CaseTable lowerTable = spread(true);
constexpr CaseTable upperTable = spread(false);

constexpr char32_t finalSigma = 0x3C2;
constexpr char32_t sigma = 0x3C3;
constexpr char32_t capitalSigma = 0x3A3;

/// Vietnamese and other Latin letters with two accents stand in pairs, the capital on the even number.
constexpr bool inPairs(char32_t character) {
  return (character >= 0x1E00 && character <= 0x1E95) || (character >= 0x1EA0 && character <= 0x1EFF);
}

char32_t lowerCharacter(char32_t character) {
  if (character < tableEnd)
    return lowerTable[character];
  return inPairs(character) ? character | 1 : character;
}

char32_t upperCharacter(char32_t character) {
  if (character == finalSigma)
    return capitalSigma;
  if (character < tableEnd)
    return upperTable[character];
  return inPairs(character) ? character & ~char32_t{1} : character;
}

template <class Change>
std::string changed(std::string_view text, Change change) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();)
    appendCharacter(result, change(nextCharacter(text, position)));
  return result;
}

}  // namespace

char32_t foldBeyondAscii(char32_t character) {
  return character == finalSigma ? sigma : lowerCharacter(character);
}

std::string upper(std::string_view text) {
  return changed(text, upperCharacter);
}
std::string lower(std::string_view text) {
  return changed(text, lowerCharacter);
}
std::string fold(std::string_view text) {
  return changed(text, foldCharacter);
}

int compareFolded(std::string_view a, std::string_view b) {
  std::size_t inA = 0;
  std::size_t inB = 0;
  while (inA < a.size() && inB < b.size()) {
    const char32_t left = foldCharacter(nextCharacter(a, inA));
    const char32_t right = foldCharacter(nextCharacter(b, inB));
    if (left != right)
      return left < right ? -1 : 1;
  }
  return static_cast<int>(inA < a.size()) - static_cast<int>(inB < b.size());
}

bool alike(std::string_view a, std::string_view b) {
  return compareFolded(a, b) == 0;
}

}  // namespace zelvo
