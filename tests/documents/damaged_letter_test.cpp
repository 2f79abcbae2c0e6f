// Letters come out of mail programs, off broken disks and through other hands: whatever is wrong with one, the program
// goes on, and what can be read is kept.

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

#include "documents/document_writer.h"
#include "documents/merge.h"
#include "fixed_pitch.h"

namespace zelvo {
namespace {

const DateTime kNow{{2026, 3, 9}, 0};

// A letter with everything that the office's templates hold, but no codes.
std::string wholeLetter() {
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fcharset0 Times;}{\\f1\\fcharset128 "
         "Mincho;}}\r\n{\\colortbl;\\red9\\green8\\blue7;}{\\stylesheet{\\s1 One;}}{\\info{\\title T}}\\paperw12240"
         "\\paperh15840\\margl1300\\titlepg{\\header\\trowd\\cellx900\\pard\\intbl t\\cell\\row\\pard h "
         "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}\\par}{\\footerf "
         "f}\\pard\\plain\\qc\\sb60\\fs22 Owner: \\'e4\\u8364?{\\b bold\\i\\ul0 }{\\f1\\'93\\'fa}\\tqr\\tldot\\tx5000"
         "\\tab x\\line\\par\\trowd\\trgaph60\\trrh-300\\clvmgf\\clbrdrt\\brdrs\\cellx900\\clmgf\\cellx1800\\clmrg"
         "\\cellx2700\\intbl a\\cell b\\par "
         "\\itap2 in\\nestcell{\\*\\nesttableprops\\trowd\\trqc\\cellx500\\nestrow}\\itap1 "
         "c\\cell\\cell\\row\\pard{\\*\\shppict{\\pict\\dibitmap\\picwgoal90\\pichgoal90"
         "\\picscalex50\r\n2800000001000000010000000100180000000000000000000000000000000000000000000000000000ff00}}"
         "{\\footnote n}\\sect\\sbknone{\\pntext\\'b7\\tab}\\bin3 {}\\ end\\par}\r\n";
}

// The work that is done with each letter. What stands on paper must be there, in finite places.
void useLetter(const std::string& rtf, const std::string& why) {
  const Document letter = readDocument(rtf);
  EXPECT_TRUE(readDocument(writeDocument(letter)) == letter) << why << ": what is written reads as it was";
  const PagedDocument paged = layOutPages(letter, inchMargins(), FixedPitch());
  EXPECT_GE(paged.pages.size(), 1u) << why;
  EXPECT_LT(paged.pages.size(), 100u) << why;
  for (const Page& page : paged.pages)
    for (const TextPiece& piece : page.texts)
      EXPECT_TRUE(std::isfinite(piece.x) && std::isfinite(piece.baseline) && !piece.text.empty()) << why;
  EXPECT_EQ(mergeLetter(rtf, {}, kNow, {}).value(), rtf) << why << ": a letter without codes stays byte for byte";
}

TEST(DamagedLetter, CutAnywhereIsReadToItsEnd) {
  const std::string whole = wholeLetter();
  for (std::size_t cut = 0; cut <= whole.size(); ++cut)
    useLetter(whole.substr(0, cut), "cut at " + std::to_string(cut));
}

TEST(DamagedLetter, WithAByteLostOrChangedIsStillALetter) {
  const std::string whole = wholeLetter();
  constexpr std::string_view wrong = "{}\\;9-\0\xFF";
  std::uint32_t dice = 1;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string lost = whole;
    lost.erase(at, 1);
    useLetter(lost, "without byte " + std::to_string(at));
    std::string changed = whole;
    changed[at] = wrong[(dice = dice * 1664525 + 1013904223) >> 29];
    if (changed.find("##") == std::string::npos)
      useLetter(changed, "changed byte " + std::to_string(at));
  }
}

TEST(DamagedLetter, ATableThatIsOnlyAnnouncedIsNone) {
  useLetter("{\\rtf1\\intbl\\sect a}", "ended by a section");
  useLetter("{\\rtf1 a\\par\\page\\intbl\\sect\\intbl\\sect b}", "behind pages and sections");
}

std::string times(int count, std::string_view piece) {
  std::string text;
  for (int i = 0; i < count; ++i)
    text += piece;
  return text;
}

// A few bytes must not become a mountain of cells, looks or sections, nor a deep call.
TEST(DamagedLetter, OfGreatNumbersIsRead) {
  constexpr int million = 1000000, many = 50000;
  struct Row {
    std::string why, rtf, text;
  };
  const Row rows[] = {
      {"groups in groups", "{\\rtf1\\tx9 a" + times(million, "{\\b ") + "x" + times(million, "}") + "b}", "axb\n"},
      {"groups that nobody closes", "{\\rtf1 a" + times(million, "{") + "b", "ab\n"},
      {"ends of nothing", "{\\rtf1 a}" + times(million, "}"), "a\n"},
      {"data longer than the file", "{\\rtf1 a\\bin2000000000 b}", "a\n"},
      {"stand-ins without end", "{\\rtf1\\uc2000000000\\u65?" + times(300, "x") + "\\par b}",
       "A" + times(46, "x") + "\nb\n"},
      {"nothing but NULs", "{\\rtf1 a" + std::string(million, '\0') + "b}", "ab\n"},
      {"styles that rest on each other", "{\\rtf1{\\stylesheet{\\s1\\sbasedon2 a;}{\\s2\\sbasedon1 b;}}\\s1 c\\par}",
       "c\n"},
      {"rows of a wide shape", "{\\rtf1\\trowd" + times(many, "\\cellx9") + "\\intbl " + times(many, "\\cell\\row "),
       times(many, "\t").substr(1) + times(many, "\n")},
      {"sections under a long header",
       "{\\rtf1{\\header " + times(many, "long ") + "}" + times(many, "\\sect\\titlepg ") + "a}",
       times(many, "\n") + "a\n"}};
  for (const Row& row : rows) {
    EXPECT_TRUE(plainText(readDocument(row.rtf)) == row.text) << row.why;
    EXPECT_TRUE(mergeLetter(row.rtf, {}, kNow, {}).value() == row.rtf) << row.why;
  }
}

// Printing ends at a number of pages that no letter has, whichever way a file asks for more.
TEST(DamagedLetter, OfMorePagesThanAnyPrinterTakesIsCutOff) {
  constexpr int many = 50000;
  const std::string page = "{\\header\\pard p. \\chpgn\\par}";
  const std::string bodies[] = {times(many, "a\\page "),
                                times(many, "\\sect a"),
                                page + times(many, "\\sect\\pgnstarts5\\pgnrestart a"),
                                times(many, "\\sect\\sectd\\lndscpsxn a\\sect\\sectd b"),
                                "\\pagebb " + times(many, "a\\par "),
                                "\\fs3276 " + times(many, "a\\par "),
                                "\\trowd\\trrh-9000\\cellx900 " + times(many, "\\intbl a\\cell\\row "),
                                "\\trowd\\cellx900\\intbl\\sb9000 " + times(many, "a\\par ") + "\\cell\\row"};
  for (const std::string& body : bodies) {
    const PagedDocument paged = pages(body);
    EXPECT_EQ(paged.pages.size(), kMostPages) << body.substr(0, 60);
    EXPECT_TRUE(paged.isCutOff) << body.substr(0, 60);
    EXPECT_FALSE(paged.pages.back().texts.empty()) << body.substr(0, 60);
  }
  EXPECT_FALSE(pages(times(static_cast<int>(kMostPages) - 1, "a\\page ") + "b").isCutOff);
}

TEST(DamagedLetter, OfManyFontsAsksTheComputerForFew) {
  std::string fonts, text;
  for (int i = 0; i < 50000; ++i) {
    const std::string number = std::to_string(i);
    fonts += "{\\f" + number + " Font" + number + ";}";
    text += "\\f" + number + "\\fs" + std::to_string(i % 3000 + 2) + " x";
  }
  std::set<std::string> families;
  const Document letter = readDocument("{\\rtf1{\\fonttbl" + fonts + "}" + text + "\\par}");
  for (const auto& run : std::get<Paragraph>(letter.body.at(0)).runs)
    families.insert(run.style.font.family);
  EXPECT_LE(families.size(), 40u);
  EXPECT_TRUE(families.contains("Font0"));
  EXPECT_EQ(plainText(letter), std::string(50000, 'x') + "\n");
}

TEST(DamagedLetter, OfFiftyThousandFontsTakesALetterheadOfAsMany) {
  std::string fonts = "{\\rtf1{\\fonttbl";
  std::string text;
  for (int i = 0; i < 50000; ++i) {
    fonts += "{\\f" + std::to_string(i) + " Font" + std::to_string(i) + ";}";
    text += "\\f" + std::to_string(i) + " x";
  }
  MergeContext context;
  context.letterhead = fonts + "}" + text + "}";
  const std::string merged = mergeLetter(fonts + "}%mh}", context, kNow, {}).value();
  EXPECT_EQ(plainText(readDocument(merged)), std::string(50000, 'x') + "\n");
}

TEST(DamagedLetter, NumbersThatNoPaperHoldsDoNoHarm) {
  for (const char* word :
       {"li",     "ri",     "fi",     "sb",     "sl",    "tx",    "fs",      "f",       "cf",      "highlight",
        "uc",     "u",      "paperw", "paperh", "margl", "margr", "margt",   "margb",   "headery", "footery",
        "deftab", "trleft", "trgaph", "trrh",   "cellx", "brdrw", "clcbpat", "ansicpg", "red",     "bin"})
    for (const char* number : {"-2147483648", "-1", "0", "2147483647", "99999999999999999999"}) {
      const std::string wild = std::string("\\") + word + number;
      const std::string body = "{\\rtf1{\\colortbl;" + wild + ";}" + wild + " a\\tab b\\par\\trowd" + wild +
                               "\\cellx900" + wild + "\\cellx1800" + wild + "\\intbl a" + wild +
                               " \\cell b\\cell\\row}";
      useLetter(body, wild);
    }
  const Document wide = readDocument("{\\rtf1\\trowd\\trleft2147483647\\intbl a\\cell b\\cell\\row}");
  const auto& row = std::get<TableRow>(wide.body.at(0));
  EXPECT_LT(row.left, row.cells.at(0).right);
  EXPECT_LT(row.cells[0].right, row.cells.at(1).right);
}

}  // namespace
}  // namespace zelvo
