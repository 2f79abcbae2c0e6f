#include "ui/offer_list.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace zelvo {

OfferList::OfferList(QLineEdit& box, std::function<void(const QString&)> taken) : QCompleter(&box), box_(box) {
  setModel(&offers_);
  setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  for (const auto signal :
       {qOverload<const QString&>(&QCompleter::activated), qOverload<const QString&>(&QCompleter::highlighted)})
    connect(this, signal, this, taken);  // the box cuts what leads to itself when it is left
  box.setCompleter(this);
}

// The box asks its list to come up once it has told of the key.
void OfferList::show(const std::vector<std::string>& offers) {
  QStringList texts;
  for (const std::string& offer : offers)
    texts.append(QString::fromStdString(offer));
  offers_.setStringList(texts);
  if (texts.isEmpty())
    popup()->hide();
}

// Enter goes on and a shortcut does its work as if no list were there: they are the box's and its window's.
bool OfferList::eventFilter(QObject* target, QEvent* event) {
  const bool left = event->type() == QEvent::FocusOut && target == &box_ &&
                    static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
  if (left)
    popup()->hide();  // or nobody would hear that the box is left
  if (event->type() == QEvent::KeyPress && target == popup() && popup()->isVisible()) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (enter || (key->modifiers().testFlag(Qt::ControlModifier) && key->key() != Qt::Key_Control)) {
      popup()->hide();
      QCoreApplication::sendEvent(&box_, event);
      return true;
    }
  }
  return QCompleter::eventFilter(target, event);
}

}  // namespace zelvo
