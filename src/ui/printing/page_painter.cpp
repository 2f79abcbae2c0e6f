#include "ui/printing/page_painter.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <map>
#include <utility>

#include "ui/printing/drawing_painter.h"
#include "ui/printing/glyph_pdf.h"
#include "ui/printing/paper_font.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

constexpr int kTwipsAnInch = 1440;
constexpr double kTwipsOfPoint = 20;

void paintFilled(QPainter& painter, const std::vector<FilledPiece>& pieces) {
  for (const FilledPiece& piece : pieces)
    painter.fillRect(QRectF(piece.x, piece.y, piece.width, piece.height), inkOf(piece.colour));
}

// The picture of a letterhead stands on every page: it is read once, and goes into a PDF once. Of many, those are kept
// that need no more memory than a few pages of photographs.
class ReadPictures {
 public:
  const QImage& of(const std::shared_ptr<const Picture>& picture) {
    const auto known = images_.find(picture);
    if (known != images_.end())
      return known->second;
    const std::string& bytes = picture->bytes;
    QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
    size_ += image.sizeInBytes();
    if (size_ > kMostKept) {
      images_.clear();
      size_ = image.sizeInBytes();
    }
    return images_.emplace(picture, std::move(image)).first->second;
  }

 private:
  static constexpr qsizetype kMostKept = 100'000'000;
  std::map<std::shared_ptr<const Picture>, QImage> images_;
  qsizetype size_ = 0;
};

// The whole drawing around the part of it that is shown.
void paintDrawn(QPainter& painter, const PicturePiece& piece, const PaperFaces& faces) {
  const Picture& picture = *piece.picture;
  const double width = piece.width / (1 - picture.cropLeft - picture.cropRight);
  const double height = piece.height / (1 - picture.cropTop - picture.cropBottom);
  painter.save();
  painter.setClipRect(QRectF(piece.x, piece.y, piece.width, piece.height));
  const QRectF frame(piece.x - width * picture.cropLeft, piece.y - height * picture.cropTop, width, height);
  paintDrawing(painter, drawingOf(picture.bytes), frame, faces);
  painter.restore();
}

void paintPicture(QPainter& painter, const PicturePiece& piece, ReadPictures& pictures, const PaperFaces& faces) {
  if (!piece.picture)
    return;
  const Picture& picture = *piece.picture;
  if (picture.kind == PictureKind::Metafile)
    return paintDrawn(painter, piece, faces);
  const QImage& image = pictures.of(piece.picture);
  if (image.isNull())
    return;
  const double width = image.width();
  const double height = image.height();
  const QRectF part(width * picture.cropLeft, height * picture.cropTop,
                    width * (1 - picture.cropLeft - picture.cropRight),
                    height * (1 - picture.cropTop - picture.cropBottom));
  painter.drawImage(QRectF(piece.x, piece.y, piece.width, piece.height), image, part);
}

void paintText(QPainter& painter, const TextPiece& piece, const PaperFaces& faces) {
  const double scale = paperScale(piece.font);
  const QTransform page = painter.transform();
  painter.setPen(inkOf(piece.colour));
  painter.translate(piece.x, piece.baseline);
  painter.scale(scale, scale);
  faces.of(piece.font).draw(painter, piece.text);
  painter.setTransform(page);
}

QPageLayout paperOf(const Page& page) {
  const QPageSize size(QSizeF(page.width, page.height) / kTwipsOfPoint, QPageSize::Point, QString(),
                       QPageSize::ExactMatch);
  return QPageLayout(size, QPageLayout::Portrait, QMarginsF(0, 0, 0, 0));
}

void paintPieces(QPainter& painter, const Page& page, ReadPictures& pictures, const PaperFaces& faces) {
  paintFilled(painter, page.shades);
  for (const PicturePiece& piece : page.pictures)
    paintPicture(painter, piece, pictures, faces);
  for (const TextPiece& piece : page.texts)
    paintText(painter, piece, faces);
  paintFilled(painter, page.rules);
}

// As the system paints: pictures, and texts of every script.
Result<std::string> paintedPdf(const PagedDocument& document, std::string_view title, const PaperFaces& faces) {
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
  ReadPictures pictures;
  for (std::size_t page = 0; page < document.pages.size(); ++page) {
    if (page > 0) {
      writer.setPageLayout(paperOf(document.pages[page]));  // a section may have paper of its own
      writer.newPage();
    }
    paintPieces(painter, document.pages[page], pictures, faces);
  }
  painter.end();
  return bytes.data().toStdString();
}

}  // namespace

void paintPage(QPainter& painter, const Page& page) {
  ReadPictures pictures;
  paintPieces(painter, page, pictures, PaperFaces());
}

Result<std::string> pdfOf(const PagedDocument& document, std::string_view title, const PaperFaces& faces) {
  if (document.isCutOff)
    return Error{Trouble::BadInput, "\"" + std::string(title) + "\" has more than " + std::to_string(kMostPages) +
                                        " pages, too many to be printed at once. Print it in parts."};
  if (auto pdf = glyphPdf(document, title, faces))
    return std::move(*pdf);
  return paintedPdf(document, title, faces);
}

Result<std::string> pdfOf(const PagedDocument& document, std::string_view title) {
  return pdfOf(document, title, PaperFaces());
}

}  // namespace zelvo
