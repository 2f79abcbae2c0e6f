#pragma once

#include <QLineEdit>
#include <functional>

#include "base/date.h"

class QAction;
class QCalendarWidget;
class QFrame;

namespace zelvo {

/// A line for a date, with a calendar that drops down (F4 or Alt+Down). It may be empty. Dates are typed as text: the
/// box itself judges nothing.
class DateBox : public QLineEdit {
 public:
  explicit DateBox(QWidget* parent);

  /// The day that it is; to be set before the calendar opens.
  std::function<Date()> today;
  /// A day was picked in the calendar; as mm/dd/yyyy.
  std::function<void(const QString&)> picked;
  void openCalendar();
  /// A box that only shows has no calendar to open.
  void setReadOnly(bool readOnly);
  /// Marks what is typed as no date.
  void showUnreadable(bool unreadable);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void makeCalendar();

  QAction* open_;
  QFrame* popup_ = nullptr;
  QCalendarWidget* calendar_ = nullptr;
};

}  // namespace zelvo
