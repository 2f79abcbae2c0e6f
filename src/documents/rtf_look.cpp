#include "documents/rtf_look.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <unordered_map>

#include "base/text.h"

namespace zelvo {

namespace {

template <class Target>
using Words = std::unordered_map<std::string_view, void (*)(Target&, const RtfToken&)>;

template <class Target>
bool takeWord(const Words<Target>& words, Target& target, const RtfToken& token) {
  const auto found = words.find(token.word);
  if (found == words.end())
    return false;
  found->second(target, token);
  return true;
}

// Lengths beyond ten metres are slips of a broken file, not wishes.
int twips(const RtfToken& token) {
  return std::clamp(token.parameterOr(0), -600000, 600000);
}

const Words<TextLook>& textWords() {
  using L = TextLook;
  using T = RtfToken;
  static const Words<TextLook> words = {
      {"plain", [](L& look, const T&) { look = TextLook{}; }},
      {"b", [](L& look, const T& token) { look.bold = token.on(); }},
      {"i", [](L& look, const T& token) { look.italic = token.on(); }},
      {"strike", [](L& look, const T& token) { look.strike = token.on(); }},
      {"striked", [](L& look, const T& token) { look.strike = token.on(); }},
      {"caps", [](L& look, const T& token) { look.capitals = token.on(); }},
      {"scaps", [](L& look, const T& token) { look.capitals = token.on(); }},
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
  style.colour = colours.at(colour).value_or(Colour{});
  style.highlight = colours.at(highlight);
  return style;
}

struct ParagraphWords {
  using L = ParagraphLook;
  using T = RtfToken;

  static void align(L& look, Alignment alignment) { look.style.alignment = alignment; }

  static const Words<ParagraphLook>& table() {
    static const Words<ParagraphLook> words = {
        {"pard", [](L& look, const T&) { look = ParagraphLook{}; }},
        {"intbl", [](L& look, const T&) { look.inTable = true; }},
        {"ql", [](L& look, const T&) { align(look, Alignment::Left); }},
        {"qc", [](L& look, const T&) { align(look, Alignment::Center); }},
        {"qr", [](L& look, const T&) { align(look, Alignment::Right); }},
        {"qj", [](L& look, const T&) { align(look, Alignment::Justify); }},
        {"li", [](L& look, const T& token) { look.style.left = twips(token); }},
        {"ri", [](L& look, const T& token) { look.style.right = twips(token); }},
        {"fi", [](L& look, const T& token) { look.style.first = twips(token); }},
        {"sb", [](L& look, const T& token) { look.style.before = std::max(0, twips(token)); }},
        {"sa", [](L& look, const T& token) { look.style.after = std::max(0, twips(token)); }},
        {"sl", [](L& look, const T& token) { look.spacing_ = twips(token); }},
        {"slmult", [](L& look, const T& token) { look.spacingIsMultiple_ = token.parameterOr(0) == 1; }},
        {"pagebb", [](L& look, const T& token) { look.style.pageBreakBefore = token.on(); }},
        {"tqc", [](L& look, const T&) { look.nextTab_.kind = TabKind::Center; }},
        {"tqr", [](L& look, const T&) { look.nextTab_.kind = TabKind::Right; }},
        {"tqdec", [](L& look, const T&) { look.nextTab_.kind = TabKind::Decimal; }},
        {"tldot", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Dots; }},
        {"tlmdot", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Dots; }},
        {"tlhyph", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Hyphens; }},
        {"tlul", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Underline; }},
        {"tlth", [](L& look, const T&) { look.nextTab_.leader = TabLeader::Underline; }},
        {"tx", [](L& look, const T& token) { look.addTab(twips(token)); }}};
    return words;
  }
};

bool ParagraphLook::take(const RtfToken& token) {
  return takeWord(ParagraphWords::table(), *this, token);
}

void ParagraphLook::addTab(int position) {
  constexpr std::size_t mostTabs = 64;  // more come from broken files only
  nextTab_.position = position;
  if (style.tabs.size() < mostTabs)
    style.tabs.push_back(nextTab_);
  nextTab_ = TabStop{};
}

ParagraphStyle ParagraphLook::finished() const {
  ParagraphStyle result = style;
  std::stable_sort(result.tabs.begin(), result.tabs.end(),
                   [](const TabStop& a, const TabStop& b) { return a.position < b.position; });
  if (spacing_ == 0)
    return result;
  result.lineRule = spacing_ < 0 ? LineRule::Exact : spacingIsMultiple_ ? LineRule::Multiple : LineRule::AtLeast;
  result.line = std::abs(spacing_);
  return result;
}

namespace {

const Words<Document>& pageWords() {
  using D = Document;
  using T = RtfToken;
  static const Words<Document> words = {
      {"paperw", [](D& d, const T& token) { d.page.width = twips(token); }},
      {"pgwsxn", [](D& d, const T& token) { d.page.width = twips(token); }},
      {"paperh", [](D& d, const T& token) { d.page.height = twips(token); }},
      {"pghsxn", [](D& d, const T& token) { d.page.height = twips(token); }},
      {"margl", [](D& d, const T& token) { d.page.left = twips(token); }},
      {"marglsxn", [](D& d, const T& token) { d.page.left = twips(token); }},
      {"margr", [](D& d, const T& token) { d.page.right = twips(token); }},
      {"margrsxn", [](D& d, const T& token) { d.page.right = twips(token); }},
      {"margt", [](D& d, const T& token) { d.page.top = twips(token); }},
      {"margtsxn", [](D& d, const T& token) { d.page.top = twips(token); }},
      {"margb", [](D& d, const T& token) { d.page.bottom = twips(token); }},
      {"margbsxn", [](D& d, const T& token) { d.page.bottom = twips(token); }},
      {"landscape", [](D& d, const T&) { d.page.landscape = true; }},
      {"lndscpsxn", [](D& d, const T&) { d.page.landscape = true; }},
      {"headery", [](D& d, const T& token) { d.page.headerDistance = std::max(0, twips(token)); }},
      {"footery", [](D& d, const T& token) { d.page.footerDistance = std::max(0, twips(token)); }},
      {"titlepg", [](D& d, const T&) { d.firstPageDiffers = true; }},
      {"deftab", [](D& d, const T& token) { d.defaultTab = std::max(20, twips(token)); }}};
  return words;
}

}  // namespace

bool takePageWord(const RtfToken& token, Document& document) {
  return takeWord(pageWords(), document, token);
}

}  // namespace zelvo
