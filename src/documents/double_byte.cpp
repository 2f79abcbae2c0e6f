#include "documents/double_byte.h"

#include <iconv.h>

#include <array>
#include <string>

namespace zelvo {

namespace {

const char* converterName(int codePage) {
  switch (codePage) {
    case 932:
      return "CP932";
    case 936:
      return "GBK";
    case 949:
      return "UHC";
    case 950:
      return "CP950";
    default:
      return "JOHAB";
  }
}

}  // namespace

DoubleBytePages::~DoubleBytePages() {
  for (auto& [page, converter] : converters_)
    if (converter != iconv_t(-1))
      iconv_close(converter);
}

bool DoubleBytePages::covers(int codePage) {
  return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 || codePage == 1361;
}

bool DoubleBytePages::isLead(int codePage, unsigned char byte) {
  if (!covers(codePage) || byte < 0x81 || byte == 0xFF)
    return false;
  return codePage != 932 || byte <= 0x9F || (byte >= 0xE0 && byte <= 0xFC);
}

char32_t DoubleBytePages::character(int codePage, std::string_view bytes) {
  auto place = converters_.find(codePage);
  if (place == converters_.end())
    place = converters_.emplace(codePage, iconv_open("UCS-4LE", converterName(codePage))).first;
  if (place->second == iconv_t(-1))
    return 0xFFFD;
  std::string input(bytes);
  std::array<unsigned char, 8> output{};
  char* from = input.data();
  char* to = reinterpret_cast<char*>(output.data());
  std::size_t fromLeft = input.size();
  std::size_t toLeft = output.size();
  iconv(place->second, nullptr, nullptr, nullptr, nullptr);
  if (iconv(place->second, &from, &fromLeft, &to, &toLeft) == std::size_t(-1) || toLeft > output.size() - 4)
    return 0xFFFD;
  return static_cast<char32_t>(output[0] | output[1] << 8 | output[2] << 16);
}

}  // namespace zelvo
