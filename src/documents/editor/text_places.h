#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "documents/document.h"

namespace zelvo {

/// A place in the text of a letter: which of its paragraphs, those of table cells counted as they are read, and how far
/// in it, in bytes of its text; a picture or live number counts as one. A place never lies inside a letter.
struct TextPlace {
  std::size_t paragraph = 0;
  std::size_t offset = 0;
  auto operator<=>(const TextPlace&) const = default;
};

/// A part of a text; where it is empty, the place at which the user writes.
struct TextRange {
  TextPlace from, to;  ///< in this order
  bool empty() const { return from == to; }
  bool operator==(const TextRange&) const = default;
};

/// Visits each paragraph of a block, those of cells where they stand.
template <class Part, class Visit>
void eachParagraph(Part& block, const Visit& visit) {
  if (auto* paragraph = std::get_if<Paragraph>(&block))
    visit(*paragraph);
  else if (auto* row = std::get_if<TableRow>(&block))
    for (auto& cell : row->cells)
      for (auto& inside : cell.paragraphs)
        visit(inside);
}

using Paragraphs = std::vector<const Paragraph*>;

/// All paragraphs of the body.
std::vector<Paragraph*> paragraphsOf(Document& document);
Paragraphs paragraphsOf(const Document& document);

/// How much a run and a paragraph count for places.
std::size_t lengthOf(const Run& run);
std::size_t lengthOf(const Paragraph& paragraph);

/// The range as it lies in the document: what is beyond its ends is brought back to them.
TextRange within(const Document& document, TextRange range);
TextRange within(const Paragraphs& all, TextRange range);
/// The whole text.
TextRange wholeOf(const Document& document);

/// The style in which a letter typed at a place would be written: that of the one before it.
const TextStyle& styleAt(const Paragraph& paragraph, std::size_t offset);

/// The part of a paragraph between two offsets.
std::vector<Run> runsBetween(const Paragraph& paragraph, std::size_t from, std::size_t to);
/// Joins neighbours of one style, and takes out runs of nothing.
void tidyRuns(std::vector<Run>& runs);

}  // namespace zelvo
