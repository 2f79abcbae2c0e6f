// What must come out on paper whatever a letter asks for: nothing beside the sheet, nothing twice, nothing lost.

#include <gtest/gtest.h>

#include <algorithm>

#include "fixed_pitch.h"

namespace zelvo {
namespace {

constexpr const char* kPage = "{\\field{\\*\\fldinst PAGE}{\\fldrslt 9}}";
constexpr const char* kPageCount = "{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt 9}}";

std::string repeated(int times, const std::string& text) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

std::string textOf(const PagedDocument& paged) {
  std::string text;
  for (const Page& page : paged.pages) {
    for (const TextPiece& piece : page.texts)
      text += piece.text;
    text += '|';
  }
  return text;
}

TEST(Paper, TextStandsOnItWhateverSpaceIsAskedFor) {
  struct Row {
    const char* why;
    std::string body, text;
  };
  const Row rows[] = {{"a top margin beyond the sheet", "\\margt600000 a\\par b", "ab|"},
                      {"a bottom margin beyond the sheet", "\\margb600000 a\\par b", "ab|"},
                      {"margins that meet", "\\margt9000\\margb9000 a\\par b", "ab|"},
                      {"a header higher than the sheet", "{\\header " + repeated(90, "\\par ") + "}a\\par b", "ab|"},
                      {"a footer higher than the sheet", "{\\footer " + repeated(90, "\\par ") + "}a\\par b", "ab|"},
                      {"space above that no page has", "\\sb600000 a\\par b", "a|b|"},
                      {"space below that no page has", "\\sa600000 a\\par b", "a|b|"},
                      {"lines higher than the sheet", "\\sl-600000 a\\par b", "a|b|"},
                      {"a first line hung out and pulled in", "\\li-200\\fi-200 a\\par b", "ab|"}};
  for (const Row& row : rows) {
    const PagedDocument paged = pages(row.body);
    EXPECT_EQ(textOf(paged), row.text) << row.why;
    for (const Page& page : paged.pages)
      for (const TextPiece& piece : page.texts) {
        EXPECT_TRUE(piece.baseline > 0 && piece.baseline < paged.height) << row.why << ": " << piece.baseline;
        EXPECT_TRUE(piece.x > 0 && piece.x < paged.width) << row.why << ": " << piece.x;
      }
  }
}

TEST(Paper, PicturesAreMadeSmallerUntilTheyFit) {
  struct Row {
    const char* why;
    int width, height;
    bool landscape;
    double shownWidth, shownHeight;
  };
  const Row rows[] = {{"one that fits", 1440, 720, false, 1440, 720},
                      {"wider than the line", 18720, 1000, false, 9360, 500},
                      {"higher than the page", 1000, 25920, false, 500, 12960},
                      {"an upright photograph on a turned page", 9360, 12960, true, 6760, 9360}};
  for (const Row& row : rows) {
    Document document;
    Paragraph paragraph;
    paragraph.runs.push_back(
        {{}, {}, LiveField::None, std::make_shared<Picture>(Picture{PictureKind::Png, {}, row.width, row.height})});
    document.body.emplace_back(paragraph);
    PrintOptions options = inchMargins();
    options.landscape = row.landscape;
    const PagedDocument paged = layOutPages(document, options, FixedPitch());
    ASSERT_EQ(paged.pages.at(0).pictures.size(), 1u) << row.why;
    const PicturePiece& shown = paged.pages[0].pictures[0];
    EXPECT_NEAR(shown.width, row.shownWidth, 0.5) << row.why;
    EXPECT_NEAR(shown.height, row.shownHeight, 0.5) << row.why;
    EXPECT_NEAR(shown.y, 1440, 0.5) << row.why;
  }
}

TEST(Paper, PageNumbersInTheTextAreThoseOfTheirPage) {
  const std::string full = repeated(64, "x\\par ");
  const std::string row = "\\trowd\\cellx3000\\cellx6000\\intbl ";
  struct Row {
    const char* why;
    std::string body, lastPage;
  };
  const Row rows[] = {
      {"a paragraph that did not fit", full + kPage, "2|"},
      {"one behind a page break of its own", "a\\par\\pagebb " + std::string(kPage), "2|"},
      {"a row that did not fit", full + row + kPage + "\\cell b\\cell\\row", "2b|"},
      {"the number of pages in a row", full + row + kPageCount + "\\cell b\\cell\\row", "2b|"},
      {"the number of pages in a paragraph", full + std::string(kPage) + " of " + kPageCount, "2 of 2|"}};
  for (const Row& row_ : rows) {
    const PagedDocument paged = pages(row_.body);
    ASSERT_EQ(paged.pages.size(), 2u) << row_.why;
    EXPECT_TRUE(textOf(paged).ends_with("|" + row_.lastPage)) << row_.why << ": " << textOf(paged);
  }
}

TEST(Paper, TenPagesAreNumberedToTheTenth) {
  const PagedDocument paged =
      pages("{\\footer\\fs20 " + std::string(kPage) + "/" + kPageCount + "}" + repeated(9, "a\\page ") + "b");
  ASSERT_EQ(paged.pages.size(), 10u);
  for (std::size_t i = 0; i < 10; ++i)
    EXPECT_EQ(linesOfPage(paged.pages[i]).back().substr(0, 2 + 2),
              "0:" + (i < 9 ? std::to_string(i + 1) + " " : std::string("10")))
        << i;
}

TEST(Paper, RowsHaveTheHeightThatTheyAskFor) {
  const std::string shape = "\\trowd\\cellx2000\\cellx4000\\intbl ";
  const auto row = [](const std::string& words, const std::string& first, const std::string& second) {
    return "\\trowd" + words + "\\intbl " + first + "\\cell " + second + "\\cell\\row\\pard z";
  };
  const std::string cells = "\\cellx2000\\cellx4000";
  struct Row {
    const char* why;
    std::string body;
    double first, second, behind;  // base lines below the margin
  };
  const Row rows[] = {
      {"the highest cell's", row(cells, "a", "b\\par c"), 160, 160, 560},
      {"at least", row("\\trrh900" + cells, "a", "b"), 160, 160, 1060},
      {"at least, and more is needed", row("\\trrh100" + cells, "a", "b"), 160, 160, 360},
      {"exactly", row("\\trrh-100" + cells, "a", "b"), 160, 160, 260},
      {"space above the first line and below the last", row(cells, "\\sb100\\sa50 a", "b"), 260, 260, 510},
      {"at the bottom", row("\\trrh900\\clvertalb\\cellx2000\\cellx4000", "a", "b"), 860, 160, 1060},
      {"in the middle", row("\\trrh900\\cellx2000\\clvertalc\\cellx4000", "a", "b"), 160, 510, 1060}};
  for (const Row& r : rows) {
    const Page page = pages(r.body).pages.at(0);
    ASSERT_GE(page.texts.size(), 3u) << r.why;
    const auto baselineOf = [&page](const char* text) {
      return std::find_if(page.texts.begin(), page.texts.end(), [&](const TextPiece& p) { return p.text == text; })
                 ->baseline -
             1440;
    };
    EXPECT_EQ(baselineOf("a"), r.first) << r.why;
    EXPECT_EQ(baselineOf("b"), r.second) << r.why;
    EXPECT_EQ(baselineOf("z"), r.behind) << r.why;
  }
}

TEST(Paper, MergedCellsHaveNoLineBetweenThem) {
  const std::string edges = "\\clbrdrt\\brdrs\\clbrdrb\\brdrs";
  const std::string two = "\\trowd\\clvmgf" + edges + "\\cellx1000" + edges +
                          "\\cellx2000\\intbl a\\cell b\\cell\\row\\trowd\\clvmrg" + edges + "\\cellx1000" + edges +
                          "\\cellx2000\\intbl\\cell d\\cell\\row";
  const Page page = pages(two).pages.at(0);
  std::size_t between = 0;
  for (const FilledPiece& rule : page.rules)
    between += rule.y > 1440 + 100 && rule.y < 1440 + 300 ? 1 : 0;
  EXPECT_EQ(between, 2u) << "below and above the right cells only";
  EXPECT_EQ(page.rules.size(), 6u);
}

TEST(Paper, ARowCutByThePageGoesOnWithItsEdges) {
  const std::string cell = "\\trowd\\clbrdrl\\brdrs\\cellx3000\\intbl ";
  std::string lines;
  for (int i = 1; i <= 100; ++i)
    lines += std::to_string(i) + (i < 100 ? "\\par " : "\\cell\\row\\pard z");
  const PagedDocument paged = pages(cell + lines);
  ASSERT_EQ(paged.pages.size(), 2u);
  EXPECT_EQ(paged.pages[0].texts.back().text, "64");
  EXPECT_EQ(paged.pages[1].texts.front().text, "65");
  EXPECT_EQ(paged.pages[1].texts.front().baseline, 1440 + 160);
  EXPECT_EQ(paged.pages[1].texts.back().baseline, 1440 + 36 * 200 + 160);
  ASSERT_EQ(paged.pages[0].rules.size(), 1u);
  EXPECT_EQ(paged.pages[0].rules[0].height, 15840 - 2 * 1440 + 10) << "down to the margin";
  ASSERT_EQ(paged.pages[1].rules.size(), 1u);
  EXPECT_EQ(paged.pages[1].rules[0].height, 36 * 200 + 10);
}

TEST(Paper, LinesThatTabsAndLongWordsFillToTheEdge) {
  const std::string word(70, 'w');
  struct Row {
    const char* why;
    std::string body;
    Lines lines;
  };
  const Row rows[] = {{"a tab that ends at the edge", word + " abc\\tab d", {"0:" + word + " abc", "0:d"}},
                      {"a tab whose stop is behind the edge opens a line",
                       word + " abcdefg\\tab d",
                       {"0:" + word + " abcdefg", "720:d"}},
                      {"tabs with nothing behind them", word + "\\tab\\tab\\tab", {"0:" + word}},
                      {"text behind a tab that is too long for the line",
                       "a\\tab " + std::string(75, 'b'),
                       {"0:a", "0:" + std::string(75, 'b')}},
                      {"a word of three looks is broken at the edge only",
                       "{\\b " + word + "}{\\i " + word + "}c",
                       {"0:" + word + " 8400:" + word.substr(0, 8), "0:" + word.substr(8) + " 7440:c"}},
                      {"a letter of many bytes is not torn",
                       std::string(77, 'a') + "\\u233?\\u8364?\\u-10179?\\u-8704?",
                       {"0:" + std::string(77, 'a') + "é", "0:€😀"}},
                      {"right text that grows over its stop pushes on",
                       "\\tqr\\tx600 abc\\tab defgh\\tab i",
                       {"0:abc 360:defgh 1440:i"}},
                      {"centred text keeps off the text before it", "\\tqc\\tx600 abc\\tab defgh", {"0:abc 360:defgh"}},
                      {"decimal stop without a point",
                       "\\tqdec\\tx2400 \\tab 125\\line\\tab 1,250.00\\line\\tab -3.5 ft.",
                       {"2040:125", "1800:1,250.00", "2160:-3.5 ft."}},
                      {"centred with indents", "\\qc\\li1200\\ri0 ab", {"5160:ab"}},
                      {"right with an indent", "\\qr\\ri1200 ab", {"7920:ab"}},
                      {"justified up to a break", "\\qj aa bb\\line cc dd", {"0:aa bb", "0:cc dd"}}};
  for (const Row& row : rows)
    EXPECT_EQ(linesOfPage(pages(row.body).pages.at(0)), row.lines) << row.why;
}

}  // namespace
}  // namespace zelvo
