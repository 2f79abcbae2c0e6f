// Tables that stand in a header, in a footer or in a cell of another table: letterheads are made of them.

#include <gtest/gtest.h>

#include <algorithm>

#include "documents/document_writer.h"
#include "fixed_pitch.h"

namespace zelvo {
namespace {

constexpr const char* kRow = "\\trowd\\trleft0\\clbrdrb\\brdrs\\brdrw20\\cellx4000\\cellx9000";

const TextPiece* pieceOf(const Page& page, const std::string& text) {
  const auto found =
      std::find_if(page.texts.begin(), page.texts.end(), [&](const TextPiece& piece) { return piece.text == text; });
  return found == page.texts.end() ? nullptr : &*found;
}

// Where a text begins, in twips from the margins of an inch; far away when it is not on the page.
std::pair<long, long> placeOf(const Page& page, const std::string& text) {
  const TextPiece* piece = pieceOf(page, text);
  return piece ? std::pair(std::lround(piece->x) - 1440, std::lround(piece->baseline) - 1440) : std::pair(-1L, -1L);
}

TEST(InnerTable, OfAHeaderStandsInColumns) {
  const std::string letter = std::string("{\\header ") + kRow +
                             "\\pard\\intbl Town\\par of Milford\\cell\\qr p. \\chpgn\\cell\\row\\pard Office\\par}" +
                             "\\pard body\\page more\\par";
  const PagedDocument paged = pages(letter);
  ASSERT_EQ(paged.pages.size(), 2u);
  for (const Page& page : paged.pages) {
    EXPECT_EQ(placeOf(page, "Town"), std::pair(0L, 720L - 1440 + 192));
    EXPECT_EQ(placeOf(page, "of Milford").first, 0);
    EXPECT_EQ(placeOf(page, "Office"), std::pair(0L, 720L - 1440 + 2 * 240 + 192)) << "below the table";
    ASSERT_EQ(page.rules.size(), 1u) << "the line under the first cell";
    EXPECT_EQ(std::lround(page.rules[0].width), 4000 + 20);
  }
  const TextPiece* number = pieceOf(paged.pages[1], "2");
  ASSERT_TRUE(number);
  EXPECT_EQ(std::lround(number->x + number->width) - 1440, 9000);
}

// A cell of a letter's table with the rows of another table in it, as word processors write it.
std::string nested(int rows) {
  std::string letter = "\\trowd\\cellx1000\\cellx8000\\pard\\intbl out\\cell before\\par\\pard\\intbl\\itap2 ";
  for (int i = 1; i <= rows; ++i) {
    const std::string number = std::to_string(i);
    letter += "a" + number + "\\nestcell b" + number +
              "\\nestcell{\\*\\nesttableprops\\trowd\\clbrdrt\\brdrs\\brdrw10\\cellx2000\\cellx5000\\nestrow}"
              "{\\nonesttables\\par}";
  }
  return letter + "\\pard\\intbl behind\\cell\\row\\pard end\\par";
}

TEST(InnerTable, OfACellStandsInColumns) {
  const PagedDocument paged = pages(nested(2));
  ASSERT_EQ(paged.pages.size(), 1u);
  const Page& page = paged.pages[0];
  EXPECT_EQ(placeOf(page, "before"), std::pair(1000L, 160L));
  EXPECT_EQ(placeOf(page, "a1"), std::pair(1000L, 360L));
  EXPECT_EQ(placeOf(page, "b1"), std::pair(3000L, 360L));
  EXPECT_EQ(placeOf(page, "b2"), std::pair(3000L, 560L));
  EXPECT_EQ(placeOf(page, "behind"), std::pair(1000L, 760L));
  EXPECT_EQ(placeOf(page, "end"), std::pair(0L, 960L));
  EXPECT_EQ(page.rules.size(), 2u) << "above the first cell of each row";
}

// A table of one row in a cell of another, so many times; the outermost is a table of the letter.
std::string deeper(int level, int deepest) {
  const std::string number = std::to_string(level);
  const std::string place = "\\pard\\intbl\\itap" + number + " ";
  std::string letter = place + "a" + number + "\\par ";
  if (level < deepest)
    letter += deeper(level + 1, deepest);
  letter += place + "b" + number + (level > 1 ? "\\nestcell " : "\\cell ") + place + "c" + number;
  if (level > 1)
    return letter + "\\nestcell{\\*\\nesttableprops\\trowd\\trleft200\\cellx" + std::to_string(8000 - level * 700) +
           "\\cellx" + std::to_string(8900 - level * 700) + "\\nestrow}{\\nonesttables\\par}";
  return "\\trowd\\trleft0\\cellx8000\\cellx9000" + letter + "\\cell\\row\\pard end\\par";
}

TEST(InnerTable, StandsInATableThatStandsInATable) {
  for (const int deepest : {3, 5, 9}) {
    const std::string letter = deeper(1, deepest);
    const Page page = pages(letter).pages.at(0);
    for (int level = 1; level <= deepest; ++level) {
      const std::string number = std::to_string(level);
      const long left = 200 * (level - 1), line = 200 * (level - 1);
      EXPECT_EQ(placeOf(page, "a" + number), std::pair(left, 160 + line)) << level << " of " << deepest;
      EXPECT_EQ(placeOf(page, "b" + number), std::pair(left, 160 + 200L * (2 * deepest - level))) << number;
      const long right = left - (level > 1 ? 200 : 0) + 8000 - (level > 1 ? level * 700 : 0);
      EXPECT_EQ(placeOf(page, "c" + number), std::pair(right, 160 + line)) << level << " of " << deepest;
    }
    EXPECT_EQ(placeOf(page, "end"), std::pair(0L, 160 + 400L * deepest)) << "nothing stands over another";
    const Document document = readDocument("{\\rtf1 " + letter + "}");
    EXPECT_TRUE(readDocument(writeDocument(document)) == document) << writeDocument(document);
  }
}

// What lies deeper than any letter's tables is text of the last one; none of it is lost.
TEST(InnerTable, OfABrokenFileKeepsItsText) {
  const std::string text = plainText(readDocument("{\\rtf1 " + deeper(1, 40) + "}"));
  for (int level = 1; level <= 40; ++level)
    for (const char* letter : {"a", "b", "c"})
      EXPECT_NE(text.find(letter + std::to_string(level)), std::string::npos) << letter << level;
}

TEST(InnerTable, GoesOnOverThePages) {
  const PagedDocument paged = pages(nested(150));
  ASSERT_EQ(paged.pages.size(), 3u);
  for (int i = 1; i <= 150; ++i) {
    const auto number = std::to_string(i);
    const auto both = std::count_if(paged.pages.begin(), paged.pages.end(), [&](const Page& page) {
      return placeOf(page, "a" + number).second > 0 &&
             placeOf(page, "a" + number).second == placeOf(page, "b" + number).second;
    });
    EXPECT_EQ(both, 1) << "row " << i << " stands on one page, its cells side by side";
  }
  EXPECT_EQ(placeOf(paged.pages[1], "a64").first, 1000);
}

TEST(InnerTable, ARowStandsBetweenTheMarginsWhenItSaysSo) {
  const std::pair<const char*, long> rows[] = {{"", 700}, {"\\trql", 700}, {"\\trqc", 3180}, {"\\trqr", 6360}};
  for (const auto& [word, left] : rows) {
    const auto paged = pages(std::string("\\trowd\\trleft700") + word +
                             "\\clbrdrl\\brdrs\\brdrw10\\cellx3700\\pard\\intbl in\\cell\\row");
    EXPECT_EQ(placeOf(paged.pages.at(0), "in").first, left) << word;
    EXPECT_EQ(std::lround(paged.pages[0].rules.at(0).x) - 1440, left - 5) << word;
  }
}

TEST(InnerTable, IsWrittenAsItWasRead) {
  const std::string letters[] = {
      nested(3),
      std::string("{\\footer ") + kRow + "\\pard\\intbl a\\cell b\\cell\\row" + kRow +
          "\\pard\\intbl c\\par d\\cell e\\cell\\row}x\\par",
      "{\\headerf\\pard over\\par\\trowd\\trqr\\cellx900\\pard\\intbl a\\cell\\row\\pard under\\par}\\titlepg x\\par",
      "{\\header\\trowd\\cellx900\\pard\\intbl a{\\footnote n}\\cell\\row}x\\par",
      "{\\header\\trowd\\cellx900\\pard\\intbl never ended",
      "\\trowd\\cellx900\\pard\\intbl\\itap2 a\\nestcell never ended\\cell b\\row",
      "\\trowd\\cellx900\\pard\\intbl\\itap3 deep\\nestcell\\itap2 a\\nestcell{\\*\\nesttableprops\\trowd\\cellx9"
      "\\nestrow}\\row c\\par",
      "\\pard\\intbl\\itap2 a\\nestcell\\nestrow\\sect b\\par"};
  for (const std::string& body : letters) {
    const Document letter = readDocument("{\\rtf1 " + body + "}");
    const Document again = readDocument(writeDocument(letter));
    EXPECT_TRUE(again == letter) << body << "\n" << writeDocument(letter);
    EXPECT_EQ(plainText(again), plainText(letter)) << body;
  }
}

}  // namespace
}  // namespace zelvo
