#pragma once

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextTable>
#include <QTextTableFormat>

#include "documents/document.h"

namespace zelvo {

/// Twips as pixels of the editing widget, which counts 96 to the inch.
constexpr double pixelsOf(double twips) {
  return twips / 15;
}

// The looks of a letter as an editing widget has them. Those of letters are kept whole; of paragraphs, rows and cells
// what can be seen.
QTextCharFormat formatOf(const TextStyle& style);
TextStyle styleOf(const QTextCharFormat& format);
QTextBlockFormat formatOf(const ParagraphStyle& style);
Alignment alignmentOf(const QTextBlockFormat& format);
QTextTableFormat formatOf(const TableRow& row);
/// The look of a cell of a table that was shown as such a row. The widget's own formats of cells give way to that of
/// the first words in them.
QTextTableCellFormat cellFormatOf(const QTextTable& table, int column);

}  // namespace zelvo
