#include "documents/metafile_reader.h"

namespace zelvo {

namespace {

constexpr std::size_t kPlacingHeader = 22;
constexpr std::size_t kHeader = 18;
constexpr std::size_t kRecordHead = 6;

bool isPlaced(std::string_view metafile) {
  return littleEndian(metafile, 0, 4) == 0x9AC6CDD7;
}

}  // namespace

std::uint32_t littleEndian(std::string_view bytes, std::size_t position, int count) {
  std::uint32_t number = 0;
  for (std::size_t i = position + static_cast<std::size_t>(count); i-- > position;)
    number = number << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u);
  return number;
}

MetafileReader::MetafileReader(std::string_view metafile)
    : metafile_(metafile), position_(kHeader + (isPlaced(metafile) ? kPlacingHeader : 0)) {}

bool MetafileReader::next(MetafileRecord& record) {
  if (position_ + kRecordHead > metafile_.size())
    return false;
  const std::size_t size = std::size_t{littleEndian(metafile_, position_, 4)} * 2;
  if (size < kRecordHead)
    return false;
  record.function = littleEndian(metafile_, position_ + 4, 2);
  record.bytes = metafile_.substr(position_, size);
  position_ += record.bytes.size();
  return true;
}

}  // namespace zelvo
