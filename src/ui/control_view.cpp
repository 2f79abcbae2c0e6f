#include "ui/control_view.h"

#include <QEvent>
#include <QFocusEvent>

#include "documents/editor/rich_text_box.h"
#include "documents/preview/page_view.h"

namespace zelvo {

/// Tells a view that its widget lost the focus to another one. A window that goes to the back, a menu and a list that
/// drops down take the focus only for a moment: the user is still there.
class FocusWatch : public QObject {
 public:
  FocusWatch(ControlView& view, QObject* parent) : QObject(parent), view_(view) {}

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FocusOut && !view_.dead) {
      const auto why = static_cast<QFocusEvent*>(event)->reason();
      if (why != Qt::ActiveWindowFocusReason && why != Qt::PopupFocusReason && why != Qt::MenuBarFocusReason)
        view_.left();
    }
    return false;
  }

 private:
  ControlView& view_;
};

void ControlView::watchFocus(QWidget* watched) {
  watched->installEventFilter(new FocusWatch(*this, watched));
}

void ControlView::left() {
  user.leaves(control_);
}

void ControlView::refresh() {
  showValue();
  QWidget* shown = widget();
  if (!shown)
    return;
  if (shown->isEnabledTo(shown->parentWidget()) != control_.enabled)
    shown->setEnabled(control_.enabled);
  if (shown->isHidden() == control_.visible)
    shown->setVisible(control_.visible);
  if (const std::string said = tip(); shownTip_ != said) {
    shownTip_ = said;
    shown->setToolTip(QString::fromStdString(said));
  }
  refreshCaption();
}

// A field that must be filled carries a star behind its caption.
void ControlView::refreshCaption() {
  if (!captionLabel)
    return;
  if (captionLabel->isHidden() == control_.visible)
    captionLabel->setVisible(control_.visible);
  if (shownRequired_ == control_.required)
    return;
  shownRequired_ = control_.required;
  captionLabel->setText(QString::fromStdString(captionText) + (shownRequired_ ? QStringLiteral(" *") : QString()));
  captionLabel->setToolTip(shownRequired_ ? QStringLiteral("Must be filled in before the record is stored.")
                                          : QString());
}

void ControlView::takeFocus(bool) {
  if (QWidget* shown = widget())
    shown->setFocus(Qt::OtherFocusReason);
}

std::unique_ptr<ControlView> makeView(Control& control, UserActions& user, QWidget* parent, const LayoutRow* row) {
  switch (control.kind()) {
    case ControlKind::Label:
      return makeLabelView(static_cast<Label&>(control), user, parent, row);
    case ControlKind::TextBox:
      return makeTextView(static_cast<TextBox&>(control), user, parent);
    case ControlKind::Button:
      return makeButtonView(static_cast<Button&>(control), user, parent, row);
    case ControlKind::CheckBox:
      return makeCheckView(static_cast<CheckBox&>(control), user, parent, row);
    case ControlKind::Option:
      return makeOptionView(static_cast<Option&>(control), user, parent, row);
    case ControlKind::Combo:
      return makeComboView(static_cast<Combo&>(control), user, parent);
    case ControlKind::DatePicker:
      return makeDateView(static_cast<DatePicker&>(control), user, parent);
    case ControlKind::List:
      return makeListView(static_cast<ListView&>(control), user, parent);
    case ControlKind::Tabs:
      return makeTabsView(static_cast<Tabs&>(control), user, parent);
    case ControlKind::Sheet:
      return makeSheetView(static_cast<SheetPicture&>(control), user, parent);
    case ControlKind::RichText:
      return makeRichTextView(static_cast<RichTextBox&>(control), user, parent);
    case ControlKind::Pages:
      return makePagesView(static_cast<PageView&>(control), user, parent);
    case ControlKind::Menu:
    case ControlKind::MenuEntry:
      break;
  }
  return nullptr;
}

}  // namespace zelvo
