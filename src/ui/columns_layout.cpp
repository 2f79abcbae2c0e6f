#include "ui/columns_layout.h"

#include <algorithm>

namespace zelvo {

ColumnsLayout::ColumnsLayout(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
  setSpacing(10);
}

// A column that goes takes itself out of the row, so they are not walked through here.
ColumnsLayout::~ColumnsLayout() {
  while (QLayoutItem* item = takeAt(0))
    delete item;
}

void ColumnsLayout::addColumn(QLayout* column, int share) {
  addChildLayout(column);
  columns_.push_back({column, std::max(1, share)});
}

QLayoutItem* ColumnsLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? columns_[static_cast<std::size_t>(index)].item : nullptr;
}

QLayoutItem* ColumnsLayout::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item)
    columns_.erase(columns_.begin() + index);
  return item;
}

QSize ColumnsLayout::margins() const {
  const QMargins around = contentsMargins();
  return {around.left() + around.right(), around.top() + around.bottom()};
}

std::size_t ColumnsLayout::fitting(std::size_t first, int width) const {
  int taken = columns_[first].item->minimumSize().width();
  std::size_t last = first + 1;
  while (last < columns_.size()) {
    taken += spacing() + columns_[last].item->minimumSize().width();
    if (taken > width)
      break;
    ++last;
  }
  return last - first;
}

int ColumnsLayout::heightOf(std::size_t first, const std::vector<int>& widths) const {
  int height = 0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const QLayoutItem& item = *columns_[first + i].item;
    const int own = item.hasHeightForWidth() ? item.heightForWidth(widths[i]) : 0;
    height = std::max({height, own, item.minimumSize().height()});
  }
  return height;
}

// Each column has its share of the row; when that is too narrow for one of them, each has what it needs at the least
// and its share of the rest.
std::vector<int> ColumnsLayout::widthsOf(std::size_t first, std::size_t count, int width) const {
  int room = width - static_cast<int>(count - 1) * spacing();
  int shares = 0;
  for (std::size_t i = first; i < first + count; ++i)
    shares += columns_[i].share;
  std::vector<int> least(count, 0);
  for (std::size_t i = 0; i < count; ++i)
    if (columns_[first + i].item->minimumSize().width() > room * columns_[first + i].share / shares)
      least.assign(count, 1);
  for (std::size_t i = 0; i < count; ++i) {
    least[i] *= columns_[first + i].item->minimumSize().width();
    room -= least[i];
  }
  for (std::size_t i = 0; i < count; ++i)
    least[i] += std::max(0, room) * columns_[first + i].share / shares;
  return least;
}

int ColumnsLayout::heightForWidth(int width) const {
  const int room = width - margins().width();
  int height = margins().height();
  for (std::size_t first = 0; first < columns_.size();) {
    const std::size_t count = fitting(first, room);
    height += heightOf(first, widthsOf(first, count, room)) + (first > 0 ? spacing() : 0);
    first += count;
  }
  return height;
}

QSize ColumnsLayout::minimumSize() const {
  QSize size;
  for (const Column& column : columns_)
    size = size.expandedTo(column.item->minimumSize());
  return size + margins();
}

QSize ColumnsLayout::sizeHint() const {
  QSize size(std::max(0, count() - 1) * spacing(), 0);
  for (const Column& column : columns_) {
    const QSize wanted = column.item->sizeHint();
    size = QSize(size.width() + wanted.width(), std::max(size.height(), wanted.height()));
  }
  return size + margins();
}

void ColumnsLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  const QRect room = rect.marginsRemoved(contentsMargins());
  int y = room.y();
  for (std::size_t first = 0; first < columns_.size();) {
    const std::size_t count = fitting(first, room.width());
    const bool last = first + count == columns_.size();
    const auto widths = widthsOf(first, count, room.width());
    const int height = last ? room.bottom() + 1 - y : heightOf(first, widths);
    int x = room.x();
    for (std::size_t i = 0; i < count; ++i) {
      columns_[first + i].item->setGeometry(QRect(x, y, widths[i], height));
      x += widths[i] + spacing();
    }
    y += height + spacing();
    first += count;
  }
}

}  // namespace zelvo
