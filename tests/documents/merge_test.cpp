#include "documents/merge.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <string>

#include "documents/picture_file.h"
#include "documents/rtf_writer.h"

namespace zelvo {
namespace {

const DateTime kNow{{2026, 3, 9}, 14 * 3600 + 5 * 60 + 7};

MergeContext filled() {
  MergeContext context;
  context.counter = 7;
  context.letterhead = "Town of Milford";
  context.name = "Smith, John";
  context.address = "12 Main St";
  context.cityStateZip = "Milford, NY 10950";
  context.ln = "LN";
  context.mi = "MI";
  context.id = "123456789";
  context.ms = "MS";
  context.me = "ME";
  context.subheading = "Complaints";
  context.parcel = "12.5-3-45";
  for (std::size_t i = 1; i < context.values.size(); ++i)
    context.values[i] = "v" + std::to_string(i);
  return context;
}

std::string merged(std::string_view body, const MergeContext& context = filled(), const PictureSource& pictures = {}) {
  return mergeLetter(body, context, kNow, pictures).value();
}

struct Row {
  std::string_view why, before, after;
};

void expectMerged(std::initializer_list<Row> rows, const MergeContext& context) {
  for (const Row& row : rows)
    EXPECT_EQ(merged("{\\rtf1 " + std::string(row.before) + "}", context), "{\\rtf1 " + std::string(row.after) + "}")
        << row.why;
}

// Each value doubles what the one before it brought in, thousands of times over.
TEST(Merge, EndsWhenValuesFillOneAnother) {
  MergeContext context;
  for (std::size_t i = 1; i < context.values.size(); ++i)
    context.values[i] = i < 9 ? "%0" + std::to_string(i + 1) + " %0" + std::to_string(i + 1) : "";
  EXPECT_TRUE(mergeLetter("{\\rtf1 %01}", context, kNow, {})) << "a few codes in values are filled";
  for (std::size_t i = 9; i < 25; ++i)
    for (int copy = 0; copy < 20; ++copy)
      context.values[i] += "%" + std::to_string(i + 1);
  const auto endless = mergeLetter("{\\rtf1 %01}", context, kNow, {});
  ASSERT_FALSE(endless);
  EXPECT_NE(endless.error().message.find("fill one another"), std::string::npos);
}

TEST(Merge, FillsAHundredThousandCodes) {
  std::string letter = "{\\rtf1 ", expected = "{\\rtf1 ";
  for (int i = 0; i < 100000; ++i) {
    letter += i % 3 == 0 ? "%$01 %26" : "%0{\\b 2}\\par ";
    expected += i % 3 == 0 ? "Smith, John of the first house %26" : "later{\\b }\\par ";
  }
  MergeContext context;
  context.values[1] = "Smith, John of the first house";
  context.values[2] = "%03";
  context.values[3] = "later";
  EXPECT_TRUE(mergeLetter(letter, context, kNow, {}).value() == expected);
}

TEST(Merge, FillsEveryCode) {
  expectMerged({{"counter", "No. ##", "No. 7"},
                {"long date", "%dl", "March 09, 2026"},
                {"short date", "%ds", "3/9/2026"},
                {"time", "%tm", "2:05:07 PM"},
                {"slots", "%ln %mi %id %ms %me", "LN MI 123456789 MS ME"},
                {"letterhead", "%mh", "Town of Milford"},
                {"listing and parcel", "%sh: %sbl", "Complaints: 12.5-3-45"},
                {"addressee", "%nm/%ad/%al/%zp", "Smith, John/12 Main St/12 Main St/Milford, NY 10950"},
                {"numbered", "%01 %09 %10 %25 %$01 %$25", "v1 v9 v10 v25 v1 v25"},
                {"behind the last value", "%26 %30 %$26 %00 %1 %$1", "%26 %30 %$26 %00 %1 %$1"},
                {"a digit behind the code", "%015 %$101", "v15 v101"},
                {"no codes", "100% 50% of %$ %@01 % %", "100% 50% of %$ %@01 % %"},
                {"an odd number of marks", "###", "7#"},
                {"upper case is no code", "%NM %Id", "%NM %Id"},
                {"pictures that are not there", "a%pi b%si c%logo d", "a b c d"}},
               filled());
}

TEST(Merge, FindsCodesWhereverTheyLie) {
  expectMerged(
      {{"split over runs", "a {\\b %0}{\\i 1} b", "a {\\b v1}{\\i } b"},
       {"split over marks and languages", "%{\\*\\bkmkstart x}0\\lang1033 1.", "v1{\\*\\bkmkstart x}\\lang1033 ."},
       {"split over a line end of the file", "%0\r\n1", "v1\r\n"},
       {"written as hexadecimal and unicode", "\\'250\\u49 ?x", "v1x"},
       {"header, footer and note", "a{\\header %01}b{\\footer ##}{\\footnote %nm}",
        "a{\\header v1}b{\\footer 7}{\\footnote Smith, John}"},
       {"text goes on behind a note", "%0{\\footnote n}1", "v1{\\footnote n}"},
       {"cells", "\\trowd\\cellx99\\intbl %01\\cell %0\\cell 1\\row",
        "\\trowd\\cellx99\\intbl v1\\cell %0\\cell 1\\row"},
       {"the result of a field", "{\\field{\\*\\fldinst MERGEFIELD %01}{\\fldrslt %01}}",
        "{\\field{\\*\\fldinst MERGEFIELD %01}{\\fldrslt v1}}"},
       {"list texts and hidden text", "{\\pntext %02\\tab}{\\v %03}", "{\\pntext v2\\tab}{\\v v3}"},
       {"frames", "{\\shp{\\*\\shpinst{\\shptxt %01}}}", "{\\shp{\\*\\shpinst{\\shptxt v1}}}"},
       {"not in titles", "{\\info{\\title %01}}", "{\\info{\\title %01}}"},
       {"not over a paragraph, line or tab", "%0\\par 1%0\\line 1%0\\tab 1", "%0\\par 1%0\\line 1%0\\tab 1"},
       {"a broken file", "%01 {\\b %0", "v1 {\\b %0"}},
      filled());
}

// A value that follows a control word at once must not run into it.
TEST(Merge, KeepsControlWordsApartFromValues) {
  MergeContext context;
  context.values[1] = "5 rooms";
  context.values[2] = "";
  context.values[3] = "-3";
  expectMerged({{"a letter would lengthen the word", "\\b%01", "\\b 5 rooms"},
                {"a number would become its number", "\\fs%01", "\\fs 5 rooms"},
                {"a sign too", "\\li%03", "\\li -3"},
                {"what is left behind a gone code", "\\b%02text", "\\b text"},
                {"a blank behind a gone code stays a blank", "\\b%02 text", "\\b  text"},
                {"an escaped backslash ends no word", "\\\\b%02x", "\\\\bx"},
                {"nor does hexadecimal", "\\'e4%02x", "\\'e4x"}},
               context);
}

TEST(Merge, WritesAnyValueSafely) {
  using namespace std::string_literals;
  MergeContext context;
  context.values[1] = "{a\\b}";
  context.values[2] = "one\r\ntwo\nthree\rfour\tfive";
  context.values[3] = "Müller €😀";
  context.values[4] = "a\0b\x01"s;
  context.values[5] = "%05 and %04";
  context.values[6] = "%07 of it";
  context.values[7] = "later";
  context.values[8] = "%1";
  context.values[10] = "ten";
  expectMerged(
      {{"braces and backslashes", "%01", "\\{a\\\\b\\}"},
       {"line breaks and tabs", "%02", "one\\line two\\line three\\line four\\tab five"},
       {"characters beyond 7 bits", "%03", "M\\u252?ller \\u8364?\\u-10179?\\u-8704?"},
       {"as many stand-ins as are in force", "{\\uc0 %03}{\\uc2 %03}",
        "{\\uc0 M\\u252 ller \\u8364 \\u-10179 \\u-8704 }{\\uc2 M\\u252??ller \\u8364??\\u-10179??\\u-8704??}"},
       {"control characters", "%04", "ab"},
       {"its own code and an earlier one stay", "%05", "%05 and %04"},
       {"a later code in a value is filled", "%06", "later of it"},
       {"also when its other half stands in the letter", "%080!", "ten!"}},
      context);
}

TEST(Merge, ShowsDatesAsDates) {
  MergeContext context;
  context.values[1] = "3/5/2024";
  context.values[2] = "3-1-12";
  context.values[3] = "1250";
  context.values[4] = "March 5, 2024";
  context.counter = 0;
  context.name = "1/2/99";
  expectMerged({{"plain", "%01 %04", "03/05/2024 03/05/2024"},
                {"formatted", "%nm", "January 02, 1999"},
                {"a parcel key is no date", "%02", "3-1-12"},
                {"money", "%$03|", "     $1,250.00|"},
                {"a counter below 1", "##", "1"}},
               context);
}

TEST(Merge, PutsARichLetterheadInWithItsLook) {
  MergeContext context = filled();
  context.letterhead =
      "{\\rtf1\\ansi{\\fonttbl{\\f0 Roman;}{\\f1 Arial;}}\\f1\\b\\fs32 Town of %nm \\u228?\\par\\b0 %dl\\par}\r\n";
  const std::string letter = "{\\rtf1{\\fonttbl{\\f0 Courier;}{\\f7 arial;}}A{\\i %mh}B %nm}";
  EXPECT_EQ(merged(letter, context),
            "{\\rtf1{\\fonttbl{\\f0 Courier;}{\\f7 arial;}}A{\\i {\\uc1 \\b \\i0 \\ul0 \\fs32 \\f7 Town of Smith, John "
            "\\u228?\\par \\b0 %dl}}B Smith, John}");
}

TEST(Merge, PutsPicturesIn) {
  std::string bmp =
      bmpFileOf(std::string("\x28\0\0\0\x10\0\0\0\x08\0\0\0\x01\0\x18\0", 16) + std::string(24, '\0') + "bits");
  std::vector<std::string> asked;
  const auto pictures = [&](std::string_view path) -> std::optional<std::string> {
    asked.emplace_back(path);
    return path == "\\memos\\sig.bmp" ? std::optional("no picture at all") : std::optional(bmp);
  };
  const std::string result = merged("{\\rtf1 %{\\b p}i|%si|%pi}", filled(), pictures);
  EXPECT_EQ(asked, (std::vector<std::string>{"\\pics\\MP123456.789", "\\memos\\sig.bmp"}));
  const std::string group = rtfPicture(*readPicture(bmp));
  EXPECT_EQ(result, "{\\rtf1 " + group + "{\\b }||" + group + "}");
  // 16 and 8 dots at 96 to the inch.
  EXPECT_TRUE(group.starts_with("{\\pict\\dibitmap0\\picwgoal240\\pichgoal120\r\n28000000")) << group;
}

// Codes apart in paragraphs of their own, and together in one.
std::string manyCodes(int count) {
  std::string letter = "{\\rtf1 ";
  for (int i = 0; i < count; ++i)
    letter += "%01 {\\b %2}5\\par\r\n";
  for (int i = 0; i < count; ++i)
    letter += "%nm";
  return letter + "}";
}

// The least processor time of a few merges, which other programs of the computer do not add to.
double workOf(const std::string& letter) {
  double least = 1e9;
  for (int i = 0; i < 3; ++i) {
    const std::clock_t begin = std::clock();
    EXPECT_GT(merged(letter).size(), letter.size());
    least = std::min(least, static_cast<double>(std::clock() - begin));
  }
  return least;
}

TEST(Merge, OfAHundredThousandCodesIsAsMuchWorkPerCodeAsOfTenThousand) {
  const std::string letter = manyCodes(100000);
  const std::string result = merged(letter);
  EXPECT_NE(result.find("v1 {\\b v25}\\par\r\n" + filled().name), std::string::npos);
  EXPECT_EQ(result.find('%'), std::string::npos);
  EXPECT_LT(workOf(letter), 30 * workOf(manyCodes(10000)))
      << "ten times as many codes; every pair of them would be 100";
}

TEST(LetterValues, FollowTheirFormat) {
  struct ValueRow {
    char format;
    std::string_view value, text;
  };
  const ValueRow rows[] = {{'$', "50", "        $50.00"},
                           {'$', "$1,234.5", "     $1,234.50"},
                           {'$', "-3.2", "        -$3.20"},
                           {'$', "n/a", "n/a"},
                           {'$', "", ""},
                           {'@', "3/1/2024", "1st day of March, 2024"},
                           {'@', "3/2/2024", "2nd day of March, 2024"},
                           {'@', "3/3/2024", "3rd day of March, 2024"},
                           {'@', "3/11/2024", "11th day of March, 2024"},
                           {'@', "3/12/2024", "12th day of March, 2024"},
                           {'@', "3/13/2024", "13th day of March, 2024"},
                           {'@', "3/21/2024", "21st day of March, 2024"},
                           {'@', "3/22/2024", "22nd day of March, 2024"},
                           {'@', "soon", "9th day of March, 2026"},
                           {'&', "3/5/24", "03/05/2024"},
                           {'&', "soon", "soon"},
                           {'^', "3/5/2024 14:30", "2:30 PM"},
                           {'^', "9:05", "9:05 AM"},
                           {'^', "soon", "soon"},
                           {'n', "3/5/2024", "March 05, 2024"},
                           {'n', "12-3-45", "12-3-45"},
                           {'n', "Smith", "Smith"}};
  for (const ValueRow& row : rows)
    EXPECT_EQ(formattedValue(row.format, row.value, kNow), row.text) << row.format << " " << row.value;
}

TEST(LetterValues, SplitAnAddressAtItsFirstComma) {
  struct AddressRow {
    std::string_view block, address, city;
  };
  const AddressRow rows[] = {{"12 Main St, Milford, NY 10950", "12 Main St", "Milford, NY 10950"},
                             {"12 Main St,\r\n Milford\r\n", "12 Main St", "Milford"},
                             {"12 Main St", "12 Main St", "<no city state zip>"},
                             {"12 Main St, ", "12 Main St", "<no city state zip>"},
                             {", Milford", "<no address>", "Milford"},
                             {"\r\n", "<no address>", "<no city state zip>"}};
  for (const AddressRow& row : rows) {
    MergeContext context = filled();
    splitAddress(row.block, context);
    EXPECT_EQ(context.name, "") << row.block;
    EXPECT_EQ(context.address, row.address) << row.block;
    EXPECT_EQ(context.cityStateZip, row.city) << row.block;
  }
}

TEST(LetterValues, NamePhotographs) {
  EXPECT_EQ(photographName("123456"), "MP123456");
  EXPECT_EQ(photographName("1234567"), "MP123456.7");
  EXPECT_EQ(photographName("123456789"), "MP123456.789");
  EXPECT_EQ(photographName(""), "MP");
}

}  // namespace
}  // namespace zelvo
