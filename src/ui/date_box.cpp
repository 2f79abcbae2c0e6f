#include "ui/date_box.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "ui/glyph.h"
#include "ui/style.h"

#include <QIcon>

namespace zelvo {

DateBox::DateBox(QWidget* parent) : QLineEdit(parent) {
  setToolTip(QStringLiteral("mm/dd/yyyy, or short: 3/9, 030926, t for today, +7 for a week from today"));
  setPlaceholderText(QStringLiteral("mm/dd/yyyy"));
  open_ = addAction(glyphIcon(Glyph::Calendar), QLineEdit::TrailingPosition);
  open_->setToolTip(QStringLiteral("Calendar (F4)"));
  connect(open_, &QAction::triggered, this, [this] { openCalendar(); });
}

void DateBox::makeCalendar() {
  popup_ = new QFrame(this, Qt::Popup);
  popup_->setFrameShape(QFrame::StyledPanel);
  calendar_ = new QCalendarWidget(popup_);
  calendar_->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
  calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  auto* box = new QVBoxLayout(popup_);
  box->setContentsMargins(2, 2, 2, 2);
  box->addWidget(calendar_);
  const auto take = [this](QDate day) {
    popup_->hide();
    picked(day.toString(QStringLiteral("MM/dd/yyyy")));
  };
  connect(calendar_, &QCalendarWidget::clicked, this, take);
  connect(calendar_, &QCalendarWidget::activated, this, take);
}

void DateBox::openCalendar() {
  if (isReadOnly() || !isEnabled())
    return;
  if (!popup_)
    makeCalendar();
  const Date now = today();
  const Date shown = typedDate(text().toStdString(), now).value_or(now);
  calendar_->setSelectedDate(QDate(shown.year, shown.month, shown.day));
  popup_->adjustSize();
  const QRect room = screen()->availableGeometry();
  QPoint corner = mapToGlobal(QPoint(0, height()));
  if (corner.y() + popup_->height() > room.bottom())
    corner.setY(mapToGlobal(QPoint(0, 0)).y() - popup_->height());
  corner.setX(std::min(corner.x(), room.right() - popup_->width()));
  popup_->move(corner);
  popup_->show();
  calendar_->setFocus();
}

void DateBox::setReadOnly(bool readOnly) {
  QLineEdit::setReadOnly(readOnly);
  open_->setVisible(!readOnly);
}

void DateBox::showUnreadable(bool unreadable) {
  QPalette colours = palette();  // the ground stays as it is
  colours.setColor(QPalette::Text, unreadable ? warningColour(colours) : QApplication::palette().color(QPalette::Text));
  setPalette(colours);
}

void DateBox::keyPressEvent(QKeyEvent* event) {
  const bool altDown = event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
  if (event->key() == Qt::Key_F4 || altDown)
    openCalendar();
  else
    QLineEdit::keyPressEvent(event);
}

// The wheel scrolls the page.
void DateBox::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

}  // namespace zelvo
