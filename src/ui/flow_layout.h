#pragma once

#include <QLayout>
#include <QList>

namespace zelvo {

/// Puts its items beside each other and, where the room ends, on a further line: a toolbar that never hides a button.
class FlowLayout : public QLayout {
 public:
  explicit FlowLayout(QWidget* parent);
  ~FlowLayout() override;

  void addItem(QLayoutItem* item) override { items_.append(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override { return items_.value(index); }
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return arrange(QRect(0, 0, width, 0), false); }
  QSize minimumSize() const override;
  QSize sizeHint() const override;
  void setGeometry(const QRect& rect) override;

 private:
  int arrange(const QRect& rect, bool place) const;

  QList<QLayoutItem*> items_;
};

}  // namespace zelvo
