#include "documents/rtf_reader.h"

#include <gtest/gtest.h>

#include <string>

#include "base/text.h"
#include "documents/rtf_decoder.h"

namespace zelvo {
namespace {

std::string joined(std::string_view file) {
  RtfReader reader(file);
  RtfToken token;
  std::string bytes;
  while (reader.next(token)) {
    EXPECT_EQ(token.begin, bytes.size());
    EXPECT_FALSE(token.raw.empty());
    bytes += token.raw;
  }
  return bytes;
}

// Body and headers as read, "|" for each paragraph end.
std::string textOf(std::string_view file) {
  struct Sink : RtfSink {
    void character(char32_t c, RtfSpan, const RtfState& state) override {
      if (isText(state.destination))
        appendCharacter(text, c);
    }
    void word(const RtfToken& token, const RtfState&) override { text += token.word == "par" ? "|" : ""; }
    std::string text;
  } sink;
  RtfFonts fonts;
  decodeRtf(file, fonts, sink);
  return sink.text;
}

TEST(RtfReader, GivesEveryByteOfWhateverFile) {
  using namespace std::string_literals;
  const std::string whole =
      "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\r\n\\pard\\b-1 Owner: \\'e4\\u8364?\\bin3 {}\\ text\\~\\\r\nend\\par}\r\n\0"s;
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    const std::string part = whole.substr(0, cut);
    EXPECT_EQ(joined(part), part) << "cut at " << cut;
    textOf(part);
  }
  for (const std::string& odd :
       {"\\'zz"s, "\\"s, "\\bin99999999999 ab"s, "}}}{\\"s, "\\u99999999999x\\b-"s, "\0{\\rtf"s})
    EXPECT_EQ(joined(odd), odd);
}

TEST(RtfReader, CutsControlWords) {
  struct Row {
    std::string_view file, word;
    std::optional<int> parameter;
    std::string_view raw;
  };
  const Row rows[] = {{"\\par text", "par", {}, "\\par "},     {"\\fs24text", "fs", 24, "\\fs24"},
                      {"\\li-720\\b", "li", -720, "\\li-720"}, {"\\b-x", "b", {}, "\\b"},
                      {"\\fs24  two", "fs", 24, "\\fs24 "},    {"\\u4000000000 ", "u", 2147483647, "\\u4000000000 "}};
  for (const Row& row : rows) {
    RtfReader reader(row.file);
    RtfToken token;
    ASSERT_TRUE(reader.next(token)) << row.file;
    EXPECT_EQ(token.kind, RtfTokenKind::Word) << row.file;
    EXPECT_EQ(token.word, row.word) << row.file;
    EXPECT_EQ(token.parameter, row.parameter) << row.file;
    EXPECT_EQ(token.raw, row.raw) << row.file;
  }
}

TEST(RtfDecoder, ReadsTheTextOfALetter) {
  struct Row {
    std::string_view why, file, text;
  };
  const Row rows[] = {
      {"plain", "{\\rtf1 Permit\\par Fee}", "Permit|Fee"},
      {"a line end in the file means nothing", "{\\rtf1 Per\r\nmit}", "Permit"},
      {"a backslash before a line end is a paragraph end", "{\\rtf1 Per\\\nmit}", "Per|mit"},
      {"special characters", "{\\rtf1 a\\~b\\_c\\{d\\\\\\}\\emdash\\rquote s\\tab x\\line y}",
       "a\u00A0b\u2011c{d\\}—’s\tx\ny"},
      {"hexadecimal in the document's page", "{\\rtf1\\ansicpg1251 \\'cf\\'e5}", "Пе"},
      {"a font's own page",
       "{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\fcharset238 B;}}\\f0\\'cf{\\f1\\'b3}\\'cf\\plain\\'cf}", "ПłПП"},
      {"a character of two bytes", "{\\rtf1{\\fonttbl{\\f0\\fcharset128 A;}}\\f0\\'93\\'fa\\'96{}x}", "日\uFFFDx"},
      {"a trail byte that stands as a letter", "{\\rtf1\\ansicpg932 \\'83A\\'b1}", "アｱ"},
      {"unicode with its stand-in", "{\\rtf1 \\u8364?5 \\u-3913 *x}", "€5 \uF0B7x"},
      {"two stand-ins, then none", "{\\rtf1\\uc2\\u228\\'e4?b{\\uc0\\u228 b}\\u228?\\'e4c}", "äbäbäc"},
      {"a stand-in ends with its group", "{\\rtf1 {\\u228}?}", "ä?"},
      {"a word as a stand-in", "{\\rtf1 \\u8217\\rquote s}", "’s"},
      {"a pair", "{\\rtf1 \\u-10179?\\u-8704?!}", "😀!"},
      {"half a pair", "{\\rtf1 \\u-10179?x\\u-8704?}", "\uFFFDx\uFFFD"},
      {"UTF-8 as it stands", "{\\rtf1\\ansicpg65001 \xE2\x82\xAC}", "€"},
      {"groups that are no text", "{\\rtf1{\\info{\\title T}}{\\*\\generator G;}{\\stylesheet{S;}}{\\*\\odd{x}}a}",
       "a"},
      {"an unknown group without a star is text", "{\\rtf1{\\odd x}a}", "xa"},
      {"a field's result, not its instruction", "{\\rtf1{\\field{\\*\\fldinst PAGE}{\\fldrslt 3}}}", "3"},
      {"one version of a picture and of a twofold text", "{\\rtf1{\\nonshppict x}{\\upr{old}{\\*\\ud{new}}}}", "new"},
      {"the text of a frame", "{\\rtf1{\\shp{\\*\\shpinst a{\\shptxt b}}{\\shprslt c}}}", "b"},
      {"binary data is no text", "{\\rtf1 a\\bin4 }}\\xb}", "ab"},
      {"nothing behind the end", "{\\rtf1 a}b{c}", "a"}};
  for (const Row& row : rows)
    EXPECT_EQ(textOf(row.file), row.text) << row.why;
}

TEST(RtfDecoder, IsNotFrightenedByDeepGroups) {
  constexpr std::size_t depth = 200000;
  const std::string deep = "{\\rtf1 " + std::string(depth, '{') + "x" + std::string(depth, '}') + "y}";
  EXPECT_EQ(textOf(deep), "xy");
}

TEST(RtfReader, TellsRichTextFromOtherFiles) {
  EXPECT_TRUE(isRichText("{\\rtf1 x}"));
  EXPECT_TRUE(isRichText("\r\n{\\rtf"));
  EXPECT_FALSE(isRichText(""));
  EXPECT_FALSE(isRichText("Dear {\\rtf1"));
}

}  // namespace
}  // namespace zelvo
