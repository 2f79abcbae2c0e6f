#include "ui/printing/page_painter.h"

#include <QPainter>

#include "ui/printing/drawing_painter.h"
#include "ui/printing/picture_image.h"

namespace zelvo {

namespace {

constexpr qsizetype kMostKept = 100'000'000;  // bytes of images: no more than a few pages of photographs

void paintFilled(QPainter& painter, const std::vector<FilledPiece>& pieces) {
  for (const FilledPiece& piece : pieces)
    painter.fillRect(QRectF(piece.x, piece.y, piece.width, piece.height), inkOf(piece.colour));
}

}  // namespace

void PagePainter::paint(QPainter& painter, const Page& page) {
  paintFilled(painter, page.shades);
  for (const PicturePiece& piece : page.pictures)
    paint(painter, piece);
  for (const TextPiece& piece : page.texts)
    paint(painter, piece);
  paintFilled(painter, page.rules);
}

void PagePainter::paint(QPainter& painter, const PicturePiece& piece) {
  if (!piece.picture)
    return;
  const Picture& picture = *piece.picture;
  if (picture.kind == PictureKind::Metafile)
    return paintDrawn(painter, piece);
  const QImage& image = imageOfPicture(piece.picture);
  if (image.isNull())
    return;
  const double width = image.width(), height = image.height();
  const QRectF part(width * picture.cropLeft, height * picture.cropTop,
                    width * (1 - picture.cropLeft - picture.cropRight),
                    height * (1 - picture.cropTop - picture.cropBottom));
  painter.drawImage(QRectF(piece.x, piece.y, piece.width, piece.height), image, part);
}

void PagePainter::paintDrawn(QPainter& painter, const PicturePiece& piece) {
  painter.save();
  painter.setClipRect(QRectF(piece.x, piece.y, piece.width, piece.height), Qt::IntersectClip);
  paintDrawing(painter, drawingOf(piece.picture->bytes), DrawingPlace(piece), faces_);
  painter.restore();
}

// The picture of a letterhead stands on every page: it is read once.
const QImage& PagePainter::imageOfPicture(const std::shared_ptr<const Picture>& picture) {
  const auto known = images_.find(picture);
  if (known != images_.end())
    return known->second;
  QImage image = imageOf(*picture);
  imagesSize_ += image.sizeInBytes();
  if (imagesSize_ > kMostKept) {
    images_.clear();
    imagesSize_ = image.sizeInBytes();
  }
  return images_.emplace(picture, std::move(image)).first->second;
}

void PagePainter::paint(QPainter& painter, const TextPiece& piece) {
  const double scale = paperScale(piece.font);
  const QTransform page = painter.transform();
  painter.setPen(inkOf(piece.colour));
  painter.translate(piece.x, piece.baseline);
  painter.scale(scale, scale);
  faces_.of(piece.font).draw(painter, piece.text);
  painter.setTransform(page);
}

}  // namespace zelvo
