#include "form/screen_values.h"

namespace zelvo {

namespace {

bool holdsValue(const Control& control) {
  switch (control.kind()) {
    case ControlKind::TextBox:
    case ControlKind::Combo:
    case ControlKind::DatePicker:
    case ControlKind::CheckBox:
    case ControlKind::Option:
      return control.visible;
    default:
      return false;
  }
}

}  // namespace

ScreenValues valuesOf(const Screen& screen) {
  ScreenValues values;
  for (Control* control : screen.controls())
    if (holdsValue(*control))
      values[control] = control->shown();
  return values;
}

void putValues(const ScreenValues& values) {
  for (const auto& [control, value] : values)
    if (control->shown() != value)
      control->put(value);
}

}  // namespace zelvo
