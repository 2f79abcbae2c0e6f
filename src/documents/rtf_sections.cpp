#include "documents/rtf_sections.h"

#include <algorithm>

#include "documents/rtf_words.h"

namespace zelvo {

namespace {

// More pages than are ever printed. Behind them the text of a broken file runs on.
constexpr std::size_t kMostSections = 5000;

// What the headers of a section take when they are copied for the next one, roughly.
std::size_t weightOf(const std::vector<Paragraph>& paragraphs) {
  std::size_t bytes = 0;
  for (const Paragraph& paragraph : paragraphs) {
    bytes += sizeof(Paragraph) + paragraph.runs.size() * sizeof(Run);
    for (const Run& run : paragraph.runs)
      bytes += run.text.size();
  }
  return bytes;
}

std::size_t weightOf(const Section& section) {
  return sizeof(Section) + weightOf(section.header) + weightOf(section.footer) + weightOf(section.firstHeader) +
         weightOf(section.firstFooter) + weightOf(section.leftHeader) + weightOf(section.leftFooter);
}

}  // namespace

struct SectionWords {
  using S = RtfSections;
  using T = RtfToken;

  // A word of the whole letter, which its first section is given with it, and the word of a section alone.
  template <auto Member>
  static void ofLetter(S& sections, const T& token) {
    sections.letter_.*Member = twipsOf(token);
    sections.own().page.*Member = twipsOf(token);
  }
  template <auto Member>
  static void ofSection(S& sections, const T& token) {
    sections.own().page.*Member = twipsOf(token);
  }

  static const RtfWords<S>& table() {
    using P = PageSetup;
    static const RtfWords<S> words = {
        {"paperw", ofLetter<&P::width>},
        {"pgwsxn", ofSection<&P::width>},
        {"paperh", ofLetter<&P::height>},
        {"pghsxn", ofSection<&P::height>},
        {"margl", ofLetter<&P::left>},
        {"marglsxn", ofSection<&P::left>},
        {"margr", ofLetter<&P::right>},
        {"margrsxn", ofSection<&P::right>},
        {"margt", ofLetter<&P::top>},
        {"margtsxn", ofSection<&P::top>},
        {"margb", ofLetter<&P::bottom>},
        {"margbsxn", ofSection<&P::bottom>},
        {"landscape", [](S& s, const T& token) { s.letter_.landscape = s.own().page.landscape = token.on(); }},
        {"lndscpsxn", [](S& s, const T& token) { s.own().page.landscape = token.on(); }},
        {"headery", [](S& s, const T& token) { s.own().page.headerDistance = std::max(0, twipsOf(token)); }},
        {"footery", [](S& s, const T& token) { s.own().page.footerDistance = std::max(0, twipsOf(token)); }},
        {"titlepg", [](S& s, const T& token) { s.own().firstPageDiffers = token.on(); }},
        {"facingp", [](S& s, const T& token) { s.own().leftPagesDiffer = token.on(); }},
        {"sectd", [](S& s, const T&) { s.startOver(); }},
        {"sbknone", [](S& s, const T&) { s.setNewPage(false); }},
        {"sbkpage", [](S& s, const T&) { s.setNewPage(true); }},
        {"pgnstart", [](S& s, const T& token) { s.document_.firstNumber = std::max(0, token.parameterOr(1)); }},
        {"pgnstarts",
         [](S& s, const T& token) { s.firstNumber_ = std::max(0, token.parameterOr(1)), s.numberPages(); }},
        {"pgnrestart", [](S& s, const T&) { s.restarts_ = true, s.numberPages(); }},
        {"pgncont", [](S& s, const T&) { s.restarts_ = false, s.own().firstNumber.reset(); }},
        {"deftab", [](S& s, const T& token) { s.document_.defaultTab = std::max(20, twipsOf(token)); }}};
    return words;
  }
};

bool RtfSections::take(const RtfToken& token) {
  return takeWord(SectionWords::table(), *this, token);
}

void RtfSections::begin(std::vector<Block>& body) {
  if (++count_ > kMostSections)
    return;
  if (!shared_)
    shared_ = std::make_shared<Section>(document_);
  isOwn_ = false;
  ownHeaders_.clear();
  firstNumber_ = 1;
  restarts_ = false;
  body_ = &body;
  break_ = body.size();
  body.emplace_back(SectionBreak{shared_, true});
  if (shared_->firstNumber)
    own().firstNumber.reset();  // its pages are counted on
}

// Sections that say nothing of themselves share one description, and a broken file that describes thousands of them
// does not get thousands of copies of a long header.
Section& RtfSections::own() {
  constexpr std::size_t mostCopied = 32u << 20;
  if (isOwn_ || copied_ > mostCopied)
    return *current_;
  copied_ += weightOf(*shared_);
  shared_ = std::make_shared<Section>(*shared_);
  current_ = shared_.get();
  std::get<SectionBreak>((*body_)[break_]).section = shared_;
  isOwn_ = true;
  return *current_;
}

void RtfSections::setNewPage(bool newPage) {
  if (body_)
    std::get<SectionBreak>((*body_)[break_]).newPage = newPage;
}

void RtfSections::numberPages() {
  if (restarts_)
    own().firstNumber = firstNumber_;
}

void RtfSections::startOver() {
  own().page = letter_;
  own().firstPageDiffers = false;
  setNewPage(true);
}

void RtfSections::beginHeader(RtfDestination kind) {
  std::vector<Paragraph>* list = listOf(kind);
  if (!list || std::find(ownHeaders_.begin(), ownHeaders_.end(), kind) != ownHeaders_.end())
    return;
  ownHeaders_.push_back(kind);
  list->clear();
}

std::vector<Paragraph>* RtfSections::listOf(RtfDestination kind) {
  switch (kind) {
    case RtfDestination::Header:
      return &own().header;
    case RtfDestination::Footer:
      return &own().footer;
    case RtfDestination::FirstHeader:
      return &own().firstHeader;
    case RtfDestination::FirstFooter:
      return &own().firstFooter;
    case RtfDestination::LeftHeader:
      return &own().leftHeader;
    case RtfDestination::LeftFooter:
      return &own().leftFooter;
    default:
      return nullptr;
  }
}

}  // namespace zelvo
