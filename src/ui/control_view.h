#pragma once

#include <QFrame>
#include <QLabel>
#include <QPointer>
#include <memory>
#include <string>

#include "form/control.h"
#include "form/sheet.h"
#include "ui/layout.h"
#include "ui/user_actions.h"

class QMenuBar;

namespace zelvo {

class PageView;
class RichTextBox;

/// The widget of one control. It writes what the user does into the control and, when asked, shows what differs from
/// what it last showed; it never touches what is unchanged, so that the cursor stays where the user put it.
class ControlView {
 public:
  ControlView(Control& itsControl, UserActions& itsUser) : control_(itsControl), user(itsUser) {}
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  /// The control it stands for; gone as soon as the screen is closed.
  Control& control() const { return control_; }
  /// The widget that is placed in the window; null for what stands in a menu.
  virtual QWidget* widget() const = 0;
  void refresh();
  virtual void takeFocus(bool selectAll);
  /// Why what is typed cannot stay so; empty when it can.
  virtual std::string unreadable() const { return {}; }

  /// Set when the screen is closed: from then on the control is not touched again.
  bool dead = false;
  QPointer<QLabel> captionLabel;  ///< what stands before it
  std::string captionText;

 protected:
  virtual void showValue() = 0;
  /// What the pointer says over it.
  virtual std::string tip() const { return control_.tip; }
  /// Told when the focus leaves the widget.
  virtual void left();
  /// Watches the focus of a widget of this view.
  void watchFocus(QWidget* watched);

  Control& control_;
  UserActions& user;

 private:
  friend class FocusWatch;
  void refreshCaption();
  std::string shownTip_;
  bool shownRequired_ = false;
};

/// Makes the view of a control. `row` is its line in the layout, null when it has none.
std::unique_ptr<ControlView> makeView(Control& control, UserActions& user, QWidget* parent, const LayoutRow* row);

std::unique_ptr<ControlView> makeLabelView(Label& label, UserActions& user, QWidget* parent, const LayoutRow* row);
std::unique_ptr<ControlView> makeButtonView(Button& button, UserActions& user, QWidget* parent, const LayoutRow* row);
std::unique_ptr<ControlView> makeCheckView(CheckBox& box, UserActions& user, QWidget* parent, const LayoutRow* row);
std::unique_ptr<ControlView> makeOptionView(Option& option, UserActions& user, QWidget* parent, const LayoutRow* row);
std::unique_ptr<ControlView> makeTextView(TextBox& box, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makeComboView(Combo& combo, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makeDateView(DatePicker& picker, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makeDateTextView(TextBox& box, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makeListView(ListView& list, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makeTabsView(Tabs& tabs, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makeSheetView(SheetPicture& sheet, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makeRichTextView(RichTextBox& box, UserActions& user, QWidget* parent);
std::unique_ptr<ControlView> makePagesView(PageView& pages, UserActions& user, QWidget* parent);

}  // namespace zelvo
