#pragma once

#include <map>
#include <string_view>

namespace zelvo {

/// The code pages of letters in which a character may take two bytes: 932, 936, 949, 950 and 1361.
class DoubleBytePages {
 public:
  DoubleBytePages() = default;
  ~DoubleBytePages();
  DoubleBytePages(const DoubleBytePages&) = delete;
  DoubleBytePages& operator=(const DoubleBytePages&) = delete;

  static bool covers(int codePage);
  static bool isLead(int codePage, unsigned char byte);
  /// One or two bytes as a character; U+FFFD when the page has none for them.
  char32_t character(int codePage, std::string_view bytes);

 private:
  std::map<int, void*> converters_;
};

}  // namespace zelvo
