#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <functional>
#include <optional>

#include "documents/preview/page_view.h"
#include "ui/control_view.h"
#include "ui/printing/page_painter.h"
#include "ui/printing/qt_printing.h"
#include "ui/style.h"

namespace zelvo {

namespace {

constexpr double kTwipsAPixel = 15;  // at full size
constexpr int kRoom = 16;            // around the paper

/// A page, as large as it is asked for. The keys that scroll a page turn to the next one at its end.
class PageWidget : public QAbstractScrollArea {
 public:
  explicit PageWidget(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Page"));
    setFrameShape(QFrame::StyledPanel);
  }
  std::function<void(int)> turned;

  /// What the view last showed; painting reads nothing else, since the control may be gone.
  std::optional<PagedDocument> pages;
  int page = 1;
  PageZoom zoom = PageZoom::FitWidth;
  int percent = 100;

  QSize sizeHint() const override { return QSize(charactersWide(120), charactersWide(76)); }
  QSize minimumSizeHint() const override { return QSize(charactersWide(30), charactersWide(30)); }

  void arrange() {
    const QSizeF size = paper();
    const QSize room = viewport()->size();
    horizontalScrollBar()->setRange(0, std::max(0, qRound(size.width()) + 2 * kRoom - room.width()));
    verticalScrollBar()->setRange(0, std::max(0, qRound(size.height()) + 2 * kRoom - room.height()));
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setSingleStep(40);
    viewport()->update();
  }

 protected:
  void resizeEvent(QResizeEvent*) override { arrange(); }
  void scrollContentsBy(int, int) override { viewport()->update(); }

  void paintEvent(QPaintEvent*) override {
    const Page* shown = current();
    if (!shown)
      return;
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Mid));
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    const QSizeF size = paper();
    const double left = std::max<double>(kRoom, (viewport()->width() - size.width()) / 2);
    painter.translate(left - horizontalScrollBar()->value(), kRoom - verticalScrollBar()->value());
    const QRectF sheet(QPointF(0, 0), size);
    painter.fillRect(sheet.translated(3, 3), QColor(0, 0, 0, 60));
    painter.fillRect(sheet, Qt::white);
    painter.setClipRect(sheet);
    painter.scale(scale(), scale());
    paper_.paint(painter, *shown);
  }

  void keyPressEvent(QKeyEvent* event) override {
    const QScrollBar& bar = *verticalScrollBar();
    const int step = event->key() == Qt::Key_PageDown ? 1 : event->key() == Qt::Key_PageUp ? -1 : 0;
    if (step != 0 && bar.value() == (step > 0 ? bar.maximum() : bar.minimum()))
      return turn(step);
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End)
      return turned(event->key() == Qt::Key_Home ? 1 : count());
    QAbstractScrollArea::keyPressEvent(event);
  }

  void wheelEvent(QWheelEvent* event) override {
    const QScrollBar& bar = *verticalScrollBar();
    const int step = event->angleDelta().y() < 0 ? 1 : event->angleDelta().y() > 0 ? -1 : 0;
    if (step != 0 && bar.value() == (step > 0 ? bar.maximum() : bar.minimum()))
      return turn(step);
    QAbstractScrollArea::wheelEvent(event);
  }

 private:
  int count() const { return pages ? static_cast<int>(pages->pages.size()) : 0; }

  // Turned back, a page is seen from its foot, as one that is read upward.
  void turn(int step) {
    if (page + step < 1 || page + step > count())
      return;
    turned(page + step);
    verticalScrollBar()->setValue(step > 0 ? 0 : verticalScrollBar()->maximum());
  }

  const Page* current() const {
    return page >= 1 && page <= count() ? &pages->pages[static_cast<std::size_t>(page) - 1] : nullptr;
  }

  // Pixels a twip.
  double scale() const {
    const Page* shown = current();
    if (!shown)
      return 1 / kTwipsAPixel;
    constexpr double kLeast = 0.01;
    const double wide = (viewport()->width() - 2.0 * kRoom) / shown->width;
    const double high = (viewport()->height() - 2.0 * kRoom) / shown->height;
    if (zoom == PageZoom::FitWidth)
      return std::max(kLeast, wide);
    return zoom == PageZoom::WholePage ? std::max(kLeast, std::min(wide, high)) : percent / 100.0 / kTwipsAPixel;
  }

  QSizeF paper() const {
    const Page* shown = current();
    return shown ? QSizeF(shown->width * scale(), shown->height * scale()) : QSizeF();
  }

  PagePainter paper_;
};

class PagesView : public ControlView {
 public:
  PagesView(PageView& pages, UserActions& actions, QWidget* parent)
      : ControlView(pages, actions), pages_(pages), widget_(new PageWidget(parent)) {
    widget_->turned = [this](int page) {
      if (!dead)
        user.sets(control_, std::to_string(page));
    };
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    if (!widget_->pages || shown_ != pages_.revision) {
      shown_ = pages_.revision;
      auto made = pages_.count > 0 ? pagesOfJob(pages_.job, QtFontMeasure()) : Result<PagedDocument>(PagedDocument{});
      widget_->pages = made ? std::move(*made) : PagedDocument{};
    } else if (widget_->page == pages_.page && widget_->zoom == pages_.zoom && widget_->percent == pages_.percent) {
      return;
    }
    if (widget_->page != pages_.page)
      widget_->verticalScrollBar()->setValue(0);
    widget_->page = pages_.page;
    widget_->zoom = pages_.zoom;
    widget_->percent = pages_.percent;
    widget_->setAccessibleDescription(QStringLiteral("Page %1 of %2").arg(pages_.page).arg(pages_.count));
    widget_->arrange();
  }

 private:
  PageView& pages_;
  PageWidget* widget_;
  std::uint64_t shown_ = 0;
};

}  // namespace

std::unique_ptr<ControlView> makePagesView(PageView& pages, UserActions& user, QWidget* parent) {
  return std::make_unique<PagesView>(pages, user, parent);
}

}  // namespace zelvo
