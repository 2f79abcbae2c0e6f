#pragma once

#include <QAbstractTextDocumentLayout>
#include <vector>

#include "ui/writing/text_blocks.h"

class QTextTableCell;

namespace zelvo {

/// The lines of a letter on the one long sheet that it is written on. A change lays out the blocks that it touches and
/// nothing else; where all others stand is the sum of their heights. So a key in a report of hundreds of pages is
/// answered at once. It knows what QtLetter shows: blocks, pictures in the line, and tables of one row.
class LetterFlow : public QAbstractTextDocumentLayout {
 public:
  explicit LetterFlow(QTextDocument* text) : QAbstractTextDocumentLayout(text) {}

  void draw(QPainter* painter, const PaintContext& context) override;
  int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
  int pageCount() const override { return 1; }
  QSizeF documentSize() const override;
  QRectF frameBoundingRect(QTextFrame* frame) const override;
  QRectF blockBoundingRect(const QTextBlock& block) const override;

 protected:
  void documentChanged(int from, int removed, int added) override;
  void resizeInlineObject(QTextInlineObject item, int position, const QTextFormat& format) override;
  void positionInlineObject(QTextInlineObject, int, const QTextFormat&) override {}
  void drawInlineObject(QPainter* painter, const QRectF& area, QTextInlineObject item, int position,
                        const QTextFormat& format) override;

 private:
  // A block of the text. Of a table the first one takes the room of all.
  struct Part {
    double room = 0;    // that it takes of the sheet's height
    double height = 0;  // of its own lines
    bool inTable = false;
  };
  struct CellBox {
    QRectF area;
    double textTop;
    int first, last;  // the blocks in it
  };

  double margin() const { return document()->documentMargin(); }
  double lineWidth() const { return document()->pageSize().width() - 2 * margin(); }
  double topOf(int number) const;
  int numberAt(double y) const;
  void layOut(BlockSpan span, std::vector<Part>& parts) const;
  void layOutTable(const QTextTable& table, std::vector<Part>& parts) const;
  std::vector<CellBox> cellsOf(const QTextTable& table, double top) const;
  QPointF originOf(const QTextBlock& block) const;
  int hitBlock(int number, QPointF point) const;
  void drawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block, QPointF origin,
                 double width) const;
  void drawTable(QPainter& painter, const PaintContext& context, const QTextTable& table, double top) const;

  std::vector<Part> parts_;
  QSizeF told_;
};

}  // namespace zelvo
