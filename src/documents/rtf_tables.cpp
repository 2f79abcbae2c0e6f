#include "documents/rtf_tables.h"

#include <algorithm>
#include <cmath>

#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

template <class List, class Value>
int placeOf(List& list, const Value& value) {
  const auto found = std::find(list.begin(), list.end(), value);
  const auto place = static_cast<int>(found - list.begin());
  if (found == list.end())
    list.emplace_back(value);
  return place;
}

std::string_view wordOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::Center:
      return "\\qc";
    case Alignment::Right:
      return "\\qr";
    case Alignment::Justify:
      return "\\qj";
    case Alignment::Left:
      break;
  }
  return "\\ql";
}

std::string_view wordOf(TabKind kind) {
  switch (kind) {
    case TabKind::Center:
      return "\\tqc";
    case TabKind::Right:
      return "\\tqr";
    case TabKind::Decimal:
      return "\\tqdec";
    case TabKind::Left:
      break;
  }
  return "";
}

std::string_view wordOf(TabLeader leader) {
  switch (leader) {
    case TabLeader::Dots:
      return "\\tldot";
    case TabLeader::Hyphens:
      return "\\tlhyph";
    case TabLeader::Underline:
      return "\\tlul";
    case TabLeader::None:
      break;
  }
  return "";
}

std::string wordUnless(int usual, std::string_view word, int number) {
  return number == usual ? "" : rtfWord(word, number);
}

std::string spacingOf(const ParagraphStyle& style) {
  if (style.lineRule == LineRule::Multiple)
    return style.line == 240 ? "" : rtfWord("sl", style.line) + "\\slmult1";
  return rtfWord("sl", style.lineRule == LineRule::Exact ? -style.line : style.line) + "\\slmult0";
}

std::string bordersOf(const ParagraphStyle& style, RtfTables& tables) {
  const std::pair<std::string_view, const Border*> edges[] = {
      {"brdrt", &style.top}, {"brdrl", &style.leftBorder}, {"brdrb", &style.bottom}, {"brdrr", &style.rightBorder}};
  std::string words;
  for (const auto& [edge, border] : edges)
    if (border->width > 0)
      words += rtfBorder(edge, *border, tables) + wordUnless(0, "brsp", style.borderSpace);
  return words;
}

}  // namespace

int RtfTables::numberOf(std::string_view family) {
  return placeOf(fonts_, family);
}

int RtfTables::numberOf(const Colour& colour) {
  return placeOf(colours_, colour) + 1;
}

std::string RtfTables::source() const {
  std::string source = "{\\fonttbl";
  for (std::size_t i = 0; i < fonts_.size(); ++i)
    source += "{" + rtfWord("f", static_cast<int>(i)) + "\\fnil\\fcharset0 " + rtfText(fonts_[i]) + ";}";
  source += "}\r\n{\\colortbl;";
  for (const Colour& colour : colours_)
    source += rtfWord("red", colour.red) + rtfWord("green", colour.green) + rtfWord("blue", colour.blue) + ";";
  return source + "}\r\n";
}

std::string rtfWord(std::string_view word, int number) {
  return "\\" + std::string(word) + std::to_string(number);
}

std::string rtfLook(const TextStyle& style, RtfTables& tables) {
  std::string words = "\\plain" + rtfWord("f", tables.numberOf(style.font.family)) +
                      rtfWord("fs", static_cast<int>(std::lround(style.font.points * 2)));
  const std::pair<bool, std::string_view> plainWords[] = {{style.font.bold, "\\b"},
                                                          {style.font.italic, "\\i"},
                                                          {style.underline, "\\ul"},
                                                          {style.strike, "\\strike"},
                                                          {style.script == Script::Super, "\\super"},
                                                          {style.script == Script::Sub, "\\sub"},
                                                          {style.capitals == Capitals::All, "\\caps"},
                                                          {style.capitals == Capitals::Small, "\\scaps"}};
  for (const auto& [on, word] : plainWords)
    if (on)
      words += word;
  if (style.colour != Colour{})
    words += rtfWord("cf", tables.numberOf(style.colour));
  if (style.highlight) {
    const int number = tables.numberOf(*style.highlight);
    words += rtfWord("chcbpat", number) + rtfWord("highlight", number);
  }
  return words + " ";
}

std::string rtfLook(const ParagraphStyle& style, RtfTables& tables) {
  std::string words(wordOf(style.alignment));
  words += wordUnless(0, "li", style.left) + wordUnless(0, "ri", style.right) + wordUnless(0, "fi", style.first);
  words += wordUnless(0, "sb", style.before) + wordUnless(0, "sa", style.after) + spacingOf(style);
  words += style.pageBreakBefore ? "\\pagebb" : "";
  words += style.keepTogether ? "\\keep" : "";
  words += style.keepWithNext ? "\\keepn" : "";
  for (const TabStop& tab : style.tabs)
    (words += wordOf(tab.kind)).append(wordOf(tab.leader)).append(rtfWord("tx", tab.position));
  words += bordersOf(style, tables);
  if (style.shade)
    words += rtfWord("cbpat", tables.numberOf(*style.shade));
  return words;
}

std::string rtfBorder(std::string_view edge, const Border& border, RtfTables& tables) {
  if (border.width <= 0)
    return "";
  std::string words = "\\" + std::string(edge) + "\\brdrs" + rtfWord("brdrw", border.width);
  if (border.colour != Colour{})
    words += rtfWord("brdrcf", tables.numberOf(border.colour));
  return words;
}

}  // namespace zelvo
