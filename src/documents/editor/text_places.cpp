#include "documents/editor/text_places.h"

#include <algorithm>

namespace zelvo {

namespace {

template <class Para, class Doc>
std::vector<Para*> collect(Doc& document) {
  std::vector<Para*> all;
  for (auto& block : document.body)
    eachParagraph(block, [&all](Para& paragraph) { all.push_back(&paragraph); });
  return all;
}

bool isText(const Run& run) {
  return !run.picture && run.live == LiveField::None;
}

}  // namespace

std::vector<Paragraph*> paragraphsOf(Document& document) {
  return collect<Paragraph>(document);
}

Paragraphs paragraphsOf(const Document& document) {
  return collect<const Paragraph>(document);
}

std::size_t lengthOf(const Run& run) {
  return isText(run) ? run.text.size() : 1;
}

std::size_t lengthOf(const Paragraph& paragraph) {
  std::size_t sum = 0;
  for (const Run& run : paragraph.runs)
    sum += lengthOf(run);
  return sum;
}

TextRange within(const Document& document, TextRange range) {
  return within(paragraphsOf(document), range);
}

TextRange within(const Paragraphs& all, TextRange range) {
  if (all.empty())
    return {};
  for (TextPlace* place : {&range.from, &range.to}) {
    if (place->paragraph >= all.size())
      *place = {all.size() - 1, lengthOf(*all.back())};
    place->offset = std::min(place->offset, lengthOf(*all[place->paragraph]));
  }
  if (range.to < range.from)
    std::swap(range.from, range.to);
  return range;
}

TextRange wholeOf(const Document& document) {
  return within(document, {{}, {std::string::npos, std::string::npos}});
}

const TextStyle& styleAt(const Paragraph& paragraph, std::size_t offset) {
  std::size_t at = 0;
  for (const Run& run : paragraph.runs) {
    at += lengthOf(run);
    if (at >= std::max<std::size_t>(offset, 1))
      return run.style;
  }
  return paragraph.runs.empty() ? paragraph.end : paragraph.runs.back().style;
}

std::vector<Run> runsBetween(const Paragraph& paragraph, std::size_t from, std::size_t to) {
  std::vector<Run> runs;
  std::size_t at = 0;
  for (const Run& run : paragraph.runs) {
    const std::size_t end = at + lengthOf(run);
    const std::size_t first = std::max(from, at);
    const std::size_t last = std::min(to, end);
    if (first < last) {
      runs.push_back(run);
      if (isText(run))
        runs.back().text = run.text.substr(first - at, last - first);
    }
    at = end;
  }
  return runs;
}

void tidyRuns(std::vector<Run>& runs) {
  std::vector<Run> tidy;
  for (Run& run : runs) {
    if (lengthOf(run) == 0)
      continue;
    if (!tidy.empty() && isText(run) && isText(tidy.back()) && tidy.back().style == run.style)
      tidy.back().text += run.text;
    else
      tidy.push_back(std::move(run));
  }
  runs = std::move(tidy);
}

}  // namespace zelvo
