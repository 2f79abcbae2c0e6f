// Sections, boxes around paragraphs, and what stays together on the pages of a letter.

#include <gtest/gtest.h>

#include "fixed_pitch.h"

namespace zelvo {
namespace {

const std::string kNumber = "{\\field{\\*\\fldinst PAGE}{\\fldrslt 9}}";
const std::string kShape = "\\paperw12240\\paperh15840\\margl1440\\margr1440\\margt1440\\margb1440 ";

std::string linesOf(int count) {
  std::string lines;
  for (int i = 0; i < count; ++i)
    lines += "x\\par ";
  return lines;
}

std::string textOf(const Page& page) {
  std::string text;
  for (const TextPiece& piece : page.texts)
    text += piece.text + "|";
  return text;
}

TEST(Sections, HaveHeadersAndPageNumbersOfTheirOwn) {
  const PagedDocument paged = pages(kShape + "{\\header\\fs20 one " + kNumber +
                                    "}a\\page b\\sect\\sectd\\pgnstarts7\\pgnrestart\\titlepg{\\header\\fs20 two " +
                                    kNumber + "}{\\headerf\\fs20 front}c\\page d\\sect\\sectd e");
  ASSERT_EQ(paged.pages.size(), 5u);
  const char* const texts[] = {"a|one |1|", "b|one |2|", "c|front|", "d|two |8|", "e|two |9|"};
  for (std::size_t i = 0; i < 5; ++i)
    EXPECT_EQ(textOf(paged.pages[i]), texts[i]) << "page " << i + 1;
}

TEST(Sections, OfLeftPagesHaveThoseHeaders) {
  const PagedDocument paged = pages("\\facingp{\\headerr\\fs20 right}{\\headerl\\fs20 left}a\\page b\\page c");
  EXPECT_EQ(textOf(paged.pages.at(0)), "a|right|");
  EXPECT_EQ(textOf(paged.pages.at(1)), "b|left|");
  EXPECT_EQ(textOf(paged.pages.at(2)), "c|right|");
  EXPECT_EQ(textOf(pages("\\facingp{\\header\\fs20 both}a\\page b").pages.at(1)), "b|both|");
}

TEST(Sections, HavePaperAndMarginsOfTheirOwn) {
  const PagedDocument paged = pages(
      kShape + "a\\sect\\sectd\\sbknone\\marglsxn2880 b\\sect\\sectd\\sbknone\\lndscpsxn\\pgwsxn15840\\pghsxn12240 c");
  ASSERT_EQ(paged.pages.size(), 2u) << "another paper cannot go on on the same page";
  EXPECT_EQ(paged.width, 12240);
  EXPECT_EQ(linesOfPage(paged.pages[0]), (Lines{"0:a", "1440:b"})) << "other margins can";
  EXPECT_EQ(paged.pages[1].width, 15840);
  EXPECT_EQ(paged.pages[1].height, 12240);
  EXPECT_EQ(paged.pages[0].width, 12240);
}

TEST(Together, AHeadingGoesWithTheTextBelowIt) {
  const PagedDocument paged = pages(linesOf(62) + "\\keepn head\\par second\\par\\pard a\\line b\\par");
  ASSERT_EQ(paged.pages.size(), 2u);
  EXPECT_EQ(paged.pages[0].texts.size(), 62u);
  EXPECT_TRUE(textOf(paged.pages[1]).starts_with("head|second|a|")) << textOf(paged.pages[1]);
  const PagedDocument table = pages(linesOf(63) + "\\keepn head\\par\\trowd\\cellx900\\pard\\intbl a\\cell\\row");
  EXPECT_EQ(textOf(table.pages.at(1)), "head|a|");
  EXPECT_EQ(pages("\\keepn " + linesOf(100)).pages.size(), 2u) << "more than a page cannot stay together";
}

TEST(Together, AParagraphKeepsItsLines) {
  const PagedDocument paged = pages(linesOf(62) + "\\keep a\\line b\\line c\\par");
  ASSERT_EQ(paged.pages.size(), 2u);
  EXPECT_EQ(textOf(paged.pages[1]), "a|b|c|");
}

TEST(Together, HeadingRowsStandAgainOnTheNextPage) {
  const std::string row = "\\pard\\intbl x\\cell\\row ";
  std::string table = "\\trowd\\trhdr\\cellx900\\pard\\intbl head\\cell\\row\\trowd\\cellx900 ";
  for (int i = 0; i < 70; ++i)
    table += row;
  const PagedDocument paged = pages("above\\par " + table);
  ASSERT_EQ(paged.pages.size(), 2u);
  EXPECT_EQ(paged.pages[1].texts.front().text, "head");
  EXPECT_EQ(paged.pages[0].texts.size() + paged.pages[1].texts.size(), 70u + 3u);
  EXPECT_GT(paged.pages[1].texts[1].baseline, paged.pages[1].texts[0].baseline);
}

struct Edge {
  double x, y, width, height;
  bool operator==(const Edge&) const = default;
};

std::vector<Edge> edgesOf(const Page& page) {
  std::vector<Edge> edges;
  for (const FilledPiece& rule : page.rules)
    edges.push_back({rule.x - 1440, rule.y - 1440, rule.width, rule.height});
  return edges;
}

TEST(Boxes, StandAroundParagraphsOfTheSameBorders) {
  const Page page =
      pages("\\brdrt\\brdrs\\brdrw20\\brsp80\\brdrb\\brdrs\\brdrw20\\brsp80\\cbpat1 a\\par b\\par\\pard c").pages.at(0);
  EXPECT_EQ(linesOfPage(page), (Lines{"0:a", "0:b", "0:c"}));
  EXPECT_EQ(page.texts[0].baseline, 1440 + 100 + 160);
  EXPECT_EQ(page.texts[2].baseline, 1440 + 100 + 400 + 100 + 160);
  EXPECT_EQ(edgesOf(page), (std::vector<Edge>{{-10, -10, 9380, 20}, {-10, 590, 9380, 20}}));
}

TEST(Boxes, AreDrawnInHeadersAndAcrossPages) {
  const std::string ruled = "\\pard\\fs20\\brdrb\\brdrs\\brdrw20 ";
  const Page header = pages("{\\header " + ruled + "h}a").pages.at(0);
  EXPECT_EQ(edgesOf(header), (std::vector<Edge>{{-10, 720 - 1440 + 220 - 10, 9380, 20}}));
  std::string high = "\\pard\\box\\brdrs ";
  for (int i = 0; i < 80; ++i)
    high += "x\\line ";
  const PagedDocument cut = pages(high + "end\\par");
  ASSERT_EQ(cut.pages.size(), 2u);
  EXPECT_EQ(cut.pages[0].rules.size(), 3u) << "top, left and right";
  EXPECT_EQ(cut.pages[1].rules.size(), 3u) << "bottom, left and right";
}

TEST(Capitals, AreDrawnSoThoughTheTextIsSmall) {
  const Page page = pages("{\\caps ab 1\\'e9}{\\scaps Ab c}").pages.at(0);
  EXPECT_EQ(linesOfPage(page), (Lines{"0:AB 1É 600:A 720:B 936:C"}));
  EXPECT_EQ(page.texts[1].font.points, 10);
  EXPECT_EQ(page.texts[2].font.points, 8);
}

}  // namespace
}  // namespace zelvo
