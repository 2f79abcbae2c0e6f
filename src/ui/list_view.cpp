#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyle>
#include <QTableView>
#include <algorithm>
#include <optional>
#include <utility>

#include "ui/control_view.h"
#include "ui/list_model.h"
#include "ui/style.h"

namespace zelvo {

namespace {

// The table of a list. It tells which row the user went to, by mouse or by key, and which one he opens.
class RowsTable : public QTableView {
 public:
  explicit RowsTable(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 7);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
  }

  std::function<void(std::size_t)> wentTo;
  std::function<void(std::size_t)> opens;
  std::optional<int> ordered;  ///< the column that the rows are in the order of
  bool descending = false;

  // A window opens wide enough for the columns, and tall enough for a good many rows, where the display has the room.
  QSize sizeHint() const override {
    constexpr int kRows = 11;
    const int rows = horizontalHeader()->sizeHint().height() + kRows * verticalHeader()->defaultSectionSize();
    const int columns = horizontalHeader()->length() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return QSize(columns, rows) + QSize(2 * frameWidth(), 2 * frameWidth());
  }

  // Typed letters lead to the first row that begins with them, in the column that the rows are in the order of. A long
  // list is not read through from end to end for one letter.
  void keyboardSearch(const QString& letters) override {
    constexpr int kReadThrough = 2'000;
    if (!sinceTyped_.isValid() || sinceTyped_.elapsed() > QApplication::keyboardInputInterval())
      typed_.clear();
    sinceTyped_.start();
    typed_ += letters;
    const int all = model()->rowCount();
    const int count = ordered ? all : std::min(all, kReadThrough);
    int row = count <= kReadThrough ? 0 : firstNotBefore(count);
    while (count <= kReadThrough && row < count && compareRow(row) != 0)
      ++row;
    if (row < count && compareRow(row) == 0)
      setCurrentIndex(model()->index(row, 0));
  }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    QTableView::mouseReleaseEvent(event);
    if (!std::exchange(opened_, false))  // the second release of a double click chooses nothing anew
      tellRow(wentTo);
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    QTableView::mouseDoubleClickEvent(event);
    opened_ = true;
    tellRow(opens);
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      tellRow(opens);
      return;
    }
    const int before = currentIndex().row();
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End)
      goToEnd(event->key() == Qt::Key_End);
    else
      QTableView::keyPressEvent(event);
    if (currentIndex().row() != before)
      tellRow(wentTo);
  }

 private:
  // How the beginning of a row's cell compares with what was typed, in the order of the rows.
  int compareRow(int row) const {
    const QString cell = model()->index(row, ordered.value_or(0)).data().toString();
    const int compared = cell.left(typed_.size()).compare(typed_, Qt::CaseInsensitive);
    return descending ? -compared : compared;
  }
  int firstNotBefore(int count) const {
    int first = 0;
    while (count > 0) {
      const int half = count / 2;
      const bool before = compareRow(first + half) < 0;
      first = before ? first + half + 1 : first;
      count = before ? count - half - 1 : half;
    }
    return first;
  }
  // Rows are what is walked through here, not the cells of one.
  void goToEnd(bool last) {
    setCurrentIndex(model()->index(last ? model()->rowCount() - 1 : 0, std::max(currentIndex().column(), 0)));
  }
  void tellRow(const std::function<void(std::size_t)>& told) {
    if (currentIndex().isValid())
      told(static_cast<std::size_t>(currentIndex().row()));
  }

  bool opened_ = false;
  QString typed_;
  QElapsedTimer sinceTyped_;
};

class RowsView : public ControlView {
 public:
  RowsView(ListView& list, UserActions& actions, QWidget* parent)
      : ControlView(list, actions), list_(list), widget_(new RowsTable(parent)), model_(new ListModel(widget_)) {
    widget_->setModel(model_);
    widget_->wentTo = [this](std::size_t row) { chose(row, false); };
    widget_->opens = [this](std::size_t row) { chose(row, true); };
    watchFocus(widget_);
    QHeaderView* heads = widget_->horizontalHeader();
    heads->setSectionsClickable(list_.sortable);
    QObject::connect(heads, &QHeaderView::sectionClicked, widget_, [this](int column) {
      if (list_.sortable)
        user.sorts(list_, static_cast<std::size_t>(column));
    });
    QObject::connect(heads, &QHeaderView::sectionResized, widget_, [this](int column, int, int pixels) {
      if (!placing_ && static_cast<std::size_t>(column) + 1 < list_.columns.size())
        widths_[static_cast<std::size_t>(column)] = list_.columns[static_cast<std::size_t>(column)].width =
            charactersIn(pixels - kPadding);
    });
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    if (model_->follow(list_)) {
      shown_.reset();
      showHeight();
      showWidths();
    }
    showOrder();
    if (shown_ == list_.selected)
      return;
    shown_ = list_.selected;
    if (!shown_ || *shown_ >= static_cast<std::size_t>(model_->rowCount())) {
      widget_->clearSelection();
      widget_->setCurrentIndex({});
      return;
    }
    const auto index = model_->index(static_cast<int>(*shown_), 0);
    widget_->setCurrentIndex(index);
    widget_->selectRow(index.row());
    widget_->scrollTo(index, QAbstractItemView::EnsureVisible);
  }

 private:
  void chose(std::size_t row, bool open) {
    shown_ = row;
    if (open)
      user.opensRow(list_, row);
    else
      user.chooses(list_, row);
  }

  // The office's widths are a beginning: what the user pulls wider stays so while the columns are the same.
  void showWidths() {
    std::vector<int> widths;
    for (const ListColumn& column : list_.columns)
      widths.push_back(column.width);
    if (widths == widths_)
      return;
    widths_ = widths;
    placing_ = true;
    for (std::size_t column = 0; column < widths_.size(); ++column)
      widget_->setColumnWidth(static_cast<int>(column), charactersWide(widths_[column]) + kPadding);
    placing_ = false;
  }

  void showHeight() {
    const int line = widget_->fontMetrics().height() + 7;
    widget_->setIconSize({ListModel::kPictureWidth, ListModel::kPictureHeight});
    widget_->verticalHeader()->setDefaultSectionSize(list_.hasPictures ? ListModel::kPictureHeight + 8 : line);
  }

  // The head of the column that the rows are in the order of carries the mark.
  void showOrder() {
    const auto order = list_.sortedBy ? list_.sortedBy : list_.naturalOrder;
    widget_->ordered = order ? std::optional(static_cast<int>(*order)) : std::nullopt;
    widget_->descending = list_.sortedBy && list_.descending;
    QHeaderView* heads = widget_->horizontalHeader();
    heads->setSortIndicatorShown(list_.sortedBy.has_value());
    if (list_.sortedBy)
      heads->setSortIndicator(static_cast<int>(*list_.sortedBy),
                              list_.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  }

  static int charactersIn(int pixels) { return std::max(2, (pixels + charactersWide(1) / 2) / charactersWide(1)); }

  static constexpr int kPadding = 16;

  ListView& list_;
  RowsTable* widget_;
  ListModel* model_;
  std::optional<std::size_t> shown_;
  std::vector<int> widths_;
  bool placing_ = false;  // the widths are being shown, not pulled
};

}  // namespace

std::unique_ptr<ControlView> makeListView(ListView& list, UserActions& user, QWidget* parent) {
  return std::make_unique<RowsView>(list, user, parent);
}

}  // namespace zelvo
