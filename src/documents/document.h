#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo {

// A letter as it is laid out, shown and printed. All lengths are twips (1440 to the inch) unless they say otherwise;
// texts are UTF-8.

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Colour&) const = default;
};

/// What a font has to be asked for to measure or draw a text.
struct TextFont {
  std::string family = "Times New Roman";
  double points = 12;
  bool bold = false;
  bool italic = false;
  bool operator==(const TextFont&) const = default;
};

enum class Script { Normal, Super, Sub };
enum class Capitals { AsWritten, All, Small };

struct TextStyle {
  TextFont font;  ///< as written; super- and subscript are laid out smaller
  bool underline = false;
  bool strike = false;
  Script script = Script::Normal;
  Capitals capitals = Capitals::AsWritten;  ///< how the letters are drawn; the text keeps them as they were typed
  Colour colour;
  std::optional<Colour> highlight;
  bool operator==(const TextStyle&) const = default;
};

/// Metafile: lines and shapes, see drawingOf.
enum class PictureKind { Png, Jpeg, Bmp, Metafile };

/// A picture as a whole file of its kind, and the size at which it stands on the paper.
struct Picture {
  PictureKind kind = PictureKind::Png;
  std::string bytes;
  int width = 0, height = 0;
  double cropLeft = 0, cropTop = 0, cropRight = 0, cropBottom = 0;  ///< parts of the whole (0 to 1) that are not shown
  bool operator==(const Picture&) const = default;
};

/// A number that is known only when the pages are made.
enum class LiveField { None, PageNumber, PageCount };

/// Text of one style. "\t" is a tab, "\n" a line break inside the paragraph. A run that is a picture or a live number
/// has no text of its own.
struct Run {
  TextStyle style;
  std::string text;
  LiveField live = LiveField::None;
  std::shared_ptr<const Picture> picture;
  /// Pictures are equal when they show the same.
  bool operator==(const Run& other) const;
};

enum class Alignment { Left, Center, Right, Justify };
enum class TabKind { Left, Center, Right, Decimal };
enum class TabLeader { None, Dots, Hyphens, Underline };

struct TabStop {
  int position = 0;  ///< from the left edge of the text area
  TabKind kind = TabKind::Left;
  TabLeader leader = TabLeader::None;
  bool operator==(const TabStop&) const = default;
};

enum class LineRule { Multiple, AtLeast, Exact };

struct Border {
  int width = 0;  ///< 0: none
  Colour colour;
  bool operator==(const Border&) const = default;
};

struct ParagraphStyle {
  Alignment alignment = Alignment::Left;
  int left = 0, right = 0;    ///< indents
  int first = 0;              ///< of the first line, added to left; negative hangs out
  int before = 0, after = 0;  ///< space above and below
  LineRule lineRule = LineRule::Multiple;
  int line = 240;             ///< Multiple: 240ths of the line's own height; else twips
  std::vector<TabStop> tabs;  ///< in order of position
  bool pageBreakBefore = false;
  bool keepTogether = false;  ///< its lines stand on one page
  bool keepWithNext = false;  ///< stands on the page of the next paragraph's first line
  Border top, leftBorder, bottom, rightBorder;
  int borderSpace = 0;  ///< between the text and its borders
  std::optional<Colour> shade;
  bool operator==(const ParagraphStyle&) const = default;
};

struct TableRow;

struct Paragraph {
  ParagraphStyle style;
  std::vector<Run> runs;
  TextStyle end;  ///< the style of the paragraph's end: what gives an empty paragraph its height
  /// Of a paragraph in a table that stands in a header, a footer or a cell: the shape of its row, and the number of its
  /// cell. All paragraphs of such a row stand one behind the other, cell after cell, with those of the tables in its
  /// cells among them; the cells of the shape are empty.
  std::shared_ptr<const TableRow> row = nullptr;
  std::size_t cell = 0;
  /// Rows are equal when they look the same.
  bool operator==(const Paragraph& other) const;
};

enum class VerticalPlace { Top, Middle, Bottom };

struct Cell {
  int right = 0;  ///< its right edge, from the left edge of the text area
  Border top, left, bottom, rightBorder;
  VerticalPlace place = VerticalPlace::Top;
  std::optional<Colour> shade;
  bool continuesAbove = false;  ///< merged into the cell above it
  std::vector<Paragraph> paragraphs;
  bool operator==(const Cell&) const = default;
};

/// The cell of another inner table in which a row of a table stands.
struct OuterCell {
  std::shared_ptr<const TableRow> row = nullptr;  ///< null: the row stands in no further one
  std::size_t cell = 0;
  bool operator==(const OuterCell& other) const;
};

/// A row of a table. Rows that follow one another make the table.
struct TableRow {
  int left = 0;                           ///< the left edge of the first cell, from the left edge of the text area
  int padding = 0;                        ///< between a cell's edge and its text, left and right
  int height = 0;                         ///< at least; negative: exactly
  bool isHeading = false;                 ///< of its table: stands again on each page that the table reaches
  Alignment alignment = Alignment::Left;  ///< Center, Right: between the margins, wherever its left edge is
  std::vector<Cell> cells;
  OuterCell outer;
  bool operator==(const TableRow&) const = default;
};

struct PageBreak {
  bool operator==(const PageBreak&) const = default;
};

/// What the file says of its paper; nothing where it says nothing.
struct PageSetup {
  std::optional<int> width, height;
  std::optional<int> left, top, right, bottom;
  bool landscape = false;
  int headerDistance = 720, footerDistance = 720;  ///< from the paper's edge

  bool statesMargins() const { return left || top || right || bottom; }
  bool operator==(const PageSetup&) const = default;
};

/// Pages of one paper with the same headers and footers. A kind of page that differs and has no header shows none.
struct Section {
  PageSetup page;
  std::vector<Paragraph> header, footer;
  bool firstPageDiffers = false;
  std::vector<Paragraph> firstHeader, firstFooter;
  bool leftPagesDiffer = false;  ///< those of even numbers
  std::vector<Paragraph> leftHeader, leftFooter;
  std::optional<int> firstNumber;  ///< of its pages; nothing: they are counted on
  bool operator==(const Section&) const = default;
};

/// The text behind it belongs to another section.
struct SectionBreak {
  std::shared_ptr<const Section> section;  ///< never null
  bool newPage = true;                     ///< false: goes on on the same page where the paper allows it
  bool operator==(const SectionBreak& other) const;
};

using Block = std::variant<Paragraph, TableRow, PageBreak, SectionBreak>;

/// A whole letter. The section that it is itself reaches to the first section break of its body.
struct Document : Section {
  int defaultTab = 720;
  std::vector<Block> body;
  bool operator==(const Document&) const = default;
};

/// How many inner tables a paragraph stands in, one in a cell of the other.
std::size_t innerDepth(const Paragraph& paragraph);
/// The row of one of them, and the cell of it in which the paragraph stands, counted from the outermost, 0; null when
/// the paragraph does not stand so deep.
OuterCell innerCell(const Paragraph& paragraph, std::size_t depth);

/// The text of a paragraph, and of a whole body, a line a paragraph; cells are separated by tabs. Live numbers and
/// pictures give nothing.
std::string plainText(const Paragraph& paragraph);
std::string plainText(const Document& document);

}  // namespace zelvo
