#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"

namespace zelvo {

/// The SHA-256 checksum of bytes that come in pieces, so that a file that was damaged on its way is told from a whole
/// one. The usual tools of every system compute the same one.
class Checksum {
 public:
  void add(std::string_view bytes);
  /// 64 small hexadecimal digits; nothing can be added afterwards.
  std::string finish();

 private:
  void takeBlock(const unsigned char* block);

  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::array<unsigned char, 64> waiting_{};
  std::size_t waitingCount_ = 0;
  std::uint64_t length_ = 0;
};

std::string checksumOf(std::string_view bytes);
/// The checksum of a file of any size.
Result<std::string> checksumOfFile(std::string_view path);

}  // namespace zelvo
