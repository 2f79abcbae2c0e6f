#include "documents/line_layout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "documents/line_items.h"

namespace zelvo {

namespace {

constexpr double kHair = 0.01;          // twips that two sums of widths may differ by
constexpr double kNarrowestLine = 360;  // however the indents are set, a line takes some letters

// The part of a line between two tabs.
struct Segment {
  std::size_t firstItem = 0;
  double from = 0;  // where the text before it ends
  TabStop stop;     // that it is set to
  double width = 0;
  double toPoint = -1;  // the width up to the decimal point; negative: none yet
};

class Filler {
 public:
  Filler(const Paragraph& paragraph, const LineArea& area, const FontMeasure& fonts)
      : paragraph_(paragraph),
        style_(paragraph.style),
        area_(area),
        fonts_(fonts),
        parts_(itemsOf(paragraph, area, fonts)) {}

  std::vector<Line> run() {
    std::vector<Line> lines;
    std::size_t next = 0;
    do {
      beginLine(lines.empty());
      lines.push_back(nextLine(next));
    } while (next < items().size());
    // A line break at the very end opens a line that stays empty.
    if (!items().empty() && items().back().kind == ItemKind::Break) {
      beginLine(false);
      lines.push_back(compose(next, next, false));
    }
    return lines;
  }

 private:
  std::vector<LineItem>& items() { return parts_.items; }

  void beginLine(bool first) {
    left_ = style_.left + (first ? style_.first : 0);
    limit_ = std::max(area_.width - style_.right, left_ + kNarrowestLine);
  }

  Line nextLine(std::size_t& next) {
    const std::size_t begin = next;
    bool wrapped = false;
    const std::size_t end = findEnd(begin, wrapped);
    const bool atBreak = !wrapped && end < items().size();
    next = end + (atBreak ? 1 : 0);
    if (end == begin && atBreak)
      emptyLook_ = items()[begin].look;
    Line line = compose(begin, end, wrapped);
    if (rest_) {
      items()[end - 1] = *std::exchange(rest_, std::nullopt);
      next = end - 1;
    }
    return line;
  }

  // Behind the last item that the line takes; `wrapped` when there is more of the paragraph that did not fit.
  std::size_t findEnd(std::size_t begin, bool& wrapped) {
    segments_ = {Segment{begin, left_, {}, 0, -1}};
    std::size_t breakAt = begin;
    for (std::size_t i = begin; i < items().size(); ++i) {
      if (items()[i].kind == ItemKind::Break)
        return i;
      if (items()[i].kind == ItemKind::Tab || items()[i].kind == ItemKind::Picture)
        breakAt = i;
      advance(i);
      if (items()[i].kind != ItemKind::Blank && endOf(segments_.back()) > limit_ + kHair) {
        wrapped = true;
        return breakAt > begin ? breakAt : forcedEnd(begin, i);
      }
      if (items()[i].mayBreakBehind)
        breakAt = i + 1;
    }
    return items().size();
  }

  // A word longer than the line: as much of it as fits, and one character at least.
  std::size_t forcedEnd(std::size_t begin, std::size_t i) {
    const LineItem item = items()[i];
    if (item.kind != ItemKind::Text)
      return std::max(i, begin + 1);
    const TextFont& font = parts_.looks[item.look].font;
    const double room = limit_ - (endOf(segments_.back()) - item.width) + kHair;
    const std::size_t bytes = bytesThatFit(item.text, font, room, fonts_);
    const std::string head = item.text.substr(0, bytes);
    if (i > begin && fonts_.advance(font, head) > room)
      return i;
    if (bytes == item.text.size())
      return i + 1;
    LineItem rest = item;
    rest.text = item.text.substr(bytes);
    rest.width = fonts_.advance(font, rest.text);
    items()[i].text = head;
    items()[i].width = fonts_.advance(font, head);
    rest_ = std::move(rest);
    return i + 1;
  }

  void advance(std::size_t i) {
    const LineItem& item = items()[i];
    if (item.kind == ItemKind::Tab) {
      const double from = endOf(segments_.back());
      segments_.push_back(Segment{i, from, stopBehind(from), 0, -1});
      return;
    }
    Segment& segment = segments_.back();
    if (segment.toPoint < 0) {
      const std::size_t point = item.text.find('.');
      if (point != std::string::npos)
        segment.toPoint = segment.width + fonts_.advance(parts_.looks[item.look].font, item.text.substr(0, point));
    }
    segment.width += item.width;
  }

  TabStop stopBehind(double x) const {
    for (TabStop stop : style_.tabs) {
      // Text that is set to a right stop beyond the margin is meant to end at the margin.
      if (stop.kind == TabKind::Right && stop.position > limit_ && x < limit_ - kHair)
        stop.position = static_cast<int>(limit_);
      if (stop.position > x + kHair)
        return stop;
    }
    TabStop stop;
    const double step = std::max(20, area_.defaultTab);
    stop.position = static_cast<int>((std::floor((x + kHair) / step) + 1) * step);
    // The left edge of a paragraph with a hanging first line is a stop of its own.
    if (style_.first < 0 && x < style_.left - kHair)
      stop.position = std::min(stop.position, style_.left);
    return stop;
  }

  static double startOf(const Segment& segment) {
    double start = segment.stop.position;
    if (segment.stop.kind == TabKind::Right)
      start -= segment.width;
    else if (segment.stop.kind == TabKind::Center)
      start -= segment.width / 2;
    else if (segment.stop.kind == TabKind::Decimal)
      start -= segment.toPoint < 0 ? segment.width : segment.toPoint;
    return std::max(start, segment.from);
  }

  static double endOf(const Segment& segment) { return startOf(segment) + segment.width; }

  Line compose(std::size_t begin, std::size_t end, bool wrapped) {
    std::size_t lastInk = end;
    while (lastInk > begin && items()[lastInk - 1].kind == ItemKind::Blank)
      --lastInk;
    if (wrapped)
      end = lastInk;
    segments_ = {Segment{begin, left_, {}, 0, -1}};
    for (std::size_t i = begin; i < lastInk; ++i)
      advance(i);
    const double room = limit_ - endOf(segments_.back());
    for (std::size_t i = lastInk; i < end; ++i)
      advance(i);
    Line line;
    setHeights(line, begin, end);
    spread_ = wrapped && style_.alignment == Alignment::Justify ? spreadOver(segments_.back(), end, room) : 0;
    for (std::size_t i = 0; i < segments_.size(); ++i)
      addSegment(line, i, i + 1 < segments_.size() ? segments_[i + 1].firstItem : end);
    shift(line, room);
    return line;
  }

  // What each blank of the last segment is widened by, so that the line ends at the margin.
  double spreadOver(const Segment& segment, std::size_t end, double room) {
    double blanks = 0;
    for (std::size_t i = segment.firstItem; i < end; ++i)
      if (items()[i].kind == ItemKind::Blank)
        blanks += static_cast<double>(items()[i].text.size());
    return blanks > 0 && room > 0 ? room / blanks : 0;
  }

  void addSegment(Line& line, std::size_t index, std::size_t end) {
    const Segment& segment = segments_[index];
    double x = startOf(segment);
    const bool last = index + 1 == segments_.size();
    for (std::size_t i = segment.firstItem; i < end; ++i) {
      const LineItem& item = items()[i];
      if (item.kind == ItemKind::Tab) {
        addTab(line, segment, item);
        continue;
      }
      double width = item.width;
      if (last && item.kind == ItemKind::Blank)
        width += spread_ * static_cast<double>(item.text.size());
      addPiece(line, item, x, width);
      x += width;
    }
  }

  void addPiece(Line& line, const LineItem& item, double x, double width) {
    const LineLook& look = parts_.looks[item.look];
    const bool canJoin = !line.pieces.empty() && spread_ == 0 && item.kind != ItemKind::Picture &&
                         item.look == lastLook_ && !line.pieces.back().picture &&
                         std::abs(line.pieces.back().x + line.pieces.back().width - x) < kHair;
    lastLook_ = item.look;
    if (canJoin) {
      line.pieces.back().text += item.text;
      line.pieces.back().width += width;
    } else {
      line.pieces.push_back({x, width, item.text, look.font, look.raise, look.style, item.picture});
    }
  }

  void addTab(Line& line, const Segment& segment, const LineItem& item) {
    const double width = startOf(segment) - segment.from;
    const LineLook& look = parts_.looks[item.look];
    LinePiece piece{segment.from, width, {}, look.font, 0, look.style, nullptr};
    if (segment.stop.leader == TabLeader::Underline)
      piece.style.underline = true;
    else if (segment.stop.leader != TabLeader::None)
      fillWithLeader(piece, segment.stop.leader == TabLeader::Dots ? "." : "-");
    line.pieces.push_back(std::move(piece));
    lastLook_ = std::numeric_limits<std::size_t>::max();
  }

  // The marks stand at multiples of their own width, so that they stand under one another in a list.
  void fillWithLeader(LinePiece& piece, std::string_view mark) {
    const double step = fonts_.advance(piece.font, mark);
    if (step < 1)
      return;
    const double begin = std::ceil((piece.x - kHair) / step) * step;
    const double count = std::floor((piece.x + piece.width - begin + kHair) / step);
    if (count < 1)
      return;
    for (int i = 0; i < static_cast<int>(count); ++i)
      piece.text += mark;
    piece.x = begin;
    piece.width = count * step;
  }

  void shift(Line& line, double room) const {
    double by = 0;
    if (style_.alignment == Alignment::Center)
      by = room / 2;
    else if (style_.alignment == Alignment::Right)
      by = room;
    if (by <= 0)
      return;
    for (LinePiece& piece : line.pieces)
      piece.x += by;
  }

  void setHeights(Line& line, std::size_t begin, std::size_t end) {
    FontHeights most;
    const auto take = [&most](double ascent, double descent, double leading) {
      most.ascent = std::max(most.ascent, ascent);
      most.descent = std::max(most.descent, descent);
      most.leading = std::max(most.leading, leading);
    };
    for (std::size_t i = begin; i < end; ++i) {
      const FontHeights& own = parts_.looks[items()[i].look].heights;
      if (items()[i].picture)
        take(pictureHeight(*items()[i].picture, items()[i].width), 0, 0);
      else
        take(own.ascent, own.descent, own.leading);
    }
    if (begin == end) {
      const FontHeights own =
          emptyLook_ < parts_.looks.size() ? parts_.looks[emptyLook_].heights : fonts_.heights(paragraph_.end.font);
      take(own.ascent, own.descent, own.leading);
    }
    applySpacing(line, most);
  }

  // Whatever the spacing adds or takes goes above the text.
  void applySpacing(Line& line, const FontHeights& most) const {
    const double natural = most.ascent + most.descent + most.leading;
    line.height = natural;
    if (style_.lineRule == LineRule::Multiple)
      line.height = natural * style_.line / 240.0;
    else if (style_.lineRule == LineRule::Exact || style_.line > natural)
      line.height = style_.line;
    line.baseline = line.height - most.descent - most.leading;
  }

  const Paragraph& paragraph_;
  const ParagraphStyle& style_;
  const LineArea& area_;
  const FontMeasure& fonts_;
  LineItems parts_;
  double left_ = 0, limit_ = 0;
  std::vector<Segment> segments_;
  std::optional<LineItem> rest_;  // of the word that the line ends in the middle of
  double spread_ = 0;
  std::size_t lastLook_ = std::numeric_limits<std::size_t>::max();
  std::size_t emptyLook_ = std::numeric_limits<std::size_t>::max();
};

}  // namespace

double pictureHeight(const Picture& picture, double width) {
  return picture.width > 0 ? picture.height * width / picture.width : picture.height;
}

std::vector<Line> layOutLines(const Paragraph& paragraph, const LineArea& area, const FontMeasure& fonts) {
  return Filler(paragraph, area, fonts).run();
}

}  // namespace zelvo
