#include "documents/editor/text_edits.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace zelvo {

namespace {

// Where a paragraph stands: in a block of the body, and in a cell of it or in none.
struct Home {
  std::size_t block = 0;
  std::vector<Paragraph>* cell = nullptr;
  std::size_t inCell = 0;
};

std::vector<Home> homesOf(Document& document) {
  std::vector<Home> homes;
  for (std::size_t block = 0; block < document.body.size(); ++block) {
    if (std::holds_alternative<Paragraph>(document.body[block]))
      homes.push_back({block});
    else if (auto* row = std::get_if<TableRow>(&document.body[block]))
      for (Cell& cell : row->cells)
        for (std::size_t i = 0; i < cell.paragraphs.size(); ++i)
          homes.push_back({block, &cell.paragraphs, i});
  }
  return homes;
}

using Place = std::vector<Block>::difference_type;

// Takes out the paragraphs behind `first` up to `last`, with all that stands between them.
void takeOut(Document& document, const Home& first, const Home& last) {
  if (first.cell) {
    const auto begin = first.cell->begin();
    first.cell->erase(begin + static_cast<Place>(first.inCell) + 1, begin + static_cast<Place>(last.inCell) + 1);
    return;
  }
  const auto begin = document.body.begin();
  document.body.erase(begin + static_cast<Place>(first.block) + 1, begin + static_cast<Place>(last.block) + 1);
}

// Over the edge of a table the structure stays: only the words go.
void emptyBetween(const std::vector<Paragraph*>& all, TextRange range) {
  for (std::size_t i = range.from.paragraph; i <= range.to.paragraph; ++i) {
    Paragraph& paragraph = *all[i];
    const std::size_t from = i == range.from.paragraph ? range.from.offset : 0;
    const std::size_t to = i == range.to.paragraph ? range.to.offset : lengthOf(paragraph);
    std::vector<Run> kept = runsBetween(paragraph, 0, from);
    std::ranges::move(runsBetween(paragraph, to, lengthOf(paragraph)), std::back_inserter(kept));
    paragraph.runs = std::move(kept);
  }
}

void removeRange(Document& document, TextRange range) {
  if (range.empty())
    return;
  const auto all = paragraphsOf(document);
  const auto homes = homesOf(document);
  const Home& first = homes[range.from.paragraph];
  const Home& last = homes[range.to.paragraph];
  Paragraph& joined = *all[range.from.paragraph];
  const Paragraph& tail = *all[range.to.paragraph];
  if (first.cell != last.cell || joined.row != tail.row || joined.cell != tail.cell)
    return emptyBetween(all, range);
  std::vector<Run> runs = runsBetween(joined, 0, range.from.offset);
  std::ranges::move(runsBetween(tail, range.to.offset, lengthOf(tail)), std::back_inserter(runs));
  const TextStyle left = runs.empty() ? styleAt(joined, range.from.offset) : runs.back().style;
  tidyRuns(runs);
  joined.end = runs.empty() ? left : joined.end;
  joined.runs = std::move(runs);
  if (range.from.paragraph != range.to.paragraph)
    takeOut(document, first, last);
}

void insertBehind(Document& document, const Home& home, std::vector<Paragraph> paragraphs) {
  if (home.cell) {
    home.cell->insert(home.cell->begin() + static_cast<Place>(home.inCell) + 1, paragraphs.begin(), paragraphs.end());
    return;
  }
  document.body.insert(document.body.begin() + static_cast<Place>(home.block) + 1, paragraphs.begin(),
                       paragraphs.end());
}

// Text can be put in only where there is a paragraph.
void needParagraph(Document& document) {
  if (paragraphsOf(document).empty())
    document.body.push_back(Paragraph{});
}

template <class Part>
void note(std::optional<Part>& known, const Part& seen, bool first) {
  if (first)
    known = seen;
  else if (known != seen)
    known.reset();
}

void noteStyle(SelectionLook& look, const TextStyle& style, bool first) {
  note(look.family, style.font.family, first);
  note(look.points, style.font.points, first);
  note(look.bold, style.font.bold, first);
  note(look.italic, style.font.italic, first);
  note(look.underline, style.underline, first);
}

// The part of a paragraph that a range covers.
struct Covered {
  std::size_t from, to;
  bool withEnd;  // the range goes on behind it, or nothing is in it
};

Covered coveredOf(const Paragraph& paragraph, std::size_t number, TextRange range) {
  const std::size_t length = lengthOf(paragraph);
  const std::size_t from = number == range.from.paragraph ? range.from.offset : 0;
  const bool goesOn = number < range.to.paragraph;
  return {from, goesOn ? length : range.to.offset, goesOn || length == 0};
}

std::size_t positionIn(std::string_view text, std::string_view what, std::size_t from, bool matchCase) {
  for (std::size_t at = from; at + what.size() <= text.size(); ++at)
    if (matchCase ? text.substr(at, what.size()) == what : alike(text.substr(at, what.size()), what))
      return at;
  return std::string_view::npos;
}

// The text with one sign for whatever is none, so that its places are those of the paragraph.
std::string searched(const Paragraph& paragraph) {
  std::string text;
  for (const Run& run : paragraph.runs)
    text += run.picture || run.live != LiveField::None ? std::string(1, '\x01') : run.text;
  return text;
}

}  // namespace

SelectionLook lookOf(const Document& document, TextRange range) {
  return lookOf(paragraphsOf(document), range);
}

SelectionLook lookOf(const Paragraphs& all, TextRange asked) {
  const TextRange range = within(all, asked);
  SelectionLook look;
  if (all.empty())
    return look;
  bool first = true;
  for (std::size_t i = range.from.paragraph; i <= range.to.paragraph; ++i) {
    note(look.alignment, all[i]->style.alignment, i == range.from.paragraph);
    const Covered covered = coveredOf(*all[i], i, range);
    std::size_t at = 0;
    for (const Run& run : all[i]->runs) {
      const std::size_t begin = std::exchange(at, at + lengthOf(run));
      if (begin < covered.to && at > covered.from)
        noteStyle(look, run.style, std::exchange(first, false));
    }
  }
  if (first)
    noteStyle(look, styleAt(*all[range.from.paragraph], range.from.offset), true);
  return look;
}

void changeStyle(Document& document, TextRange asked, const StyleChange& change) {
  const TextRange range = within(document, asked);
  const auto all = paragraphsOf(document);
  for (std::size_t i = range.from.paragraph; i <= range.to.paragraph && i < all.size(); ++i) {
    Paragraph& paragraph = *all[i];
    const Covered covered = coveredOf(paragraph, i, range);
    std::vector<Run> runs = runsBetween(paragraph, 0, covered.from);
    for (Run& run : runsBetween(paragraph, covered.from, covered.to)) {
      change(run.style);
      runs.push_back(std::move(run));
    }
    std::ranges::move(runsBetween(paragraph, covered.to, lengthOf(paragraph)), std::back_inserter(runs));
    tidyRuns(runs);
    paragraph.runs = std::move(runs);
    if (covered.withEnd)
      change(paragraph.end);
  }
}

void alignParagraphs(Document& document, TextRange asked, Alignment alignment) {
  const TextRange range = within(document, asked);
  const auto all = paragraphsOf(document);
  for (std::size_t i = range.from.paragraph; i <= range.to.paragraph && i < all.size(); ++i)
    all[i]->style.alignment = alignment;
}

std::string textOf(const Document& document, TextRange asked) {
  std::string text;
  for (const Block& block : partOf(document, asked).body)
    text += plainText(std::get<Paragraph>(block)) + "\n";
  if (!text.empty())
    text.pop_back();
  return text;
}

Document partOf(const Document& document, TextRange asked) {
  const TextRange range = within(document, asked);
  const auto all = paragraphsOf(document);
  Document part;
  for (std::size_t i = range.from.paragraph; i <= range.to.paragraph && i < all.size(); ++i) {
    const Covered covered = coveredOf(*all[i], i, range);
    part.body.push_back(Paragraph{all[i]->style, runsBetween(*all[i], covered.from, covered.to), all[i]->end});
  }
  return part;
}

TextPlace replaceRange(Document& document, TextRange asked, const std::vector<Paragraph>& with) {
  needParagraph(document);
  const TextRange range = within(document, asked);
  removeRange(document, range);
  if (with.empty())
    return range.from;
  Paragraph& line = *paragraphsOf(document)[range.from.paragraph];
  const std::vector<Run> tail = runsBetween(line, range.from.offset, lengthOf(line));
  line.runs = runsBetween(line, 0, range.from.offset);
  std::ranges::copy(with.front().runs, std::back_inserter(line.runs));
  std::vector<Paragraph> further(with.begin() + 1, with.end());
  for (Paragraph& paragraph : further) {  // in a table inside a cell they stay there
    paragraph.row = line.row;
    paragraph.cell = line.cell;
  }
  Paragraph& last = further.empty() ? line : further.back();
  const TextPlace behind{range.from.paragraph + further.size(), lengthOf(last)};
  std::ranges::copy(tail, std::back_inserter(last.runs));
  tidyRuns(line.runs);
  for (Paragraph& paragraph : further)
    tidyRuns(paragraph.runs);
  insertBehind(document, homesOf(document)[range.from.paragraph], std::move(further));
  return behind;
}

TextPlace replaceText(Document& document, TextRange asked, std::string_view text, const TextStyle* style) {
  needParagraph(document);
  const TextRange range = within(document, asked);
  const Paragraph& line = *paragraphsOf(document)[range.from.paragraph];
  // What is put in the place of words looks as they did.
  const std::size_t sample = range.empty() ? range.from.offset : range.from.offset + 1;
  const TextStyle written = style ? *style : styleAt(line, std::min(sample, lengthOf(line)));
  std::vector<Paragraph> paragraphs;
  for (const std::string& words : split(replaceAll(replaceAll(text, "\r\n", "\n"), "\r", "\n"), '\n')) {
    Paragraph& next = paragraphs.emplace_back(Paragraph{line.style, {}, written});
    if (!words.empty())
      next.runs.push_back({written, words, LiveField::None, nullptr});
  }
  return replaceRange(document, range, paragraphs);
}

void setText(Document& document, std::string_view text) {
  needParagraph(document);
  const Paragraph& first = *paragraphsOf(document).front();
  Paragraph begun{first.style, {}, styleAt(first, 0)};
  document.body.assign(1, begun);
  replaceText(document, {}, text, &begun.end);
}

std::optional<TextRange> findText(const Document& document, std::string_view what, TextPlace from, bool matchCase) {
  const auto all = paragraphsOf(document);
  if (what.empty())
    return std::nullopt;
  for (std::size_t i = from.paragraph; i < all.size(); ++i) {
    const std::size_t at = positionIn(searched(*all[i]), what, i == from.paragraph ? from.offset : 0, matchCase);
    if (at != std::string_view::npos)
      return TextRange{{i, at}, {i, at + what.size()}};
  }
  return std::nullopt;
}

}  // namespace zelvo
