#include "documents/picture_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "documents/drawing.h"
#include "documents/metafile_reader.h"

namespace zelvo {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kUsualDots = 96;  // to the inch
constexpr double kInchesPerMetre = 1 / 0.0254;
constexpr std::size_t kBmpFileHeader = 14;

struct Pixels {
  double width = 0, height = 0;
  double acrossDots = 0, downDots = 0;  // to the inch; 0: not stated
};

std::uint32_t byteAt(std::string_view bytes, std::size_t position) {
  return position < bytes.size() ? static_cast<unsigned char>(bytes[position]) : 0;
}

std::uint32_t bigEndian(std::string_view bytes, std::size_t position, int count) {
  std::uint32_t number = 0;
  for (int i = 0; i < count; ++i)
    number = number << 8 | byteAt(bytes, position + static_cast<std::size_t>(i));
  return number;
}

std::string littleEndianBytes(std::uint32_t number) {
  std::string bytes;
  for (int i = 0; i < 4; ++i)
    bytes += static_cast<char>(number >> (8 * i) & 0xFF);
  return bytes;
}

std::optional<Pixels> pngPixels(std::string_view bytes) {
  if (!bytes.starts_with("\x89PNG\r\n\x1A\n"))
    return std::nullopt;
  Pixels pixels{static_cast<double>(bigEndian(bytes, 16, 4)), static_cast<double>(bigEndian(bytes, 20, 4))};
  for (std::size_t chunk = 8; chunk + 12 <= bytes.size();) {
    if (bytes.substr(chunk + 4, 4) == "pHYs" && byteAt(bytes, chunk + 16) == 1) {
      pixels.acrossDots = bigEndian(bytes, chunk + 8, 4) / kInchesPerMetre;
      pixels.downDots = bigEndian(bytes, chunk + 12, 4) / kInchesPerMetre;
    }
    chunk += std::size_t{12} + bigEndian(bytes, chunk, 4);
  }
  return pixels;
}

bool isFrameStart(std::uint32_t marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

void readDensity(std::string_view bytes, std::size_t segment, Pixels& pixels) {
  const std::uint32_t unit = byteAt(bytes, segment + 11);
  if (bytes.substr(segment + 4, 4) != "JFIF" || unit == 0)
    return;
  const double toInch = unit == 2 ? 2.54 : 1;
  pixels.acrossDots = bigEndian(bytes, segment + 12, 2) * toInch;
  pixels.downDots = bigEndian(bytes, segment + 14, 2) * toInch;
}

// Up to the frame of its dots, of which it gives the place; 0: there is none.
std::size_t jpegFrame(std::string_view bytes, Pixels& pixels) {
  if (!bytes.starts_with("\xFF\xD8\xFF"))
    return 0;
  for (std::size_t segment = 2; segment + 9 < bytes.size() && byteAt(bytes, segment) == 0xFF;) {
    const std::uint32_t marker = byteAt(bytes, segment + 1);
    if (isFrameStart(marker)) {
      pixels.height = bigEndian(bytes, segment + 5, 2);
      pixels.width = bigEndian(bytes, segment + 7, 2);
      return segment;
    }
    if (marker == 0xE0)
      readDensity(bytes, segment, pixels);
    segment += std::size_t{2} + bigEndian(bytes, segment + 2, 2);
  }
  return 0;
}

std::optional<Pixels> jpegPixels(std::string_view bytes) {
  Pixels pixels;
  return jpegFrame(bytes, pixels) > 0 ? std::optional(pixels) : std::nullopt;
}

std::optional<Pixels> bmpPixels(std::string_view bytes) {
  if (!bytes.starts_with("BM") || bytes.size() < kBmpFileHeader + 12)
    return std::nullopt;
  const std::string_view bitmap = bytes.substr(kBmpFileHeader);
  if (littleEndian(bitmap, 0, 4) == 12)
    return Pixels{static_cast<double>(littleEndian(bitmap, 4, 2)), static_cast<double>(littleEndian(bitmap, 6, 2))};
  // A negative height tells that the rows run from the top down.
  return Pixels{std::abs(static_cast<double>(static_cast<std::int32_t>(littleEndian(bitmap, 4, 4)))),
                std::abs(static_cast<double>(static_cast<std::int32_t>(littleEndian(bitmap, 8, 4)))),
                littleEndian(bitmap, 24, 4) / kInchesPerMetre, littleEndian(bitmap, 28, 4) / kInchesPerMetre};
}

// Where a drawing record of a metafile holds its bitmap; 0: it holds none.
std::size_t bitmapInRecord(std::uint32_t function) {
  switch (function) {
    case 0x0F43:
      return 28;  // stretched onto the paper
    case 0x0B41:
      return 26;
    case 0x0D33:
      return 24;
    case 0x0940:
      return 22;
    default:
      return 0;
  }
}

int twips(double pixels, double dots) {
  constexpr double fewestDots = 10;  // less is no statement about paper
  return static_cast<int>(std::lround(std::min(pixels, 1e6) * kTwipsPerInch / (dots < fewestDots ? kUsualDots : dots)));
}

std::optional<Picture> pictureOf(PictureKind kind, const std::optional<Pixels>& pixels, std::string& bytes) {
  if (!pixels || pixels->width < 1 || pixels->height < 1)
    return std::nullopt;
  Picture picture;
  picture.kind = kind;
  picture.bytes = std::move(bytes);
  picture.width = std::max(1, twips(pixels->width, pixels->acrossDots));
  picture.height = std::max(1, twips(pixels->height, pixels->downDots));
  return picture;
}

}  // namespace

std::optional<Picture> readPicture(std::string bytes) {
  if (const auto pixels = pngPixels(bytes))
    return pictureOf(PictureKind::Png, pixels, bytes);
  if (const auto pixels = jpegPixels(bytes))
    return pictureOf(PictureKind::Jpeg, pixels, bytes);
  return pictureOf(PictureKind::Bmp, bmpPixels(bytes), bytes);
}

std::optional<PlainJpeg> plainJpeg(std::string_view bytes) {
  constexpr std::uint32_t lastPlainKind = 0xC2, usualBits = 8;
  Pixels pixels;
  const std::size_t frame = jpegFrame(bytes, pixels);
  const auto colours = static_cast<int>(byteAt(bytes, frame + 9));
  const bool isPlain = byteAt(bytes, frame + 1) <= lastPlainKind && byteAt(bytes, frame + 4) == usualBits &&
                       (colours == 1 || colours == 3) && pixels.width > 0 && pixels.height > 0;
  if (frame == 0 || !isPlain || bytes.find("\xFF\xD9", frame) == std::string_view::npos)
    return std::nullopt;
  return PlainJpeg{static_cast<int>(pixels.width), static_cast<int>(pixels.height), colours};
}

std::optional<Picture> drawnPicture(std::string metafile) {
  if (drawingOf(metafile).empty())
    return std::nullopt;
  Picture picture;
  picture.kind = PictureKind::Metafile;
  picture.bytes = std::move(metafile);
  picture.width = picture.height = static_cast<int>(kTwipsPerInch);
  return picture;
}

void fitInto(Picture& picture, int width, int height) {
  const double part = std::min({1.0, double(width) / picture.width, double(height) / picture.height});
  picture.width = std::max(1, static_cast<int>(picture.width * part));
  picture.height = std::max(1, static_cast<int>(picture.height * part));
}

std::string bitmapOfMetafile(std::string_view metafile) {
  std::string_view largest;
  MetafileReader reader(metafile);
  MetafileRecord record;
  while (reader.next(record)) {
    const std::size_t bitmap = bitmapInRecord(record.function);
    if (bitmap == 0 || bitmap >= record.bytes.size() || littleEndian(record.bytes, bitmap, 4) != 40)
      continue;
    if (record.bytes.size() - bitmap > largest.size())
      largest = record.bytes.substr(bitmap);
  }
  return std::string(largest);
}

std::string bmpFileOf(std::string_view bitmap) {
  const std::uint32_t header = littleEndian(bitmap, 0, 4);
  const std::uint32_t bits = littleEndian(bitmap, header == 12 ? 10 : 14, 2);
  const std::uint32_t masks = header == 40 && littleEndian(bitmap, 16, 4) == 3 ? 12 : 0;
  std::uint32_t colours = header == 12 ? 0 : littleEndian(bitmap, 32, 4);
  if (colours == 0 && bits <= 8)
    colours = 1u << bits;
  const std::uint32_t offset =
      static_cast<std::uint32_t>(kBmpFileHeader) + header + masks + colours * (header == 12 ? 3 : 4);
  const auto size = static_cast<std::uint32_t>(kBmpFileHeader + bitmap.size());
  return "BM" + littleEndianBytes(size) + littleEndianBytes(0) + littleEndianBytes(offset) + std::string(bitmap);
}

}  // namespace zelvo
