#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "documents/editor/text_places.h"

namespace zelvo {

// What a clerk does to the text of a letter. Whatever of the letter is not named by a change stays as it is.

/// What a part of a text looks like; nothing where its letters differ among themselves.
struct SelectionLook {
  std::optional<std::string> family;
  std::optional<double> points;
  std::optional<bool> bold, italic, underline;
  std::optional<Alignment> alignment;
};
SelectionLook lookOf(const Document& document, TextRange range);
SelectionLook lookOf(const Paragraphs& all, TextRange range);

/// A change of the style of letters: called for each style that is met.
using StyleChange = std::function<void(TextStyle&)>;
void changeStyle(Document& document, TextRange range, const StyleChange& change);
/// Every paragraph that the range touches.
void alignParagraphs(Document& document, TextRange range, Alignment alignment);

/// The text of a range, a line a paragraph.
std::string textOf(const Document& document, TextRange range);
/// The paragraphs of a range as a letter of their own. Tables come as the texts of their cells.
Document partOf(const Document& document, TextRange range);

/// Puts paragraphs in the place of a range; the first one goes on the line on which the range begins, and the last one
/// on the line on which it ends. Tables that the range covers only in part keep their cells. Gives the place behind
/// what was put in.
TextPlace replaceRange(Document& document, TextRange range, const std::vector<Paragraph>& with);
/// The same for a text, in the style in force where the range begins, or in the one given.
TextPlace replaceText(Document& document, TextRange range, std::string_view text, const TextStyle* style = nullptr);
/// The text as a whole letter on the paper of this one, in the style that the letter began with.
void setText(Document& document, std::string_view text);

/// The next place from `from` on where a text stands inside one paragraph.
std::optional<TextRange> findText(const Document& document, std::string_view what, TextPlace from, bool matchCase);

}  // namespace zelvo
