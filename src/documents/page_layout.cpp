#include "documents/page_layout.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "documents/line_layout.h"
#include "documents/page_frame.h"
#include "documents/page_painter.h"
#include "documents/paragraph_stack.h"

namespace zelvo {

namespace {

constexpr double kHair = 0.01;

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

// Whether a header or footer says something else on each page. One of endless text is laid out once: what is read of it
// on the paper is its beginning.
bool isLive(const std::vector<Paragraph>& paragraphs) {
  constexpr std::size_t mostText = 5000;
  std::size_t text = 0;
  bool lives = false;
  for (const Paragraph& paragraph : paragraphs) {
    lives = lives || holds(paragraph.runs, LiveField::PageNumber) || holds(paragraph.runs, LiveField::PageCount);
    text += 1 + paragraph.runs.size();
    for (const Run& run : paragraph.runs)
      text += run.text.size();
  }
  return lives && text <= mostText;
}

bool hasLeftPages(const Section& section) {
  return section.leftPagesDiffer && !(section.leftHeader.empty() && section.leftFooter.empty());
}

/// What the pages of a letter know of themselves.
struct PageFacts {
  const Section* section = nullptr;
  PageFrame frame;
  int number = 1;
  bool opensSection = false;
};

const ParagraphStyle* styleOf(const Block& block) {
  const auto* paragraph = std::get_if<Paragraph>(&block);
  return paragraph ? &paragraph->style : nullptr;
}

const std::vector<Paragraph>& headerOf(const PageFacts& page) {
  const Section& section = *page.section;
  if (page.opensSection && section.firstPageDiffers)
    return section.firstHeader;
  return hasLeftPages(section) && page.number % 2 == 0 ? section.leftHeader : section.header;
}

const std::vector<Paragraph>& footerOf(const PageFacts& page) {
  const Section& section = *page.section;
  if (page.opensSection && section.firstPageDiffers)
    return section.firstFooter;
  return hasLeftPages(section) && page.number % 2 == 0 ? section.leftFooter : section.footer;
}

class Layout {
 public:
  Layout(const Document& document, const PrintOptions& options, const FontMeasure& fonts, std::size_t pageCount)
      : document_(document), options_(options), fonts_(fonts), pageCount_(pageCount) {
    enterSection(document);
  }

  PagedDocument run() {
    result_.width = frame_.width;
    result_.height = frame_.height;
    openPage(true);
    for (std::size_t i = 0; i < document_.body.size() && !result_.isCutOff; ++i)
      place(i);
    if (result_.isCutOff)
      result_.pages.pop_back();
    pageCount_ = result_.pages.size();
    for (std::size_t i = 0; i < result_.pages.size(); ++i)
      addHeaderAndFooter(i);
    return std::move(result_);
  }

 private:
  Page& page() { return result_.pages.back(); }

  void enterSection(const Section& section) {
    section_ = &section;
    frame_ = frameOf(section.page, options_);
  }

  std::string live(LiveField field, int pageNumber) const {
    return std::to_string(field == LiveField::PageNumber ? pageNumber : static_cast<int>(pageCount_));
  }

  LineArea area(double width, double height, int pageNumber) const {
    return {width, height, document_.defaultTab,
            [this, pageNumber](LiveField field) { return live(field, pageNumber); }};
  }

  // A header or footer as it stands on a page. Most say the same on every page and are laid out once. What does not go
  // on the paper is left out: a broken file may have a header of a thousand lines on each of a thousand pages.
  const Stack& marginStack(const std::vector<Paragraph>& paragraphs, const PageFacts& facts) {
    const auto [known, isNew] = margins_.try_emplace(&paragraphs);
    if (isNew)
      known->second.lives = isLive(paragraphs);
    Stack& stack = known->second.stack;
    if (known->second.lives || stack.width != facts.frame.textWidth()) {
      const LineArea lineArea = area(facts.frame.textWidth(), facts.frame.textHeight(), facts.number);
      stack = stackOf(paragraphs, lineArea, fonts_, facts.frame.height);
      stack.width = facts.frame.textWidth();
      const auto tooLow = [&](const auto& placed) { return placed.top > facts.frame.height; };
      std::erase_if(stack.lines, tooLow);
      std::erase_if(stack.boxes, tooLow);
      stack.height = std::min(stack.height, facts.frame.height);
    }
    return stack;
  }

  // A header or footer that is higher than its margin pushes the text out of its way.
  void openPage(bool opensSection = false) {
    if (result_.pages.size() > kMostPages)
      return openNothing();
    PageFacts facts{section_, frame_, facts_.empty() ? 1 : facts_.back().number + 1, opensSection};
    if (opensSection && section_->firstNumber)
      facts.number = *section_->firstNumber;
    facts_.push_back(facts);
    result_.pages.emplace_back();
    page().width = frame_.width;
    page().height = frame_.height;
    const double above = marginStack(headerOf(facts), facts).height;
    const double below = marginStack(footerOf(facts), facts).height;
    top_ = std::max(frame_.top, above > 0 ? section_->page.headerDistance + above : 0);
    top_ = std::min(top_, frame_.height - kSmallestArea);
    bottom_ = frame_.height - std::max(frame_.bottom, below > 0 ? section_->page.footerDistance + below : 0);
    bottom_ = std::max(bottom_, top_ + kSmallestArea);
    y_ = top_;
    untouched_ = true;
    result_.isCutOff = result_.pages.size() > kMostPages;
  }

  // Behind the last page what is left of a block goes to one that is thrown away.
  void openNothing() {
    page() = Page{};
    y_ = top_;
    untouched_ = true;
  }

  void addHeaderAndFooter(std::size_t index) {
    const PageFacts& facts = facts_[index];
    paint(result_.pages[index], marginStack(headerOf(facts), facts), facts.frame, facts.section->page.headerDistance);
    const Stack& below = marginStack(footerOf(facts), facts);
    paint(result_.pages[index], below, facts.frame,
          facts.frame.height - facts.section->page.footerDistance - below.height);
  }

  void paint(Page& onto, const Stack& stack, const PageFrame& frame, double y) const {
    for (const PlacedBox& box : stack.boxes)
      paintBox(onto, box, frame.left, frame.textWidth(), y);
    for (const PlacedLine& placed : stack.lines)
      paintLine(onto, placed.line, frame.left + placed.x, y + placed.top, fonts_);
  }

  void place(std::size_t index) {
    const Block& block = document_.body[index];
    if (std::holds_alternative<Paragraph>(block)) {
      keepInPlace(index);
      placeParagraph(index);
    } else if (const auto* row = std::get_if<TableRow>(&block)) {
      if (index == 0 || !rowAt(index - 1))
        firstRow_ = index;
      placeRow(*row, index);
    } else if (const auto* next = std::get_if<SectionBreak>(&block)) {
      placeSection(*next);
    } else {
      openPage();
    }
  }

  // On the same page the text goes on between the new margins; another paper begins with a page of its own.
  void placeSection(const SectionBreak& next) {
    const PageFrame before = frame_;
    enterSection(*next.section);
    if (next.newPage || !frame_.samePaper(before))
      openPage(true);
  }

  bool fits(double height) const { return untouched_ || y_ + height <= bottom_ + kHair; }

  double heightOf(const Paragraph& paragraph) const {
    Stack stack;
    addToStack(stack, paragraph, nullptr, nullptr, pageArea(), fonts_);
    return stack.height;
  }

  double leastHeightOf(const Block& block) const {
    if (const auto* row = std::get_if<TableRow>(&block))
      return heightOf(*row, openCells(*row));
    const auto* paragraph = std::get_if<Paragraph>(&block);
    if (!paragraph)
      return 0;
    if (paragraph->style.keepTogether)
      return heightOf(*paragraph);
    return paragraph->style.before + linesOf(*paragraph).front().height;
  }

  // A heading does not stay behind at the foot of a page. Chains of more paragraphs than a page holds are no headings.
  void keepInPlace(std::size_t index) {
    constexpr std::size_t longestChain = 20;
    const ParagraphStyle& style = *styleOf(document_.body[index]);
    if (untouched_ || index < keptTo_ || !(style.keepWithNext || style.keepTogether))
      return;
    double height = 0;
    std::size_t last = index;
    for (; last - index < longestChain && last + 1 < document_.body.size(); ++last) {
      const auto* paragraph = std::get_if<Paragraph>(&document_.body[last]);
      if (!paragraph || !paragraph->style.keepWithNext)
        break;
      height += heightOf(*paragraph);
    }
    height += leastHeightOf(document_.body[last]);
    keptTo_ = last;
    if (!fits(height) && height <= bottom_ - top_)
      openPage();
  }

  void placeParagraph(std::size_t index) {
    const auto& paragraph = std::get<Paragraph>(document_.body[index]);
    const ParagraphStyle& style = paragraph.style;
    if (style.pageBreakBefore && !untouched_)
      openPage();
    PlacedBox box{&style, y_, 0, !shareBox(&style, neighbour(index, -1)), !shareBox(&style, neighbour(index, 1))};
    y_ += style.before;
    if (box.withTop) {
      box.top = y_;
      y_ += edgeRoom(style, style.top);
    }
    std::vector<Line> lines = linesOf(paragraph);
    if (!fits(lines.front().height)) {
      openPage();
      box.top = y_;
      lines = linesOf(paragraph);  // a page number in it is another one now
    }
    for (const Line& line : lines)
      placeLine(line, box);
    y_ += box.withBottom ? edgeRoom(style, style.bottom) : 0;
    endBox(box, y_ + (box.withBottom ? 0 : style.after));
    y_ += style.after;
  }

  const ParagraphStyle* neighbour(std::size_t index, int step) const {
    const std::size_t other = index + static_cast<std::size_t>(step);
    return other < document_.body.size() ? styleOf(document_.body[other]) : nullptr;
  }

  void endBox(PlacedBox& box, double bottom) {
    box.bottom = bottom;
    if (hasBox(*box.style))
      paintBox(page(), box, frame_.left, frame_.textWidth(), 0);
    box.withTop = false;
  }

  LineArea pageArea() const { return area(frame_.textWidth(), bottom_ - top_, facts_.back().number); }

  std::vector<Line> linesOf(const Paragraph& paragraph) const { return layOutLines(paragraph, pageArea(), fonts_); }

  void placeLine(const Line& line, PlacedBox& box) {
    if (!fits(line.height)) {
      PlacedBox part = box;
      part.withBottom = false;
      endBox(part, y_);
      openPage();
      box.top = y_;
      box.withTop = false;
    }
    y_ = std::min(y_, bottom_ - line.height);  // whatever space is asked for, the text stands on the paper
    box.top = std::min(box.top, y_);
    paintLine(page(), line, frame_.left, y_, fonts_);
    y_ += line.height;
    untouched_ = false;
  }

  // The part of a cell that is not placed yet.
  struct OpenCell {
    const Cell* cell;
    double left = 0, right = 0;
    Stack stack;
    std::size_t next = 0;
    std::size_t nextBox = 0;  // the first one that is not all above what is placed
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
    const double shift = shiftOf(row, frame_.textWidth());
    double left = row.left + shift;
    for (const Cell& cell : row.cells) {
      const double right = cell.right + shift;
      const double width = std::max(kNarrowestCell, right - left - 2.0 * row.padding);
      const LineArea room = area(width, bottom_ - top_, facts_.back().number);
      cells.push_back({&cell, left, right, stackOf(cell.paragraphs, room, fonts_), 0, 0});
      left = right;
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

  // Whether each cell has room for its first line.
  static bool beginsWithin(const std::vector<OpenCell>& cells, double room) {
    return std::all_of(cells.begin(), cells.end(), [room](const OpenCell& open) {
      return open.stack.lines.empty() || open.stack.lines.front().top + open.stack.lines.front().line.height <= room;
    });
  }

  // A row stays together when a page can hold it; a higher one is cut between its lines.
  void placeRow(const TableRow& row, std::size_t index) {
    const TableRow* below = rowAt(index + 1);
    std::vector<OpenCell> cells = openCells(row);
    double height = heightOf(row, cells);
    const bool fitsAPage = height <= bottom_ - top_;
    if (!untouched_ && y_ + height > bottom_ + kHair && (fitsAPage || !beginsWithin(cells, bottom_ - y_))) {
      openPage();
      if (!row.isHeading)
        repeatHeadings(index);
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

  const TableRow* rowAt(std::size_t index) const {
    return index < document_.body.size() ? std::get_if<TableRow>(&document_.body[index]) : nullptr;
  }

  // The heading rows of the table that the row belongs to, unless they would fill the page.
  void repeatHeadings(std::size_t index) {
    constexpr std::size_t mostHeadings = 10;
    for (std::size_t i = firstRow_; i < std::min(index, firstRow_ + mostHeadings) && rowAt(i)->isHeading; ++i) {
      std::vector<OpenCell> cells = openCells(*rowAt(i));
      const double height = heightOf(*rowAt(i), cells);
      if (y_ + height > top_ + (bottom_ - top_) / 2)
        return;
      placeSlice(*rowAt(i), cells, height, nullptr, true);
      y_ += height;
    }
  }

  // True when some lines were placed, so that cutting comes to an end.
  bool placeSlice(const TableRow& row, std::vector<OpenCell>& cells, double height, const TableRow* below, bool whole) {
    bool placed = false;
    for (OpenCell& open : cells) {
      const CellFrame frame{frame_.left + open.left,    y_,
                            frame_.left + open.right,   y_ + height,
                            !open.cell->continuesAbove, !continuesBelow(*open.cell, below)};
      paintCell(page(), *open.cell, frame);
      const double down = whole ? spaceAbove(*open.cell, height - open.rest()) : 0;
      if (placeLines(open, {frame.left + row.padding, y_ + down, frame.right - row.padding, 0},
                     whole ? kUnbounded : height))
        placed = true;
    }
    return placed;
  }

  // The lines of a cell that fit into the room below the place's top.
  bool placeLines(OpenCell& open, const CellFrame& place, double room) {
    const std::size_t first = open.next;
    const double begin = open.done();
    for (; open.next < open.stack.lines.size(); ++open.next) {
      const PlacedLine& placed = open.stack.lines[open.next];
      if (placed.top - begin + placed.line.height > room + kHair)
        break;
      paintLine(page(), placed.line, place.left + placed.x, place.top + placed.top - begin, fonts_);
    }
    const double end = open.done();
    while (open.nextBox < open.stack.boxes.size() && open.stack.boxes[open.nextBox].bottom <= begin)
      ++open.nextBox;
    for (std::size_t i = open.nextBox; i < open.stack.boxes.size() && open.stack.boxes[i].top < end; ++i) {
      PlacedBox box = open.stack.boxes[i];
      box.withTop = box.withTop && box.top >= begin;
      box.withBottom = box.withBottom && box.bottom <= end;
      box.top = std::max(box.top, begin);
      box.bottom = std::min(box.bottom, end);
      if (box.top < box.bottom)
        paintBox(page(), box, place.left, place.right - place.left, place.top - begin);
    }
    return open.next > first;
  }

  const Document& document_;
  const PrintOptions& options_;
  const FontMeasure& fonts_;
  const Section* section_ = nullptr;
  PageFrame frame_;
  std::size_t pageCount_;
  PagedDocument result_;
  struct Margin {
    Stack stack;         // as it was laid out last
    bool lives = false;  // it is another one on each page
  };
  std::vector<PageFacts> facts_;                             // of each page
  std::map<const std::vector<Paragraph>*, Margin> margins_;  // headers and footers
  double top_ = 0, bottom_ = 0, y_ = 0;
  bool untouched_ = true;     // nothing stands on the page yet
  std::size_t keptTo_ = 0;    // the block up to which paragraphs were found to stay together
  std::size_t firstRow_ = 0;  // of the table that is being placed
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
