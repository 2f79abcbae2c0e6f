#pragma once

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

namespace zelvo {

/// Blocks of a text, by their numbers.
struct BlockSpan {
  int first = 0, last = -1;
};

/// The table in which a block lies; null for one of the text itself.
QTextTable* tableOf(const QTextBlock& block);
BlockSpan spanOf(const QTextTable& table);

/// The blocks in which `added` new characters from `from` on lie. What a text tells of its changes may reach beyond its
/// end.
BlockSpan changedSpan(const QTextDocument& text, int from, int added);
/// With all of the tables in which the span begins and ends.
BlockSpan withTables(const QTextDocument& text, BlockSpan span);

/// Visits the blocks of a span that lie in no table, and the tables, in their order. A whole text is walked through by
/// its frames: to ask for the table of a single block costs as much as there are tables.
template <class OnBlock, class OnTable>
void eachPart(const QTextDocument& text, BlockSpan span, const OnBlock& onBlock, const OnTable& onTable) {
  if (span.first == 0 && span.last == text.blockCount() - 1) {
    for (auto part = text.rootFrame()->begin(); !part.atEnd(); ++part)
      if (const auto* table = qobject_cast<const QTextTable*>(part.currentFrame()))
        onTable(*table);
      else if (part.currentBlock().isValid())
        onBlock(part.currentBlock());
    return;
  }
  for (QTextBlock block = text.findBlockByNumber(span.first); block.isValid() && block.blockNumber() <= span.last;) {
    const QTextTable* table = tableOf(block);
    table ? onTable(*table) : onBlock(block);
    block = table ? text.findBlock(table->lastPosition() + 1) : block.next();
  }
}

}  // namespace zelvo
