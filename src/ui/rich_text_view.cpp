#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextEdit>
#include <algorithm>
#include <initializer_list>

#include "documents/editor/rich_text_box.h"
#include "ui/control_view.h"
#include "ui/style.h"
#include "ui/writing/letter_flow.h"
#include "ui/writing/qt_letter.h"
#include "ui/writing/text_formats.h"

namespace zelvo {

namespace {

// The paper that a letter is written on. What is done to the letter as a whole is the screen's: its keys are left to
// the screen, and the menu presses its buttons. What is dropped here comes as plain words.
class Paper : public QTextEdit {
 public:
  explicit Paper(QWidget* parent) : QTextEdit(parent) {
    setAcceptRichText(false);
    viewport()->setAcceptDrops(false);
    setLineWrapMode(QTextEdit::FixedPixelWidth);
    setAccessibleName(QStringLiteral("Letter"));
    setFrameShape(QFrame::NoFrame);
    setAutoFillBackground(true);
    // A letter is black on white on any desktop, as it will be on paper.
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colours.color(QPalette::Mid));  // what the sheet lies on, as in the preview
    colours.setColor(QPalette::Base, Qt::white);
    colours.setColor(QPalette::Text, Qt::black);
    setPalette(colours);
    document()->setDocumentMargin(kRoom);
    auto* flow = new LetterFlow(document());
    flow->setPaintDevice(viewport());
    document()->setDocumentLayout(flow);
  }
  static constexpr int kRoom = 24;

  // The sheet lies in the middle of the window.
  void showWidth(int line) {
    if (lineWrapColumnOrWidth() == line + 2 * kRoom)
      return;
    setLineWrapColumnOrWidth(line + 2 * kRoom);
    center();
  }
  QSize sizeHint() const override { return QSize(charactersWide(110), charactersWide(60)); }
  QSize minimumSizeHint() const override { return QSize(charactersWide(30), charactersWide(14)); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride && isOfScreen(*static_cast<QKeyEvent*>(event))) {
      event->ignore();
      return true;
    }
    return QTextEdit::event(event);
  }

  void resizeEvent(QResizeEvent* event) override {
    center();
    QTextEdit::resizeEvent(event);
  }

  void contextMenuEvent(QContextMenuEvent* event) override {
    QMenu menu;
    for (const char* name : {"cmdUndo", "cmdRedo", "cmdCut", "cmdCopy", "cmdPaste"})
      if (auto* button = window()->findChild<QAbstractButton*>(QLatin1String(name))) {
        QAction* action = menu.addAction(button->icon(), button->text());
        action->setEnabled(button->isEnabled());
        connect(action, &QAction::triggered, button, &QAbstractButton::click);
      }
    menu.exec(event->globalPos());
  }

 private:
  void center() {
    const int taken = lineWrapColumnOrWidth() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    const int beside = (width() - taken) / 2 - 1;
    setViewportMargins(std::max(0, beside), 0, std::max(0, beside), 0);
  }

  static bool isOfScreen(const QKeyEvent& event) {
    constexpr int kKeys[] = {Qt::Key_Z, Qt::Key_Y, Qt::Key_X, Qt::Key_C, Qt::Key_V, Qt::Key_B, Qt::Key_I, Qt::Key_U,
                             Qt::Key_L, Qt::Key_E, Qt::Key_R, Qt::Key_J, Qt::Key_O, Qt::Key_S, Qt::Key_P, Qt::Key_F};
    return event.modifiers() == Qt::ControlModifier &&
           std::find(std::begin(kKeys), std::end(kKeys), event.key()) != std::end(kKeys);
  }
};

class RichTextView : public ControlView {
 public:
  RichTextView(RichTextBox& box, UserActions& actions, QWidget* parent)
      : ControlView(box, actions), box_(box), widget_(new Paper(parent)) {
    QObject::connect(widget_->document(), &QTextDocument::contentsChange, widget_,
                     [this](int from, int, int added) { letter_.noteChange(*widget_->document(), from, added); });
    QObject::connect(widget_, &QTextEdit::textChanged, widget_, [this] { typed(); });
    QObject::connect(widget_, &QTextEdit::cursorPositionChanged, widget_, [this] { moved(); });
    QObject::connect(widget_, &QTextEdit::selectionChanged, widget_, [this] { moved(); });
    watchFocus(widget_);
  }
  QWidget* widget() const override { return widget_; }

 protected:
  void showValue() override {
    if (widget_->isReadOnly() != box_.locked)
      widget_->setReadOnly(box_.locked);
    if (shown_ == box_.revision())
      return;
    const bool next = shown_ + 1 == box_.revision();
    shown_ = box_.revision();
    const QSignalBlocker programsDoing(widget_);
    const int scrolled = widget_->verticalScrollBar()->value();
    if (!(next && box_.renewed() && showPart(*box_.renewed())))
      letter_.show(box_.document(), *widget_->document());
    widget_->showWidth(letter_.lineWidth());
    QTextCursor cursor = widget_->textCursor();
    cursor.setPosition(letter_.positionOf(*widget_->document(), box_.selection().from));
    cursor.setPosition(letter_.positionOf(*widget_->document(), box_.selection().to), QTextCursor::KeepAnchor);
    widget_->setTextCursor(cursor);
    if (box_.typingStyle())
      widget_->setCurrentCharFormat(formatOf(*box_.typingStyle()));
    widget_->verticalScrollBar()->setValue(scrolled);
    widget_->ensureCursorVisible();
  }

 private:
  TextRange range() const {
    const QTextCursor cursor = widget_->textCursor();
    const QTextDocument& text = *widget_->document();
    return {letter_.placeOf(text, cursor.selectionStart()), letter_.placeOf(text, cursor.selectionEnd())};
  }

  bool showPart(const RichTextBox::Renewed& part) {
    return letter_.showPart(box_.document().body, part.at, part.gone, part.at + part.come, *widget_->document());
  }

  // Each key is in the letter at once.
  void typed() {
    if (dead)
      return;
    BodyChange change = letter_.takeChange(*widget_->document());
    const TextRange caret = range();
    user.changes(control_, [this, &change, caret] { box_.typed(std::move(change), caret); });
  }

  // What is being typed is told of first.
  void moved() {
    if (dead || letter_.isChanged())
      return;
    const TextRange selected = range();
    if (selected != box_.selection())
      user.changes(control_, [this, selected] { box_.selectedByUser(selected); });
  }

  RichTextBox& box_;
  Paper* widget_;
  QtLetter letter_;
  std::uint64_t shown_ = 0;
};

}  // namespace

std::unique_ptr<ControlView> makeRichTextView(RichTextBox& box, UserActions& user, QWidget* parent) {
  return std::make_unique<RichTextView>(box, user, parent);
}

}  // namespace zelvo
