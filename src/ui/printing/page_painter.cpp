#include "ui/printing/page_painter.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include "ui/printing/paper_font.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

constexpr int kTwipsAnInch = 1440;
constexpr double kTwipsOfPoint = 20;

QColor ink(const Colour& colour) {
  return {colour.red, colour.green, colour.blue};
}

void paintFilled(QPainter& painter, const std::vector<FilledPiece>& pieces) {
  for (const FilledPiece& piece : pieces)
    painter.fillRect(QRectF(piece.x, piece.y, piece.width, piece.height), ink(piece.colour));
}

void paintPicture(QPainter& painter, const PicturePiece& piece) {
  if (!piece.picture)
    return;
  const Picture& picture = *piece.picture;
  const QImage image =
      QImage::fromData(reinterpret_cast<const uchar*>(picture.bytes.data()), static_cast<int>(picture.bytes.size()));
  if (image.isNull())
    return;
  const double width = image.width();
  const double height = image.height();
  const QRectF part(width * picture.cropLeft, height * picture.cropTop,
                    width * (1 - picture.cropLeft - picture.cropRight),
                    height * (1 - picture.cropTop - picture.cropBottom));
  painter.drawImage(QRectF(piece.x, piece.y, piece.width, piece.height), image, part);
}

void paintText(QPainter& painter, const TextPiece& piece) {
  painter.setFont(paperFont(piece.font));
  painter.setPen(ink(piece.colour));
  painter.drawText(QPointF(piece.x, piece.baseline), QString::fromStdString(piece.text));
}

QPageLayout paperOf(const Page& page) {
  const QPageSize size(QSizeF(page.width, page.height) / kTwipsOfPoint, QPageSize::Point, QString(),
                       QPageSize::ExactMatch);
  return QPageLayout(size, QPageLayout::Portrait, QMarginsF(0, 0, 0, 0));
}

}  // namespace

void paintPage(QPainter& painter, const Page& page) {
  paintFilled(painter, page.shades);
  for (const PicturePiece& piece : page.pictures)
    paintPicture(painter, piece);
  for (const TextPiece& piece : page.texts)
    paintText(painter, piece);
  paintFilled(painter, page.rules);
}

Result<std::string> pdfOf(const PagedDocument& document, std::string_view title) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QPdfWriter writer(&bytes);
  writer.setResolution(kTwipsAnInch);
  writer.setTitle(qtText(title));
  writer.setCreator(QStringLiteral("Zelvo"));
  writer.setPageLayout(paperOf(document.pages.front()));
  QPainter painter;
  if (!painter.begin(&writer))
    return Error{Trouble::Failed, "The pages could not be made. Close other programs and try again."};
  for (std::size_t page = 0; page < document.pages.size(); ++page) {
    if (page > 0) {
      writer.setPageLayout(paperOf(document.pages[page]));  // a section may have paper of its own
      writer.newPage();
    }
    paintPage(painter, document.pages[page]);
  }
  painter.end();
  return bytes.data().toStdString();
}

}  // namespace zelvo
