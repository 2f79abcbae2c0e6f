#include "ui/menu_views.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "form/screen.h"

namespace zelvo {

namespace {

// A menu or an entry: it differs from a widget only in what carries the caption.
class ActionView : public ControlView {
 public:
  ActionView(Control& itsControl, UserActions& actions, QAction* action)
      : ControlView(itsControl, actions), action_(action) {
    action_->setObjectName(QString::fromStdString(itsControl.id()));
  }
  QWidget* widget() const override { return nullptr; }

 protected:
  void show(const std::string& caption, bool enabled) {
    if (shown_ != caption) {
      shown_ = caption;
      action_->setText(QString::fromStdString(caption));
    }
    if (action_->isEnabled() != enabled)
      action_->setEnabled(enabled);
    if (action_->isVisible() != control_.visible)
      action_->setVisible(control_.visible);
    const QString tip = QString::fromStdString(control_.tip);
    if (action_->statusTip() != tip)
      action_->setStatusTip(tip);
  }
  QAction* action_;

 private:
  std::string shown_;
};

class MenuView : public ActionView {
 public:
  MenuView(Menu& itsMenu, UserActions& actions, QMenu* menu)
      : ActionView(itsMenu, actions, menu->menuAction()), menu_(itsMenu) {}

 protected:
  void showValue() override { show(menu_.caption, menu_.enabled); }

 private:
  Menu& menu_;
};

class EntryView : public ActionView {
 public:
  EntryView(MenuEntry& itsEntry, UserActions& actions, QAction* action)
      : ActionView(itsEntry, actions, action), entry_(itsEntry) {
    if (itsEntry.caption == "-")
      action_->setSeparator(true);
    QObject::connect(action_, &QAction::triggered, action_, [this] { user.clicks(control_); });
  }

 protected:
  void showValue() override {
    show(entry_.caption == "-" ? std::string() : entry_.caption, entry_.enabled && entry_.menu.enabled);
    const QKeySequence keys(QString::fromStdString(entry_.shortcut));
    if (action_->shortcut() != keys)
      action_->setShortcut(keys);
  }

 private:
  MenuEntry& entry_;
};

QMenu* addMenu(QMainWindow& window, const Menu& menu) {
  if (menu.onBar)
    return window.menuBar()->addMenu(QString());
  auto* popup = new QMenu(&window);
  if (!menu.overTexts)
    window.centralWidget()->setContextMenuPolicy(Qt::ActionsContextMenu);
  return popup;
}

// The entries themselves pop up over the window's ground; a menu of menus would be one click more.
QAction* addEntry(QMainWindow& window, QMenu& into, const Menu& menu) {
  QAction* action = into.addAction(QString());
  if (!menu.onBar && !menu.overTexts)
    window.centralWidget()->addAction(action);
  return action;
}

}  // namespace

std::map<const Control*, std::unique_ptr<ControlView>> makeMenus(QMainWindow& window, const Screen& screen,
                                                                 UserActions& user) {
  std::map<const Control*, std::unique_ptr<ControlView>> views;
  std::map<const Control*, QMenu*> menus;
  for (Control* control : screen.controls())
    if (auto* menu = dynamic_cast<Menu*>(control)) {
      menus[control] = addMenu(window, *menu);
      views[control] = std::make_unique<MenuView>(*menu, user, menus[control]);
    }
  for (Control* control : screen.controls())
    if (auto* entry = dynamic_cast<MenuEntry*>(control))
      views[control] =
          std::make_unique<EntryView>(*entry, user, addEntry(window, *menus.at(&entry->menu), entry->menu));
  return views;
}

}  // namespace zelvo
