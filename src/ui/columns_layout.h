#pragma once

#include <QLayout>
#include <vector>

namespace zelvo {

/// Puts columns beside each other, each with its share of the width. Where the window is too narrow for all of them,
/// the last ones go below the first: a page is scrolled downward, never sideways.
class ColumnsLayout : public QLayout {
 public:
  explicit ColumnsLayout(QWidget* parent);
  ~ColumnsLayout() override;

  void addColumn(QLayout* column, int share);

  void addItem(QLayoutItem* item) override { columns_.push_back({item, 1}); }
  int count() const override { return static_cast<int>(columns_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal | Qt::Vertical; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize minimumSize() const override;
  QSize sizeHint() const override;
  void setGeometry(const QRect& rect) override;

 private:
  struct Column {
    QLayoutItem* item;
    int share;
  };
  /// Columns from `first` on that fit beside each other; one at least.
  std::size_t fitting(std::size_t first, int width) const;
  std::vector<int> widthsOf(std::size_t first, std::size_t count, int width) const;
  int heightOf(std::size_t first, const std::vector<int>& widths) const;
  QSize margins() const;

  std::vector<Column> columns_;
};

}  // namespace zelvo
