#include "documents/page_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "documents/line_layout.h"
#include "documents/page_painter.h"

namespace zelvo {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kSmallestArea = 1440;  // an inch of text, whatever the margins say
constexpr double kHair = 0.01;
constexpr double kUnbounded = 1e12;

struct Frame {
  double width = 12240, height = 15840;
  double left = 0, top = 0, right = 0, bottom = 0;
  double textWidth() const { return width - left - right; }
  double textHeight() const { return height - top - bottom; }
};

bool isPaper(const std::optional<int>& length) {
  return length && *length >= 2 * kSmallestArea;
}

void setMargins(Frame& frame, const PageSetup& page, const PrintOptions& options) {
  if (options.marginsSet || !page.statesMargins()) {
    frame.left = options.left * kTwipsPerInch;
    frame.top = options.top * kTwipsPerInch;
    frame.right = options.right * kTwipsPerInch;
    frame.bottom = options.bottom * kTwipsPerInch;
    return;
  }
  // What such a file leaves out has the values that rich text gives it.
  frame.left = page.left.value_or(1800);
  frame.right = page.right.value_or(1800);
  frame.top = std::abs(page.top.value_or(1440));
  frame.bottom = std::abs(page.bottom.value_or(1440));
}

Frame frameOf(const Document& document, const PrintOptions& options) {
  Frame frame;
  if (isPaper(document.page.width) && isPaper(document.page.height)) {
    frame.width = *document.page.width;
    frame.height = *document.page.height;
  }
  if ((document.page.landscape || options.landscape) && frame.width < frame.height)
    std::swap(frame.width, frame.height);
  setMargins(frame, document.page, options);
  frame.left = std::clamp(frame.left, 0.0, frame.width - kSmallestArea);
  frame.right = std::clamp(frame.right, 0.0, frame.width - kSmallestArea - frame.left);
  frame.top = std::clamp(frame.top, 0.0, frame.height - kSmallestArea);
  frame.bottom = std::clamp(frame.bottom, 0.0, frame.height - kSmallestArea - frame.top);
  return frame;
}

bool holds(const std::vector<Run>& runs, LiveField field) {
  return std::any_of(runs.begin(), runs.end(), [field](const Run& run) { return run.live == field; });
}

bool holds(const TableRow& row, LiveField field) {
  return std::any_of(row.cells.begin(), row.cells.end(), [field](const Cell& cell) {
    return std::any_of(cell.paragraphs.begin(), cell.paragraphs.end(),
                       [field](const Paragraph& paragraph) { return holds(paragraph.runs, field); });
  });
}

bool bodyHolds(const Document& document, LiveField field) {
  return std::any_of(document.body.begin(), document.body.end(), [field](const Block& block) {
    if (const auto* row = std::get_if<TableRow>(&block))
      return holds(*row, field);
    const auto* paragraph = std::get_if<Paragraph>(&block);
    return paragraph && holds(paragraph->runs, field);
  });
}

/// A paragraph's lines one below the other, with its space above and below.
struct PlacedLine {
  Line line;
  double top = 0;
};

struct Stack {
  std::vector<PlacedLine> lines;
  double height = 0;
};

class Layout {
 public:
  Layout(const Document& document, const PrintOptions& options, const FontMeasure& fonts, std::size_t pageCount)
      : document_(document), fonts_(fonts), frame_(frameOf(document, options)), pageCount_(pageCount) {}

  PagedDocument run() {
    result_.width = frame_.width;
    result_.height = frame_.height;
    openPage();
    for (std::size_t i = 0; i < document_.body.size(); ++i)
      place(i);
    pageCount_ = result_.pages.size();
    for (std::size_t i = 0; i < result_.pages.size(); ++i)
      addHeaderAndFooter(i);
    return std::move(result_);
  }

 private:
  Page& page() { return result_.pages.back(); }

  std::string live(LiveField field, std::size_t pageNumber) const {
    return std::to_string(field == LiveField::PageNumber ? pageNumber : pageCount_);
  }

  LineArea area(double width, double height, std::size_t pageNumber) const {
    return {width, height, document_.defaultTab,
            [this, pageNumber](LiveField field) { return live(field, pageNumber); }};
  }

  bool isFirst(std::size_t pageIndex) const { return pageIndex == 0 && document_.firstPageDiffers; }
  const std::vector<Paragraph>& header(std::size_t pageIndex) const {
    return isFirst(pageIndex) ? document_.firstHeader : document_.header;
  }
  const std::vector<Paragraph>& footer(std::size_t pageIndex) const {
    return isFirst(pageIndex) ? document_.firstFooter : document_.footer;
  }

  Stack stackOf(const std::vector<Paragraph>& paragraphs, const LineArea& lineArea) const {
    Stack stack;
    for (const Paragraph& paragraph : paragraphs) {
      stack.height += paragraph.style.before;
      for (Line& line : layOutLines(paragraph, lineArea, fonts_)) {
        const double height = line.height;
        stack.lines.push_back({std::move(line), stack.height});
        stack.height += height;
      }
      stack.height += paragraph.style.after;
    }
    return stack;
  }

  LineArea marginArea(std::size_t pageNumber) const {
    return area(frame_.textWidth(), frame_.textHeight(), pageNumber);
  }

  // A header or footer that is higher than its margin pushes the text out of its way.
  void openPage() {
    result_.pages.emplace_back();
    const std::size_t index = result_.pages.size() - 1;
    const double above = stackOf(header(index), marginArea(1)).height;
    const double below = stackOf(footer(index), marginArea(1)).height;
    top_ = std::max(frame_.top, above > 0 ? document_.page.headerDistance + above : 0);
    top_ = std::min(top_, frame_.height - kSmallestArea);
    bottom_ = frame_.height - std::max(frame_.bottom, below > 0 ? document_.page.footerDistance + below : 0);
    bottom_ = std::max(bottom_, top_ + kSmallestArea);
    y_ = top_;
    untouched_ = true;
  }

  void addHeaderAndFooter(std::size_t index) {
    const Stack above = stackOf(header(index), marginArea(index + 1));
    const Stack below = stackOf(footer(index), marginArea(index + 1));
    paint(result_.pages[index], above, document_.page.headerDistance);
    paint(result_.pages[index], below, frame_.height - document_.page.footerDistance - below.height);
  }

  void paint(Page& onto, const Stack& stack, double y) const {
    for (const PlacedLine& placed : stack.lines)
      paintLine(onto, placed.line, frame_.left, y + placed.top, fonts_);
  }

  void place(std::size_t index) {
    const Block& block = document_.body[index];
    if (const auto* paragraph = std::get_if<Paragraph>(&block)) {
      placeParagraph(*paragraph);
    } else if (const auto* row = std::get_if<TableRow>(&block)) {
      const bool more = index + 1 < document_.body.size();
      placeRow(*row, more ? std::get_if<TableRow>(&document_.body[index + 1]) : nullptr);
    } else {
      openPage();
    }
  }

  bool fits(double height) const { return untouched_ || y_ + height <= bottom_ + kHair; }

  void placeParagraph(const Paragraph& paragraph) {
    if (paragraph.style.pageBreakBefore && !untouched_)
      openPage();
    y_ += paragraph.style.before;
    std::vector<Line> lines = linesOf(paragraph);
    if (!fits(lines.front().height)) {
      openPage();
      lines = linesOf(paragraph);  // a page number in it is another one now
    }
    for (const Line& line : lines)
      placeLine(line);
    y_ += paragraph.style.after;
  }

  std::vector<Line> linesOf(const Paragraph& paragraph) const {
    return layOutLines(paragraph, area(frame_.textWidth(), bottom_ - top_, result_.pages.size()), fonts_);
  }

  void placeLine(const Line& line) {
    if (!fits(line.height))
      openPage();
    y_ = std::min(y_, bottom_ - line.height);  // whatever space is asked for, the text stands on the paper
    paintLine(page(), line, frame_.left, y_, fonts_);
    y_ += line.height;
    untouched_ = false;
  }

  // The part of a cell that is not placed yet.
  struct OpenCell {
    const Cell* cell;
    double left = 0;
    Stack stack;
    std::size_t next = 0;
    // The space above the first line belongs to the row, the space above a line that opens a page does not.
    double done() const {
      if (next == 0 && !stack.lines.empty())
        return 0;
      return next < stack.lines.size() ? stack.lines[next].top : stack.height;
    }
    double rest() const { return stack.height - done(); }
  };

  std::vector<OpenCell> openCells(const TableRow& row) const {
    std::vector<OpenCell> cells;
    double left = row.left;
    for (const Cell& cell : row.cells) {
      const double width = std::max(100.0, cell.right - left - 2.0 * row.padding);
      cells.push_back({&cell, left, stackOf(cell.paragraphs, area(width, bottom_ - top_, result_.pages.size())), 0});
      left = cell.right;
    }
    return cells;
  }

  static double restOf(const std::vector<OpenCell>& cells) {
    double rest = 0;
    for (const OpenCell& cell : cells)
      rest = std::max(rest, cell.rest());
    return rest;
  }

  static double heightOf(const TableRow& row, const std::vector<OpenCell>& cells) {
    return row.height < 0 ? -row.height : std::max<double>(restOf(cells), row.height);
  }

  // A row stays together when a page can hold it; a higher one is cut between its lines.
  void placeRow(const TableRow& row, const TableRow* below) {
    std::vector<OpenCell> cells = openCells(row);
    double height = heightOf(row, cells);
    if (!untouched_ && y_ + height > bottom_ + kHair) {
      openPage();
      cells = openCells(row);
    }
    while (y_ + height > bottom_ + kHair) {
      if (!placeSlice(row, cells, bottom_ - y_, nullptr, false))
        break;
      openPage();
      height = restOf(cells);
    }
    placeSlice(row, cells, height, below, true);
    y_ += height;
    untouched_ = false;
  }

  // True when some lines were placed, so that cutting comes to an end.
  bool placeSlice(const TableRow& row, std::vector<OpenCell>& cells, double height, const TableRow* below, bool whole) {
    bool placed = false;
    for (OpenCell& open : cells) {
      const CellFrame frame{frame_.left + open.left,        y_,
                            frame_.left + open.cell->right, y_ + height,
                            !open.cell->continuesAbove,     !continuesBelow(*open.cell, below)};
      paintCell(page(), *open.cell, frame);
      const double down = whole ? spaceAbove(open, height) : 0;
      if (placeLines(open, frame.left + row.padding, y_ + down, whole ? kUnbounded : height))
        placed = true;
    }
    return placed;
  }

  // The lines of a cell that fit into the room below y.
  bool placeLines(OpenCell& open, double x, double y, double room) {
    const std::size_t first = open.next;
    const double begin = open.done();
    for (; open.next < open.stack.lines.size(); ++open.next) {
      const PlacedLine& placed = open.stack.lines[open.next];
      if (placed.top - begin + placed.line.height > room + kHair)
        break;
      paintLine(page(), placed.line, x, y + placed.top - begin, fonts_);
    }
    return open.next > first;
  }

  static double spaceAbove(const OpenCell& open, double height) {
    const double room = std::max(0.0, height - open.rest());
    switch (open.cell->place) {
      case VerticalPlace::Middle:
        return room / 2;
      case VerticalPlace::Bottom:
        return room;
      case VerticalPlace::Top:
        break;
    }
    return 0;
  }

  static bool continuesBelow(const Cell& cell, const TableRow* below) {
    return below && std::any_of(below->cells.begin(), below->cells.end(), [&cell](const Cell& other) {
             return other.continuesAbove && std::abs(other.right - cell.right) < 20;
           });
  }

  const Document& document_;
  const FontMeasure& fonts_;
  const Frame frame_;
  std::size_t pageCount_;
  PagedDocument result_;
  double top_ = 0, bottom_ = 0, y_ = 0;
  bool untouched_ = true;  // nothing stands on the page yet
};

}  // namespace

PagedDocument layOutPages(const Document& document, const PrintOptions& options, const FontMeasure& fonts) {
  PagedDocument pages = Layout(document, options, fonts, 1).run();
  // How many pages there are is known only when they are made.
  if (bodyHolds(document, LiveField::PageCount) && pages.pages.size() > 1)
    return Layout(document, options, fonts, pages.pages.size()).run();
  return pages;
}

}  // namespace zelvo
