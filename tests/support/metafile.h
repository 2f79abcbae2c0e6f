#pragma once

#include <initializer_list>
#include <string>

namespace zelvo::testing {

// Windows metafiles, record by record.

inline std::string word(int number) {
  return {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8 & 0xFF)};
}

inline std::string record(int function, std::initializer_list<int> words, const std::string& more = {}) {
  const int size = 3 + static_cast<int>(words.size() + more.size() / 2);
  std::string bytes = word(size) + word(0) + word(function);
  for (int number : words)
    bytes += word(number);
  return bytes + more;
}

/// A drawing 100 wide and 200 high.
inline std::string metafile(const std::string& records) {
  return word(1) + word(9) + std::string(14, '\0') + record(0x020B, {0, 0}) + record(0x020C, {200, 100}) + records +
         record(0, {});
}

}  // namespace zelvo::testing
