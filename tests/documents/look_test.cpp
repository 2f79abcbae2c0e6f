// Which words of a letter hold how long: up to the next \plain or \pard, up to the end of their group, or for one tab.

#include <gtest/gtest.h>

#include "documents/document_reader.h"

namespace zelvo {
namespace {

// A paragraph's runs by their look: "Times 12 bi:text".
std::string looks(const Paragraph& paragraph) {
  std::string text;
  for (const Run& run : paragraph.runs) {
    const TextStyle& style = run.style;
    std::string marks;
    marks += style.font.bold ? "b" : "";
    marks += style.font.italic ? "i" : "";
    marks += style.underline ? "u" : "";
    marks += style.strike ? "s" : "";
    marks += style.script == Script::Super ? "^" : style.script == Script::Sub ? "_" : "";
    marks += style.highlight ? "h" : "";
    marks += style.colour == Colour{} ? "" : "c";
    text += (text.empty() ? "" : "|") + style.font.family.substr(0, 1) +
            std::to_string(static_cast<int>(style.font.points * 2)) + marks + ":" + run.text;
  }
  return text;
}

Document letter(const std::string& body) {
  return readDocument("{\\rtf1\\deff2{\\fonttbl{\\f1 Arial;}{\\f2 Times;}}{\\colortbl;\\red200;}" + body + "}");
}

TEST(Look, OfTextHoldsAsLongAsItsWordsSay) {
  struct Row {
    const char* why;
    std::string body, looks;
  };
  const Row rows[] = {
      {"nothing said", "a", "T24:a"},
      {"\\plain takes back all of the text's look", "\\b\\i\\ul\\strike\\super\\cf1\\highlight1\\fs30\\f1 a\\plain b",
       "A30bius^hc:a|T24:b"},
      {"\\pard takes back none of it", "\\b\\fs30\\f1 a\\pard b", "A30b:ab"},
      {"a paragraph's end takes back nothing", "\\i a{\\par}b", "T24i:b"},
      {"a group's look ends with it", "a{\\b b{\\i\\f1 c}d}e", "T24:a|T24b:b|A24bi:c|T24b:d|T24:e"},
      {"switched off by 0", "\\b\\i a\\b0 b\\i0 c", "T24bi:a|T24i:b|T24:c"},
      {"every kind of underlining", "{\\uld a}{\\uldb b}{\\ulw c}{\\ul0 d}{\\ulwave e\\ulnone f}",
       "T24u:abc|T24:d|T24u:e|T24:f"},
      {"raised and lowered", "{\\up6 a}{\\dn6 b}{\\up0 c}{\\sub d\\nosupersub e}", "T24^:a|T24_:b|T24:c|T24_:d|T24:e"},
      {"a colour that the letter does not list", "\\cf7 a\\highlight9 b\\cb-1 c", "T24:abc"},
      {"sizes out of any measure", "\\fs0 a\\fs99999 b\\fs c", "T2:a|T3276:b|T24:c"},
      {"a font that the letter does not list", "\\f9 a", "T24:a"},
      {"the twin of another script", "\\ab\\ai\\af1\\afs40 a", "T24:a"},
      {"groups of one look are one run", "{\\b Bu}{\\lang1033\\b il}{\\rtlch\\ltrch\\b d}", "T24b:Build"}};
  for (const Row& row : rows) {
    const Document document = letter(row.body);
    EXPECT_EQ(looks(std::get<Paragraph>(document.body.back())), row.looks) << row.why;
  }
}

TEST(Look, OfParagraphsIsThatOfTheirEnd) {
  struct Row {
    const char* why;
    std::string body;
    Alignment alignment;
    int left;
    std::size_t tabs;
  };
  const Row rows[] = {
      {"\\plain leaves the paragraph alone", "\\qc\\li300\\tx900\\plain a\\par", Alignment::Center, 300, 1},
      {"\\pard takes all back", "\\qc\\li300\\tx900\\pard a\\par", Alignment::Left, 0, 0},
      {"goes on in the next one", "\\qc\\li300\\tx900 z\\par a\\par", Alignment::Center, 300, 1},
      {"said behind the text", "a\\qr\\li300\\par", Alignment::Right, 300, 0},
      {"said in a group that holds the end", "{\\qj\\li300 a\\par}", Alignment::Justify, 300, 0},
      {"said in a group that does not", "{\\qj\\li300 a}\\par", Alignment::Left, 0, 0},
      {"the last paragraph has no end of its own", "\\qc\\li300 a", Alignment::Center, 300, 0}};
  for (const Row& row : rows) {
    const Document document = letter(row.body);
    const ParagraphStyle& style = std::get<Paragraph>(document.body.back()).style;
    EXPECT_EQ(style.alignment, row.alignment) << row.why;
    EXPECT_EQ(style.left, row.left) << row.why;
    EXPECT_EQ(style.tabs.size(), row.tabs) << row.why;
  }
}

TEST(Look, OfParagraphsHasBordersAGroundAndAPlace) {
  const Document document = readDocument(
      "{\\rtf1{\\colortbl;\\red9;}\\keep\\keepn\\brdrt\\brdrs\\brdrw20\\brsp40\\brdrcf1\\brdrb\\brdrdb "
      "a\\par\\pard\\box"
      "\\brdrs\\cbpat1 b\\par\\pard\\brdrr\\brdrnone\\brsp9\\brdrcf1\\shading5000 c\\par}");
  const auto style = [&](std::size_t index) { return std::get<Paragraph>(document.body.at(index)).style; };
  EXPECT_TRUE(style(0).keepTogether && style(0).keepWithNext);
  EXPECT_EQ(style(0).top, (Border{20, {9, 0, 0}}));
  EXPECT_EQ(style(0).bottom, (Border{10, {}}));
  EXPECT_EQ(style(0).leftBorder.width, 0);
  EXPECT_EQ(style(0).borderSpace, 40);
  for (const Border& border : {style(1).top, style(1).leftBorder, style(1).bottom, style(1).rightBorder})
    EXPECT_EQ(border, (Border{10, {}}));
  EXPECT_EQ(style(1).shade, (Colour{9, 0, 0}));
  ParagraphStyle grey;
  grey.shade = Colour{127, 127, 127};
  EXPECT_EQ(style(2), grey) << "a border that is not there has no colour and takes no room";
}

TEST(Look, OfACellsParagraphAndOfTheCellAreToldApart) {
  const Document document = readDocument(
      "{\\rtf1\\trowd\\clbrdrt\\brdrs\\brdrw30\\cellx900\\pard\\intbl\\brdrb\\brdrs\\brdrw40 "
      "a\\cell\\row\\trowd\\clbrdrl"
      "\\brdrs\\brdrw50\\cellx900\\pard\\intbl b\\cell\\row}");
  const auto cell = [&](std::size_t index) { return std::get<TableRow>(document.body.at(index)).cells.at(0); };
  EXPECT_EQ(cell(0).top.width, 30);
  EXPECT_EQ(cell(0).bottom.width, 0);
  EXPECT_EQ(cell(0).paragraphs.at(0).style.bottom.width, 40);
  EXPECT_EQ(cell(1).left.width, 50);
  EXPECT_EQ(cell(1).paragraphs.at(0).style, ParagraphStyle());
}

TEST(Look, OfATabHoldsForTheNextStopAlone) {
  const Document document =
      letter("\\tx4000\\tldot\\tqr\\tx3000\\tqdec\\tx2000\\tlhyph\\tqc\\tx1000\\tlul\\tx500 a\\par");
  EXPECT_EQ(std::get<Paragraph>(document.body.at(0)).style.tabs,
            (std::vector<TabStop>{{500, TabKind::Left, TabLeader::Underline},
                                  {1000, TabKind::Center, TabLeader::Hyphens},
                                  {2000, TabKind::Decimal, TabLeader::None},
                                  {3000, TabKind::Right, TabLeader::Dots},
                                  {4000, TabKind::Left, TabLeader::None}}));
}

TEST(Look, OfALineIsToldByTwoWordsInEitherOrder) {
  struct Row {
    std::string words;
    LineRule rule;
    int line;
  };
  for (const Row& row :
       {Row{"", LineRule::Multiple, 240}, Row{"\\sl360\\slmult1", LineRule::Multiple, 360},
        Row{"\\slmult1\\sl360", LineRule::Multiple, 360}, Row{"\\sl360", LineRule::AtLeast, 360},
        Row{"\\sl-360\\slmult1", LineRule::Exact, 360}, Row{"\\sl-360\\slmult0", LineRule::Exact, 360},
        Row{"\\sl360\\slmult1\\sl0", LineRule::Multiple, 240}, Row{"\\sl360\\pard", LineRule::Multiple, 240}}) {
    const Document document = letter(row.words + " a");
    const ParagraphStyle& style = std::get<Paragraph>(document.body.at(0)).style;
    EXPECT_EQ(style.lineRule, row.rule) << row.words;
    EXPECT_EQ(style.line, row.line) << row.words;
  }
}

TEST(Look, OfAnEmptyParagraphIsWhatWasInForce) {
  const Document document = letter("\\fs40\\par{\\fs60\\par}\\f1\\par a\\par");
  std::vector<double> points;
  for (const Block& block : document.body)
    points.push_back(std::get<Paragraph>(block).end.font.points);
  EXPECT_EQ(points, (std::vector<double>{20, 30, 20, 20}));
  EXPECT_EQ(std::get<Paragraph>(document.body.at(2)).end.font.family, "Arial");
}

TEST(Look, OfHeadersAndNotesIsTheirOwn) {
  const Document document = letter("\\qr\\b\\fs40{\\header h\\qc\\par i}{\\footer\\i f}a{\\footnote\\fs16 n}b\\par");
  ASSERT_EQ(document.header.size(), 2u);
  EXPECT_EQ(looks(document.header[0]), "T24:h");
  EXPECT_EQ(document.header[1].style.alignment, Alignment::Center);
  EXPECT_EQ(looks(document.footer.at(0)), "T24i:f");
  EXPECT_EQ(document.footer[0].style.alignment, Alignment::Left);
  ASSERT_EQ(document.body.size(), 2u);
  EXPECT_EQ(looks(std::get<Paragraph>(document.body[0])), "T40b:ab");
  EXPECT_EQ(std::get<Paragraph>(document.body[0]).style.alignment, Alignment::Right);
  EXPECT_EQ(looks(std::get<Paragraph>(document.body[1])), "T16:n");
}

TEST(CodePages, AreThoseOfTheDocumentOfTheFontOrOfTheWord) {
  struct Row {
    const char* why;
    std::string head, text;
  };
  const Row rows[] = {{"western", "\\ansi\\ansicpg1252 \\'80\\'e9", "€é"},
                      {"nothing said", " \\'80\\'e9", "€é"},
                      {"an old computer", "\\pc \\'82\\'e1", "éß"},
                      {"another old computer", "\\pca \\'82\\'9b", "éø"},
                      {"the other maker", "\\mac \\'8e\\'d2", "é“"},
                      {"central Europe", "\\ansicpg1250 \\'f8\\'b3", "řł"},
                      {"Turkish by its font", "{\\fonttbl{\\f0\\fcharset162 A;}}\\f0 \\'fe\\'f0", "şğ"},
                      {"Greek by its font", "{\\fonttbl{\\f0\\fcharset161 A;}}\\f0 \\'e1", "α"},
                      {"Baltic by its font", "{\\fonttbl{\\f0\\fcharset186 A;}}\\f0 \\'e0", "ą"},
                      {"a font whose page is told", "{\\fonttbl{\\f0\\fnil\\cpg1251 A;}}\\f0 \\'cf", "П"},
                      {"Korean", "{\\fonttbl{\\f0\\fcharset129 A;}}\\f0 \\'c7\\'d1", "한"},
                      {"Chinese", "{\\fonttbl{\\f0\\fcharset134 A;}}\\f0 \\'d6\\'d0", "中"},
                      {"a page that nobody knows", "\\ansicpg4711 a\\'e9", "aé"},
                      {"a font number without a font", "\\f7 \\'e9", "é"}};
  for (const Row& row : rows)
    EXPECT_EQ(plainText(readDocument("{\\rtf1" + row.head + "}")), row.text + "\n") << row.why;
}

}  // namespace
}  // namespace zelvo
