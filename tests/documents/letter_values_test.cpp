// Whatever a clerk types into a record is read in the letter as it was typed, wherever its code stands.

#include <gtest/gtest.h>

#include "documents/document_reader.h"
#include "documents/merge.h"
#include "documents/picture_file.h"
#include "documents/rtf_writer.h"

namespace zelvo {
namespace {

const DateTime kNow{{2026, 3, 9}, 14 * 3600 + 5 * 60 + 7};

std::string merged(const std::string& letter, const MergeContext& context, const PictureSource& pictures = {}) {
  return mergeLetter(letter, context, kNow, pictures).value();
}

// Everything that is read in a letter: header, body, footer.
std::string readBack(const std::string& letter) {
  const Document document = readDocument(letter);
  std::string text;
  for (const Paragraph& paragraph : document.header)
    text += plainText(paragraph);
  text += plainText(document);
  for (const Paragraph& paragraph : document.footer)
    text += plainText(paragraph);
  while (text.ends_with('\n'))
    text.pop_back();
  return text;
}

TEST(LetterValues, AreReadAsTheyWereTypedWhereverTheyStand) {
  using namespace std::string_literals;
  struct Value {
    std::string typed, read;
  };
  const Value values[] = {{"", ""},
                          {"O'Brien & Sons", "O'Brien & Sons"},
                          {"{\\b C:\\data\\new}", "{\\b C:\\data\\new}"},
                          {"}}}", "}}}"},
                          {"\\", "\\"},
                          {"\\'e4\\u228?", "\\'e4\\u228?"},
                          {"-5", "-5"},
                          {"  two  blanks ", "  two  blanks "},
                          {"one\r\ntwo\rthree\n", "one\ntwo\nthree\n"},
                          {"a\tb", "a\tb"},
                          {"a\0b\x07\x1B"s, "ab"},
                          {"Brønsted Dvořák €", "Brønsted Dvořák €"},
                          {"日本 😀 z\u0301", "日本 😀 z\u0301"},
                          {"no\u00A0break \u2011 \uFFFC", "no\u00A0break \u2011 \uFFFC"},
                          {"%01 %26 100%", "%01 %26 100%"}};
  struct Place {
    const char* why;
    std::string letter;
    std::string before, behind;
  };
  const Place places[] = {
      {"the text", "{\\rtf1 a%01b}", "a", "b"},
      {"behind a word", "{\\rtf1 a\\b%01\\b0 b}", "a", "b"},
      {"behind a word with a number", "{\\rtf1 a\\fs20%01b}", "a", "b"},
      {"behind \\u without stand-ins", "{\\rtf1\\uc0 a\\u228%01b}", "aä", "b"},
      {"with two stand-ins", "{\\rtf1\\uc2 a%01b\\u228??}", "a", "bä"},
      {"over borders of runs", "{\\rtf1 a{\\b %}{\\i 0}{\\f1 1}b}", "a", "b"},
      {"as hexadecimal", "{\\rtf1 a\\'25\\'30\\'31b}", "a", "b"},
      {"in a font of two-byte letters", "{\\rtf1{\\fonttbl{\\f0\\fcharset128 M;}}\\f0 a%01b\\'93\\'fa}", "a", "b日"},
      {"a cell", "{\\rtf1\\trowd\\cellx900\\intbl a%01b\\cell\\row}", "a", "b"},
      {"the header", "{\\rtf1{\\header a%01b}}", "a", "b"},
      {"the footer", "{\\rtf1{\\footer\\pard a%01b\\par}}", "a", "b"},
      {"the result of a field", "{\\rtf1{\\field{\\*\\fldinst MERGEFIELD x}{\\fldrslt a%01b}}}", "a", "b"},
      {"a list's mark", "{\\rtf1{\\pntext a%01b}}", "a", "b"},
      {"a page that is cut off", "{\\rtf1 a%01b", "a", "b"}};
  for (const Place& place : places)
    for (const Value& value : values) {
      MergeContext context;
      context.values[1] = value.typed;
      const std::string letter = merged(place.letter, context);
      std::string wanted = place.before + value.read + place.behind;
      while (wanted.ends_with('\n'))
        wanted.pop_back();
      EXPECT_EQ(readBack(letter), wanted) << place.why << ": " << value.typed;
      for (const char c : letter)
        ASSERT_TRUE(c == '\r' || c == '\n' || (c >= ' ' && c < 0x7F)) << place.why << ": " << value.typed;
    }
}

TEST(LetterValues, AllCodesOfOneLetterAreFilledEachFromItsOwnPlace) {
  MergeContext context;
  context.counter = 12;
  context.letterhead = "<mh>";
  context.name = "<nm>";
  context.address = "<ad>";
  context.cityStateZip = "<zp>";
  context.ln = "<ln>";
  context.mi = "<mi>";
  context.id = "<id>";
  context.ms = "<ms>";
  context.me = "<me>";
  std::string letter = "{\\rtf1 ##|%dl|%ds|%tm|%ln|%mi|%id|%mh|%ms|%me|%nm|%ad|%al|%zp|%pi|%si|%logo";
  std::string text = "12|March 09, 2026|3/9/2026|2:05:07 PM|<ln>|<mi>|<id>|<mh>|<ms>|<me>|<nm>|<ad>|<ad>|<zp>|||";
  for (int n = 1; n <= 30; ++n) {
    const std::string number = (n < 10 ? "0" : "") + std::to_string(n);
    letter += "|%" + number + "|%$" + number;
    if (n <= 25) {
      context.values[static_cast<std::size_t>(n)] = std::to_string(n * 1000) + ".5";
      text += "|" + std::to_string(n * 1000) + ".5|";
      const std::string money = "$" + std::to_string(n) + ",000.50";
      text += std::string(14 - money.size(), ' ') + money;
    } else {
      text += "|%" + number + "|%$" + number;
    }
  }
  EXPECT_EQ(readBack(merged(letter + "}", context)), text);
}

TEST(LetterValues, OfAnEarlierCodeAreSearchedForTheLaterOnes) {
  struct Row {
    const char* why;
    std::string letter;
    std::string MergeContext::*slot;
    std::string value, text;
  };
  const Row rows[] = {{"a slot that comes later", "%ln", &MergeContext::ln, "see %ms", "see MS"},
                      {"a numbered value is last of all", "%me", &MergeContext::me, "%25", "v25"},
                      {"the date is long past", "%ln", &MergeContext::ln, "%dl ##", "%dl ##"},
                      {"the address comes behind the name", "%nm", &MergeContext::name, "%ad %al", "AD AD"},
                      {"and not before it", "%zp", &MergeContext::cityStateZip, "%ad", "%ad"},
                      {"the letterhead", "%mh", &MergeContext::letterhead, "%ln %nm %01", "%ln NM v1"},
                      {"two halves that meet", "%%lnm", &MergeContext::ln, "n", "NM"},
                      {"a picture's code is taken out", "a%nmb", &MergeContext::name, "%si", "ab"}};
  for (const Row& row : rows) {
    MergeContext context;
    context.name = "NM";
    context.address = "AD";
    context.ms = "MS";
    context.values[1] = "v1";
    context.values[25] = "v25";
    context.*row.slot = row.value;
    EXPECT_EQ(readBack(merged("{\\rtf1 " + row.letter + "}", context)), row.text) << row.why;
  }
}

TEST(LetterValues, OnlyWholeDatesAreWrittenAsDates) {
  struct Row {
    std::string typed, plain, formatted;
  };
  const Row rows[] = {{"3/5/24", "03/05/2024", "March 05, 2024"},
                      {" 3/5/2024 ", "03/05/2024", "March 05, 2024"},
                      {"2/30/2024", "2/30/2024", "2/30/2024"},
                      {"1/2", "1/2", "1/2"},
                      {"26-0012", "26-0012", "26-0012"},
                      {"12-5-0-3-45", "12-5-0-3-45", "12-5-0-3-45"},
                      {"20240305", "20240305", "20240305"},
                      {"12.5", "12.5", "12.5"},
                      {"2024", "2024", "2024"},
                      {"May", "May", "May"},
                      {"March Road 5", "March Road 5", "March Road 5"},
                      {"3/5/2024 and later", "3/5/2024 and later", "3/5/2024 and later"}};
  for (const Row& row : rows) {
    MergeContext context;
    context.values[1] = row.typed;
    context.name = row.typed;
    EXPECT_EQ(readBack(merged("{\\rtf1 %01|%nm}", context)), row.plain + "|" + row.formatted) << row.typed;
  }
}

TEST(LetterValues, TakeTheLookOfTheFirstLetterOfTheirCode) {
  MergeContext context;
  context.values[1] = "wide";
  const Document document = readDocument(merged("{\\rtf1 a{\\b\\fs40 %}{\\i 01} b}", context));
  const auto& runs = std::get<Paragraph>(document.body.at(0)).runs;
  ASSERT_EQ(runs.size(), 3u);
  EXPECT_EQ(runs[1].text, "wide");
  EXPECT_EQ(runs[1].style.font.points, 20);
  EXPECT_TRUE(runs[1].style.font.bold && !runs[1].style.font.italic);
  EXPECT_EQ(runs[2].text, " b");
  EXPECT_FALSE(runs[2].style.font.bold);
}

// ---- the letterhead

std::string bitmapSource() {
  const std::string bitmap = std::string("\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0", 16) + std::string(24, '\0') +
                             "abcdef" + std::string(2, '\0');
  return rtfPicture(*readPicture(bmpFileOf(bitmap)));
}

TEST(Letterhead, ComesWithItsSealAndItsText) {
  struct Row {
    const char* why;
    std::string letterhead, text;
    std::size_t pictures;
  };
  const std::string seal = bitmapSource();
  const Row rows[] = {
      {"text", "{\\rtf1 Town\\par of Milford\\par\\par}", "<Town\nof Milford>", 0},
      {"a seal above the name", "{\\rtf1{\\*\\shppict" + seal + "}{\\nonshppict" + seal + "}\\par Town\\par}",
       "<\nTown>", 1},
      {"a seal behind the name", "{\\rtf1 Town{\\b " + seal + "}x}", "<Townx>", 1},
      {"a table loses its lines, not its text",
       "{\\rtf1\\trowd\\cellx900\\cellx1800\\intbl Town\\cell Hall\\cell\\row\\pard Milford}", "<Town\tHall\nMilford>",
       0},
      {"line breaks and signs", "{\\rtf1 a\\line b\\tab\\'e4\\u8364?\\{\\}}", "<a\nb\tä€{}>", 0},
      {"a seal that is cut off", "{\\rtf1 Town{\\pict\\dibitmap\\bin9999 ab", "<Town>", 0},
      {"header and hidden text stay out", "{\\rtf1{\\header h}{\\v v}{\\info{\\title t}}Town}", "<Town>", 0},
      {"plain text of several lines", "Town\r\nof {Milford}", "<Town\nof {Milford}>", 0},
      {"none at all", "{\\rtf1\\par}", "<>", 0}};
  for (const Row& row : rows) {
    MergeContext context;
    context.letterhead = row.letterhead;
    const std::string letter = merged("{\\rtf1 <%mh>}", context);
    EXPECT_EQ(readBack(letter), row.text) << row.why;
    std::size_t pictures = 0;
    const Document document = readDocument(letter);
    for (const Block& block : document.body)
      for (const auto& run : std::get<Paragraph>(block).runs)
        pictures += run.picture && run.picture->width == 30 ? 1 : 0;
    EXPECT_EQ(pictures, row.pictures) << row.why;
  }
}

TEST(Letterhead, LeavesTheLookOfTheLetterAsItWas) {
  MergeContext context;
  context.letterhead = "{\\rtf1\\uc0{\\fonttbl{\\f0 Arial;}}\\b\\i\\fs48 Town{\\b0 }\\par}";
  const Document document =
      readDocument(merged("{\\rtf1{\\fonttbl{\\f0 Times;}{\\f1 Arial;}}\\uc2\\fs20 %mh a\\u228??b}", context));
  const auto& runs = std::get<Paragraph>(document.body.at(0)).runs;
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].style.font, (TextFont{"Arial", 24, true, true}));
  EXPECT_EQ(runs[1].text, " aäb");
  EXPECT_EQ(runs[1].style.font, (TextFont{"Times", 10, false, false}));
}

TEST(Letterhead, InEveryPlaceOfALetterIsPutInAgain) {
  MergeContext context;
  context.letterhead = "{\\rtf1\\b Town of %nm}";
  context.name = "Milford";
  EXPECT_EQ(
      readBack(merged("{\\rtf1{\\header %mh.}\\trowd\\cellx900\\intbl %{\\b m}h\\cell\\row\\pard %mh%mh}", context)),
      "Town of Milford.Town of Milford\nTown of MilfordTown of Milford");
}

// ---- pictures

TEST(LetterPictures, StandWhereTheirCodeStood) {
  const std::string bmp =
      bmpFileOf(std::string("\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0", 16) + std::string(24, '\0') + "abcdefgh");
  struct Row {
    const char* why;
    std::string letter;
    std::size_t pictures;
    std::string text;
  };
  const Row rows[] = {{"behind a word", "\\b%si text", 1, " text"},
                      {"in a cell and in the text", "\\trowd\\cellx900\\intbl a%logo\\cell\\row\\pard b%si", 2, "a\nb"},
                      {"twice, and split over runs", "%{\\b s}i%si", 2, ""},
                      {"one that nobody took", "a%pi b", 0, "a b"}};
  for (const Row& row : rows) {
    const std::string letter = merged("{\\rtf1 " + row.letter + "}", {}, [&](std::string_view path) {
      return path.find("memos") == std::string_view::npos ? std::nullopt : std::optional(bmp);
    });
    std::size_t pictures = 0;
    for (std::size_t at = letter.find("{\\pict"); at != std::string::npos; at = letter.find("{\\pict", at + 1))
      ++pictures;
    EXPECT_EQ(pictures, row.pictures) << row.why;
    EXPECT_EQ(readBack(letter), row.text) << row.why;
  }
}

}  // namespace
}  // namespace zelvo
