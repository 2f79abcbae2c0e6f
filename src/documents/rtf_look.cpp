#include "documents/rtf_look.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "base/text.h"
#include "documents/rtf_words.h"

namespace zelvo {

namespace {

const RtfWords<TextLook>& textWords() {
  using L = TextLook;
  using T = RtfToken;
  static const RtfWords<TextLook> words = {
      {"plain", [](L& look, const T&) { look = TextLook{}; }},
      {"b", [](L& look, const T& token) { look.bold = token.on(); }},
      {"i", [](L& look, const T& token) { look.italic = token.on(); }},
      {"strike", [](L& look, const T& token) { look.strike = token.on(); }},
      {"striked", [](L& look, const T& token) { look.strike = token.on(); }},
      {"caps", [](L& look, const T& token) { look.capitals = token.on() ? Capitals::All : Capitals::AsWritten; }},
      {"scaps", [](L& look, const T& token) { look.capitals = token.on() ? Capitals::Small : Capitals::AsWritten; }},
      {"super", [](L& look, const T& token) { look.script = token.on() ? Script::Super : Script::Normal; }},
      {"sub", [](L& look, const T& token) { look.script = token.on() ? Script::Sub : Script::Normal; }},
      {"nosupersub", [](L& look, const T&) { look.script = Script::Normal; }},
      {"up", [](L& look, const T& token) { look.script = token.parameterOr(6) > 0 ? Script::Super : Script::Normal; }},
      {"dn", [](L& look, const T& token) { look.script = token.parameterOr(6) > 0 ? Script::Sub : Script::Normal; }},
      {"fs", [](L& look, const T& token) { look.halfPoints = std::clamp(token.parameterOr(24), 2, 3276); }},
      {"cf", [](L& look, const T& token) { look.colour = token.parameterOr(0); }},
      {"cb", [](L& look, const T& token) { look.highlight = token.parameterOr(0); }},
      {"chcbpat", [](L& look, const T& token) { look.highlight = token.parameterOr(0); }},
      {"highlight", [](L& look, const T& token) { look.highlight = token.parameterOr(0); }},
      {"ulnone", [](L& look, const T&) { look.underline = false; }}};
  return words;
}

// There are some fifteen kinds of underlining; a letter of the office is underlined or not.
bool isUnderline(std::string_view word) {
  return word.starts_with("ul") && word != "ulc";
}

}  // namespace

std::optional<Colour> RtfColours::at(int number) const {
  const auto index = static_cast<std::size_t>(number);
  return number > 0 && index < byNumber.size() ? byNumber[index] : std::nullopt;
}

bool TextLook::take(const RtfToken& token) {
  if (takeWord(textWords(), *this, token))
    return true;
  if (!isUnderline(token.word))
    return false;
  underline = token.on();
  return true;
}

TextStyle TextLook::style(const RtfFont* font, const RtfColours& colours) const {
  TextStyle style;
  if (font && !trim(font->name).empty())
    style.font.family = std::string(trim(font->name));
  style.font.points = halfPoints / 2.0;
  style.font.bold = bold;
  style.font.italic = italic;
  style.underline = underline;
  style.strike = strike;
  style.script = script;
  style.capitals = capitals;
  style.colour = colours.at(colour).value_or(Colour{});
  style.highlight = colours.at(highlight);
  return style;
}

struct ParagraphWords {
  using L = ParagraphLook;
  using T = RtfToken;

  static void align(L& look, Alignment alignment) { look.style.alignment = alignment; }

  static const RtfWords<ParagraphLook>& table() {
    static const RtfWords<ParagraphLook> words = {
        {"pard", [](L& look, const T&) { look = ParagraphLook{}; }},
        {"intbl", [](L& look, const T&) { look.inTable = true; }},
        {"itap", [](L& look, const T& token) { look.tableLevel = token.parameterOr(1); }},
        {"ql", [](L& look, const T&) { align(look, Alignment::Left); }},
        {"qc", [](L& look, const T&) { align(look, Alignment::Center); }},
        {"qr", [](L& look, const T&) { align(look, Alignment::Right); }},
        {"qj", [](L& look, const T&) { align(look, Alignment::Justify); }},
        {"li", [](L& look, const T& token) { look.style.left = twipsOf(token); }},
        {"ri", [](L& look, const T& token) { look.style.right = twipsOf(token); }},
        {"fi", [](L& look, const T& token) { look.style.first = twipsOf(token); }},
        {"sb", [](L& look, const T& token) { look.style.before = std::max(0, twipsOf(token)); }},
        {"sa", [](L& look, const T& token) { look.style.after = std::max(0, twipsOf(token)); }},
        {"sl", [](L& look, const T& token) { look.spacing_ = twipsOf(token); }},
        {"slmult", [](L& look, const T& token) { look.spacingIsMultiple_ = token.parameterOr(0) == 1; }},
        {"pagebb", [](L& look, const T& token) { look.style.pageBreakBefore = token.on(); }},
        {"keep", [](L& look, const T& token) { look.style.keepTogether = token.on(); }},
        {"keepn", [](L& look, const T& token) { look.style.keepWithNext = token.on(); }},
        {"tqc", [](L& look, const T&) { look.nextTab_.kind = TabKind::Center; }},
        {"tqr", [](L& look, const T&) { look.nextTab_.kind = TabKind::Right; }},
        {"tqdec", [](L& look, const T&) { look.nextTab_.kind = TabKind::Decimal; }},
        {"tldot", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Dots; }},
        {"tlmdot", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Dots; }},
        {"tlhyph", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Hyphens; }},
        {"tlul", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Underline; }},
        {"tlth", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Underline; }},
        {"tx", [](L& look, const T& token) { look.addTab(twipsOf(token)); }}};
    return words;
  }
};

bool ParagraphLook::take(const RtfToken& token, const RtfColours& colours) {
  return takeWord(ParagraphWords::table(), *this, token) || takeEdge(token.word) || takeEdgeLine(token, colours) ||
         takeShade(token, colours);
}

bool ParagraphLook::takeEdge(std::string_view word) {
  static const std::unordered_map<std::string_view, Edge> names = {
      {"brdrt", Top}, {"brdrl", Left},      {"brdrb", Bottom},   {"brdrr", Right},
      {"box", Box},   {"brdrbtw", Between}, {"brdrbar", Between}};
  if (const auto found = names.find(word); found != names.end())
    return edges_ = found->second, true;
  // From here the words speak of a table.
  if (word.starts_with("clbrdr") || word.starts_with("trbrdr"))
    edges_ = NoEdge;
  return false;
}

bool ParagraphLook::takeEdgeLine(const RtfToken& token, const RtfColours& colours) {
  if (edges_ == NoEdge)
    return false;
  if (token.word == "brsp") {
    style.borderSpace = std::max(0, twipsOf(token));
    return true;
  }
  Border ignored;
  bool taken = takeBorderWord(token, ignored, colours);
  const std::pair<unsigned, Border*> edges[] = {
      {Top, &style.top}, {Left, &style.leftBorder}, {Bottom, &style.bottom}, {Right, &style.rightBorder}};
  for (const auto& [edge, border] : edges)
    if (edges_ & edge)
      takeBorderWord(token, *border, colours);
  return taken;
}

bool ParagraphLook::takeShade(const RtfToken& token, const RtfColours& colours) {
  constexpr int whole = 10000;  // a shading states how much of the ground is black, in hundredths of a per cent
  if (token.word == "cbpat") {
    style.shade = colours.at(token.parameterOr(0));
  } else if (token.word == "shading" && !style.shade) {
    const int white = whole - std::clamp(token.parameterOr(0), 0, whole);
    const auto grey = static_cast<std::uint8_t>(white * 255 / whole);
    if (white < whole)
      style.shade = Colour{grey, grey, grey};
  } else {
    return false;
  }
  return true;
}

bool takeBorderWord(const RtfToken& token, Border& border, const RtfColours& colours) {
  constexpr int usual = 10;  // twips
  const std::string_view word = token.word;
  if (!word.starts_with("brdr") || word == "brdrsh" || word == "brdrframe")
    return word.starts_with("brdr");
  if (word == "brdrnone" || word == "brdrnil" || word == "brdrtbl")
    border.width = 0;
  else if (word == "brdrw")
    border.width = std::clamp(token.parameterOr(usual), 0, 255);
  else if (word == "brdrcf")
    border.colour = colours.at(token.parameterOr(0)).value_or(Colour{});
  else  // some twenty kinds of line
    border.width = std::max(border.width, usual);
  return true;
}

void ParagraphLook::addTab(int position) {
  constexpr std::size_t mostTabs = 64;  // more come from broken files only
  nextTab_.position = position;
  if (style.tabs.size() < mostTabs)
    style.tabs.push_back(nextTab_);
  nextTab_ = TabStop{};
}

// The colour of a border that is not there, and the room before it, are nothing that anyone sees.
void ParagraphLook::settle(ParagraphStyle& result) {
  int widths = 0;
  for (Border* border : {&result.top, &result.leftBorder, &result.bottom, &result.rightBorder}) {
    widths += border->width;
    if (border->width == 0)
      *border = Border{};
  }
  if (widths == 0)
    result.borderSpace = 0;
}

ParagraphStyle ParagraphLook::finished() const {
  ParagraphStyle result = style;
  std::stable_sort(result.tabs.begin(), result.tabs.end(),
                   [](const TabStop& a, const TabStop& b) { return a.position < b.position; });
  settle(result);
  if (spacing_ == 0)
    return result;
  result.lineRule = spacing_ < 0 ? LineRule::Exact : spacingIsMultiple_ ? LineRule::Multiple : LineRule::AtLeast;
  result.line = std::abs(spacing_);
  return result;
}

}  // namespace zelvo
