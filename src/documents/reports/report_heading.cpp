#include "documents/reports/report_heading.h"

#include <algorithm>
#include <array>
#include <vector>

#include "documents/rtf_reader.h"

namespace zelvo {

namespace {

constexpr std::string_view kEmpty = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\r\n}";

// Groups of a file's beginning that hold no text of its own.
constexpr std::array kTables = {
    std::string_view("fonttbl"), std::string_view("colortbl"), std::string_view("stylesheet"), std::string_view("info"),
    std::string_view("filetbl"), std::string_view("revtbl"),   std::string_view("generator")};
constexpr std::array kMargins = {std::string_view("header"),  std::string_view("headerl"), std::string_view("headerr"),
                                 std::string_view("headerf"), std::string_view("footer"),  std::string_view("footerl"),
                                 std::string_view("footerr"), std::string_view("footerf")};
constexpr std::array kBeginText = {std::string_view("pard"),  std::string_view("plain"), std::string_view("par"),
                                   std::string_view("trowd"), std::string_view("u"),     std::string_view("tab")};

template <class Words>
bool isOneOf(const Words& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

struct Insertion {
  std::size_t at;
  std::string text;
};

}  // namespace

/// One walk through the tokens of a heading.
struct ReportHeading::Scan {
  explicit Scan(std::string_view file) : rtf(file) {
    RtfReader reader(rtf);
    RtfToken token;
    while (reader.next(token))
      take(token);
    if (end == 0)
      end = rtf.size();
    if (textAt == 0)
      textAt = end;
  }

  void take(const RtfToken& token) {
    switch (token.kind) {
      case RtfTokenKind::Open:
        ++depth;
        if (depth == 2)
          groupAt = token.begin;
        opening = true;
        return;
      case RtfTokenKind::Close:
        return close(token);
      case RtfTokenKind::LineEnd:
        return;
      default:
        break;
    }
    if (opening)
      name(token);
    if (token.kind == RtfTokenKind::Word)
      word(token);
    else if (token.kind != RtfTokenKind::Binary && !inTable())
      text(token.begin);
  }

  // What opens a group says what it is; "*" leaves that to the word behind it.
  void name(const RtfToken& token) {
    opening = token.kind == RtfTokenKind::Symbol && token.word == "*";
    starred = opening || starred;
    if (opening || tableDepth > 0)
      return;
    const bool isPicture = token.word == "shppict" || token.word == "pict";
    if (isOneOf(kTables, token.word) || isOneOf(kMargins, token.word) || (starred && !isPicture))
      tableDepth = depth;
    starred = false;
    if (depth == 2 && (token.word == "header" || token.word == "footer"))
      margin(token);
    inFonts = inFonts || token.word == "fonttbl";
  }

  void margin(const RtfToken& token) {
    marginGroup = groupAt;
    marginWordEnd = token.end();
    isFooter = token.word == "footer";
  }

  void word(const RtfToken& token) {
    if (token.word == "rtf" && depth == 1)
      versionEnd = token.end();
    if (inFonts && token.word == "f")
      lastFont = std::max(lastFont, token.parameterOr(0));
    if (inTable())
      return;
    if (isOneOf(kBeginText, token.word))
      begin(token.begin);
    if (token.word == "par" || token.word == "row")
      textOpen = false;
    else if (token.word == "pict")
      text(token.begin);
  }

  void text(std::size_t at) {
    if (depth == 0 || starred)
      return;
    begin(at);
    textOpen = true;
  }

  void begin(std::size_t at) {
    if (textAt == 0)
      textAt = depth > 1 ? groupAt : at;
  }

  // A footer that stands on all pages stands on the first one too; a header that does becomes the first one's.
  void close(const RtfToken& token) {
    if (tableDepth == depth) {
      if (inFonts)
        fontsEnd = token.begin;
      inFonts = false;
      tableDepth = 0;
    }
    if (depth == 2 && marginGroup > 0) {
      if (isFooter)
        insertions.push_back(
            {token.end(), "{\\footerf" + std::string(rtf.substr(marginWordEnd, token.end() - marginWordEnd))});
      else
        insertions.push_back({marginWordEnd, "f"});
      hasFooter = hasFooter || isFooter;
      marginGroup = 0;
    }
    if (--depth == 0 && end == 0)
      end = token.begin;
    opening = false;
  }

  bool inTable() const { return tableDepth > 0; }

  std::string_view rtf;
  int depth = 0, tableDepth = 0;
  std::size_t groupAt = 0, marginGroup = 0, marginWordEnd = 0;
  bool opening = false, starred = false, inFonts = false, isFooter = false;

  std::size_t versionEnd = 0, fontsEnd = 0, textAt = 0, end = 0;
  int lastFont = 0;
  bool textOpen = false, hasFooter = false;
  std::vector<Insertion> insertions;
};

ReportHeading::ReportHeading(std::string_view rtf) {
  const Scan scan(rtf.empty() ? kEmpty : rtf);
  font_ = scan.lastFont + 1;
  hasFooter_ = scan.hasFooter;
  textOpen_ = scan.textOpen;
  auto insertions = scan.insertions;
  const std::string font = "{\\f" + std::to_string(font_) + "\\fmodern\\fcharset0\\fprq1 Courier New;}";
  insertions.push_back(scan.fontsEnd > 0 ? Insertion{scan.fontsEnd, font}
                                         : Insertion{scan.versionEnd, "{\\fonttbl" + font + "}"});
  std::stable_sort(insertions.begin(), insertions.end(),
                   [](const Insertion& a, const Insertion& b) { return a.at < b.at; });
  rtf_ = scan.rtf;
  setUpAt_ = scan.textAt;
  end_ = scan.end;
  for (auto insertion = insertions.rbegin(); insertion != insertions.rend(); ++insertion) {
    rtf_.insert(insertion->at, insertion->text);
    setUpAt_ += insertion->at <= scan.textAt ? insertion->text.size() : 0;
    end_ += insertion->text.size();
  }
}

std::string ReportHeading::opened(std::string_view setUp) const {
  std::string opened = rtf_.substr(0, setUpAt_);
  opened += setUp;
  opened += rtf_.substr(setUpAt_, end_ - setUpAt_);
  if (textOpen_)
    opened += "\\par";
  return opened + "\r\n";
}

}  // namespace zelvo
