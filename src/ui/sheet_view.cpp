#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <functional>

#include "base/files.h"
#include "ui/control_view.h"
#include "ui/style.h"

namespace zelvo {

namespace {

constexpr int kRoom = 4;  // around the paper, for its edge and the focus
// Paper is white and its labels are outlined in pencil on any desktop; the colours are those of a sheet that lies
// there.
constexpr QRgb kPencil = 0xff9aa3ad;
constexpr QRgb kUsed = 0xffdde1e5;
constexpr QRgb kFilled = 0xffeaf2fb;
constexpr QRgb kStart = 0xff2f6fb3;

/// The sheet as large as there is room, true to scale. Labels in front of the chosen one are used up and grey, those
/// that will be filled have a tint.
class SheetWidget : public QWidget {
 public:
  explicit SheetWidget(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  }

  std::function<void(SheetPlace)> chosen;

  QSize sizeHint() const override { return QSize(charactersWide(54), charactersWide(70)); }
  QSize minimumSizeHint() const override { return QSize(charactersWide(20), charactersWide(26)); }

  /// What the view last showed; painting reads nothing else, since the control may be gone.
  SheetGrid grid;
  SheetPlace place;
  QPixmap picture;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF sheet = paper();
    painter.setPen(
        QPen(hasFocus() ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid), hasFocus() ? 2 : 1));
    painter.setBrush(Qt::white);
    painter.drawRect(sheet);
    if (!picture.isNull())
      painter.drawPixmap(sheet, picture, picture.rect());
    painter.setClipRect(sheet);
    for (int row = 1; row <= grid.down; ++row)
      for (int column = 1; column <= grid.across; ++column)
        paintPlace(painter, {row, column});
  }

  void mouseMoveEvent(QMouseEvent* event) override {
    placeUnder(event->pos()) && isEnabled() ? setCursor(Qt::PointingHandCursor) : unsetCursor();
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    const auto under = placeUnder(event->pos());
    if (event->button() == Qt::LeftButton && under)
      chosen(*under);
  }

  void keyPressEvent(QKeyEvent* event) override {
    SheetPlace next = place;
    switch (event->key()) {
      case Qt::Key_Left:
        --next.column;
        break;
      case Qt::Key_Right:
        ++next.column;
        break;
      case Qt::Key_Up:
        --next.row;
        break;
      case Qt::Key_Down:
        ++next.row;
        break;
      default:
        return QWidget::keyPressEvent(event);
    }
    if (isOnGrid(grid, next))
      chosen(next);
  }

 private:
  double scale() const {
    return std::max(1.0,
                    std::min((width() - 2.0 * kRoom) / grid.paperWidth, (height() - 2.0 * kRoom) / grid.paperHeight));
  }
  QRectF paper() const {
    const QSizeF size(grid.paperWidth * scale(), grid.paperHeight * scale());
    return QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
  }
  std::optional<SheetPlace> placeUnder(const QPoint& point) const {
    const QPointF inside = (QPointF(point) - paper().topLeft()) / scale();
    return placeAt(grid, inside.x(), inside.y());
  }

  bool isUsedUp(SheetPlace other) const {
    return other.row < place.row || (other.row == place.row && other.column < place.column);
  }

  void paintPlace(QPainter& painter, SheetPlace which) const {
    const SheetArea area = areaOf(grid, which);
    const QRectF box(paper().topLeft() + QPointF(area.left, area.top) * scale(),
                     QSizeF(area.width, area.height) * scale());
    const bool first = which == place;
    QColor fill = QColor::fromRgba(first ? kStart : isUsedUp(which) ? kUsed : kFilled);
    if (!picture.isNull() && !first)
      fill.setAlpha(120);
    const double corner = std::min({6.0, box.height() / 6, box.width() / 6});
    painter.setPen(QPen(QColor::fromRgba(first ? kStart : kPencil), 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(box, corner, corner);
    if (!isUsedUp(which))
      paintLines(painter, box, first);
  }

  // Three strokes stand for name, street and city.
  static void paintLines(QPainter& painter, const QRectF& box, bool first) {
    painter.setPen(QPen(first ? QColor(Qt::white) : QColor::fromRgba(kPencil), 1));
    const double lengths[] = {0.45, 0.6, 0.52};
    for (int line = 0; line < 3; ++line) {
      const double y = box.top() + box.height() * (0.3 + 0.2 * line);
      painter.drawLine(QPointF(box.left() + box.width() * 0.1, y),
                       QPointF(box.left() + box.width() * (0.1 + lengths[line]), y));
    }
  }
};

class SheetView : public ControlView {
 public:
  SheetView(SheetPicture& sheet, UserActions& actions, QWidget* parent)
      : ControlView(sheet, actions), sheet_(sheet), widget_(new SheetWidget(parent)) {
    widget_->setAccessibleName(QStringLiteral("Sheet of labels"));
    widget_->chosen = [this](SheetPlace place) {
      if (!dead)
        user.sets(control_, std::to_string(place.row) + ", " + std::to_string(place.column));
    };
    watchFocus(widget_);
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    if (widget_->grid == sheet_.grid && widget_->place == sheet_.chosen && picture_ == sheet_.picture)
      return;
    widget_->grid = sheet_.grid;
    widget_->place = sheet_.chosen;
    if (picture_ != sheet_.picture)
      widget_->picture = QPixmap(QString::fromStdString(systemPath(sheet_.picture)));
    picture_ = sheet_.picture;
    widget_->setAccessibleDescription(
        QStringLiteral("Row %1, column %2").arg(sheet_.chosen.row).arg(sheet_.chosen.column));
    widget_->update();
  }

 private:
  SheetPicture& sheet_;
  SheetWidget* widget_;
  std::string picture_;
};

}  // namespace

std::unique_ptr<ControlView> makeSheetView(SheetPicture& sheet, UserActions& user, QWidget* parent) {
  return std::make_unique<SheetView>(sheet, user, parent);
}

}  // namespace zelvo
