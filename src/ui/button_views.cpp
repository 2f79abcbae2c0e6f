#include <QButtonGroup>
#include <QCheckBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolButton>
#include <utility>

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"
#include "ui/control_view.h"
#include "ui/qt_text.h"
#include "ui/style.h"

namespace zelvo {

namespace {

// A label that does something when clicked can be reached and pressed by keys as well.
class PlainLabel : public QLabel {
 public:
  using QLabel::QLabel;
  std::function<void()> pressed;

  void setClickable(bool clickable) {
    setFocusPolicy(clickable ? Qt::StrongFocus : Qt::NoFocus);
    clickable ? setCursor(Qt::PointingHandCursor) : unsetCursor();
    QFont letters = font();
    letters.setUnderline(clickable);
    setFont(letters);
  }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && focusPolicy() != Qt::NoFocus && rect().contains(event->pos()))
      pressed();
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (focusPolicy() != Qt::NoFocus && (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return))
      pressed();
    else
      QLabel::keyPressEvent(event);
  }
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (!hasFocus())
      return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
};

// A picture that is larger than its room, or than the display, is shown whole.
QPixmap pictureOf(const std::string& path, const QSize& most) {
  const QPixmap picture(QString::fromStdString(systemPath(path)));
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize room = !most.isEmpty() ? most : screen ? screen->size() : picture.size();
  const bool fits = picture.width() <= room.width() && picture.height() <= room.height();
  return fits ? picture : picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

class LabelView : public ControlView {
 public:
  LabelView(Label& label, UserActions& actions, QWidget* parent, LayoutRow::Kind kind, QSize room)
      : ControlView(label, actions),
        label_(label),
        widget_(new PlainLabel(parent)),
        picture_(kind == LayoutRow::Kind::Picture),
        room_(room) {
    widget_->setTextFormat(Qt::PlainText);
    widget_->pressed = [this] { user.clicks(control_); };
    if (kind == LayoutRow::Kind::Heading) {
      QFont letters = widget_->font();
      letters.setPointSizeF(letters.pointSizeF() * 1.6);
      letters.setBold(true);
      widget_->setFont(letters);
    }
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    if (shown_ != label_.caption) {
      shown_ = label_.caption;
      if (picture_)
        widget_->setPixmap(pictureOf(shown_, room_));
      else
        showText();
    }
    if (clickable_ != label_.clickable) {
      clickable_ = label_.clickable;
      widget_->setClickable(clickable_);
    }
    if (warning_ != label_.warning) {
      warning_ = label_.warning;
      showWarning();
    }
  }

 private:
  // What is long takes a second line rather than a wider window.
  void showText() {
    constexpr std::size_t kOneLine = 60;
    widget_->setWordWrap(shown_.size() > kOneLine || shown_.find('\n') != std::string::npos);
    widget_->setText(QString::fromStdString(shown_));
  }

  void showWarning() {
    QFont letters = widget_->font();
    letters.setBold(warning_);
    widget_->setFont(letters);
    QPalette colours;
    if (warning_)
      colours.setColor(QPalette::WindowText, warningColour(widget_->palette()));
    widget_->setPalette(colours);
  }

  Label& label_;
  PlainLabel* widget_;
  bool picture_;
  QSize room_;
  std::string shown_;
  bool clickable_ = false;
  bool warning_ = false;
};

class BarView : public ControlView {
 public:
  BarView(Label& label, UserActions& actions, QWidget* parent)
      : ControlView(label, actions), label_(label), widget_(new QProgressBar(parent)) {
    widget_->setRange(0, 100);
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    const int done = CLng(Val(label_.caption));
    if (widget_->value() != done)
      widget_->setValue(done);
  }

 private:
  Label& label_;
  QProgressBar* widget_;
};

// Keys as they stand on the keyboard.
std::string keyNames(std::string_view keys) {
  return replaceAll(replaceAll(keys, "PgUp", "Page Up"), "PgDown", "Page Down");
}

// The drawing is known from every word processor; the tip has the word.
bool saysItAll(Glyph glyph) {
  return glyph == Glyph::First || glyph == Glyph::Previous || glyph == Glyph::Next || glyph == Glyph::Last ||
         glyph >= Glyph::Undo;
}

QAbstractButton* makeTool(QWidget* parent, const LayoutRow& row) {
  auto* tool = new QToolButton(parent);
  tool->setAutoRaise(true);
  tool->setFocusPolicy(Qt::TabFocus);
  tool->setIcon(glyphIcon(row.glyph));
  tool->setToolButtonStyle(row.glyph == Glyph::None ? Qt::ToolButtonTextOnly
                           : saysItAll(row.glyph)   ? Qt::ToolButtonIconOnly
                                                    : Qt::ToolButtonTextBesideIcon);
  return tool;
}

// A tool that stays pressed; it has its keys from the layout.
QAbstractButton* makeToggle(QWidget* parent, const LayoutRow& row) {
  QAbstractButton* tool = makeTool(parent, row);
  tool->setCheckable(true);
  return tool;
}

bool isTool(const LayoutRow* row) {
  return row && row->kind == LayoutRow::Kind::Tool;
}

// The caption of a button may bring an access key, which the keys of the layout take the place of.
void showCaption(QAbstractButton* widget, const std::string& caption, const QKeySequence& keys) {
  widget->setText(QString::fromStdString(caption));
  if (!keys.isEmpty())
    widget->setShortcut(keys);
}

QKeySequence keysOf(const LayoutRow* row) {
  return row ? QKeySequence(qtText(row->keys)) : QKeySequence();
}

class ButtonView : public ControlView {
 public:
  ButtonView(Button& button, UserActions& actions, QAbstractButton* widget, const LayoutRow* row)
      : ControlView(button, actions), button_(button), widget_(widget), keys_(keysOf(row)) {
    QObject::connect(widget_, &QAbstractButton::clicked, widget_, [this] { user.clicks(control_); });
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    if (shown_ != button_.caption) {
      shown_ = button_.caption;
      showCaption(widget_, shown_, keys_);
    }
    auto* push = qobject_cast<QPushButton*>(widget_);
    if (push && push->isDefault() != button_.isDefault)
      push->setDefault(button_.isDefault);
  }
  // A button tells the keys that press it beside its access key.
  std::string tip() const override {
    std::vector<std::string> keys;
    for (const std::string& each : {keyNames(button_.shortcut), keyNames(keys_.toString().toStdString())})
      if (!each.empty())
        keys.push_back(each);
    if (keys.empty())
      return button_.tip;
    const std::string what = button_.tip.empty() ? replaceAll(button_.caption, "&", "") : button_.tip;
    return what + " (" + join(keys, ", ") + ")";
  }

 private:
  Button& button_;
  QAbstractButton* widget_;
  QKeySequence keys_;
  std::string shown_;
};

class CheckView : public ControlView {
 public:
  CheckView(CheckBox& box, UserActions& actions, QAbstractButton* widget, const LayoutRow* row)
      : ControlView(box, actions), box_(box), widget_(widget), keys_(keysOf(row)) {
    QObject::connect(widget_, &QAbstractButton::clicked, widget_,
                     [this](bool checked) { user.sets(control_, checked ? "1" : "0"); });
    watchFocus(widget_);
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    const QString caption = QString::fromStdString(box_.caption);
    if (widget_->text() != caption)
      showCaption(widget_, box_.caption, keys_);
    if (widget_->isChecked() != box_.checked)
      widget_->setChecked(box_.checked);
    if (locked_ == box_.locked)
      return;
    locked_ = box_.locked;
    showGround(widget_, locked_ ? Ground::Flat : Ground::Paper);
  }

 private:
  CheckBox& box_;
  QAbstractButton* widget_;
  QKeySequence keys_;
  bool locked_ = false;
};

class OptionView : public ControlView {
 public:
  OptionView(Option& option, UserActions& actions, QAbstractButton* widget, const LayoutRow* row)
      : ControlView(option, actions), option_(option), widget_(widget), keys_(keysOf(row)) {
    groupOf(widget->parentWidget())->addButton(widget_);
    QObject::connect(widget_, &QAbstractButton::clicked, widget_, [this] { user.sets(control_, "1"); });
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    const QString caption = QString::fromStdString(option_.caption);
    if (widget_->text() != caption)
      showCaption(widget_, option_.caption, keys_);
    if (widget_->isChecked() == option_.chosen)
      return;
    widget_->group()->setExclusive(option_.chosen);  // a group may also have none chosen
    widget_->setChecked(option_.chosen);
    widget_->group()->setExclusive(true);
  }

 private:
  // The options of one group share a button group, so that the arrow keys go round among them.
  QButtonGroup* groupOf(QWidget* parent) const {
    const QString name = QStringLiteral("options of ") + QString::fromStdString(option_.group);
    if (auto* group = parent->findChild<QButtonGroup*>(name))
      return group;
    auto* group = new QButtonGroup(parent);
    group->setObjectName(name);
    return group;
  }

  Option& option_;
  QAbstractButton* widget_;
  QKeySequence keys_;
};

// A large button with a picture over its caption, both in the middle.
class TileButton : public QPushButton {
 public:
  TileButton(QWidget* parent, const LayoutRow& row) : QPushButton(parent) {
    constexpr int kPicture = 52;
    setIcon(tileIcon(row.glyph, row.hue));
    setIconSize(QSize(kPicture, kPicture));
    constexpr int kLowDisplay = 640;
    const bool low = screen()->availableGeometry().height() < kLowDisplay;
    setMinimumSize(low ? QSize(132, 92) : QSize(164, 118));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAutoDefault(true);
    QFont letters = font();
    letters.setPointSizeF(letters.pointSizeF() * 1.1);
    setFont(letters);
  }
  QSize sizeHint() const override { return minimumSize(); }

 protected:
  // The arrow keys go to the tile that lies there.
  void keyPressEvent(QKeyEvent* event) override {
    const int key = event->key();
    const QPoint step(key == Qt::Key_Right  ? width()
                      : key == Qt::Key_Left ? -width()
                                            : 0,
                      key == Qt::Key_Down ? height()
                      : key == Qt::Key_Up ? -height()
                                          : 0);
    if (step.isNull())
      return QPushButton::keyPressEvent(event);
    QWidget* there = parentWidget()->childAt(geometry().center() + step + step / 8);  // over the gap as well
    if (dynamic_cast<TileButton*>(there))
      there->setFocus(Qt::TabFocusReason);
  }
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = std::exchange(option.text, QString());
    option.icon = QIcon();
    painter.drawControl(QStyle::CE_PushButton, option);
    const int gap = fontMetrics().height() / 2;
    const QSize picture = iconSize();
    const int top = (height() - picture.height() - gap - fontMetrics().height()) / 2;
    const QRect place((width() - picture.width()) / 2, top, picture.width(), picture.height());
    icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const QRect line(4, place.bottom() + gap, width() - 8, fontMetrics().height() + 2);
    style()->drawItemText(&painter, line, Qt::AlignHCenter | Qt::TextShowMnemonic, palette(), isEnabled(), caption,
                          QPalette::ButtonText);
  }
};

QAbstractButton* makePush(QWidget* parent, const LayoutRow* row) {
  auto* push = new QPushButton(parent);
  push->setAutoDefault(true);
  if (row && row->glyph != Glyph::None)
    push->setIcon(glyphIcon(row->glyph));
  return push;
}

}  // namespace

std::unique_ptr<ControlView> makeLabelView(Label& label, UserActions& user, QWidget* parent, const LayoutRow* row) {
  if (row && row->kind == LayoutRow::Kind::Bar)
    return std::make_unique<BarView>(label, user, parent);
  const bool limited = row && row->kind == LayoutRow::Kind::Picture && row->width > 0;
  const QSize room =
      limited ? QSize(charactersWide(row->width), row->height * parent->fontMetrics().lineSpacing()) : QSize();
  return std::make_unique<LabelView>(label, user, parent, row ? row->kind : LayoutRow::Kind::Field, room);
}

std::unique_ptr<ControlView> makeButtonView(Button& button, UserActions& user, QWidget* parent, const LayoutRow* row) {
  QAbstractButton* widget = nullptr;
  if (isTool(row))
    widget = makeTool(parent, *row);
  else if (row && row->kind == LayoutRow::Kind::Tile)
    widget = new TileButton(parent, *row);
  else
    widget = makePush(parent, row);
  return std::make_unique<ButtonView>(button, user, widget, row);
}

std::unique_ptr<ControlView> makeCheckView(CheckBox& box, UserActions& user, QWidget* parent, const LayoutRow* row) {
  QAbstractButton* widget = isTool(row) ? makeToggle(parent, *row) : new QCheckBox(parent);
  return std::make_unique<CheckView>(box, user, widget, row);
}

std::unique_ptr<ControlView> makeOptionView(Option& option, UserActions& user, QWidget* parent, const LayoutRow* row) {
  QAbstractButton* widget = isTool(row) ? makeToggle(parent, *row) : new QRadioButton(parent);
  return std::make_unique<OptionView>(option, user, widget, row);
}

}  // namespace zelvo
