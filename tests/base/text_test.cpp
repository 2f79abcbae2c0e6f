#include "base/text.h"

#include <gtest/gtest.h>

namespace zelvo {
namespace {

TEST(Text, TrimsBlanksTabsAndLineBreaks) {
  EXPECT_EQ(trim(" \t a b\r\n"), "a b");
  EXPECT_EQ(trimLeft("  a "), "a ");
  EXPECT_EQ(trimRight("  a "), "  a");
  EXPECT_EQ(trim(" \r\n"), "");
  EXPECT_EQ(trim(""), "");
}

TEST(Text, ChangesCaseLetterByLetter) {
  struct Row {
    std::string_view lowered;
    std::string_view uppered;
  };
  const Row rows[] = {{"o'brien 12b", "O'BRIEN 12B"},
                      {"é÷ÿ", "É÷Ÿ"},
                      {"ßı", "ßı"},
                      {"łódź", "ŁÓDŹ"},
                      {"ňřž", "ŇŘŽ"},
                      {"ǆș", "ǄȘ"},
                      {"άωϋ", "ΆΩΫ"},
                      {"ёжя", "ЁЖЯ"},
                      {"ệ", "Ệ"},
                      {"[`{@", "[`{@"}};
  for (const Row& row : rows) {
    EXPECT_EQ(upper(row.lowered), row.uppered);
    EXPECT_EQ(lower(row.uppered), row.lowered);
  }
  EXPECT_EQ(upper("ς"), "Σ");
  EXPECT_EQ(lower("×Þ"), "×þ");
}

TEST(Text, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(alike("MÜLLER", "müller"));
  EXPECT_TRUE(alike("ΟΔΟΣ", "οδος"));
  EXPECT_FALSE(alike("MULLER", "MÜLLER")) << "an accent is kept";
  EXPECT_FALSE(alike("Smith", "Smithe"));
  EXPECT_LT(compareFolded("smith", "SMITHE"), 0);
  EXPECT_GT(compareFolded("b", "A"), 0);
  EXPECT_LT(compareFolded("Z", "é"), 0);
  EXPECT_EQ(compareFolded("", ""), 0);
}

TEST(Text, SearchesSeeLettersWithoutTheirAccents) {
  const struct {
    std::u32string_view letters;
    char32_t plain;
  } rows[] = {{U"aAàÅăẢậǎ", U'a'}, {U"çĆ", U'c'},  {U"éÊěẹỆ", U'e'}, {U"Ñň", U'n'}, {U"øŐơộ", U'o'}, {U"ß", U'ß'},
              {U"Šșş", U's'},      {U"ÿÝỹ", U'y'}, {U"έΈ", U'ε'},    {U"ёЁ", U'е'}, {U"æÆ", U'æ'},   {U"-", U'-'}};
  for (const auto& row : rows)
    for (const char32_t letter : row.letters)
      EXPECT_EQ(plainCharacter(letter), row.plain) << std::hex << std::uint32_t{letter};
}

TEST(Text, CountsCharactersNotBytes) {
  EXPECT_EQ(length("Ñandú €"), 7u);
  EXPECT_EQ(left("Ñandú", 2), "Ña");
  EXPECT_EQ(left("ab", 5), "ab");
  EXPECT_EQ(right("Ñandú", 2), "dú");
  EXPECT_EQ(right("ab", 5), "ab");
  EXPECT_EQ(right("ab", 0), "");
  EXPECT_EQ(padRight("dú", 4), "dú  ");
  EXPECT_EQ(padLeft("dú", 4), "  dú");
  EXPECT_EQ(padLeft("Ñandú", 3), "Ñandú");
}

TEST(Text, SplitsJoinsAndReplaces) {
  EXPECT_EQ(split("a,,b,", ','), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_EQ(split("", ','), std::vector<std::string>{""});
  EXPECT_EQ(join({"a", "", "b"}, ", "), "a, , b");
  EXPECT_EQ(join({}, ","), "");
  EXPECT_EQ(replaceAll("'O''B'", "'", "''"), "''O''''B''");
  EXPECT_EQ(replaceAll("aaa", "aa", "a"), "aa");
  EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
}

TEST(Utf8, TellsGoodBytesFromBad) {
  for (const auto* good : {"", "a", "é", "€", "\xF0\x9F\x8F\xA0", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF"})
    EXPECT_TRUE(isUtf8(good)) << good;
  for (const auto* bad : {"\x80", "caf\xE9", "\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                          "\xF0\x8F\xBF\xBF", "\xE2\x82", "\xFF", "\xE2\x82z"})
    EXPECT_FALSE(isUtf8(bad)) << bad;
}

TEST(Utf8, ReadsAndWritesEveryKindOfCharacter) {
  for (const char32_t character : {U'\0', U'\x7F', U'\x80', U'\x7FF', U'\x800', U'\xFFFD', U'\x10000', U'\x10FFFF'}) {
    std::string text;
    appendCharacter(text, character);
    std::size_t position = 0;
    EXPECT_EQ(nextCharacter(text, position), character);
    EXPECT_EQ(position, text.size());
  }
  std::string text;
  appendCharacter(text, 0xD800);
  EXPECT_EQ(text, "\uFFFD");
}

TEST(Utf8, ABadByteCostsOneCharacterAndNoMore) {
  std::size_t position = 0;
  EXPECT_EQ(nextCharacter("\xE2\x82z", position), U'\uFFFD');
  EXPECT_EQ(position, 1u);
  EXPECT_EQ(length("\xE2\x82z"), 3u);
  EXPECT_EQ(left("\xE2\x82z", 2), "\xE2\x82");
  position = 2;
  EXPECT_EQ(nextCharacter("ab", position), U'\0');
  EXPECT_EQ(position, 2u);
}

TEST(CodePages, ReadTheBytesOfOldLetters) {
  EXPECT_EQ(fromWindows1252("caf\xE9 \x80 \x93x\x94 \x81"), "café € “x” \u0081");
  struct Row {
    int page;
    unsigned char byte;
    char32_t character;
  };
  const Row rows[] = {
      {1252, 'A', U'A'},     {437, 0x82, U'é'},  {850, 0x9B, U'ø'},        {874, 0xA1, U'ก'},   {874, 0xFF, U'\uFFFD'},
      {1250, 0x9A, U'š'},    {1251, 0xC6, U'Ж'}, {1253, 0xD9, U'Ω'},       {1254, 0xDD, U'İ'},  {1255, 0xE0, U'א'},
      {1256, 0xC7, U'ا'},    {1257, 0xE0, U'ą'}, {1258, 0xD0, U'Đ'},       {10000, 0x8E, U'é'}, {932, 0xE9, U'é'},
      {1252, 0x81, U'\x81'}, {1251, 0xFF, U'я'}, {10000, 0xFF, U'\u02C7'},
  };
  for (const Row& row : rows)
    EXPECT_EQ(codePageCharacter(row.page, row.byte), row.character) << row.page << " " << int{row.byte};
}

}  // namespace
}  // namespace zelvo
