#include "documents/page_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fixed_pitch.h"

namespace zelvo {
namespace {

TEST(PageLayout, FillsLinesExactly) {
  const std::string word(76, 'x');
  const PagedDocument exact = pages(word + " a " + word + "\\par " + std::string(80, 'y'));
  ASSERT_EQ(exact.pages.size(), 1u);
  EXPECT_EQ(linesOfPage(exact.pages[0]), (Lines{"0:" + word + " a", "0:" + word, "0:" + std::string(78, 'y'), "0:yy"}));
  EXPECT_EQ(exact.pages[0].texts[1].width, 76 * 120);
  EXPECT_EQ(exact.pages[0].texts[0].baseline, 1440 + 160);
  EXPECT_EQ(exact.pages[0].texts[1].baseline, 1440 + 360);
}

TEST(PageLayout, BreaksLinesWhereALetterMayBreak) {
  struct Row {
    std::string why, body;
    Lines lines;
  };
  const std::string fill(70, 'a');
  const Row rows[] = {
      {"behind a hyphen", fill + " well-known", {"0:" + fill + " well-", "0:known"}},
      {"not inside a number", fill + " 26-001234", {"0:" + fill, "0:26-001234"}},
      {"not at a fixed blank or hyphen", fill + " Mr.\\~Smith\\_Jones", {"0:" + fill, "0:Mr.\u00A0Smith-Jones"}},
      {"not where only the look changes", fill + " Build{\\b ing}s", {"0:" + fill, "0:Build 600:ing 960:s"}},
      {"blanks at the end of a line", fill + "         b", {"0:" + fill, "0:b"}},
      {"line breaks", "a\\line\\line b\\line", {"0:a", "0:b"}},
      {"indents", "\\li240\\fi120\\ri8640 aa bb cc", {"360:aa", "240:bb", "240:cc"}},
      {"indents that leave no room", "\\li9000\\ri9000 abcd", {"9000:abc", "9000:d"}}};
  for (const Row& row : rows)
    EXPECT_EQ(linesOfPage(pages(row.body).pages.at(0)), row.lines) << row.why;
}

TEST(PageLayout, AlignsLines) {
  const std::string words = "aa bb ";
  const std::string longer = words + std::string(71, 'c') + " d";
  struct Row {
    std::string why, body;
    Lines lines;
  };
  const Row rows[] = {{"centre", "\\qc ab", {"4560:ab"}},
                      {"right", "\\qr ab ", {"9120:ab "}},
                      {"justified but for the last line",
                       "\\qj " + longer + "\\par",
                       {"0:aa 420:bb 840:" + std::string(71, 'c'), "0:d"}}};
  for (const Row& row : rows) {
    Lines lines = linesOfPage(pages(row.body).pages.at(0));
    EXPECT_EQ(lines, row.lines) << row.why;
  }
}

TEST(PageLayout, SetsTabs) {
  struct Row {
    std::string why, body;
    Lines lines;
  };
  const Row rows[] = {{"usual stops", "a\\tab b\\tab c", {"0:a 720:b 1440:c"}},
                      {"own stops, then usual ones", "\\tx1000 a\\tab b\\tab c", {"0:a 1000:b 1440:c"}},
                      {"right, centre and decimal",
                       "\\tqr\\tx1200\\tqc\\tx3000\\tqdec\\tx5000 \\tab ab\\tab cd\\tab 12.50",
                       {"960:ab 2880:cd 4760:12.50"}},
                      {"no room to the left of the stop", "\\tqr\\tx600 abcd\\tab ef", {"0:abcd 480:ef"}},
                      {"a right stop beyond the margin", "\\tqr\\tx20000 a\\tab b", {"0:a 9240:b"}},
                      {"dots", "\\tqr\\tldot\\tx1200 a\\tab b", {"0:a 120:........ 1080:b"}},
                      {"a hanging first line", "\\li360\\fi-360 1.\\tab ab", {"0:1. 360:ab"}}};
  for (const Row& row : rows)
    EXPECT_EQ(linesOfPage(pages(row.body).pages.at(0)), row.lines) << row.why;
  const Page underlined = pages("\\tlul\\tx1200 a\\tab b").pages.at(0);
  ASSERT_EQ(underlined.rules.size(), 1u);
  EXPECT_EQ(underlined.rules[0].width, 1080);
}

TEST(PageLayout, SpacesLinesAndParagraphs) {
  struct Row {
    std::string why, body;
    double first, second;  // base lines below the margin
  };
  const Row rows[] = {{"single", "a\\par b", 160, 360},
                      {"above and below", "\\sb100\\sa50 a\\par b", 260, 610},
                      {"half as much again", "\\sl360\\slmult1 a\\par b", 260, 560},
                      {"exactly, however low", "\\sl-100 a\\par b", 60, 160},
                      {"at least", "\\sl300 a\\par b", 260, 560},
                      {"at least less than needed", "\\sl100 a\\par b", 160, 360},
                      {"the largest letter counts", "{\\fs40 a}b\\par b", 320, 560}};
  for (const Row& row : rows) {
    const Page page = pages(row.body).pages.at(0);
    EXPECT_EQ(page.texts.front().baseline - 1440, row.first) << row.why;
    EXPECT_EQ(page.texts.back().baseline - 1440, row.second) << row.why;
  }
}

TEST(PageLayout, DrawsRulesShadesScriptsAndPictures) {
  const Page page = pages("{\\colortbl;\\red255;}{\\ul ab }{\\strike\\cf1 c}{\\super d}{\\highlight1 e}").pages.at(0);
  ASSERT_EQ(page.rules.size(), 2u);
  EXPECT_EQ(page.rules[0].x, 1440);
  EXPECT_EQ(page.rules[0].width, 360) << "underlined blanks are underlined";
  EXPECT_GT(page.rules[0].y, page.texts[0].baseline);
  EXPECT_LT(page.rules[1].y, page.texts[1].baseline);
  EXPECT_EQ(page.rules[1].colour, (Colour{255, 0, 0}));
  EXPECT_LT(page.texts[2].baseline, page.texts[0].baseline);
  EXPECT_LT(page.texts[2].font.points, 10);
  ASSERT_EQ(page.shades.size(), 1u);
  EXPECT_EQ(page.shades[0].width, 120);
  Document document;
  Paragraph paragraph;
  paragraph.runs.push_back(
      {{}, {}, LiveField::None, std::make_shared<Picture>(Picture{PictureKind::Png, {}, 18720, 1000})});
  document.body.emplace_back(paragraph);
  const Page shown = layOutPages(document, inchMargins(), FixedPitch()).pages.at(0);
  ASSERT_EQ(shown.pictures.size(), 1u);
  EXPECT_EQ(shown.pictures[0].y, 1440);
  EXPECT_EQ(shown.pictures[0].width, 9360) << "one that is wider than the line is made smaller";
  EXPECT_EQ(shown.pictures[0].height, 500);
}

TEST(PageLayout, TakesPaperAndMarginsFromWhoeverStatesThem) {
  struct Row {
    std::string why, words;
    bool marginsSet, landscape;
    double width, height, x;
  };
  const Row rows[] = {
      {"nothing stated", "", false, false, 12240, 15840, 1440},
      {"the letter's own", "\\paperw11906\\paperh16838\\margl2000", false, false, 11906, 16838, 2000},
      {"only some margins stated", "\\margt100", false, false, 12240, 15840, 1800},
      {"the user's count before", "\\margl2000", true, false, 12240, 15840, 1440},
      {"turned by the user", "", false, true, 15840, 12240, 1440},
      {"a letter that is wide already", "\\paperw15840\\paperh12240\\landscape", false, true, 15840, 12240, 1440},
      {"paper of a broken file", "\\paperw5\\paperh-3", false, false, 12240, 15840, 1440}};
  for (const Row& row : rows) {
    PrintOptions options = inchMargins();
    options.marginsSet = row.marginsSet;
    options.landscape = row.landscape;
    const PagedDocument paged = pages(row.words + " a", options);
    EXPECT_EQ(paged.width, row.width) << row.why;
    EXPECT_EQ(paged.height, row.height) << row.why;
    EXPECT_EQ(paged.pages.at(0).texts.at(0).x, row.x) << row.why;
  }
}

TEST(PageLayout, BreaksPages) {
  std::string many;
  for (int i = 1; i <= 70; ++i)
    many += std::to_string(i) + "\\par ";
  const PagedDocument paged = pages(many);
  ASSERT_EQ(paged.pages.size(), 2u);
  EXPECT_EQ(paged.pages[0].texts.size(), 64u);
  EXPECT_EQ(paged.pages[1].texts[0].text, "65");
  EXPECT_EQ(paged.pages[1].texts[0].baseline, 1440 + 160);
  EXPECT_EQ(pages("a\\page b\\par\\pagebb c").pages.size(), 3u);
  EXPECT_EQ(pages("").pages.size(), 1u);
}

TEST(PageLayout, PutsHeadersAndFootersOnEveryPage) {
  const std::string number = "{\\field{\\*\\fldinst PAGE}{\\fldrslt 9}}";
  const std::string count = "{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt 9}}";
  const PagedDocument paged = pages("\\titlepg{\\header\\fs20 Page " + number + " of " + count +
                                    "}{\\headerf\\fs20 Town}{\\footer\\fs20 foot}a" + count + "\\page b");
  ASSERT_EQ(paged.pages.size(), 2u);
  EXPECT_EQ(linesOfPage(paged.pages[0]), (Lines{"0:a 120:2", "0:Town"}));
  EXPECT_EQ(linesOfPage(paged.pages[1]), (Lines{"0:b", "0:Page  600:2 720: of  1200:2", "0:foot"}));
  EXPECT_EQ(paged.pages[1].texts[1].baseline, 720 + 160);
  EXPECT_EQ(paged.pages[1].texts.back().baseline, 15840 - 720 - 40);
  const PagedDocument high = pages("{\\header\\fs20 a\\par b\\par c\\par d\\par e}x");
  EXPECT_EQ(high.pages[0].texts[0].baseline, 720 + 5 * 200 + 160) << "a high header pushes the text down";
}

TEST(PageLayout, LaysTablesOut) {
  const std::string shape =
      "\\trowd\\trgaph100\\clbrdrt\\brdrs\\clbrdrl\\brdrs\\clbrdrb\\brdrs\\clbrdrr\\brdrs\\cellx1000\\clvertalb\\cellx3"
      "000\\intbl ";
  const Page page = pages(shape + "aaa bbb ccc\\cell d\\cell\\row\\pard e").pages.at(0);
  EXPECT_EQ(linesOfPage(page), (Lines{"100:aaa", "100:bbb", "100:ccc 1100:d", "0:e"}));
  EXPECT_EQ(page.texts.back().baseline, 1440 + 3 * 200 + 160);
  EXPECT_EQ(page.rules.size(), 4u);
  const double bottom =
      std::max_element(page.rules.begin(), page.rules.end(), [](auto& a, auto& b) { return a.y < b.y; })->y;
  EXPECT_NEAR(bottom, 1440 + 600, 10);
}

TEST(PageLayout, KeepsRowsTogetherUnlessTheyAreHigherThanAPage) {
  std::string lines;
  for (int i = 0; i < 60; ++i)
    lines += "x\\par ";
  const std::string row = "\\trowd\\cellx3000\\cellx6000\\intbl ";
  const PagedDocument moved = pages(lines + row + "1\\par 2\\par 3\\par 4\\par 5\\cell b\\cell\\row");
  ASSERT_EQ(moved.pages.size(), 2u);
  EXPECT_EQ(moved.pages[1].texts.size(), 6u);
  const PagedDocument cut = pages(row + lines + lines + lines + "end\\cell b\\cell\\row\\pard after");
  ASSERT_EQ(cut.pages.size(), 3u);
  std::size_t texts = 0;
  for (const Page& page : cut.pages)
    texts += page.texts.size();
  EXPECT_EQ(texts, 60u * 3 + 3) << "nothing of the row is lost";
  EXPECT_EQ(cut.pages[2].texts.back().text, "after");
}

}  // namespace
}  // namespace zelvo
