#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "documents/editor/body_change.h"
#include "documents/editor/text_places.h"
#include "ui/writing/text_blocks.h"

class QTextBlock;
class QTextBlockFormat;
class QTextCharFormat;
class QTextCursor;
class QTextTable;
class QTextTableFormat;

namespace zelvo {

/// A letter as the text of an editing widget, and back. The widget shows less than a letter holds: what it does not
/// know (paper, headers, leaders, rows of a table, pictures as they lie in the file) is kept here, and the text carries
/// the number under which it is found, through all cutting, joining and undoing.
class QtLetter {
 public:
  /// How many blocks and paragraphs of the letter a block of the text is.
  struct Share {
    std::uint32_t blocks = 0, paragraphs = 0;
  };

  /// Fills the text with a letter, whatever it held.
  void show(const Document& letter, QTextDocument& text);
  /// Shows the blocks of the body of the letter from `at` to `end` in the place of `gone` others. False, and nothing
  /// done, where a block is no plain paragraph: then the letter has to be shown as a whole.
  bool showPart(const std::vector<Block>& body, std::size_t at, std::size_t gone, std::size_t end, QTextDocument& text);
  /// The letter that the text is now.
  Document read(const QTextDocument& text) const;

  /// To be told of each change of the text: `added` characters from `from` on are new.
  void noteChange(const QTextDocument& text, int from, int added);
  bool isChanged() const { return changed_.has_value(); }
  /// What became of the letter since it was shown or this was last asked. Only what was changed is read.
  BodyChange takeChange(const QTextDocument& text);
  /// How many blocks of the text were ever read, for whoever wants to know what a key costs.
  std::size_t blocksRead() const { return blocksRead_; }

  /// Places of the letter and of the text.
  int positionOf(const QTextDocument& text, TextPlace place) const;
  TextPlace placeOf(const QTextDocument& text, int position) const;

  /// The width of a line of the letter, in pixels of the widget.
  int lineWidth() const;

 private:
  // What was read of the text.
  struct Reading {
    std::vector<Block> body;
    std::vector<Share> shares;
  };

  void showBlock(QTextCursor& cursor, const Block& block);
  void startBlock(QTextCursor& cursor, const QTextBlockFormat& format, const QTextCharFormat& letters);
  void showParagraph(QTextCursor& cursor, const Paragraph& paragraph);
  void showRow(QTextCursor& cursor, const TableRow& row);
  void showBreak(QTextCursor& cursor, int kind, std::size_t index);
  void showRun(QTextCursor& cursor, const Run& run);
  void count(const QTextDocument& text);
  Reading readSpan(const QTextDocument& text, BlockSpan span) const;
  void readBlock(const QTextBlock& block, Reading& reading) const;
  Paragraph readParagraph(const QTextBlock& block) const;
  void readTable(const QTextTable& table, Reading& reading) const;
  TableRow readRow(const QTextTable& table) const;
  std::size_t blocksBefore(int number) const;
  int numberOf(std::size_t block) const;

  Document frame_;                     // the letter without its body
  std::vector<Paragraph> paragraphs_;  // without their words
  std::vector<TableRow> rows_;
  std::vector<SectionBreak> sections_;
  std::vector<std::shared_ptr<const Picture>> pictures_;
  bool fresh_ = true;          // the block at the cursor is still unused
  std::vector<Share> shares_;  // of the blocks of the text as it was last read
  std::optional<BlockSpan> changed_;
  int counted_ = 0;  // blocks of the text when that was noted
  mutable std::size_t blocksRead_ = 0;
};

}  // namespace zelvo
