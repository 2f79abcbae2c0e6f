#include "ui/screen_keys.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>

#include "ui/screen_window.h"

namespace zelvo {

namespace {

bool isEnter(const QKeyEvent& key) {
  const auto others = key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) && others == Qt::NoModifier;
}

bool isBox(const QWidget& widget) {
  return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget);
}

bool isReadOnly(const QWidget& widget) {
  const auto* combo = qobject_cast<const QComboBox*>(&widget);
  const auto* line = combo ? combo->lineEdit() : qobject_cast<const QLineEdit*>(&widget);
  return line && line->isReadOnly();
}

// Where the focus may go: no button, which the next Enter would press, and no box that takes nothing.
bool canBeNext(const QWidget& next, const QWidget& from) {
  const bool box = isBox(next) || qobject_cast<const QAbstractScrollArea*>(&next);
  return box && next.isEnabled() && next.isVisibleTo(from.window()) && (next.focusPolicy() & Qt::TabFocus) != 0 &&
         !next.focusProxy() && (isReadOnly(from) || !isReadOnly(next));
}

QKeySequence keysOf(const QKeyEvent& key) {
  return QKeySequence(QKeyCombination(key.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(key.key())));
}

// A list and a text of many lines turn their own pages.
bool turnsPages(const QKeyEvent& key, const QWidget& target) {
  return key.modifiers() == Qt::NoModifier && qobject_cast<const QAbstractScrollArea*>(&target);
}

}  // namespace

ScreenKeys::ScreenKeys(ScreenWindow& window) : QObject(&window), window_(window) {
  qApp->installEventFilter(this);
}

bool ScreenKeys::eventFilter(QObject* target, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
    return false;
  auto* widget = qobject_cast<QWidget*>(target);
  if (!widget || widget->window() != &window_ || !window_.screen())
    return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (event->type() == QEvent::KeyPress)
    return pressed(key, *widget);
  if (!isMine(key, *widget))
    return false;
  event->accept();  // comes back as a key that was pressed
  return true;
}

bool ScreenKeys::isMine(const QKeyEvent& key, const QWidget& target) const {
  return !turnsPages(key, target) && window_.buttonWithShortcut(keysOf(key));
}

bool ScreenKeys::pressed(const QKeyEvent& key, QWidget& target) {
  if (movesOn(key, target)) {
    moveOn(target, key.modifiers().testFlag(Qt::ShiftModifier));
    return true;
  }
  if (!isMine(key, target))
    return false;
  if (!key.isAutoRepeat() || key.modifiers() == Qt::NoModifier)  // browsing may go on while the key is held
    window_.pressByKey(*window_.buttonWithShortcut(keysOf(key)));
  return true;
}

bool ScreenKeys::movesOn(const QKeyEvent& key, const QWidget& target) const {
  return isEnter(key) && isBox(target) && !window_.waitsForEnter();
}

void ScreenKeys::moveOn(QWidget& from, bool back) {
  const auto step = [back](QWidget* at) { return back ? at->previousInFocusChain() : at->nextInFocusChain(); };
  for (QWidget* next = step(&from); next != &from; next = step(next))
    if (canBeNext(*next, from))
      return next->setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
}

}  // namespace zelvo
