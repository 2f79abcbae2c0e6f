#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

#include "base/text.h"
#include "form/text_menu.h"
#include "ui/entry_view.h"
#include "ui/offer_list.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

class LineView : public EntryView<QLineEdit> {
 public:
  LineView(TextBox& box, UserActions& actions, QWidget* parent)
      : EntryView(box, actions, new QLineEdit(parent)), box_(box) {
    if (box.password)
      widget_->setEchoMode(QLineEdit::Password);
    QObject::connect(widget_, &QLineEdit::textEdited, widget_, [this](const QString& text) {
      shown_ = text.toStdString();
      user.sets(control_, shown_);
      offer();
    });
  }

 protected:
  void showValue() override {
    showLocked();
    limitLength();
    if (shown_ == box_.text)
      return;
    shown_ = box_.text;
    const int cursor = widget_->cursorPosition();
    widget_->setText(QString::fromStdString(shown_));
    widget_->setCursorPosition(widget_->hasFocus() ? cursor : 0);
  }

 private:
  // Typing stops at the limit; what an old record holds beyond it is shown whole.
  void limitLength() {
    constexpr int kNoLimit = 32767;
    const int held = static_cast<int>(length(box_.text));
    const int limit = box_.maxLength > 0 ? std::max(box_.maxLength, held) : kNoLimit;
    if (widget_->maxLength() != limit)
      widget_->setMaxLength(limit);
  }

  // The handler may have closed the screen, or written something else into the box.
  void offer() {
    if (dead || !box_.suggests)
      return;
    if (!offers_)
      offers_ = new OfferList(*widget_, [this](const QString& text) {
        shown_ = text.toStdString();
        user.sets(control_, shown_);
      });
    offers_->show(user.offers(box_));
  }

  TextBox& box_;
  std::string shown_;
  OfferList* offers_ = nullptr;
};

class AreaView : public EntryView<QPlainTextEdit> {
 public:
  AreaView(TextBox& box, UserActions& actions, QWidget* parent)
      : EntryView(box, actions, new QPlainTextEdit(parent)), box_(box) {
    widget_->setTabChangesFocus(true);
    QObject::connect(widget_, &QPlainTextEdit::textChanged, widget_, [this] { typed(); });
    widget_->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(widget_, &QWidget::customContextMenuRequested, widget_, [this](QPoint at) { popUp(at); });
  }

 protected:
  void showValue() override {
    showLocked();
    if (shown_ == box_.text)
      return;
    shown_ = box_.text;
    const QSignalBlocker programsDoing(widget_);
    widget_->setPlainText(QString::fromStdString(replaceAll(shown_, "\r\n", "\n")));
  }

 private:
  // Copying and pasting are the desktop's own, which know what is selected; the files are the program's.
  void popUp(QPoint at) {
    QMenu* menu = widget_->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    for (const TextMenuEntry& entry : textMenu()) {
      const bool obtains = entry.name == "loadp";
      if (!obtains && entry.name != "savep")
        continue;
      QAction* action = menu->addAction(qtText(entry.caption));
      action->setObjectName(qtText(entry.name));
      action->setEnabled(!obtains || !box_.locked);
      const std::string name(entry.name);
      QObject::connect(action, &QAction::triggered, widget_, [this, name] { user.picks(box_, name); });
    }
    menu->popup(widget_->viewport()->mapToGlobal(at));
  }

  // A text keeps the kind of line end that it came with.
  void typed() {
    const std::string text = widget_->toPlainText().toStdString();
    const bool windowsEnds = shown_.find("\r\n") != std::string::npos;
    shown_ = windowsEnds ? replaceAll(text, "\n", "\r\n") : text;
    user.sets(control_, shown_);
  }

  TextBox& box_;
  std::string shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeTextView(TextBox& box, UserActions& user, QWidget* parent) {
  if (box.manyLines)
    return std::make_unique<AreaView>(box, user, parent);
  if (box.holdsDate)
    return makeDateTextView(box, user, parent);
  return std::make_unique<LineView>(box, user, parent);
}

}  // namespace zelvo
