#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

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

/// Small letters that differ by an accent alone, and the plain letter that each of them stands for in a search.
struct Accented {
  char32_t first;
  char32_t last;
  char32_t plain;
};

constexpr Accented accented[] = {
    {0xE0, 0xE5, 'a'},
    {0xE7, 0xE7, 'c'},
    {0xE8, 0xEB, 'e'},
    {0xEC, 0xEF, 'i'},
    {0xF1, 0xF1, 'n'},
    {0xF2, 0xF6, 'o'},
    {0xF8, 0xF8, 'o'},
    {0xF9, 0xFC, 'u'},
    {0xFD, 0xFD, 'y'},
    {0xFF, 0xFF, 'y'},
    {0x100, 0x105, 'a'},
    {0x106, 0x10D, 'c'},
    {0x10E, 0x111, 'd'},
    {0x112, 0x11B, 'e'},
    {0x11C, 0x123, 'g'},
    {0x124, 0x127, 'h'},
    {0x128, 0x131, 'i'},
    {0x134, 0x135, 'j'},
    {0x136, 0x137, 'k'},
    {0x139, 0x142, 'l'},
    {0x143, 0x148, 'n'},
    {0x14C, 0x151, 'o'},
    {0x154, 0x159, 'r'},
    {0x15A, 0x161, 's'},
    {0x162, 0x167, 't'},
    {0x168, 0x173, 'u'},
    {0x174, 0x175, 'w'},
    {0x176, 0x177, 'y'},
    {0x179, 0x17E, 'z'},
    {0x1A1, 0x1A1, 'o'},
    {0x1B0, 0x1B0, 'u'},
    {0x1CE, 0x1CE, 'a'},
    {0x1D0, 0x1D0, 'i'},
    {0x1D2, 0x1D2, 'o'},
    {0x1D4, 0x1DC, 'u'},
    {0x218, 0x219, 's'},
    {0x21A, 0x21B, 't'},
    // Greek and Cyrillic
    {0x390, 0x390, 0x3B9},
    {0x3AC, 0x3AC, 0x3B1},
    {0x3AD, 0x3AD, 0x3B5},
    {0x3AE, 0x3AE, 0x3B7},
    {0x3AF, 0x3AF, 0x3B9},
    {0x3B0, 0x3B0, 0x3C5},
    {0x3CA, 0x3CA, 0x3B9},
    {0x3CB, 0x3CB, 0x3C5},
    {0x3CC, 0x3CC, 0x3BF},
    {0x3CD, 0x3CD, 0x3C5},
    {0x3CE, 0x3CE, 0x3C9},
    {0x451, 0x451, 0x435},
    // Vietnamese
    {0x1EA0, 0x1EB7, 'a'},
    {0x1EB8, 0x1EC7, 'e'},
    {0x1EC8, 0x1ECB, 'i'},
    {0x1ECC, 0x1EE3, 'o'},
    {0x1EE4, 0x1EF1, 'u'},
    {0x1EF2, 0x1EF9, 'y'},
};

constexpr char32_t withoutAccent(char32_t folded) {
  const auto behind = std::upper_bound(std::begin(accented), std::end(accented), folded,
                                       [](char32_t letter, const Accented& row) { return letter < row.first; });
  return behind != std::begin(accented) && folded <= std::prev(behind)->last ? std::prev(behind)->plain : folded;
}

constexpr CaseTable plainTable = [] {
  CaseTable table{};
  for (char32_t character = 0; character < tableEnd; ++character)
    table[character] = static_cast<std::uint16_t>(withoutAccent(lowerTable[character]));
  return table;
}();

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

char32_t plainBeyondAscii(char32_t character) {
  if (character == finalSigma)
    return sigma;
  return character < tableEnd ? plainTable[character] : withoutAccent(lowerCharacter(character));
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
