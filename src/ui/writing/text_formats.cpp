#include "ui/writing/text_formats.h"

#include <QTextOption>
#include <algorithm>

namespace zelvo {

namespace {

constexpr int kCellLooks = QTextFormat::UserProperty + 1000;  // of the columns, one behind the other

QColor colourOf(const Colour& colour) {
  return {colour.red, colour.green, colour.blue};
}

Colour colourOf(const QColor& colour) {
  return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
          static_cast<std::uint8_t>(colour.blue())};
}

Qt::Alignment sideOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::Center:
      return Qt::AlignHCenter;
    case Alignment::Right:
      return Qt::AlignRight;
    case Alignment::Justify:
      return Qt::AlignJustify;
    case Alignment::Left:
      break;
  }
  return Qt::AlignLeft;
}

QTextOption::TabType typeOf(TabKind kind) {
  switch (kind) {
    case TabKind::Center:
      return QTextOption::CenterTab;
    case TabKind::Right:
      return QTextOption::RightTab;
    case TabKind::Decimal:
      return QTextOption::DelimiterTab;
    case TabKind::Left:
      break;
  }
  return QTextOption::LeftTab;
}

void setLine(QTextBlockFormat& format, const ParagraphStyle& style) {
  constexpr double kWholeLine = 2.4;  // a hundredth of it, in 240ths
  if (style.lineRule == LineRule::Multiple)
    format.setLineHeight(style.line / kWholeLine, QTextBlockFormat::ProportionalHeight);
  else
    format.setLineHeight(pixelsOf(style.line), style.lineRule == LineRule::Exact ? QTextBlockFormat::FixedHeight
                                                                                 : QTextBlockFormat::MinimumHeight);
}

QTextTableCellFormat formatOf(const Cell& cell, int padding) {
  QTextTableCellFormat format;
  format.setLeftPadding(pixelsOf(padding));
  format.setRightPadding(pixelsOf(padding));
  if (cell.shade)
    format.setBackground(colourOf(*cell.shade));
  if (cell.place != VerticalPlace::Top)
    format.setVerticalAlignment(cell.place == VerticalPlace::Middle ? QTextCharFormat::AlignMiddle
                                                                    : QTextCharFormat::AlignBottom);
  const auto width = [](const Border& border) { return border.width > 0 ? std::max(1.0, pixelsOf(border.width)) : 0; };
  format.setTopBorder(width(cell.top));
  format.setBottomBorder(width(cell.bottom));
  format.setLeftBorder(width(cell.left));
  format.setRightBorder(width(cell.rightBorder));
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderBrush(QBrush(colourOf(cell.top.width > 0 ? cell.top.colour : cell.bottom.colour)));
  return format;
}

}  // namespace

QTextCharFormat formatOf(const TextStyle& style) {
  QTextCharFormat format;
  format.setFontFamilies({QString::fromStdString(style.font.family)});
  format.setFontPointSize(style.font.points);
  format.setFontWeight(style.font.bold ? QFont::Bold : QFont::Normal);
  format.setFontItalic(style.font.italic);
  format.setFontUnderline(style.underline);
  format.setFontStrikeOut(style.strike);
  format.setForeground(colourOf(style.colour));
  if (style.script != Script::Normal)
    format.setVerticalAlignment(style.script == Script::Super ? QTextCharFormat::AlignSuperScript
                                                              : QTextCharFormat::AlignSubScript);
  if (style.capitals != Capitals::AsWritten)
    format.setFontCapitalization(style.capitals == Capitals::All ? QFont::AllUppercase : QFont::SmallCaps);
  if (style.highlight)
    format.setBackground(colourOf(*style.highlight));
  return format;
}

TextStyle styleOf(const QTextCharFormat& format) {
  TextStyle style;
  const QStringList families = format.fontFamilies().toStringList();
  if (!families.isEmpty())
    style.font.family = families.first().toStdString();
  if (format.hasProperty(QTextFormat::FontPointSize))
    style.font.points = format.fontPointSize();
  style.font.bold = format.fontWeight() >= QFont::Bold;
  style.font.italic = format.fontItalic();
  style.underline = format.fontUnderline();
  style.strike = format.fontStrikeOut();
  if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
    style.script = Script::Super;
  else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
    style.script = Script::Sub;
  if (format.fontCapitalization() == QFont::AllUppercase)
    style.capitals = Capitals::All;
  else if (format.fontCapitalization() == QFont::SmallCaps)
    style.capitals = Capitals::Small;
  if (format.hasProperty(QTextFormat::ForegroundBrush))
    style.colour = colourOf(format.foreground().color());
  if (format.hasProperty(QTextFormat::BackgroundBrush))
    style.highlight = colourOf(format.background().color());
  return style;
}

QTextBlockFormat formatOf(const ParagraphStyle& style) {
  QTextBlockFormat format;
  format.setAlignment(sideOf(style.alignment));
  format.setLeftMargin(pixelsOf(style.left));
  format.setRightMargin(pixelsOf(style.right));
  format.setTextIndent(pixelsOf(style.first));
  format.setTopMargin(pixelsOf(style.before));
  format.setBottomMargin(pixelsOf(style.after));
  setLine(format, style);
  if (style.shade)
    format.setBackground(colourOf(*style.shade));
  // The widget counts tab stops from where the line begins, and its first line is the one with tabs. The edge that a
  // hanging line returns to is a stop as well.
  QList<QTextOption::Tab> tabs;
  if (style.first < 0)
    tabs.append(QTextOption::Tab(pixelsOf(-style.first), QTextOption::LeftTab));
  for (const TabStop& tab : style.tabs)
    tabs.append(
        QTextOption::Tab(pixelsOf(tab.position - style.left - style.first), typeOf(tab.kind), QLatin1Char('.')));
  std::ranges::stable_sort(tabs, {}, &QTextOption::Tab::position);
  if (!tabs.isEmpty())
    format.setTabPositions(tabs);
  return format;
}

Alignment alignmentOf(const QTextBlockFormat& format) {
  for (const Alignment alignment : {Alignment::Center, Alignment::Right, Alignment::Justify})
    if ((format.alignment() & Qt::AlignHorizontal_Mask) == sideOf(alignment))
      return alignment;
  return Alignment::Left;
}

QTextTableFormat formatOf(const TableRow& row) {
  QTextTableFormat format;
  format.setBorder(0);
  format.setCellSpacing(0);
  format.setCellPadding(0);
  format.setMargin(0);
  format.setLeftMargin(pixelsOf(row.left));
  QList<QTextLength> widths;
  int left = row.left;
  for (const Cell& cell : row.cells) {
    widths.append(QTextLength(QTextLength::FixedLength, std::max(1.0, pixelsOf(cell.right - left))));
    left = cell.right;
    const QTextFormat look = formatOf(cell, row.padding);
    format.setProperty(kCellLooks + static_cast<int>(widths.size()) - 1, QVariant::fromValue(look));
  }
  format.setColumnWidthConstraints(widths);
  return format;
}

QTextTableCellFormat cellFormatOf(const QTextTable& table, int column) {
  return qvariant_cast<QTextFormat>(table.format().property(kCellLooks + column)).toTableCellFormat();
}

}  // namespace zelvo
