#pragma once

#include <memory>
#include <vector>

#include "documents/editor/text_places.h"

class QTextBlock;
class QTextBlockFormat;
class QTextCharFormat;
class QTextCursor;
class QTextDocument;
class QTextTable;
class QTextTableFormat;

namespace zelvo {

/// A letter as the text of an editing widget, and back. The widget shows less than a letter holds: what it does not
/// know (paper, headers, leaders, rows of a table, pictures as they lie in the file) is kept here, and the text carries
/// the number under which it is found, through all cutting, joining and undoing.
class QtLetter {
 public:
  /// Fills the text with a letter, whatever it held.
  void show(const Document& letter, QTextDocument& text);
  /// The letter that the text is now.
  Document read(const QTextDocument& text) const;

  /// Places of the letter and of the text.
  int positionOf(const QTextDocument& text, TextPlace place) const;
  TextPlace placeOf(const QTextDocument& text, int position) const;

  /// The width of a line of the letter, in pixels of the widget.
  int lineWidth() const;

 private:
  void showBlock(QTextCursor& cursor, const Block& block);
  void startBlock(QTextCursor& cursor, const QTextBlockFormat& format, const QTextCharFormat& letters);
  void showParagraph(QTextCursor& cursor, const Paragraph& paragraph);
  void showRow(QTextCursor& cursor, const TableRow& row);
  void showBreak(QTextCursor& cursor, int kind, std::size_t index);
  void showRun(QTextCursor& cursor, const Run& run);
  Paragraph readParagraph(const QTextBlock& block) const;
  void readBlock(const QTextBlock& block, std::vector<Block>& body) const;
  TableRow readRow(const QTextTable& table) const;

  Document frame_;                     // the letter without its body
  std::vector<Paragraph> paragraphs_;  // without their words
  std::vector<TableRow> rows_;
  std::vector<SectionBreak> sections_;
  std::vector<std::shared_ptr<const Picture>> pictures_;
  bool fresh_ = true;  // the block at the cursor is still unused
};

}  // namespace zelvo
