#include "ui/style.h"

#include <QApplication>
#include <QFont>
#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>

#include "base/text.h"

namespace zelvo {

namespace {

QColor between(const QColor& one, const QColor& other) {
  return QColor((one.red() * 2 + other.red()) / 3, (one.green() * 2 + other.green()) / 3,
                (one.blue() * 2 + other.blue()) / 3);
}

// Buttons of message boxes carry their words alone, and access keys are always underlined. On dark colours the boxes
// have an edge that can be seen.
class HouseStyle : public QProxyStyle {
 public:
  HouseStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
      return 0;
    if (hint == SH_UnderlineShortcut)
      return 1;
    return QProxyStyle::styleHint(hint, option, widget, more);
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool box = element == PE_IndicatorCheckBox || element == PE_FrameLineEdit || element == PE_Frame;
    if (!box || !isDark(option->palette) || option->state.testFlag(State_HasFocus))
      return;
    painter->save();
    painter->setPen(between(option->palette.color(QPalette::Window), option->palette.color(QPalette::WindowText)));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
  }
};

}  // namespace

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

QColor warningColour(const QPalette& palette) {
  return isDark(palette) ? QColor(255, 138, 128) : QColor(176, 24, 24);
}

void showGround(QWidget* widget, Ground ground) {
  const QPalette usual = QApplication::palette();
  QPalette colours;
  if (ground == Ground::Flat)
    colours.setBrush(QPalette::Base, usual.brush(QPalette::Window));
  if (ground == Ground::Wanted)
    colours.setColor(QPalette::Base, isDark(usual) ? QColor(74, 60, 26) : QColor(255, 241, 200));
  widget->setPalette(colours);
}

Ground groundOf(const Control& control) {
  if (control.locked)
    return Ground::Flat;
  return control.required && trim(control.shown()).empty() ? Ground::Wanted : Ground::Paper;
}

int charactersWide(int characters) {
  return QFontMetrics(QApplication::font()).horizontalAdvance(QLatin1Char('0')) * characters;
}

namespace {

// A bare desktop that names no font of its own falls back to whatever it has, a typewriter's among them. The fonts that
// letters are printed in are always there.
void avoidTypewriterFont() {
  QFont font = QApplication::font();
  if (!QFontInfo(font).fixedPitch())
    return;
  font.setFamily(QStringLiteral("Liberation Sans"));
  QApplication::setFont(font);
}

}  // namespace

void applyHouseStyle(QApplication& app) {
  QApplication::setStyle(new HouseStyle);
  avoidTypewriterFont();
  QPalette colours = QApplication::palette();
  const QColor accent = isDark(colours) ? QColor(64, 138, 168) : QColor(42, 112, 150);
  colours.setColor(QPalette::Active, QPalette::Highlight, accent);
  colours.setColor(QPalette::Inactive, QPalette::Highlight, accent);
  colours.setColor(QPalette::HighlightedText, Qt::white);
  QApplication::setPalette(colours);
  app.setQuitOnLastWindowClosed(false);
}

}  // namespace zelvo
