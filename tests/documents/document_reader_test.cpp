#include "documents/document_reader.h"

#include <gtest/gtest.h>

#include "documents/picture_file.h"
#include "documents/rtf_writer.h"

namespace zelvo {
namespace {

std::string hex(std::string_view bytes) {
  std::string text;
  for (char c : bytes)
    text += std::string() + "0123456789abcdef"[static_cast<unsigned char>(c) >> 4] +
            "0123456789abcdef"[static_cast<unsigned char>(c) & 15];
  return text;
}

const Paragraph& paragraph(const Document& document, std::size_t index) {
  return std::get<Paragraph>(document.body.at(index));
}

// A row by its texts and right edges: "a@100|b@200".
std::string rowText(const Block& block) {
  std::string text;
  for (const Cell& cell : std::get<TableRow>(block).cells) {
    text += text.empty() ? "" : "|";
    for (const Paragraph& inside : cell.paragraphs)
      text += plainText(inside) + (&inside == &cell.paragraphs.back() ? "" : "/");
    text += "@" + std::to_string(cell.right);
  }
  return text;
}

std::string tinyBitmap() {
  return std::string("\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0", 16) + std::string(24, '\0') + "abcdef\0\0";
}

TEST(DocumentReader, KeepsTheTextWhateverItIsWrappedIn) {
  struct Row {
    std::string_view why, rtf, text;
  };
  const Row rows[] = {
      {"paragraphs, the last one unended", "{\\rtf1 a\\par\\par b}", "a\n\nb\n"},
      {"an ended last paragraph is no further one", "{\\rtf1 a\\par}", "a\n"},
      {"hidden text and soft hyphens vanish", "{\\rtf1 a{\\v b}c\\-d\\v e\\v0 f}", "acdf\n"},
      {"what is drawn in capitals stays as it was typed", "{\\rtf1 {\\caps a\\'e9}{\\scaps b}}", "aéb\n"},
      {"a cell that belongs to its neighbour gives it its text",
       "{\\rtf1\\trowd\\clmgf\\cellx9\\clmrg\\cellx18\\intbl a\\cell b\\cell\\row}", "a b\n"},
      {"tables in a cell",
       "{\\rtf1\\trowd\\cellx9\\intbl a\\par b\\nestcell c\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}"
       "{\\nonesttables\\par}d\\cell\\row}",
       "a b c d\n"},
      {"list marks of sign fonts",
       "{\\rtf1{\\fonttbl{\\f0 A;}{\\f3\\fcharset2 Symbol;}}{\\pntext\\f3\\'B7\\tab}a \\u-3929?}", "•\ta ▪\n"},
      {"notes and frames behind their paragraph", "{\\rtf1 a{\\footnote n\\par m}b\\par c}", "ab\nn\nm\nc\n"},
      {"headers are not in the body", "{\\rtf1 a{\\header h}{\\footerl x}b}", "ab\n"},
      {"a row without an end", "{\\rtf1\\trowd\\cellx100\\cellx200\\intbl a\\cell b\\cell\\pard c\\par}", "a\tb\nc\n"},
      {"a row without a shape", "{\\rtf1\\intbl a\\cell b\\cell\\row}", "a\tb\n"},
      {"an inner table's text",
       "{\\rtf1\\trowd\\cellx100\\intbl a\\nestcell b\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}c\\cell\\row}",
       "a b c\n"},
      {"cut in the middle", "{\\rtf1\\trowd\\cellx9{\\b\\intbl a\\cell b", "a\tb\n"}};
  for (const Row& row : rows)
    EXPECT_EQ(plainText(readDocument(row.rtf)), row.text) << row.why;
}

TEST(DocumentReader, ReadsTheLookOfText) {
  const Document document = readDocument(
      "{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl;\\red255\\green0\\blue0;\\blue200;}"
      "a{\\b\\i\\ul\\strike\\super\\fs30\\cf1\\highlight2\\f0 b}{\\b\\ulwave c\\b0\\ulnone\\ulc2 d}\\ab\\af0\\afs9 "
      "e\\plain\\par}");
  const auto& runs = paragraph(document, 0).runs;
  ASSERT_EQ(runs.size(), 4u);
  EXPECT_EQ(runs[0].style.font, (TextFont{"Courier New", 12, false, false}));
  EXPECT_EQ(runs[0].style.colour, Colour{});
  EXPECT_EQ(runs[1].style.font, (TextFont{"Arial", 15, true, true}));
  EXPECT_TRUE(runs[1].style.underline && runs[1].style.strike);
  EXPECT_EQ(runs[1].style.script, Script::Super);
  EXPECT_EQ(runs[1].style.colour, (Colour{255, 0, 0}));
  EXPECT_EQ(runs[1].style.highlight, (Colour{0, 0, 200}));
  EXPECT_TRUE(runs[2].style.underline && runs[2].style.font.bold);
  EXPECT_EQ(runs[3].text, "de") << "the twin font of another script changes nothing";
  EXPECT_EQ(runs[3].style, runs[0].style);
}

TEST(DocumentReader, ReadsTheLookOfParagraphs) {
  const Document document = readDocument(
      "{\\rtf1\\pard\\qj\\li720\\ri360\\fi-360\\sb100\\sa200\\sl360\\slmult1\\tqr\\tldot\\tx9000\\tx1440\\pagebb a\\par"
      "\\pard\\qc\\sl-300 b\\par{\\qr\\sl300\\slmult0 c\\par}d\\par}");
  const ParagraphStyle& first = paragraph(document, 0).style;
  EXPECT_EQ(first.alignment, Alignment::Justify);
  EXPECT_EQ((std::vector<int>{first.left, first.right, first.first, first.before, first.after, first.line}),
            (std::vector<int>{720, 360, -360, 100, 200, 360}));
  EXPECT_EQ(first.lineRule, LineRule::Multiple);
  EXPECT_EQ(first.tabs,
            (std::vector<TabStop>{{1440, TabKind::Left, TabLeader::None}, {9000, TabKind::Right, TabLeader::Dots}}));
  EXPECT_TRUE(first.pageBreakBefore);
  const ParagraphStyle& second = paragraph(document, 1).style;
  EXPECT_EQ(second.lineRule, LineRule::Exact);
  EXPECT_EQ(second.line, 300);
  EXPECT_TRUE(second.tabs.empty());
  EXPECT_EQ(paragraph(document, 2).style.lineRule, LineRule::AtLeast);
  EXPECT_EQ(paragraph(document, 3).style.alignment, Alignment::Center) << "a group's alignment ends with it";
}

TEST(DocumentReader, ReadsThePaperOnlyWhereItIsStated) {
  const Document none = readDocument("{\\rtf1 a}");
  EXPECT_FALSE(none.page.width || none.page.statesMargins());
  const Document some = readDocument(
      "{\\rtf1\\paperw15840\\paperh12240\\margl1000\\landscape\\deftab360\\titlepg{\\header h}{\\headerf f\\par g}"
      "a\\sect\\sbknone\\margl9 b\\sect{\\header z}\\sectd c}");
  EXPECT_EQ(some.page.width, 15840);
  EXPECT_EQ(some.page.left, 1000);
  EXPECT_FALSE(some.page.right);
  EXPECT_TRUE(some.page.landscape && some.firstPageDiffers);
  const Document upright = readDocument("{\\rtf1\\landscape0\\titlepg0 x}");
  EXPECT_FALSE(upright.page.landscape || upright.firstPageDiffers);
  EXPECT_EQ(some.defaultTab, 360);
  ASSERT_EQ(some.header.size(), 1u);
  EXPECT_EQ(plainText(some.header[0]), "h");
  EXPECT_EQ(some.firstHeader.size(), 2u);
}

// "h" and the like for headers, then the width of the paper and the first page number.
std::string sectionText(const Section& section) {
  std::string text;
  for (const auto* list : {&section.header, &section.firstHeader, &section.leftHeader, &section.footer})
    for (const Paragraph& paragraph : *list)
      text += plainText(paragraph) + "|";
  return text + std::to_string(section.page.width.value_or(0)) + (section.firstPageDiffers ? " first" : "") +
         (section.firstNumber ? " from " + std::to_string(*section.firstNumber) : "");
}

TEST(DocumentReader, ReadsSectionsWithTheirPaperAndHeaders) {
  const Document document = readDocument(
      "{\\rtf1\\paperw9000\\facingp\\sectd\\titlepg{\\header h}{\\headerf f}{\\headerl l}a\\sect\\sbknone "
      "b\\sect\\sectd"
      "\\pgwsxn8000\\pgnstarts5\\pgnrestart{\\header }{\\footer z}c\\sect\\sectd d}");
  EXPECT_EQ(sectionText(document), "h|f|l|9000 first");
  ASSERT_EQ(document.body.size(), 7u);
  const auto section = [&](std::size_t index) { return std::get<SectionBreak>(document.body[index]); };
  EXPECT_FALSE(section(1).newPage);
  EXPECT_EQ(sectionText(*section(1).section), "h|f|l|9000 first") << "what it does not state it has from before";
  EXPECT_TRUE(section(3).newPage);
  EXPECT_EQ(sectionText(*section(3).section), "f|l|z|8000 from 5");
  EXPECT_EQ(sectionText(*section(5).section), "f|l|z|9000") << "its paper is the letter's, its pages are counted on";
  EXPECT_TRUE(section(5).section->leftPagesDiffer);
}

TEST(DocumentReader, ReadsSectionsThatEndWithATable) {
  const Document document = readDocument("{\\rtf1\\trowd\\cellx900\\intbl a\\cell\\row\\sect\\pard b\\par}");
  ASSERT_EQ(document.body.size(), 3u);
  EXPECT_TRUE(std::holds_alternative<SectionBreak>(document.body[1]));
}

TEST(DocumentReader, ReadsLiveNumbersAndPageBreaks) {
  const Document document = readDocument(
      "{\\rtf1 a{\\field{\\*\\fldinst {PAGE \\\\* MERGEFORMAT}}{\\fldrslt {\\b 17}}}/{\\field{\\*\\fldinst NUMPAGES}}"
      "{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt link}}\\page b\\chpgn\\par}");
  const auto& runs = paragraph(document, 0).runs;
  ASSERT_EQ(runs.size(), 5u);
  EXPECT_EQ(runs[1].live, LiveField::PageNumber);
  EXPECT_TRUE(runs[1].style.font.bold);
  EXPECT_EQ(runs[3].live, LiveField::PageCount);
  EXPECT_EQ(runs[4].text, "link");
  EXPECT_TRUE(std::holds_alternative<PageBreak>(document.body.at(1)));
  EXPECT_EQ(paragraph(document, 2).runs.at(1).live, LiveField::PageNumber);
}

TEST(DocumentReader, ReadsTables) {
  const Document document = readDocument(
      "{\\rtf1{\\colortbl;\\red9;}\\trowd\\trleft-100\\trgaph108\\trrh-400\\clbrdrt\\brdrs\\brdrw20\\brdrcf1\\clvertalc"
      "\\clcbpat1\\cellx1000\\clvmrg\\cellx2000\\clmgf\\cellx3000\\clmrg\\cellx4000\\pard\\intbl a\\par b\\cell "
      "c\\cell d\\cell\\cell\\row"
      "\\intbl e\\cell f\\cell\\row\\pard after\\par}");
  ASSERT_EQ(document.body.size(), 3u);
  EXPECT_EQ(rowText(document.body[0]), "a/b@1000|c@2000|d@4000");
  EXPECT_EQ(rowText(document.body[1]), "e@1000|f@2000") << "the shape holds for the next row";
  const auto& row = std::get<TableRow>(document.body[0]);
  EXPECT_EQ((std::vector<int>{row.left, row.padding, row.height}), (std::vector<int>{-100, 108, -400}));
  EXPECT_EQ(row.cells[0].top, (Border{20, {9, 0, 0}}));
  EXPECT_EQ(row.cells[0].bottom.width, 0);
  EXPECT_EQ(row.cells[0].place, VerticalPlace::Middle);
  EXPECT_EQ(row.cells[0].shade, (Colour{9, 0, 0}));
  EXPECT_TRUE(row.cells[1].continuesAbove);
}

TEST(DocumentReader, ReadsPictures) {
  const std::string bitmap = tinyBitmap();
  const std::string record = std::string("\x26\0\0\0\x43\x0F", 6) + std::string(22, '\0') + bitmap;
  const std::string metafile = std::string(18, '\0') + std::string("\x05\0\0\0\x0B\x02\0\0\0\0", 10) + record;
  const std::string file = bmpFileOf(bitmap);
  struct Row {
    std::string why, pict;
    int width, height;
  };
  const Row rows[] = {
      {"a bitmap of 96 dots to the inch", "\\dibitmap0 " + hex(bitmap), 30, 15},
      {"a stated and scaled size", "\\picwgoal200\\pichgoal100\\picscalex50\\dibitmap\r\n" + hex(bitmap), 100, 100},
      {"scaled beyond any paper", "\\picwgoal600000\\pichgoal9\\picscalex9000\\dibitmap " + hex(bitmap), 600000, 9},
      {"cropped", "\\piccropl50\\picwgoal200\\pichgoal100\\dibitmap " + hex(bitmap), 150, 100},
      {"inside a metafile", "\\wmetafile8\\picwgoal40\\pichgoal20 " + hex(metafile), 40, 20},
      {"as bytes", "\\dibitmap\\bin" + std::to_string(bitmap.size()) + " " + bitmap, 30, 15}};
  for (const Row& row : rows) {
    const Document document =
        readDocument("{\\rtf1 {\\*\\shppict{\\pict{\\*\\picprop x}" + row.pict + "}}{\\nonshppict{\\pict z}}}");
    ASSERT_EQ(paragraph(document, 0).runs.size(), 1u) << row.why;
    const auto picture = paragraph(document, 0).runs[0].picture;
    ASSERT_TRUE(picture) << row.why;
    EXPECT_TRUE(picture->bytes.starts_with(file)) << row.why;
    EXPECT_EQ(picture->width, row.width) << row.why;
    EXPECT_EQ(picture->height, row.height) << row.why;
  }
  EXPECT_TRUE(readDocument("{\\rtf1{\\pict\\emfblip 0102}}").body.empty()) << "no kind that can be shown";
}

TEST(PictureFile, KnowsTheSizeOfPicturesOnPaper) {
  using namespace std::string_literals;
  const std::string png = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x60\0\0\0\x30\x08\x02\0\0\0crc!"s;
  const std::string dots =
      "\0\0\0\x09pHYs\0\0\x17\x13\0\0\x17\x13\x01"s + "crc!";  // 5907 to the metre: 150 to the inch
  const std::string jpeg =
      "\xFF\xD8\xFF\xE0\0\x10JFIF\0\1\1\1\0\x48\0\x48\0\0\xFF\xC0\0\x11\x08\0\x24\0\x48\3........."s;
  struct Row {
    std::string why, bytes;
    int width, height;
  };
  for (const Row& row : {Row{"png", png, 1440, 720}, Row{"png with its dots", png + dots, 921, 461},
                         Row{"jpeg of 72 dots", jpeg, 1440, 720}}) {
    const auto picture = readPicture(row.bytes);
    ASSERT_TRUE(picture) << row.why;
    EXPECT_EQ(picture->width, row.width) << row.why;
    EXPECT_EQ(picture->height, row.height) << row.why;
  }
  for (const std::string& none : {""s, "GIF89a"s, "BM"s, png.substr(0, 12), jpeg.substr(0, 20)})
    EXPECT_FALSE(readPicture(none));
  Picture wide{PictureKind::Png, {}, 40000, 20000};
  fitInto(wide, 9360, 12960);
  EXPECT_EQ(wide.width, 9360);
  EXPECT_EQ(wide.height, 4680);
}

}  // namespace
}  // namespace zelvo
