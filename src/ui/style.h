#pragma once

#include "form/control.h"

class QApplication;
class QColor;
class QPalette;
class QWidget;

namespace zelvo {

/// Gives the program its calm, even face on any desktop: one style everywhere, the desktop's own light or dark colours.
void applyHouseStyle(QApplication& app);

/// Red that can be read on a window of these colours.
QColor warningColour(const QPalette& palette);
bool isDark(const QPalette& palette);
/// What a box looks like: paper to write on, flat on the window while it only shows what is stored, or tinted while it
/// is empty and must be filled.
enum class Ground { Paper, Flat, Wanted };
void showGround(QWidget* widget, Ground ground);
/// The ground of the box of a control as it is now.
Ground groundOf(const Control& control);

/// The width of so many characters in the font of the windows, in pixels.
int charactersWide(int characters);

}  // namespace zelvo
