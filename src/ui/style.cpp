#include "ui/style.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <QWidget>

namespace zelvo {

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

QColor warningColour(const QPalette& palette) {
  return isDark(palette) ? QColor(255, 138, 128) : QColor(176, 24, 24);
}

void showFlat(QWidget* widget, bool flat) {
  QPalette colours;
  if (flat)
    colours.setBrush(QPalette::Base, QApplication::palette().brush(QPalette::Window));
  widget->setPalette(colours);
}

int charactersWide(int characters) {
  return QFontMetrics(QApplication::font()).horizontalAdvance(QLatin1Char('0')) * characters;
}

void applyHouseStyle(QApplication& app) {
  QApplication::setStyle(QStringLiteral("Fusion"));
  QPalette colours = QApplication::palette();
  const QColor accent = isDark(colours) ? QColor(64, 138, 168) : QColor(42, 112, 150);
  colours.setColor(QPalette::Active, QPalette::Highlight, accent);
  colours.setColor(QPalette::Inactive, QPalette::Highlight, accent);
  colours.setColor(QPalette::HighlightedText, Qt::white);
  QApplication::setPalette(colours);
  app.setQuitOnLastWindowClosed(false);
}

}  // namespace zelvo
