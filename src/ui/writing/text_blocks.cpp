#include "ui/writing/text_blocks.h"

#include <algorithm>

namespace zelvo {

QTextTable* tableOf(const QTextBlock& block) {
  return qobject_cast<QTextTable*>(block.document()->frameAt(block.position()));
}

BlockSpan spanOf(const QTextTable& table) {
  const QTextDocument& text = *table.document();
  return {text.findBlock(table.firstPosition()).blockNumber(), text.findBlock(table.lastPosition()).blockNumber()};
}

BlockSpan changedSpan(const QTextDocument& text, int from, int added) {
  const auto blockAt = [&text](int position) {
    return text.findBlock(std::min(position, text.characterCount() - 1)).blockNumber();
  };
  return {blockAt(from), blockAt(from + added)};
}

BlockSpan withTables(const QTextDocument& text, BlockSpan span) {
  for (const int number : {span.first, span.last})
    if (const QTextTable* table = tableOf(text.findBlockByNumber(number))) {
      span.first = std::min(span.first, spanOf(*table).first);
      span.last = std::max(span.last, spanOf(*table).last);
    }
  return span;
}

}  // namespace zelvo
