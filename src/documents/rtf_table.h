#pragma once

#include <optional>
#include <vector>

#include "documents/document.h"
#include "documents/rtf_look.h"

namespace zelvo {

/// Puts the rows of a table together: their shape is described before or behind their cells, and holds for further rows
/// until it is described anew.
class RtfTable {
 public:
  explicit RtfTable(const RtfColours& colours) : colours_(&colours) {}

  /// True when the word was one of a table's shape.
  bool take(const RtfToken& token);
  void add(Paragraph paragraph) { cell_.push_back(std::move(paragraph)); }
  void endCell();
  TableRow endRow();
  /// The same for a table inside a header, a footer or a cell: its paragraphs, which know their row.
  std::vector<Paragraph> endInnerRow();
  /// Whether a row is begun and not ended.
  bool isOpen() const { return !cell_.empty() || !cells_.empty(); }

 private:
  struct Shape {
    Cell cell;
    bool joinsLeft = false;  // merged into the cell to its left
    bool ownBorders = false;
  };
  bool takeRowWord(const RtfToken& token);
  bool takeCellWord(const RtfToken& token);
  void endShape(int right);
  void shapeEvenly();
  static void joinLeft(Cell& left, Cell& cell);

  const RtfColours* colours_;
  TableRow row_;
  std::vector<Shape> shapes_;
  bool shapeUsed_ = false;  // by a row before
  Shape next_;
  Border rowBorder_;
  Border* border_ = nullptr;  // which the border words speak of
  std::vector<Paragraph> cell_;
  std::vector<std::vector<Paragraph>> cells_;
};

}  // namespace zelvo
