#include "documents/letter_text.h"

#include <algorithm>
#include <array>

#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

constexpr char32_t kPiece = 0xFFFC;  // stands in the text for a piece of source

bool endsParagraph(std::string_view word) {
  constexpr std::array<std::string_view, 8> words = {"par",  "cell",     "row",     "sect",
                                                     "page", "nestcell", "nestrow", "column"};
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// Whether a control word ends right here without a blank behind it: text that follows would run into the word.
bool endsInOpenWord(std::string_view rtf) {
  constexpr std::size_t longestWord = 48;
  const std::size_t farthest = rtf.size() > longestWord ? rtf.size() - longestWord : 0;
  std::size_t i = rtf.size();
  while (i > farthest && isDigit(rtf[i - 1]))
    --i;
  if (i > farthest && i < rtf.size() && rtf[i - 1] == '-')
    --i;
  const std::size_t letters = i;
  while (i > farthest && isLetter(rtf[i - 1]))
    --i;
  if (i == letters)
    return false;
  std::size_t slashes = 0;
  while (slashes < i && rtf[i - 1 - slashes] == '\\')
    ++slashes;
  return slashes % 2 == 1;
}

}  // namespace

LetterText::LetterText(std::string_view rtf) : rtf_(rtf) {
  decodeRtf(rtf, fonts_, *this);
  openParagraphs_.clear();
  std::erase_if(paragraphs_, [](const Paragraph& paragraph) { return !mayHoldCodes(paragraph); });
}

void LetterText::character(char32_t character, RtfSpan span, const RtfState& state) {
  if (!isText(state.destination))
    return;
  const auto [place, isNew] = openParagraphs_.try_emplace(state.flow, paragraphs_.size());
  if (isNew)
    paragraphs_.emplace_back();
  paragraphs_[place->second].add(character,
                                 {static_cast<std::uint32_t>(span.begin), static_cast<std::uint32_t>(span.end), 0,
                                  static_cast<std::uint8_t>(state.uc), false});
}

void LetterText::word(const RtfToken& token, const RtfState& state) {
  if (!endsParagraph(token.word))
    return;
  const auto ended = openParagraphs_.find(state.flow);
  if (ended == openParagraphs_.end())
    return;
  if (ended->second + 1 == paragraphs_.size() && !mayHoldCodes(paragraphs_.back()))
    paragraphs_.pop_back();
  openParagraphs_.erase(ended);
}

// Values only come where a code was, so a paragraph without the beginning of one never holds any and is not kept.
bool LetterText::mayHoldCodes(const Paragraph& paragraph) {
  return paragraph.text.find_first_of(U"%#") != std::u32string::npos;
}

bool LetterText::has(std::string_view code) const {
  const std::u32string sought = letterCharacters(code);
  return std::any_of(paragraphs_.begin(), paragraphs_.end(),
                     [&](const Paragraph& paragraph) { return paragraph.text.find(sought) != std::u32string::npos; });
}

bool LetterText::replace(std::string_view code, std::string_view value) {
  return replaceAllWith(code, letterCharacters(value), 0);
}

bool LetterText::replaceWithSource(std::string_view code, std::string_view source) {
  sources_.emplace_back(source);
  return replaceAllWith(code, std::u32string(1, kPiece), static_cast<std::uint32_t>(sources_.size()));
}

bool LetterText::replaceAllWith(std::string_view code, const std::u32string& value, std::uint32_t piece) {
  const std::u32string sought = letterCharacters(code);
  bool found = false;
  for (Paragraph& paragraph : paragraphs_) {
    if (sought.empty() || paragraph.text.find(sought) == std::u32string::npos)
      continue;
    replaceIn(paragraph, sought, value, piece);
    found = true;
  }
  return found;
}

void LetterText::replaceIn(Paragraph& paragraph, std::u32string_view code, const std::u32string& value,
                           std::uint32_t piece) {
  Paragraph result;
  std::size_t done = 0;
  const auto keepTo = [&](std::size_t end) {
    for (; done < end; ++done)
      result.add(paragraph.text[done], paragraph.origins[done]);
  };
  for (std::size_t at = paragraph.text.find(code); at != std::u32string::npos; at = paragraph.text.find(code, done)) {
    keepTo(at);
    Origin origin = paragraph.origins[at];
    origin.end = origin.begin;
    origin.inserted = true;
    origin.piece = piece;
    for (char32_t character : value)
      result.add(character, origin);
    for (; done < at + code.size(); ++done)
      if (const Origin& gone = paragraph.origins[done]; !gone.inserted)
        removed_.push_back({gone.begin, gone.end});
  }
  keepTo(paragraph.text.size());
  paragraph = std::move(result);
}

void LetterText::addInsertions(const Paragraph& paragraph, std::vector<Edit>& edits) const {
  bool open = false;
  for (std::size_t i = 0; i < paragraph.text.size(); ++i) {
    const Origin& origin = paragraph.origins[i];
    if (!origin.inserted) {
      open = false;
      continue;
    }
    if (!open || edits.back().position != origin.begin)
      edits.push_back({origin.begin, origin.begin, {}});
    open = true;
    if (origin.piece > 0)
      edits.back().text += sources_[origin.piece - 1];
    else
      appendRtfCharacter(edits.back().text, paragraph.text[i], origin.standIns);
  }
}

std::vector<LetterText::Edit> LetterText::edits() const {
  std::vector<Edit> edits;
  for (const Paragraph& paragraph : paragraphs_)
    addInsertions(paragraph, edits);
  for (const RtfSpan& span : removed_)
    edits.push_back({span.begin, span.end, {}});
  std::stable_sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.position < b.position; });
  return edits;
}

std::string LetterText::source() const {
  std::string result;
  std::size_t done = 0;
  for (const Edit& edit : edits()) {
    if (edit.position > done) {
      result += rtf_.substr(done, edit.position - done);
      if (endsInOpenWord(rtf_.substr(done, edit.position - done)))
        result += ' ';
      done = edit.position;
    }
    result += edit.text;
    done = std::max(done, edit.removeTo);
  }
  result += rtf_.substr(std::min(done, rtf_.size()));
  return result;
}

}  // namespace zelvo
