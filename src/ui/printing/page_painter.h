#pragma once

#include <QImage>
#include <map>
#include <memory>

#include "documents/page_layout.h"
#include "ui/printing/paper_font.h"

class QPainter;

namespace zelvo {

/// Paints laid-out pages as they will come out on paper. It keeps the fonts and pictures that it needed for the next
/// page.
class PagePainter {
 public:
  /// One unit of the painter is one twip, its origin the upper left corner of the paper.
  void paint(QPainter& painter, const Page& page);

 private:
  void paint(QPainter& painter, const PicturePiece& piece);
  void paintDrawn(QPainter& painter, const PicturePiece& piece);
  void paint(QPainter& painter, const TextPiece& piece);
  const QImage& imageOfPicture(const std::shared_ptr<const Picture>& picture);

  PaperFaces faces_;
  std::map<std::shared_ptr<const Picture>, QImage> images_;
  qsizetype imagesSize_ = 0;
};

}  // namespace zelvo
