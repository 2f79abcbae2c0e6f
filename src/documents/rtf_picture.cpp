#include "documents/rtf_picture.h"

#include <algorithm>

#include "documents/picture_file.h"

namespace zelvo {

namespace {

constexpr double kLongest = 600000;  // twips; longer than any paper

int hexValue(char c) {
  if (c >= '0' && c <= '9')
    return c - '0';
  if (c >= 'a' && c <= 'f')
    return c - 'a' + 10;
  if (c >= 'A' && c <= 'F')
    return c - 'A' + 10;
  return -1;
}

// One direction of a picture: how long the whole of it is, and what is cut off at both ends, in whole twips, so that a
// picture is written as it was read.
struct Extent {
  int whole = 1, first = 0, second = 0;
  int shown() const { return whole - first - second; }
  double part(int crop) const { return double(crop) / whole; }
};

Extent extentOf(int goal, double scale, int firstCrop, int secondCrop) {
  constexpr double leastShown = 0.05;
  const auto scaled = [scale](int length) { return static_cast<int>(std::clamp(length * scale, 0.0, kLongest)); };
  Extent extent;
  extent.whole = std::max(1, scaled(goal));
  const int most = static_cast<int>(extent.whole * (1 - leastShown));
  extent.first = std::min(scaled(firstCrop), most);
  extent.second = std::min(scaled(secondCrop), most - extent.first);
  return extent;
}

}  // namespace

void RtfPicture::take(const RtfToken& token) {
  const std::string_view word = token.word;
  constexpr int longest = static_cast<int>(kLongest);
  const int number = std::clamp(token.parameterOr(0), -longest, longest);
  if (word == "pngblip" || word == "jpegblip")
    source_ = Source::File;
  else if (word == "dibitmap")
    source_ = Source::Bitmap;
  else if (word == "wmetafile")
    source_ = Source::Metafile;
  else if (word == "picw")
    width_ = number;
  else if (word == "pich")
    height_ = number;
  else if (word == "picwgoal")
    goalWidth_ = number;
  else if (word == "pichgoal")
    goalHeight_ = number;
  else if (word == "picscalex" && number > 0)
    acrossScale_ = number / 100.0;
  else if (word == "picscaley" && number > 0)
    downScale_ = number / 100.0;
  else if (word == "piccropl")
    cropLeft_ = number;
  else if (word == "piccropt")
    cropTop_ = number;
  else if (word == "piccropr")
    cropRight_ = number;
  else if (word == "piccropb")
    cropBottom_ = number;
}

void RtfPicture::data(const RtfToken& token) {
  if (token.kind == RtfTokenKind::Binary) {
    bytes_ += token.word;
    return;
  }
  for (char c : token.word) {
    const int digit = hexValue(c);
    if (digit < 0)
      continue;
    if (half_ < 0) {
      half_ = digit;
      continue;
    }
    bytes_ += static_cast<char>(half_ * 16 + digit);
    half_ = -1;
  }
}

std::optional<Picture> RtfPicture::read() const {
  switch (source_) {
    case Source::File:
      return readPicture(bytes_);
    case Source::Bitmap:
      return readPicture(bmpFileOf(bytes_));
    case Source::Metafile:
      if (const std::string bitmap = bitmapOfMetafile(bytes_); !bitmap.empty())
        return readPicture(bmpFileOf(bitmap));
      return drawn();
    case Source::Unknown:
      break;
  }
  return std::nullopt;
}

// Scanned pictures come wrapped in a metafile; one that holds none may be a drawing.
std::optional<Picture> RtfPicture::drawn() const {
  constexpr double twipsOfUnit = 1440 / 2540.0;  // its own size is stated in hundredths of a millimetre
  auto picture = drawnPicture(bytes_);
  if (picture && width_ > 0 && height_ > 0) {
    picture->width = std::max(1, static_cast<int>(width_ * twipsOfUnit));
    picture->height = std::max(1, static_cast<int>(height_ * twipsOfUnit));
  }
  return picture;
}

void RtfPicture::placeOnPaper(Picture& picture) const {
  if (goalWidth_ > 0 && goalHeight_ > 0) {
    picture.width = goalWidth_;
    picture.height = goalHeight_;
  }
  const Extent across = extentOf(picture.width, acrossScale_, cropLeft_, cropRight_);
  const Extent down = extentOf(picture.height, downScale_, cropTop_, cropBottom_);
  picture.width = across.shown();
  picture.height = down.shown();
  picture.cropLeft = across.part(across.first);
  picture.cropRight = across.part(across.second);
  picture.cropTop = down.part(down.first);
  picture.cropBottom = down.part(down.second);
}

std::shared_ptr<const Picture> RtfPicture::finish() {
  std::shared_ptr<Picture> result;
  if (auto picture = read()) {
    placeOnPaper(*picture);
    result = std::make_shared<Picture>(std::move(*picture));
  }
  *this = RtfPicture{};
  return result;
}

}  // namespace zelvo
