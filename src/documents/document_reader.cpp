#include "documents/document_reader.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/text.h"
#include "documents/rtf_decoder.h"
#include "documents/rtf_look.h"
#include "documents/rtf_picture.h"
#include "documents/rtf_sections.h"
#include "documents/rtf_table.h"

namespace zelvo {

namespace {

using Destination = RtfDestination;

// Groups of letters lie twenty deep; those of a broken file need not keep their looks apart.
constexpr std::size_t kDeepest = 10000;

// Letters are written in a handful of fonts. Each that a letter uses is looked for on the computer, which a broken file
// of fifty thousand must not ask for.
constexpr std::size_t kMostFonts = 32;

// Tables of letters stand two or three deep in one another; what a broken file puts deeper is text of the last one.
constexpr std::size_t kMostInner = 8;

// The signs of the symbol fonts that letters use, mostly in front of list entries. Other computers lack those fonts.
char32_t signOf(char32_t code) {
  static const std::unordered_map<char32_t, char32_t> signs = {
      {0xB7, 0x2022}, {0xA7, 0x25AA}, {0xFC, 0x2713}, {0xFB, 0x2717}, {0x6F, 0x25A1}, {0xA8, 0x25A1}, {0xFE, 0x2611},
      {0xD8, 0x27A2}, {0x76, 0x2756}, {0x6C, 0x25CF}, {0x6E, 0x25A0}, {0x71, 0x2751}, {0xE0, 0x2192}, {0xF0, 0x21E8}};
  const auto sign = signs.find(code);
  return sign == signs.end() ? code : sign->second;
}

LiveField liveFieldOf(std::string_view instruction) {
  const std::string word = upper(split(trim(instruction), ' ').front());
  if (word == "PAGE")
    return LiveField::PageNumber;
  return word == "NUMPAGES" ? LiveField::PageCount : LiveField::None;
}

class Reader : public RtfSink {
 public:
  explicit Reader(const RtfFonts& fonts)
      : fonts_(fonts),
        sections_(document_),
        table_(colours_),
        inner_(kMostInner, RtfTable(colours_)),
        margin_(colours_) {}

  Document finish() {
    for (auto& [flow, current] : flows_)
      if (!current.runs.empty())
        endParagraph(flow);
    endRow();
    endMarginRow();
    return std::move(document_);
  }

  void character(char32_t character, RtfSpan, const RtfState& state) override {
    if (state.destination == Destination::ColourTable)
      return takeColourEnd(character);
    if (state.destination == Destination::FieldInstruction)
      return appendCharacter(instruction_, character);
    if (!isText(state.destination) || state.hidden || character == 0x00AD)
      return;
    if (look_.inLiveResult)
      return addLive(state);
    beginRun(state);
    appendText(character, state);
  }

  void word(const RtfToken& token, const RtfState& state) override {
    sameRun_ = false;
    font_ = state.font;
    if (state.flow != flow_)
      enterFlow(state);
    if (state.destination == Destination::Picture)
      return takePictureWord(token);
    if (state.destination == Destination::ColourTable)
      return takeColourWord(token);
    if (state.destination == Destination::FieldInstruction || !isText(state.destination))
      return;
    if (look_.text.take(token))
      return;
    if (!look_.paragraph.take(token, colours_) && !takeBreak(token.word, state) && !takeField(token.word, state) &&
        !takeTableWord(token, state))
      sections_.take(token);
  }

  void open(const RtfState& state) override {
    sameRun_ = false;
    font_ = state.font;
    if (outer_.size() < kDeepest)
      outer_.push_back(look_);
    else
      ++tooDeep_;
  }

  void close(const RtfState& state) override {
    sameRun_ = false;
    if (tooDeep_ > 0)
      return static_cast<void>(--tooDeep_);
    if (outer_.empty())
      return;
    // The last paragraph of a letter often has no end of its own; it keeps the look in force there.
    if (state.flow != flow_ || outer_.size() == 1)
      leaveFlow(state);
    look_ = std::move(outer_.back());
    outer_.pop_back();
    font_ = state.font;
    if (inPicture_ && state.destination != Destination::Picture)
      addPicture(state);
    if (!instruction_.empty() && state.destination != Destination::FieldInstruction) {
      live_ = liveFieldOf(instruction_);
      instruction_.clear();
    }
    // A field whose result was never written still has its number.
    if (outer_.size() < fieldDepth_) {
      addLive(state);
      fieldDepth_ = 0;
    }
  }

  void data(const RtfToken& token, const RtfState&) override { picture_.data(token); }

 private:
  struct Look {
    TextLook text;
    ParagraphLook paragraph;
    bool inLiveResult = false;
    bool inInnerShape = false;  // of a table inside a cell
  };

  void takePictureWord(const RtfToken& token) {
    picture_.take(token);
    inPicture_ = true;
  }

  void takeColourWord(const RtfToken& token) {
    const auto part = static_cast<std::uint8_t>(token.parameterOr(0));
    if (token.word != "red" && token.word != "green" && token.word != "blue")
      return;
    if (!colour_)
      colour_ = Colour{};
    (token.word == "red" ? colour_->red : token.word == "green" ? colour_->green : colour_->blue) = part;
  }

  void takeColourEnd(char32_t character) {
    if (character != U';')
      return;
    colours_.byNumber.push_back(colour_);
    colour_.reset();
  }

  // A header, note or frame begins with a look of its own.
  void enterFlow(const RtfState& state) {
    destinations_[state.flow] = state.destination;
    flow_ = state.flow;
    look_ = Look{};
    if (isMargin(state.destination)) {
      endMarginRow();
      margin_ = RtfTable(colours_);
      marginKind_ = state.destination;
    }
    sections_.beginHeader(state.destination);
  }

  void leaveFlow(const RtfState& state) {
    const auto left = flows_.find(flow_);
    if (left != flows_.end() && !left->second.runs.empty())
      endParagraph(flow_);
    if (isMargin(destinations_[flow_]))
      endMarginRow();
    flow_ = state.flow;
  }

  Paragraph& current(const RtfState& state) { return flows_[state.flow]; }

  TextStyle style(int number) {
    const auto font = fonts_.byNumber.find(number);
    const RtfFont* known = font == fonts_.byNumber.end() || font->second.symbol ? nullptr : &font->second;
    TextStyle style = look_.text.style(known, colours_);
    if (!families_.contains(style.font.family)) {
      if (families_.size() < kMostFonts)
        families_.insert(style.font.family);
      else
        style.font.family = TextFont{}.family;
    }
    return style;
  }

  void beginRun(const RtfState& state) {
    if (sameRun_)
      return;
    sameRun_ = true;
    std::vector<Run>& runs = current(state).runs;
    TextStyle wanted = style(state.font);
    const bool goesOn = !runs.empty() && runs.back().live == LiveField::None && !runs.back().picture;
    if (!goesOn || !(runs.back().style == wanted))
      runs.push_back({std::move(wanted), {}, LiveField::None, nullptr});
  }

  void appendText(char32_t character, const RtfState& state) {
    const auto font = fonts_.byNumber.find(state.font);
    const bool isPrivate = character >= 0xF020 && character <= 0xF0FF;
    if (isPrivate || (character != U'\t' && font != fonts_.byNumber.end() && font->second.symbol))
      character = signOf(isPrivate ? character - 0xF000 : character);
    appendCharacter(current(state).runs.back().text, character);
  }

  void addPiece(const RtfState& state, Run run) {
    sameRun_ = false;
    run.style = style(state.font);
    current(state).runs.push_back(std::move(run));
  }

  void addLive(const RtfState& state) {
    if (live_ != LiveField::None && isText(state.destination))
      addPiece(state, {{}, {}, live_, nullptr});
    live_ = LiveField::None;
  }

  void addPicture(const RtfState& state) {
    inPicture_ = false;
    auto picture = picture_.finish();
    if (picture && isText(state.destination))
      addPiece(state, {{}, {}, LiveField::None, std::move(picture)});
  }

  bool takeField(std::string_view word, const RtfState& state) {
    if (word == "field") {
      fieldDepth_ = outer_.size();
    } else if (word == "fldrslt") {
      look_.inLiveResult = live_ != LiveField::None;
    } else if (word == "chpgn") {
      addPiece(state, {{}, {}, LiveField::PageNumber, nullptr});
    } else {
      return false;
    }
    return true;
  }

  bool takeBreak(std::string_view word, const RtfState& state) {
    if (word == "par")
      endParagraph(state.flow);
    else if (word == "cell" || word == "nestcell")
      endCell(word, state);
    else if (word == "row" || word == "nestrow")
      endRow(word, state);
    else if (word == "page")
      breakPage(state);
    else if (word == "sect")
      endSection(state);
    else
      return false;
    return true;
  }

  bool takeTableWord(const RtfToken& token, const RtfState& state) {
    if (token.word == "nesttableprops")
      return look_.inInnerShape = true;
    if (state.destination != Destination::Body)
      return isMargin(state.destination) && margin_.take(token);
    if (look_.inInnerShape)
      return inner_[innerLevel()].take(token);
    return table_.take(token);
  }

  bool isMargin(Destination destination) const {
    return isText(destination) && destination != Destination::Body && destination != Destination::Aside;
  }

  // Whether the paragraph stands in a table inside a cell, and in which, counted from the outermost.
  bool isInner() const { return look_.paragraph.tableLevel >= 2; }
  std::size_t innerLevel() const {
    return std::min(kMostInner - 1, static_cast<std::size_t>(std::max(2, look_.paragraph.tableLevel) - 2));
  }
  bool isTooDeep() const { return look_.paragraph.tableLevel > static_cast<int>(kMostInner) + 1; }

  void endCell(std::string_view word, const RtfState& state) {
    const bool inner = word == "nestcell";
    if (isMargin(state.destination) && !inner) {
      margin_.add(takeParagraph(state.flow));
      return margin_.endCell();
    }
    if (state.destination != Destination::Body)
      return endParagraph(state.flow);
    endInnerRows(inner ? innerLevel() + 1 : 0);
    RtfTable& table = inner ? inner_[innerLevel()] : table_;
    table.add(takeParagraph(state.flow));
    addAsides();
    if (!inner || !isTooDeep())
      table.endCell();
  }

  void endRow(std::string_view word, const RtfState& state) {
    if (isMargin(state.destination))
      endMarginRow();
    else if (word == "row")
      endRow();
    else if (state.destination == Destination::Body && !isTooDeep())
      endInnerRows(innerLevel());
  }

  void endRow() {
    endInnerRows(0);
    if (table_.isOpen())
      document_.body.emplace_back(table_.endRow());
  }

  // The rows that are open in the inner tables from that one on, the deepest first.
  void endInnerRows(std::size_t from) {
    for (std::size_t level = kMostInner; level-- > from;) {
      if (!inner_[level].isOpen())
        continue;
      RtfTable& around = level > 0 ? inner_[level - 1] : table_;
      for (Paragraph& paragraph : inner_[level].endInnerRow())
        around.add(std::move(paragraph));
    }
  }

  void endMarginRow() {
    if (!margin_.isOpen())
      return;
    std::vector<Paragraph>* list = sections_.listOf(marginKind_);
    for (Paragraph& paragraph : margin_.endInnerRow())
      list->push_back(std::move(paragraph));
  }

  bool isInnerOpen() const {
    return std::any_of(inner_.begin(), inner_.end(), [](const RtfTable& table) { return table.isOpen(); });
  }

  void breakPage(const RtfState& state) {
    if (state.destination != Destination::Body || table_.isOpen() || isInnerOpen())
      return;
    if (!current(state).runs.empty())
      endParagraph(state.flow);
    document_.body.emplace_back(PageBreak{});
  }

  // Right behind a table there is no paragraph to end.
  bool isBehindTable() const {
    return look_.paragraph.inTable && !table_.isOpen() && !document_.body.empty() &&
           std::holds_alternative<TableRow>(document_.body.back());
  }

  void endSection(const RtfState& state) {
    if (state.destination != Destination::Body)
      return;
    if (!isBehindTable() || !current(state).runs.empty())
      endParagraph(state.flow);
    endRow();
    sections_.begin(document_.body);
  }

  Paragraph takeParagraph(std::uint32_t flow) {
    Paragraph paragraph = std::move(flows_[flow]);
    flows_[flow] = Paragraph{};
    paragraph.style = look_.paragraph.finished();
    paragraph.end = paragraph.runs.empty() ? style(font_) : paragraph.runs.back().style;
    sameRun_ = false;
    return paragraph;
  }

  void endParagraph(std::uint32_t flow) {
    Paragraph paragraph = takeParagraph(flow);
    const auto found = destinations_.find(flow);
    const Destination destination = found == destinations_.end() ? Destination::Body : found->second;
    if (destination == Destination::Body) {
      addToBody(std::move(paragraph));
      addAsides();
    } else if (destination == Destination::Aside) {
      asides_.push_back(std::move(paragraph));
    } else if (std::vector<Paragraph>* list = sections_.listOf(destination)) {
      if (look_.paragraph.inTable)
        return margin_.add(std::move(paragraph));
      endMarginRow();
      list->push_back(std::move(paragraph));
    }
  }

  void addToBody(Paragraph paragraph) {
    if (look_.paragraph.inTable && isInner()) {
      endInnerRows(innerLevel() + 1);
      return inner_[innerLevel()].add(std::move(paragraph));
    }
    if (look_.paragraph.inTable) {
      endInnerRows(0);
      return table_.add(std::move(paragraph));
    }
    endRow();
    document_.body.emplace_back(std::move(paragraph));
  }

  // Notes and frames stand behind the paragraph that they belong to.
  void addAsides() {
    for (Paragraph& aside : std::exchange(asides_, {}))
      addToBody(std::move(aside));
  }

  const RtfFonts& fonts_;
  RtfColours colours_;
  std::optional<Colour> colour_;              // being read
  std::unordered_set<std::string> families_;  // that the letter uses
  Document document_;
  RtfSections sections_;
  RtfTable table_;
  std::vector<RtfTable> inner_;                   // inside a cell of it, each inside a cell of the one before
  RtfTable margin_;                               // in a header or footer
  Destination marginKind_ = Destination::Header;  // of that one
  RtfPicture picture_;
  bool inPicture_ = false;
  Look look_;
  int font_ = 0;
  std::vector<Look> outer_;
  std::size_t tooDeep_ = 0;                   // open groups beyond
  std::map<std::uint32_t, Paragraph> flows_;  // the paragraph being read of each
  std::map<std::uint32_t, Destination> destinations_;
  std::uint32_t flow_ = 0;
  std::vector<Paragraph> asides_;
  std::string instruction_;  // of the field being read
  LiveField live_ = LiveField::None;
  std::size_t fieldDepth_ = 0;
  bool sameRun_ = false;  // nothing came since the last character that could change its style
};

}  // namespace

Document readDocument(std::string_view rtf) {
  RtfFonts fonts;
  Reader reader(fonts);
  decodeRtf(rtf, fonts, reader);
  return reader.finish();
}

}  // namespace zelvo
