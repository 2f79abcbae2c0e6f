#pragma once

#include <QMainWindow>
#include <memory>
#include <vector>

#include "ui/control_view.h"
#include "ui/group_grid.h"
#include "ui/layout.h"

namespace zelvo {

/// What a window consists of. The widgets belong to the window.
struct BuiltForm {
  std::vector<std::unique_ptr<ControlView>> views;  ///< in the order of the controls
  std::vector<FieldGroup> groups;

  ControlView* find(const Control& control) const;
};

/// Builds the inside of a window from a screen and its layout: every widget bears the id of its control as its object
/// name, captions lead to their fields by access key, the Tab key goes in the order of the controls. A control that the
/// layout does not place stands in a group of its own at the end, so that nothing is ever out of reach.
BuiltForm buildForm(QMainWindow& window, Screen& screen, const Layout& layout, UserActions& user);

}  // namespace zelvo
