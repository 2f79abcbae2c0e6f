#include <QLineEdit>
#include <QPlainTextEdit>

#include "base/text.h"
#include "ui/control_view.h"
#include "ui/style.h"

namespace zelvo {

namespace {

class LineView : public ControlView {
 public:
  LineView(TextBox& box, UserActions& actions, QWidget* parent)
      : ControlView(box, actions), box_(box), widget_(new QLineEdit(parent)) {
    if (box.password)
      widget_->setEchoMode(QLineEdit::Password);
    QObject::connect(widget_, &QLineEdit::textEdited, widget_, [this](const QString& text) {
      shown_ = text.toStdString();
      user.sets(control_, shown_);
    });
    limitLength();
    watchFocus(widget_);
  }
  QWidget* widget() const override { return widget_; }
  void takeFocus(bool selectAll) override {
    widget_->setFocus(Qt::OtherFocusReason);
    if (selectAll)
      widget_->selectAll();
  }

 protected:
  void showValue() override {
    if (widget_->isReadOnly() != box_.locked) {
      widget_->setReadOnly(box_.locked);
      showFlat(widget_, box_.locked);
    }
    if (shown_ == box_.text)
      return;
    shown_ = box_.text;
    const int cursor = widget_->cursorPosition();
    limitLength();
    widget_->setText(QString::fromStdString(shown_));
    widget_->setCursorPosition(widget_->hasFocus() ? cursor : 0);
  }

 private:
  // Typing stops at the limit; what an old record holds beyond it is shown whole.
  void limitLength() {
    constexpr int kNoLimit = 32767;
    const int held = static_cast<int>(length(shown_));
    widget_->setMaxLength(box_.maxLength > 0 ? std::max(box_.maxLength, held) : kNoLimit);
  }

  TextBox& box_;
  QLineEdit* widget_;
  std::string shown_;
};

class AreaView : public ControlView {
 public:
  AreaView(TextBox& box, UserActions& actions, QWidget* parent)
      : ControlView(box, actions), box_(box), widget_(new QPlainTextEdit(parent)) {
    widget_->setTabChangesFocus(true);
    QObject::connect(widget_, &QPlainTextEdit::textChanged, widget_, [this] { typed(); });
    watchFocus(widget_);
  }
  QWidget* widget() const override { return widget_; }
  void takeFocus(bool selectAll) override {
    widget_->setFocus(Qt::OtherFocusReason);
    if (selectAll)
      widget_->selectAll();
  }

 protected:
  void showValue() override {
    if (widget_->isReadOnly() != box_.locked) {
      widget_->setReadOnly(box_.locked);
      showFlat(widget_, box_.locked);
    }
    if (shown_ == box_.text)
      return;
    shown_ = box_.text;
    const QSignalBlocker programsDoing(widget_);
    widget_->setPlainText(QString::fromStdString(replaceAll(shown_, "\r\n", "\n")));
  }

 private:
  // A text keeps the kind of line end that it came with.
  void typed() {
    const std::string text = widget_->toPlainText().toStdString();
    const bool windowsEnds = shown_.find("\r\n") != std::string::npos;
    shown_ = windowsEnds ? replaceAll(text, "\n", "\r\n") : text;
    user.sets(control_, shown_);
  }

  TextBox& box_;
  QPlainTextEdit* widget_;
  std::string shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeTextView(TextBox& box, UserActions& user, QWidget* parent) {
  if (box.manyLines)
    return std::make_unique<AreaView>(box, user, parent);
  return std::make_unique<LineView>(box, user, parent);
}

}  // namespace zelvo
