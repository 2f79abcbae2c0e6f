#include "documents/document_writer.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "documents/document_reader.h"
#include "documents/picture_file.h"

namespace zelvo {
namespace {

Run text(std::string words, TextStyle style = {}) {
  return {std::move(style), std::move(words), LiveField::None, nullptr};
}

Paragraph paragraph(std::string words) {
  return {{}, {text(std::move(words))}, {}};
}

bool isPlain(const std::string& rtf) {
  return std::all_of(rtf.begin(), rtf.end(), [](char c) { return c == '\r' || c == '\n' || (c >= ' ' && c < 0x7F); });
}

void expectItComesBack(const Document& document, const std::string& why) {
  const std::string rtf = writeDocument(document);
  EXPECT_TRUE(isPlain(rtf)) << why;
  EXPECT_TRUE(readDocument(rtf) == document) << why << "\n" << rtf;
}

void expectBlockComesBack(Block block, const std::string& why) {
  Document document;
  document.body = {std::move(block), paragraph("end")};
  expectItComesBack(document, why);
}

TEST(DocumentWriter, WritesAnyTextSoThatItIsReadAsItWas) {
  for (const char* words : {"Smith & Sons {\\ }", "5 after a number", "a\tb\nc", "\xC2\xA0hard\xC2\xA0",
                            "Überbau – 1 × 2 \"½\"", "\xF0\x9F\x8F\xA0 house", "日本 5", "-5", "\\par", "\xE2\x80\x91"})
    expectBlockComesBack(paragraph(words), words);
}

TEST(DocumentWriter, WritesTheLookOfText) {
  TextStyle styles[14];
  styles[0].font = {"Arial", 9.5, true, true};
  styles[1].underline = true;
  styles[2].strike = true;
  styles[3].script = Script::Super;
  styles[4].script = Script::Sub;
  styles[5].capitals = Capitals::All;
  styles[6].capitals = Capitals::Small;
  styles[7].colour = {255, 0, 9};
  styles[8].highlight = Colour{255, 255, 0};
  styles[9].highlight = Colour{0, 0, 0};
  styles[10].font.family = "Bücher & {Söhne}";
  styles[11].font.points = 1;
  styles[13].font.family = "Arial";
  Paragraph all;
  for (const TextStyle& style : styles)
    all.runs.push_back(text("1 word", style));
  all.end = styles[13];
  expectBlockComesBack(all, "runs");
  Paragraph empty;
  empty.end = styles[0];
  expectBlockComesBack(empty, "the look of an empty paragraph");
}

TEST(DocumentWriter, WritesTheLookOfParagraphs) {
  ParagraphStyle styles[9];
  styles[0].alignment = Alignment::Center;
  styles[1].alignment = Alignment::Justify;
  styles[1].left = 720;
  styles[1].right = 300;
  styles[1].first = -360;
  styles[1].before = 120;
  styles[1].after = 60;
  styles[1].line = 360;
  styles[2].lineRule = LineRule::Exact;
  styles[3].lineRule = LineRule::AtLeast;
  styles[2].line = styles[3].line = 300;
  styles[4].tabs = {{100, TabKind::Left, TabLeader::Dots},
                    {200, TabKind::Center, TabLeader::Hyphens},
                    {300, TabKind::Right, TabLeader::Underline},
                    {400, TabKind::Decimal, TabLeader::None}};
  styles[5].pageBreakBefore = styles[5].keepTogether = true;
  styles[6].keepWithNext = true;
  styles[7].top = styles[7].bottom = {15, {1, 2, 3}};
  styles[7].borderSpace = 30;
  styles[8].leftBorder = styles[8].rightBorder = {5, {}};
  styles[8].shade = Colour{200, 200, 200};
  for (const ParagraphStyle& style : styles) {
    Paragraph one = paragraph("a");
    one.style = style;
    expectBlockComesBack(one, "look " + std::to_string(&style - styles));
  }
}

TEST(DocumentWriter, WritesLiveNumbersAndPictures) {
  const std::string bitmap(
      "\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0abcdef\0\0", 48);
  Picture picture = *readPicture(bmpFileOf(bitmap));
  picture.width = 1350;
  picture.height = 777;
  picture.cropLeft = 0.1;  // of 1500 twips
  Paragraph all = paragraph("Page ");
  all.runs.push_back({{}, {}, LiveField::PageNumber, nullptr});
  all.runs.push_back(text(" of "));
  all.runs.push_back({{}, {}, LiveField::PageCount, nullptr});
  all.runs.push_back({{}, {}, LiveField::None, std::make_shared<Picture>(picture)});
  expectBlockComesBack(all, "all of them in a line");
}

TEST(DocumentWriter, WritesTables) {
  TableRow row;
  row.left = -108;
  row.padding = 108;
  row.height = -400;
  row.isHeading = true;
  row.cells.resize(3);
  for (std::size_t i = 0; i < 3; ++i) {
    row.cells[i].right = static_cast<int>(i + 1) * 2000;
    row.cells[i].paragraphs = {paragraph("cell " + std::to_string(i)), Paragraph()};
  }
  row.cells[0].top = row.cells[0].left = row.cells[0].bottom = row.cells[0].rightBorder = {20, {0, 0, 255}};
  row.cells[1].place = VerticalPlace::Middle;
  row.cells[1].shade = Colour{0, 0, 0};
  row.cells[2].place = VerticalPlace::Bottom;
  TableRow below = row;
  below.isHeading = false;
  below.cells[0].continuesAbove = true;
  Document document;
  document.body = {row, below, paragraph("between"), below, PageBreak(), row};
  expectItComesBack(document, "rows");
}

TEST(DocumentWriter, WritesSectionsWithTheirPaperAndHeaders) {
  Document document;
  document.page.width = 12240;
  document.page.height = 15840;
  document.page.left = 1000;
  document.defaultTab = 360;
  document.header = {paragraph("town"), paragraph("hall")};
  document.firstPageDiffers = true;
  document.firstFooter = {paragraph("first")};
  auto second = std::make_shared<Section>(document);
  second->page.landscape = true;
  second->page.headerDistance = 500;
  second->page.width = 8000;
  second->page.top = -900;
  second->header.clear();
  second->firstPageDiffers = false;
  second->leftPagesDiffer = true;
  second->leftFooter = {paragraph("left")};
  second->firstNumber = 7;
  auto third = std::make_shared<Section>(*second);
  third->page.left.reset();
  third->firstNumber.reset();
  document.body = {paragraph("a"), SectionBreak{second, true}, paragraph("b"), SectionBreak{third, false}, TableRow{},
                   paragraph("c")};
  TableRow row;
  row.cells.resize(1);
  row.cells[0] = {2000, {}, {}, {}, {}, {}, {}, false, {paragraph("x")}};
  document.body[4] = row;
  // A length that one section leaves open cannot be said of the whole letter.
  expectItComesBack(document, "three sections");
  document.body = {row, SectionBreak{second, true}, paragraph("behind a table")};
  expectItComesBack(document, "a section that ends with a table");
}

TEST(DocumentWriter, WritesTheFormsOfTheOfficeSoThatTheyAreReadAsTheyWere) {
  const std::filesystem::path tests = std::filesystem::path(ZELVO_TEST_DATA).parent_path();
  const std::string forms = (tests / "../../src/app/town/forms").lexically_normal().string();
  const auto names = listFiles(forms, "*.rtf");
  EXPECT_GT(names.size(), 10u);
  for (const std::string& name : names)
    expectItComesBack(readDocument(readBytes(joinPath(forms, name)).valueOr("")), name);
}

}  // namespace
}  // namespace zelvo
