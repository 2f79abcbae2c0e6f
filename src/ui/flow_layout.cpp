#include "ui/flow_layout.h"

#include <QWidget>

namespace zelvo {

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
  setSpacing(2);
}

FlowLayout::~FlowLayout() {
  qDeleteAll(items_);
}

QLayoutItem* FlowLayout::takeAt(int index) {
  return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr;
}

QSize FlowLayout::minimumSize() const {
  QSize size;
  for (const QLayoutItem* item : items_)
    size = size.expandedTo(item->minimumSize());
  return size;
}

QSize FlowLayout::sizeHint() const {
  QSize size;
  for (const QLayoutItem* item : items_)
    size =
        QSize(size.width() + item->sizeHint().width() + spacing(), std::max(size.height(), item->sizeHint().height()));
  return size;
}

void FlowLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  arrange(rect, true);
}

// Gives the height that all lines take.
int FlowLayout::arrange(const QRect& rect, bool place) const {
  int x = rect.x();
  int y = rect.y();
  int lineHeight = 0;
  for (QLayoutItem* item : items_) {
    if (item->isEmpty())
      continue;
    const QSize size = item->sizeHint();
    if (x > rect.x() && x + size.width() > rect.right() + 1) {
      x = rect.x();
      y += lineHeight + spacing();
      lineHeight = 0;
    }
    lineHeight = std::max(lineHeight, size.height());
    if (place)
      item->setGeometry(QRect(QPoint(x, y), QSize(size.width(), lineHeight)));
    x += size.width() + spacing();
  }
  return y + lineHeight - rect.y();
}

}  // namespace zelvo
