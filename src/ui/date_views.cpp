// The boxes that dates are typed into: those that hold a date, and the lines of text that hold one.

#include "base/date.h"
#include "base/text.h"
#include "form/screen.h"
#include "ui/date_box.h"
#include "ui/entry_view.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

class DateView : public EntryView<DateBox> {
 public:
  DateView(DatePicker& picker, UserActions& actions, QWidget* parent)
      : EntryView(picker, actions, new DateBox(parent)), picker_(picker) {
    QObject::connect(widget_, &QLineEdit::textEdited, widget_, [this](const QString& text) { typed(text); });
    widget_->today = [this] { return picker_.screen().today(); };
    widget_->picked = [this](const QString& day) {
      widget_->setText(day);
      typed(day);
    };
  }
  std::string unreadable() const override {
    return readable_ ? std::string()
                     : "\"" + widget_->text().toStdString() + "\" is no date: " + std::string(kDateWays) +
                           ". Or empty the box.";
  }

 protected:
  // What the user is typing stays as typed while it can be read as what the control holds. What cannot be read goes
  // when the typing is over.
  void showValue() override {
    const bool givenUp = !readable_ && picker_.locked;
    if (shown_ != picker_.date || givenUp)
      setReadable(true);
    showLocked();
    if (shown_ == picker_.date && !givenUp)
      return;
    shown_ = picker_.date;
    const std::string text = picker_.shown();
    if (givenUp || read(widget_->text().toStdString()) != shown_ || !widget_->hasFocus())
      widget_->setText(QString::fromStdString(text));
  }

  void left() override {
    if (!readable_)
      user.complains(unreadable());
    else
      widget_->setText(QString::fromStdString(picker_.shown()));
    ControlView::left();
  }

 private:
  void typed(const QString& text) {
    const std::string value = text.toStdString();
    const auto date = read(value);
    setReadable(date || trim(value).empty());
    if (!readable_)
      return;
    shown_ = date;
    user.sets(control_, value);
  }

  std::optional<Date> read(const std::string& typed) const { return typedDate(typed, picker_.screen().today()); }

  void setReadable(bool readable) {
    if (readable_ != readable)
      widget_->showUnreadable(!readable);
    readable_ = readable;
  }

  DatePicker& picker_;
  std::optional<Date> shown_;
  bool readable_ = true;
};

// A text that is to hold a date: the screen judges what was typed when the box is left, as it does for every face.
class DateTextView : public EntryView<DateBox> {
 public:
  DateTextView(TextBox& box, UserActions& actions, QWidget* parent)
      : EntryView(box, actions, new DateBox(parent)), box_(box) {
    widget_->today = [this] { return box_.screen().today(); };
    widget_->picked = [this](const QString& day) {
      widget_->setText(day);
      typed(day);
    };
    QObject::connect(widget_, &QLineEdit::textEdited, widget_, [this](const QString& text) { typed(text); });
  }

 protected:
  void showValue() override {
    showLocked();
    if (shown_ == box_.text)
      return;
    shown_ = box_.text;
    widget_->setText(QString::fromStdString(shown_));
    showReadable();
  }

 private:
  void typed(const QString& text) {
    shown_ = text.toStdString();
    showReadable();
    user.sets(control_, shown_);
  }
  void showReadable() { widget_->showUnreadable(!trim(shown_).empty() && !typedDate(shown_, box_.screen().today())); }

  TextBox& box_;
  std::string shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeDateView(DatePicker& picker, UserActions& user, QWidget* parent) {
  return std::make_unique<DateView>(picker, user, parent);
}

std::unique_ptr<ControlView> makeDateTextView(TextBox& box, UserActions& user, QWidget* parent) {
  return std::make_unique<DateTextView>(box, user, parent);
}

}  // namespace zelvo
