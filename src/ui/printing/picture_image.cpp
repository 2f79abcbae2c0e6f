#include "ui/printing/picture_image.h"

#include <QBuffer>
#include <QImageReader>

namespace zelvo {

namespace {

constexpr qint64 kMostDots = 40'000'000;  // a sheet at 600 dots to the inch has 34 millions

const char* formatOf(PictureKind kind) {
  return kind == PictureKind::Png ? "png" : kind == PictureKind::Jpeg ? "jpeg" : "bmp";
}

}  // namespace

QImage imageOf(const Picture& picture) {
  QByteArray bytes = QByteArray::fromRawData(picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer, formatOf(picture.kind));
  const QSize size = reader.size();
  if (qint64{size.width()} * size.height() > kMostDots)
    return {};
  return reader.read();
}

}  // namespace zelvo
