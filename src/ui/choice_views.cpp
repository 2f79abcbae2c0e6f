#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStylePainter>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>

#include "base/text.h"
#include "ui/control_view.h"
#include "ui/offer_list.h"
#include "ui/style.h"

namespace zelvo {

namespace {

// A drop-down list that the wheel scrolls past, that a long entry does not widen, and that shows what an old record
// holds even when its list does not offer that.
class ChoiceBox : public QComboBox {
 public:
  ChoiceBox(bool freeText, QWidget* parent) : QComboBox(parent) {
    setEditable(freeText);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(4);
    setMaxVisibleItems(20);
    if (freeText)
      setCompleter(nullptr);  // what is typed is taken as it is typed
  }

  void showText(const QString& text) {
    text_ = text;
    const QSignalBlocker programsDoing(this);
    if (isEditable()) {
      const int cursor = lineEdit()->cursorPosition();
      setCurrentIndex(findText(text));
      setEditText(text);
      lineEdit()->setCursorPosition(lineEdit()->hasFocus() ? cursor : 0);
    } else {
      setCurrentIndex(findText(text));
      update();
    }
  }

  void setLocked(bool locked) {
    locked_ = locked;
    if (lineEdit())
      lineEdit()->setReadOnly(locked);
  }
  bool isLocked() const { return locked_; }

  void showPopup() override {
    if (locked_)
      return;
    view()->setMinimumWidth(std::min(view()->sizeHintForColumn(0) + 40, charactersWide(70)));
    QComboBox::showPopup();
  }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

  // The arrow keys would choose another entry.
  void keyPressEvent(QKeyEvent* event) override {
    const bool chooses = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down || event->key() == Qt::Key_PageUp ||
                         event->key() == Qt::Key_PageDown || !isEditable();
    if (locked_ && chooses)
      event->ignore();
    else
      QComboBox::keyPressEvent(event);
  }

  void paintEvent(QPaintEvent* event) override {
    if (isEditable()) {
      QComboBox::paintEvent(event);
      return;
    }
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = text_;
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
  }

 private:
  QString text_;
  bool locked_ = false;
};

class ComboView : public ControlView {
 public:
  ComboView(Combo& combo, UserActions& actions, QWidget* parent)
      : ControlView(combo, actions), combo_(combo), widget_(new ChoiceBox(combo.freeText, parent)) {
    QObject::connect(widget_, &QComboBox::activated, widget_, [this](int index) { chose(widget_->itemText(index)); });
    if (combo.freeText)
      QObject::connect(widget_->lineEdit(), &QLineEdit::textEdited, widget_, [this](const QString& text) {
        chose(text);
        offer();
      });
    watchFocus(widget_);
  }
  QWidget* widget() const override { return widget_; }
  void takeFocus(bool selectAll) override {
    widget_->setFocus(Qt::OtherFocusReason);
    if (selectAll && widget_->lineEdit())
      widget_->lineEdit()->selectAll();
  }

 protected:
  void showValue() override {
    if (widget_->isLocked() != combo_.locked)
      widget_->setLocked(combo_.locked);
    if (const Ground ground = groundOf(combo_); ground_ != ground)
      showGround(widget_, ground_ = ground);
    if (items_ != combo_.items)
      showItems();
    if (shown_ == combo_.text)
      return;
    shown_ = combo_.text;
    widget_->showText(QString::fromStdString(shown_));
  }

 private:
  // The widget tells once more, when it is left, what was typed into it; that changes nothing.
  void chose(const QString& text) {
    if (shown_ == text.toStdString())
      return;
    shown_ = text.toStdString();
    if (!combo_.freeText)
      widget_->showText(text);
    user.sets(control_, shown_);
  }

  // The handler may have closed the screen, or written something else into the box.
  void offer() {
    if (dead || !combo_.suggests)
      return;
    if (!offers_)
      offers_ = new OfferList(*widget_->lineEdit(), [this](const QString& text) { chose(text); });
    offers_->show(user.offers(combo_));
  }

  void showItems() {
    items_ = combo_.items;
    QStringList entries;
    for (const std::string& item : items_)
      entries.append(QString::fromStdString(item));
    const QSignalBlocker programsDoing(widget_);
    widget_->clear();
    widget_->addItems(entries);
    widget_->showText(QString::fromStdString(shown_));
  }

  Combo& combo_;
  ChoiceBox* widget_;
  Ground ground_ = Ground::Paper;
  std::vector<std::string> items_;
  std::string shown_;
  OfferList* offers_ = nullptr;
};

// The wheel does not turn the pages. An access key leads into its page, even when that is the present one.
class PageTabs : public QTabBar {
 public:
  using QTabBar::QTabBar;
  std::function<void()> called;

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::Shortcut)
      called();
    return QTabBar::event(event);
  }
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class PagesWidget : public QTabWidget {
 public:
  explicit PagesWidget(QWidget* parent) : QTabWidget(parent), tabs_(new PageTabs(this)) { setTabBar(tabs_); }
  PageTabs& tabs() { return *tabs_; }

 private:
  PageTabs* tabs_;
};

class TabsView : public ControlView {
 public:
  TabsView(Tabs& tabs, UserActions& actions, QWidget* parent)
      : ControlView(tabs, actions), tabs_(tabs), widget_(new PagesWidget(parent)) {
    for (const std::string& caption : tabs.pages)
      widget_->addTab(new QWidget, QString::fromStdString(caption));
    widget_->setDocumentMode(true);
    widget_->tabs().called = [this] { enterPage(); };
    QObject::connect(widget_, &QTabWidget::currentChanged, widget_, [this](int page) {
      if (widget_->window()->focusWidget() != &widget_->tabs())  // there the arrow keys go on turning
        enterPage();
      user.sets(control_, std::to_string(page + 1));
    });
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    const QSignalBlocker programsDoing(widget_);
    const int pages = std::min(widget_->count(), static_cast<int>(tabs_.pages.size()));
    for (int page = 0; page < pages; ++page) {
      const QString caption = QString::fromStdString(tabs_.pages[static_cast<std::size_t>(page)]);
      if (widget_->tabText(page) != caption)
        widget_->setTabText(page, caption);
    }
    if (widget_->currentIndex() != static_cast<int>(tabs_.current))
      widget_->setCurrentIndex(static_cast<int>(tabs_.current));
  }

 private:
  // A page that the user turned to takes the focus, so that its list can be walked through at once.
  void enterPage() {
    QWidget* page = widget_->currentWidget();
    for (QWidget* next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain())
      if (page->isAncestorOf(next) && next->isEnabled() && next->isVisibleTo(page) &&
          (next->focusPolicy() & Qt::TabFocus) != 0)
        return next->setFocus(Qt::TabFocusReason);
  }

  Tabs& tabs_;
  PagesWidget* widget_;
};

}  // namespace

std::unique_ptr<ControlView> makeComboView(Combo& combo, UserActions& user, QWidget* parent) {
  return std::make_unique<ComboView>(combo, user, parent);
}

std::unique_ptr<ControlView> makeTabsView(Tabs& tabs, UserActions& user, QWidget* parent) {
  return std::make_unique<TabsView>(tabs, user, parent);
}

}  // namespace zelvo
