#include "fuzz/parcel_key_trial.h"

#include <algorithm>

#include "base/text.h"
#include "data/dialect/parser.h"
#include "data/parcel_key.h"
#include "fuzz/promise.h"

namespace zelvo::fuzz {

namespace {

constexpr std::ptrdiff_t separators = 7;  // of a whole key

std::ptrdiff_t separatorsIn(std::string_view text) {
  return std::count(text.begin(), text.end(), '-');
}

bool holds(std::string_view text, std::string_view what) {
  return text.find(what) != std::string_view::npos;
}

void checkCleaning(const std::string& text) {
  const std::string once = cleanSBL(text), twice = cleanSBL(once);
  promise(once.size() <= text.size(), "cleaning never makes a text longer");
  promise(!holds(once, "/") && !holds(once, "--"), "a cleaned text has no / and no --");
  promise(holds(text, "/") || !holds(once, ".-"), "only a / leaves a . before a -");
  promise(!holds(twice, ".-"), "which goes when the text is cleaned again");
  if (separatorsIn(twice) <= separators)
    promise(cleanSBL(twice) == twice, "what is clean stays as it is");
  else
    promise(separatorsIn(once) < std::max(separatorsIn(text), separators + 1), "one part of too many goes");
}

void checkTrimming(const std::string& text) {
  std::string trimmed = text;
  promise(TrimSBL(trimmed) == trimmed && text.starts_with(trimmed), "a key is trimmed at its end");
  std::string rest = text.substr(trimmed.size());
  std::size_t parts = 0;
  for (; rest.starts_with("-0"); ++parts)
    rest.erase(0, 2);
  promise(rest.empty() && parts <= 5, "of five empty parts at most");
  promise(parts == 5 || !trimmed.ends_with("-0"), "and of no fewer than there are");
}

bool isFilled(std::string_view box) {
  return !trim(box).empty();
}

/// Whether a part of a key means itself: no sign that joins parts, no blank beside the point of a
/// section, and no letter that the store would not hold.
bool isClean(std::string_view part) {
  return part.find_first_of("-./") == std::string_view::npos && trim(part) == part && isUtf8(part);
}

/// Whether cleaning leaves nothing of a part.
bool isOnlySigns(std::string_view part) {
  return isFilled(part) && part.find_first_not_of("-./") == std::string_view::npos;
}

/// What stands in the boxes, the two parts of a section's box by themselves.
std::vector<std::string> partsOf(const std::vector<std::string>& boxes) {
  std::vector<std::string> parts;
  for (const std::string& box : boxes)
    parts.emplace_back(trim(box));
  const std::size_t point = parts.front().find('.');
  if (point != std::string::npos) {
    parts.push_back(parts.front().substr(point + 1));
    parts.front().resize(point);
  }
  return parts;
}

void checkCondition(const std::string& condition) {
  promise(condition.ends_with(" AND"), "a condition can be gone on with");
  promise(dialect::parseCondition(condition.substr(0, condition.size() - 4)).ok(), "and read without its AND");
}

}  // namespace

void ParcelKeyTrial::checkBoxes(const std::vector<std::string>& typed) {
  TwoParcels::type(screen_.Text1, typed);
  TwoParcels::type(screen_.Text2, typed);
  const std::string key = MakeSBL(screen_);
  const auto boxes = TwoParcels::typed(screen_.Text1);
  promise(MakeSBL2(screen_) == key, "both parcels of a screen make their keys alike");
  promise(!key.empty() && !holds(key, "/") && !holds(key, "--"), "a key is clean");
  promise(SBLfilled(screen_) == std::any_of(boxes.begin(), boxes.end(), isFilled), "a filled box fills a parcel");
  checkCondition(SBL2SQL(screen_));
  const auto parts = partsOf(boxes);
  if (std::none_of(parts.begin(), parts.end(), isOnlySigns))
    promise(separatorsIn(key) >= separators, "a key has its eight parts");
  if (std::all_of(parts.begin(), parts.end(), isClean))
    checkFromScreenToScreen(key);
}

void ParcelKeyTrial::checkFromScreenToScreen(const std::string& key) {
  promise(separatorsIn(key) == separators, "clean parts make a key of eight");
  promise(upper(key) == key, "in upper case");
  for (const std::string& shown : {key, TrimSBL(std::string(key))}) {
    ExtractSBL(screen_, shown);
    promise(MakeSBL(screen_) == key, "a key fills boxes that make the same key");
  }
  ParcelParts parts;
  const std::string letters = mysbl2SBL(key, parts);
  promise(letters != "invalid SBL" && !holds(letters, "--"), "and is written in letters");
  promise(parts.BLK == split(key, '-')[3] && parts.LOT == split(key, '-')[4], "with its block and lot");
}

void ParcelKeyTrial::checkKey(const std::string& text) {
  checkCleaning(text);
  checkTrimming(text);
  ExtractSBL(screen_, text);
  checkBoxes(TwoParcels::typed(screen_.Text1));
  ParcelParts parts;
  const bool invalid = mysbl2SBL(text, parts) == "invalid SBL";
  promise(invalid == (separatorsIn(text) < separators), "a key of eight parts can be taken apart, and no other");
  promise(!invalid || parts.SEC == "-9", "one that cannot says so in its section");
}

void ParcelKeyTrial::run(const std::string& text) {
  checkKey(text);
  checkBoxes(split(text, '\n'));
}

}  // namespace zelvo::fuzz
