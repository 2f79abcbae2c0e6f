#include "ui/glyph.h"

#include <QGuiApplication>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <initializer_list>
#include <memory>

namespace zelvo {

namespace {

// One drawing as strokes on a field of 16 by 16: each line runs through its points; a circle is centre and radius.
struct Stroke {
  std::initializer_list<QPointF> points;
  bool filled = false;
};

void drawStrokes(QPainter& painter, std::initializer_list<Stroke> strokes) {
  for (const Stroke& stroke : strokes) {
    const QPolygonF line(QList<QPointF>(stroke.points));
    painter.setBrush(stroke.filled ? QBrush(painter.pen().color()) : QBrush(Qt::NoBrush));
    stroke.filled ? painter.drawPolygon(line) : painter.drawPolyline(line);
  }
  painter.setBrush(Qt::NoBrush);
}

void drawLetter(QPainter& painter, const QString& letter, bool bold, bool italic, bool underline) {
  QFont font(QStringLiteral("Liberation Serif"));
  font.setPixelSize(15);
  font.setBold(bold);
  font.setItalic(italic);
  font.setUnderline(underline);
  painter.setFont(font);
  painter.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, letter);
}

// Four lines of a paragraph, the second and fourth one shorter.
void drawParagraph(QPainter& painter, double left, double right) {
  for (const double y : {3.5, 6.5, 9.5, 12.5}) {
    const bool shorter = y == 6.5 || y == 12.5;
    painter.drawLine(QPointF(shorter ? left : 2, y), QPointF(shorter ? right : 14, y));
  }
}

void drawWritingGlyph(QPainter& painter, Glyph glyph) {
  switch (glyph) {
    case Glyph::Cut:
      drawStrokes(painter, {{{{4, 2.5}, {10.2, 10.4}}}, {{{12, 2.5}, {5.8, 10.4}}}});
      painter.drawEllipse(QPointF(4.6, 12), 2, 2);
      painter.drawEllipse(QPointF(11.4, 12), 2, 2);
      break;
    case Glyph::Copy:
      drawStrokes(painter, {{{{6, 5}, {13, 5}, {13, 14}, {6, 14}, {6, 5}}}, {{{3, 11}, {3, 2}, {10, 2}}}});
      break;
    case Glyph::Bold:
      return drawLetter(painter, QStringLiteral("B"), true, false, false);
    case Glyph::Italic:
      return drawLetter(painter, QStringLiteral("I"), false, true, false);
    case Glyph::Underline:
      return drawLetter(painter, QStringLiteral("U"), false, false, true);
    case Glyph::AlignLeft:
      return drawParagraph(painter, 2, 9);
    case Glyph::AlignCenter:
      return drawParagraph(painter, 4.5, 11.5);
    case Glyph::AlignRight:
      return drawParagraph(painter, 7, 14);
    case Glyph::Justify:
      return drawParagraph(painter, 2, 14);
    default:
      break;
  }
}

void drawRecordGlyph(QPainter& painter, Glyph glyph) {
  switch (glyph) {
    case Glyph::New:
      drawStrokes(painter, {{{{9, 2}, {3.5, 2}, {3.5, 14}, {12.5, 14}, {12.5, 5.5}, {9, 2}, {9, 5.5}, {12.5, 5.5}}}});
      break;
    case Glyph::Add:
      drawStrokes(painter, {{{{8, 3}, {8, 13}}}, {{{3, 8}, {13, 8}}}});
      break;
    case Glyph::Edit:
    case Glyph::Pen:
      drawStrokes(painter,
                  {{{{3, 13}, {3.6, 10}, {11, 2.6}, {13.4, 5}, {6, 12.4}, {3, 13}}}, {{{9.4, 4.2}, {11.8, 6.6}}}});
      break;
    case Glyph::Save:
      drawStrokes(painter, {{{{2.5, 8.5}, {6.5, 12.5}, {13.5, 4}}}});
      break;
    case Glyph::Redo:
      drawStrokes(painter,
                  {{{{10, 3}, {13.5, 6.5}, {10, 10}}}, {{{13.5, 6.5}, {5.5, 6.5}, {3, 9}, {5.5, 12.5}, {8, 12.5}}}});
      break;
    case Glyph::Cancel:
    case Glyph::Undo:
      drawStrokes(painter,
                  {{{{6, 3}, {2.5, 6.5}, {6, 10}}}, {{{2.5, 6.5}, {10.5, 6.5}, {13, 9}, {10.5, 12.5}, {8, 12.5}}}});
      break;
    case Glyph::First:
      drawStrokes(painter, {{{{3.5, 3}, {3.5, 13}}}, {{{12.5, 3}, {6, 8}, {12.5, 13}}, true}});
      break;
    case Glyph::Previous:
      drawStrokes(painter, {{{{11, 3}, {4.5, 8}, {11, 13}}, true}});
      break;
    case Glyph::Next:
      drawStrokes(painter, {{{{5, 3}, {11.5, 8}, {5, 13}}, true}});
      break;
    case Glyph::Last:
      drawStrokes(painter, {{{{12.5, 3}, {12.5, 13}}}, {{{3.5, 3}, {10, 8}, {3.5, 13}}, true}});
      break;
    default:
      drawWritingGlyph(painter, glyph);
  }
}

void drawToolGlyph(QPainter& painter, Glyph glyph) {
  switch (glyph) {
    case Glyph::Find:
      painter.drawEllipse(QPointF(7, 7), 4.2, 4.2);
      drawStrokes(painter, {{{{10, 10}, {13.8, 13.8}}}});
      break;
    case Glyph::Reset:
      painter.drawArc(QRectF(3, 3, 10, 10), 60 * 16, 290 * 16);
      drawStrokes(painter, {{{{10.2, 1.4}, {10.4, 4.6}, {7.4, 5.4}}}});
      break;
    case Glyph::Void:
      painter.drawEllipse(QPointF(8, 8), 5.2, 5.2);
      drawStrokes(painter, {{{{4.4, 4.4}, {11.6, 11.6}}}});
      break;
    case Glyph::Info:
      painter.drawEllipse(QPointF(8, 8), 5.6, 5.6);
      drawStrokes(painter, {{{{8, 7.4}, {8, 11}}}, {{{8, 5}, {8, 5.1}}}});
      break;
    case Glyph::Print:
      drawStrokes(painter, {{{{5, 6}, {5, 2.5}, {11, 2.5}, {11, 6}}},
                            {{{5, 11}, {2.5, 11}, {2.5, 6}, {13.5, 6}, {13.5, 11}, {11, 11}}},
                            {{{5, 9}, {11, 9}, {11, 13.5}, {5, 13.5}, {5, 9}}}});
      break;
    case Glyph::Quit:
      drawStrokes(
          painter,
          {{{{9, 3}, {3, 3}, {3, 13}, {9, 13}}}, {{{6.5, 8}, {13.5, 8}}}, {{{10.8, 5}, {13.7, 8}, {10.8, 11}}}});
      break;
    case Glyph::Document:
      drawStrokes(painter, {{{{4, 2}, {12, 2}, {12, 14}, {4, 14}, {4, 2}}}, {{{6, 6}, {10, 6}}}, {{{6, 9}, {10, 9}}}});
      break;
    default:
      drawRecordGlyph(painter, glyph);
  }
}

void drawFlame(QPainter& painter) {
  QPainterPath flame(QPointF(8, 1.8));
  flame.cubicTo(9, 5, 12.8, 6.4, 12.6, 10);
  flame.cubicTo(12.4, 15.4, 3.6, 15.4, 3.4, 10);
  flame.cubicTo(3.4, 8, 4.6, 6.8, 5.4, 5.6);
  flame.cubicTo(5.8, 7.4, 6.4, 7.8, 7, 8);
  flame.cubicTo(7.6, 6, 7, 4, 8, 1.8);
  painter.drawPath(flame);
}

void drawPlace(QPainter& painter) {
  QPainterPath pin(QPointF(8, 14));
  pin.cubicTo(1.6, 8.2, 3.6, 2, 8, 2);
  pin.cubicTo(12.4, 2, 14.4, 8.2, 8, 14);
  painter.drawPath(pin);
  painter.drawEllipse(QPointF(8, 6.4), 1.8, 1.8);
}

void drawGlyph(QPainter& painter, Glyph glyph) {
  switch (glyph) {
    case Glyph::House:
      drawStrokes(painter, {{{{2, 8}, {8, 2.5}, {14, 8}}},
                            {{{4, 6.6}, {4, 13.5}, {12, 13.5}, {12, 6.6}}},
                            {{{6.8, 13.5}, {6.8, 9.6}, {9.2, 9.6}, {9.2, 13.5}}}});
      break;
    case Glyph::Open:
      drawStrokes(painter, {{{{2, 13}, {2, 3.5}, {6, 3.5}, {7.5, 5.5}, {13, 5.5}, {13, 7.5}}},
                            {{{2, 13}, {4.5, 7.5}, {15, 7.5}, {12.5, 13}, {2, 13}}}});
      break;
    case Glyph::Clipboard:
    case Glyph::Paste:
      drawStrokes(painter, {{{{6, 3.2}, {3.5, 3.2}, {3.5, 14}, {12.5, 14}, {12.5, 3.2}, {10, 3.2}}},
                            {{{6, 2}, {10, 2}, {10, 4.6}, {6, 4.6}, {6, 2}}},
                            {{{5.6, 9.4}, {7.2, 11}, {10.4, 7.4}}}});
      break;
    case Glyph::Map:
      drawStrokes(painter, {{{{2, 4}, {6, 2.5}, {10, 4}, {14, 2.5}, {14, 12}, {10, 13.5}, {6, 12}, {2, 13.5}, {2, 4}}},
                            {{{6, 2.5}, {6, 12}}},
                            {{{10, 4}, {10, 13.5}}}});
      break;
    case Glyph::Flame:
      drawFlame(painter);
      break;
    case Glyph::Place:
      drawPlace(painter);
      break;
    case Glyph::Seal:
      painter.drawEllipse(QPointF(8, 6), 4, 4);
      drawStrokes(painter, {{{{5.6, 9.4}, {4.6, 14}, {8, 12.2}, {11.4, 14}, {10.4, 9.4}}}});
      break;
    case Glyph::Warning:
      drawStrokes(painter,
                  {{{{8, 2.2}, {14, 13.2}, {2, 13.2}, {8, 2.2}}}, {{{8, 6.4}, {8, 9.6}}}, {{{8, 11.3}, {8, 11.4}}}});
      break;
    case Glyph::Calendar:
      drawStrokes(painter, {{{{2.5, 3.5}, {13.5, 3.5}, {13.5, 13.5}, {2.5, 13.5}, {2.5, 3.5}}},
                            {{{2.5, 6.6}, {13.5, 6.6}}},
                            {{{5.4, 2}, {5.4, 4.6}}},
                            {{{10.6, 2}, {10.6, 4.6}}}});
      break;
    case Glyph::Coin:
      painter.drawEllipse(QPointF(8, 8), 5.8, 5.8);
      drawStrokes(painter,
                  {{{{10, 5.8}, {6.4, 5.6}, {6.2, 7.6}, {9.8, 8.4}, {9.6, 10.4}, {6, 10.2}}}, {{{8, 4.2}, {8, 11.8}}}});
      break;
    default:
      drawToolGlyph(painter, glyph);
  }
}

class GlyphEngine : public QIconEngine {
 public:
  GlyphEngine(Glyph glyph, int hue) : glyph_(glyph), hue_(hue) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    QColor line = QGuiApplication::palette().color(group, QPalette::ButtonText);
    QRectF field = rect;
    if (hue_ >= 0) {
      const int saturation = mode == QIcon::Disabled ? 20 : 110;
      painter->setPen(Qt::NoPen);
      painter->setBrush(QColor::fromHsl(hue_, saturation, 105));
      painter->drawRoundedRect(field, field.width() * 0.2, field.width() * 0.2);
      line = Qt::white;
      const double rim = field.width() * 0.2;
      field.adjust(rim, rim, -rim, -rim);
    }
    painter->translate(field.topLeft());
    painter->scale(field.width() / 16, field.height() / 16);
    painter->setPen(QPen(line, hue_ >= 0 ? 1.0 : 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    drawGlyph(*painter, glyph_);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new GlyphEngine(glyph_, hue_); }

 private:
  Glyph glyph_;
  int hue_;  // -1: no tile
};

}  // namespace

QIcon glyphIcon(Glyph glyph) {
  return glyph == Glyph::None ? QIcon() : QIcon(new GlyphEngine(glyph, -1));
}

QIcon tileIcon(Glyph glyph, int hue) {
  return QIcon(new GlyphEngine(glyph, hue));
}

}  // namespace zelvo
