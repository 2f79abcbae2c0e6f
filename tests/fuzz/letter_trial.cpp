#include "fuzz/letter_trial.h"

#include "documents/document_writer.h"
#include "documents/fixed_pitch.h"
#include "documents/letter_text.h"
#include "documents/merge.h"
#include "fuzz/promise.h"

namespace zelvo::fuzz {

namespace {

// One value may hold codes. If all of them did, each filled into the next, most letters would be refused.
MergeContext filledWith(std::string_view value) {
  MergeContext context;
  context.ln = value;
  std::string plain(value);
  std::erase_if(plain, [](char letter) { return letter == '%' || letter == '#'; });
  context.letterhead = context.name = context.address = context.cityStateZip = plain;
  context.mi = context.id = context.ms = context.me = plain;
  context.values.fill(plain);
  return context;
}

bool mayHoldCodes(std::string_view letter) {
  const LetterText text(letter);
  return text.has("%") || text.has("##");
}

}  // namespace

void ReadLetterTrial::run(std::string_view bytes) const {
  const Document letter = readDocument(bytes);
  promise(readDocument(writeDocument(letter)) == letter, "what is written reads as it was");
  promise(!layOutPages(letter, inchMargins(), FixedPitch()).pages.empty(), "a letter has a page");
}

void MergeLetterTrial::run(std::string_view bytes) const {
  constexpr std::size_t longestValue = 100;
  const std::size_t lineEnd = bytes.find('\n');
  const std::string_view value = bytes.substr(0, std::min(lineEnd, longestValue));
  const std::string_view letter = lineEnd == std::string_view::npos ? bytes : bytes.substr(lineEnd + 1);
  const auto merged = mergeLetter(letter, filledWith(value), {{2026, 11, 20}, 0}, {});
  promise(merged || mayHoldCodes(letter), "a letter without codes is never too long");
  if (!merged)
    return;
  promise(*merged == letter || mayHoldCodes(letter), "a letter without codes stays byte for byte");
  (void)readDocument(*merged);
}

}  // namespace zelvo::fuzz
