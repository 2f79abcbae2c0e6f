#pragma once

#include <cstdint>
#include <string_view>

namespace zelvo {

/// A number of a picture file, the lowest byte first. What lies behind the end of the bytes counts as 0.
std::uint32_t littleEndian(std::string_view bytes, std::size_t position, int count);

/// A record of a Windows metafile. Its parameters are words of 16 bits.
struct MetafileRecord {
  std::uint32_t function = 0;
  std::string_view bytes;  ///< whole, with its head

  std::size_t words() const { return bytes.size() < 6 ? 0 : (bytes.size() - 6) / 2; }
  /// The parameter as a signed number; 0 behind the last one.
  int word(std::size_t index) const { return static_cast<std::int16_t>(littleEndian(bytes, 6 + 2 * index, 2)); }
};

/// Goes through the records of a metafile, with or without the header that places it on paper.
class MetafileReader {
 public:
  explicit MetafileReader(std::string_view metafile);
  /// False at the end, and where the file is broken.
  bool next(MetafileRecord& record);

 private:
  std::string_view metafile_;
  std::size_t position_;
};

}  // namespace zelvo
