#pragma once

#include <map>
#include <string>

#include "form/screen.h"

namespace zelvo {

/// What the controls of a screen hold that a user can change and see, each as one text: to be put back, and to be held
/// against another state of the same screen.
using ScreenValues = std::map<Control*, std::string>;
ScreenValues valuesOf(const Screen& screen);
void putValues(const ScreenValues& values);

}  // namespace zelvo
