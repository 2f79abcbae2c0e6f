#pragma once

#include <QMainWindow>
#include <map>
#include <memory>
#include <vector>

#include "ui/control_view.h"

namespace zelvo {

/// Makes the menu bar of a window, and its pop-up menus, which open by a right click on the window's ground.
std::map<const Control*, std::unique_ptr<ControlView>> makeMenus(QMainWindow& window, const Screen& screen,
                                                                 UserActions& user);

}  // namespace zelvo
