#include "documents/letter_text.h"

#include <algorithm>
#include <array>

#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

constexpr char32_t kPiece = 0xFFFC;  // stands in the text for a piece of source

// What values may bring into one letter: thousands of pages of text, a hundred photographs.
constexpr std::size_t kMostCharacters = 10'000'000;
constexpr std::size_t kMostSource = 400'000'000;

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

// Goes through the characters of a paragraph, knowing where each comes from.
class LetterText::Walk {
 public:
  explicit Walk(const Paragraph& paragraph) : paragraph_(paragraph) {}

  std::size_t position() const { return position_; }
  const Origin& origin() const { return paragraph_.origins[origin_]; }

  /// Calls visit(origin, characters) for each origin up to the position.
  template <class Visit>
  void to(std::size_t end, Visit visit) {
    while (position_ < end) {
      const std::size_t count = std::min(end - position_, std::size_t{origin().count} - used_);
      visit(origin(), std::u32string_view(paragraph_.text).substr(position_, count));
      position_ += count;
      used_ += count;
      if (used_ == origin().count)
        ++origin_, used_ = 0;
    }
  }

 private:
  const Paragraph& paragraph_;
  std::size_t position_ = 0;
  std::size_t origin_ = 0, used_ = 0;  // of its characters
};

// Texts that come to the same place one behind the other are one text from then on.
void LetterText::Paragraph::add(std::u32string_view characters, Origin origin) {
  if (characters.empty())
    return;
  text += characters;
  origin.count = static_cast<std::uint32_t>(characters.size());
  const bool goesOn = origin.inserted && origin.piece == 0 && !origins.empty() && origins.back().inserted &&
                      origins.back().piece == 0 && origins.back().begin == origin.begin;
  if (goesOn)
    origins.back().count += origin.count;
  else
    origins.push_back(origin);
}

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
  paragraphs_[place->second].add({&character, 1},
                                 {static_cast<std::uint32_t>(span.begin), static_cast<std::uint32_t>(span.end), 1, 0,
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

bool LetterText::takeRoom(const std::u32string& value, std::uint32_t piece) {
  characters_ += value.size();
  sourceBytes_ += piece > 0 ? sources_[piece - 1].size() : 0;
  full_ = full_ || characters_ > kMostCharacters || sourceBytes_ > kMostSource;
  return !full_;
}

void LetterText::replaceIn(Paragraph& paragraph, std::u32string_view code, const std::u32string& value,
                           std::uint32_t piece) {
  Paragraph result;
  Walk walk(paragraph);
  const auto keep = [&](const Origin& origin, std::u32string_view characters) { result.add(characters, origin); };
  const auto remove = [&](const Origin& origin, std::u32string_view) {
    if (!origin.inserted)
      removed_.push_back({origin.begin, origin.end});
  };
  for (std::size_t at = paragraph.text.find(code); at != std::u32string::npos && takeRoom(value, piece);
       at = paragraph.text.find(code, walk.position())) {
    walk.to(at, keep);
    Origin origin = walk.origin();
    origin.end = origin.begin;
    origin.inserted = true;
    origin.piece = piece;
    result.add(value, origin);
    walk.to(at + code.size(), remove);
  }
  walk.to(paragraph.text.size(), keep);
  paragraph = std::move(result);
}

void LetterText::addInsertions(const Paragraph& paragraph, std::vector<Edit>& edits) const {
  bool open = false;
  const auto addEdit = [&](const Origin& origin, std::u32string_view characters) {
    if (origin.inserted && (!open || edits.back().position != origin.begin))
      edits.push_back({origin.begin, origin.begin, {}});
    open = origin.inserted;
    if (origin.inserted && origin.piece > 0)
      edits.back().text += sources_[origin.piece - 1];
    else if (origin.inserted)
      for (char32_t character : characters)
        appendRtfCharacter(edits.back().text, character, origin.standIns);
  };
  Walk(paragraph).to(paragraph.text.size(), addEdit);
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
