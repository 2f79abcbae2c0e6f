#pragma once

#include <QPointF>
#include <QRectF>

#include "documents/drawing.h"
#include "documents/page_layout.h"
#include "ui/printing/paper_font.h"

namespace zelvo {

/// Where a drawing stands on a page, and all that is in it; lengths in twips, downward.
class DrawingPlace {
 public:
  explicit DrawingPlace(const QRectF& frame) : frame_(frame) {}
  /// Where the whole drawing would stand, of which the piece shows a part.
  explicit DrawingPlace(const PicturePiece& piece);

  QPointF of(const DrawingPoint& point) const;
  double lineWidth(const DrawnShape& shape) const;
  /// In the size in which the text stands on the page.
  TextFont fontOf(const DrawnText& text) const;
  /// Where the text begins as seen from its point, before it is turned: to the right and down.
  static QPointF beginningOf(const DrawnText& text, const PaperFace& face, double scale);

 private:
  QRectF frame_;
};

}  // namespace zelvo
