#pragma once

#include <functional>
#include <string>
#include <vector>

#include "form/control.h"

namespace zelvo {

/// What the user does with the widgets of one window, on its way to the screen. After each call the widget may be gone
/// or show something else: a caller returns at once.
class UserActions {
 public:
  virtual ~UserActions() = default;
  virtual void sets(Control& control, const std::string& value) = 0;
  /// What may be offered for what stands in a box now.
  virtual std::vector<std::string> offers(const Control& control) = 0;
  /// A change that is more than a value.
  virtual void changes(Control& control, const std::function<void()>& change) = 0;
  virtual void clicks(Control& control) = 0;
  /// The focus left it; the screen hears of it when the user had changed it.
  virtual void leaves(Control& control) = 0;
  virtual void chooses(ListView& list, std::size_t row) = 0;
  virtual void opensRow(ListView& list, std::size_t row) = 0;
  virtual void sorts(ListView& list, std::size_t column) = 0;
  /// An entry of the menu that pops up over text boxes.
  virtual void picks(TextBox& box, const std::string& entry) = 0;
  /// What was typed cannot be taken; said at the foot of the window.
  virtual void complains(const std::string& why) = 0;
};

}  // namespace zelvo
