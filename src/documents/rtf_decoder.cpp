#include "documents/rtf_decoder.h"

#include <algorithm>
#include <unordered_map>

#include "base/text.h"

namespace zelvo {

namespace {

using Destination = RtfDestination;

const std::unordered_map<std::string_view, Destination>& destinations() {
  static const std::unordered_map<std::string_view, Destination> table = {
      {"fonttbl", Destination::FontTable},    {"colortbl", Destination::ColourTable},
      {"stylesheet", Destination::Nothing},   {"info", Destination::Nothing},
      {"header", Destination::Header},        {"headerr", Destination::Header},
      {"headerl", Destination::LeftHeader},   {"headerf", Destination::FirstHeader},
      {"footer", Destination::Footer},        {"footerr", Destination::Footer},
      {"footerl", Destination::LeftFooter},   {"footerf", Destination::FirstFooter},
      {"footnote", Destination::Aside},       {"shptxt", Destination::Aside},
      {"dptxbxtext", Destination::Aside},     {"fldinst", Destination::FieldInstruction},
      {"pict", Destination::Picture},         {"nonshppict", Destination::Nothing},
      {"nonesttables", Destination::Nothing}, {"shprslt", Destination::Nothing},
      {"xe", Destination::Nothing},           {"tc", Destination::Nothing},
      {"listtable", Destination::Nothing},    {"listoverridetable", Destination::Nothing},
      {"revtbl", Destination::Nothing},       {"filetbl", Destination::Nothing},
      {"ftnsep", Destination::Nothing},       {"ftnsepc", Destination::Nothing},
      {"panose", Destination::Nothing},       {"falt", Destination::Nothing},
      {"fname", Destination::Nothing},        {"fontemb", Destination::Nothing},
      {"objdata", Destination::Nothing},      {"blipuid", Destination::Nothing}};
  return table;
}

// Starred groups that hold text or a picture like any other; every other starred group that is not known is read over.
bool isTransparent(std::string_view word) {
  return word == "shppict" || word == "nesttableprops";
}

const std::unordered_map<std::string_view, char32_t>& characterWords() {
  static const std::unordered_map<std::string_view, char32_t> table = {
      {"tab", U'\t'},      {"line", U'\n'},       {"lbr", U'\n'},        {"emdash", 0x2014},  {"endash", 0x2013},
      {"emspace", 0x2003}, {"enspace", 0x2002},   {"qmspace", 0x2005},   {"bullet", 0x2022},  {"lquote", 0x2018},
      {"rquote", 0x2019},  {"ldblquote", 0x201C}, {"rdblquote", 0x201D}, {"ltrmark", 0x200E}, {"rtlmark", 0x200F},
      {"zwj", 0x200D},     {"zwnj", 0x200C},      {"zwbo", 0x200B},      {"zwnbo", 0x2060}};
  return table;
}

int codePageOf(int charset) {
  static const std::unordered_map<int, int> table = {{0, 1252},   {2, 1252},   {77, 10000}, {128, 932},  {129, 949},
                                                     {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
                                                     {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251},
                                                     {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
  const auto place = table.find(charset);
  return place == table.end() ? 0 : place->second;
}

std::optional<char32_t> symbolCharacter(char symbol) {
  switch (symbol) {
    case '\\':
    case '{':
    case '}':
    case '\t':
      return static_cast<unsigned char>(symbol);
    case '~':
      return 0x00A0;
    case '_':
      return 0x2011;
    case '-':
      return 0x00AD;
    default:
      return std::nullopt;
  }
}

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

std::size_t utf8Length(unsigned char lead) {
  if (lead >= 0xF0)
    return 4;
  return lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
}

class Decoder {
 public:
  Decoder(std::string_view rtf, RtfFonts& fonts, RtfSink& sink) : reader_(rtf), fonts_(fonts), sink_(sink) {}

  void run() {
    RtfToken token;
    while (reader_.next(token))
      take(token);
    settle();
  }

 private:
  // A \u waits for its stand-ins, the first half of a pair for its second half.
  struct Waiting {
    char32_t unit = 0;
    RtfSpan span;
    int standIns = 0;
    bool active = false;
  };

  void take(const RtfToken& token) {
    switch (token.kind) {
      case RtfTokenKind::Open:
        return openGroup();
      case RtfTokenKind::Close:
        return closeGroup();
      case RtfTokenKind::Word:
        return takeWord(token);
      case RtfTokenKind::Symbol:
        return takeSymbol(token);
      case RtfTokenKind::Hex:
        return takeByte(static_cast<unsigned char>(*token.parameter), {token.begin, token.end()});
      case RtfTokenKind::Binary:
        return takeBinary(token);
      case RtfTokenKind::Text:
        return takeText(token);
      case RtfTokenKind::LineEnd:
        return;
    }
  }

  void openGroup() {
    settle();
    stack_.push_back(state_);
    if (stack_.size() == 1 && !rootSeen_)
      state_.destination = Destination::Body;
    rootSeen_ = true;
    fresh_ = true;
    starred_ = false;
    sink_.open(state_);
  }

  void closeGroup() {
    settle();
    starred_ = fresh_ = false;
    if (stack_.empty())
      return;
    const bool wasFontTable = state_.destination == Destination::FontTable;
    state_ = stack_.back();
    stack_.pop_back();
    if (wasFontTable && state_.destination != Destination::FontTable)
      chooseFont(fonts_.standard);
    sink_.close(state_);
  }

  void takeText(const RtfToken& token) {
    if (state_.destination == Destination::Nothing)
      return;
    if (state_.destination == Destination::Picture)
      return sink_.data(token, state_);
    for (std::size_t i = 0; i < token.word.size(); ++i)
      takeByte(static_cast<unsigned char>(token.word[i]), {token.begin + i, token.begin + i + 1});
  }

  void takeBinary(const RtfToken& token) {
    if (standsIn({token.begin, token.end()}))
      return;
    if (state_.destination == Destination::Picture)
      sink_.data(token, state_);
  }

  void takeSymbol(const RtfToken& token) {
    const char symbol = token.word.empty() ? '\0' : token.word[0];
    if (symbol == '*') {
      starred_ = fresh_;
      return;
    }
    if (symbol == '\r' || symbol == '\n')
      return endParagraph(token);
    if (const auto found = symbolCharacter(symbol))
      takeCharacter(*found, {token.begin, token.end()});
  }

  void endParagraph(RtfToken token) {
    settle();
    token.word = "par";
    if (state_.destination != Destination::Nothing)
      sink_.word(token, state_);
  }

  void takeWord(const RtfToken& token) {
    const bool first = fresh_;
    const bool starred = starred_ && first;
    fresh_ = starred_ = false;
    if (token.word == "u" && token.parameter)
      return takeUnicode(token);
    if (const auto character = characterWords().find(token.word); character != characterWords().end())
      return takeCharacter(character->second, {token.begin, token.end()});
    settle();
    if (!enterDestination(token.word, starred))
      changeState(token);
    if (state_.destination != Destination::Nothing)
      sink_.word(token, state_);
  }

  // True when the word said where the text of the group goes.
  bool enterDestination(std::string_view word, bool starred) {
    if (word == "ud")
      return state_.destination = state_.outer, true;
    if (word == "upr") {
      state_.outer = state_.destination;
      state_.destination = Destination::Nothing;
      return true;
    }
    const auto found = destinations().find(word);
    if (found == destinations().end()) {
      if (starred && !isTransparent(word))
        state_.destination = Destination::Nothing;
      return starred;
    }
    const bool reachable = state_.destination != Destination::Nothing || found->second == Destination::Aside;
    if (reachable && !stack_.empty())
      enter(found->second);
    return true;
  }

  void enter(Destination destination) {
    state_.destination = destination;
    if (isText(destination))
      state_.flow = ++flows_;
  }

  void changeState(const RtfToken& token) {
    const std::string_view word = token.word;
    if (word == "f")
      chooseFont(token.parameterOr(0));
    else if (word == "plain")
      chooseFont(fonts_.standard), state_.hidden = false;
    else if (word == "v")
      state_.hidden = token.on();
    else if (word == "uc")
      state_.uc = std::clamp(token.parameterOr(1), 0, 255);
    else if (word == "deff")
      fonts_.standard = state_.font = token.parameterOr(0);
    else if (state_.destination == Destination::FontTable)
      describeFont(token);
    else
      choosePage(token);
  }

  void chooseFont(int number) {
    state_.font = number;
    const auto font = fonts_.byNumber.find(number);
    const int page = font == fonts_.byNumber.end() ? 0 : font->second.codePage;
    state_.codePage = page == 0 ? documentPage_ : page;
    if (state_.destination == Destination::FontTable)
      fonts_.byNumber[number];
  }

  void describeFont(const RtfToken& token) {
    RtfFont& font = fonts_.byNumber[state_.font];
    if (token.word == "fcharset") {
      font.codePage = codePageOf(token.parameterOr(1));
      font.symbol = token.parameter == 2;
    } else if (token.word == "cpg") {
      font.codePage = token.parameterOr(0);
    }
    state_.codePage = font.codePage == 0 ? documentPage_ : font.codePage;
  }

  void choosePage(const RtfToken& token) {
    if (token.word == "ansicpg")
      documentPage_ = token.parameterOr(1252) == 0 ? 1252 : token.parameterOr(1252);
    else if (token.word == "mac")
      documentPage_ = 10000;
    else if (token.word == "pc")
      documentPage_ = 437;
    else if (token.word == "pca")
      documentPage_ = 850;
    else
      return;
    state_.codePage = documentPage_;
  }

  void takeUnicode(const RtfToken& token) {
    const auto unit = static_cast<char32_t>(*token.parameter < 0 ? *token.parameter + 65536 : *token.parameter);
    RtfSpan span{token.begin, token.end()};
    if (waiting_.active && waiting_.standIns == 0 && isHighSurrogate(waiting_.unit) && isLowSurrogate(unit)) {
      waiting_.unit = 0x10000 + ((waiting_.unit - 0xD800) << 10) + (unit - 0xDC00);
      waiting_.span.end = span.end;
    } else {
      settle();
      waiting_ = {unit, span, 0, true};
    }
    waiting_.standIns = state_.uc;
    if (state_.uc == 0 && !isHighSurrogate(waiting_.unit))
      settle();
  }

  // A character behind a \u that is there for older readers only.
  bool standsIn(RtfSpan span) {
    if (!waiting_.active || waiting_.standIns == 0)
      return false;
    waiting_.span.end = span.end;
    if (--waiting_.standIns == 0 && !isHighSurrogate(waiting_.unit))
      settle();
    return true;
  }

  void takeCharacter(char32_t character, RtfSpan span) {
    fresh_ = starred_ = false;
    if (standsIn(span))
      return;
    settle();
    deliver(character, span);
  }

  void takeByte(unsigned char byte, RtfSpan span) {
    fresh_ = starred_ = false;
    if (standsIn(span))
      return;
    settleWaiting();
    if (!bytes_.empty() && byte < 0x30)
      settleBytes();
    if (!bytes_.empty() || bytesNeeded(byte) > 1 || (byte >= 0x80 && DoubleBytePages::covers(state_.codePage)))
      return collect(byte, span);
    if (byte >= 0x80)
      deliver(codePageCharacter(state_.codePage, byte), span);
    else if (byte >= 0x20 || byte == '\t')
      deliver(byte, span);
  }

  std::size_t bytesNeeded(unsigned char lead) const {
    if (state_.codePage == 65001)
      return lead < 0x80 ? 1 : utf8Length(lead);
    return DoubleBytePages::isLead(state_.codePage, lead) ? 2 : 1;
  }

  void collect(unsigned char byte, RtfSpan span) {
    if (bytes_.empty())
      bytesSpan_ = span;
    bytes_ += static_cast<char>(byte);
    bytesSpan_.end = span.end;
    if (bytes_.size() >= bytesNeeded(static_cast<unsigned char>(bytes_[0])))
      settleBytes();
  }

  void settle() {
    settleWaiting();
    settleBytes();
  }

  void settleWaiting() {
    if (!waiting_.active)
      return;
    const bool half = isHighSurrogate(waiting_.unit) || isLowSurrogate(waiting_.unit) || waiting_.unit > 0x10FFFF;
    waiting_.active = false;
    deliver(half ? 0xFFFD : waiting_.unit, waiting_.span);
  }

  void settleBytes() {
    if (bytes_.empty())
      return;
    std::size_t position = 0;
    const char32_t character =
        state_.codePage == 65001 ? nextCharacter(bytes_, position) : doubleBytes_.character(state_.codePage, bytes_);
    bytes_.clear();
    deliver(character, bytesSpan_);
  }

  void deliver(char32_t character, RtfSpan span) {
    const bool control = character < 0x20 ? character != U'\t' && character != U'\n' : character == 0x7F;
    if (control)
      return;
    if (state_.destination == Destination::FontTable) {
      if (character != U';')
        appendCharacter(fonts_.byNumber[state_.font].name, character);
    } else if (state_.destination != Destination::Nothing) {
      sink_.character(character, span, state_);
    }
  }

  RtfReader reader_;
  RtfFonts& fonts_;
  RtfSink& sink_;
  DoubleBytePages doubleBytes_;
  std::vector<RtfState> stack_;
  RtfState state_;
  int documentPage_ = 1252;
  std::uint32_t flows_ = 0;
  bool rootSeen_ = false;
  bool fresh_ = false;    // at the very beginning of a group
  bool starred_ = false;  // behind the \* at the beginning of a group
  Waiting waiting_;
  std::string bytes_;  // of a character that takes several
  RtfSpan bytesSpan_;
};

}  // namespace

bool isText(RtfDestination destination) {
  switch (destination) {
    case Destination::Body:
    case Destination::Header:
    case Destination::Footer:
    case Destination::FirstHeader:
    case Destination::FirstFooter:
    case Destination::LeftHeader:
    case Destination::LeftFooter:
    case Destination::Aside:
      return true;
    default:
      return false;
  }
}

void decodeRtf(std::string_view rtf, RtfFonts& fonts, RtfSink& sink) {
  Decoder(rtf, fonts, sink).run();
}

}  // namespace zelvo
