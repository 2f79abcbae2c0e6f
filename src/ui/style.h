#pragma once

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
/// A box that only shows what is stored lies flat on the window instead of looking like paper to write on.
void showFlat(QWidget* widget, bool flat);

/// The width of so many characters in the font of the windows, in pixels.
int charactersWide(int characters);

}  // namespace zelvo
