// Seals and plans that office programs of old drew into letters.

#include <gtest/gtest.h>

#include "documents/document_reader.h"
#include "documents/document_writer.h"
#include "documents/drawing.h"
#include "documents/rtf_writer.h"
#include "support/metafile.h"

namespace zelvo {
namespace {

using testing::metafile;
using testing::record;
using testing::word;

const std::string kRedGround = record(0x02FC, {0, 255, 0, 0}) + record(0x012D, {0});
const std::string kNoLine = record(0x02FA, {5, 0, 0, 0, 0}) + record(0x012D, {1});

TEST(Drawing, HasTheShapesOfItsRecords) {
  struct Row {
    const char* why;
    std::string records;
    std::size_t figures, corners;
    bool closed;
    DrawingPoint first;
  };
  const Row rows[] = {
      {"a line", record(0x0214, {20, 10}) + record(0x0213, {40, 50}), 1, 2, false, {0.1, 0.1}},
      {"lines", record(0x0325, {3, 10, 20, 30, 40, 50, 60}), 1, 3, false, {0.1, 0.1}},
      {"an area", record(0x0324, {3, 50, 100, 30, 40, 50, 60}), 1, 3, true, {0.5, 0.5}},
      {"two areas", record(0x0538, {2, 3, 3, 0, 0, 9, 9, 9, 0, 20, 20, 29, 29, 29, 20}), 2, 3, true, {0, 0}},
      {"a rectangle", record(0x041B, {200, 100, 20, 10}), 1, 4, true, {0.1, 0.1}},
      {"a circle", record(0x0418, {200, 100, 0, 0}), 1, 61, true, {1, 0.5}},
      {"a block", record(0x061D, {0x21, 0xF0, 20, 10, 100, 50}), 1, 4, true, {0.5, 0.5}}};
  for (const Row& row : rows) {
    const Drawing drawing = drawingOf(metafile(row.records));
    ASSERT_EQ(drawing.size(), 1u) << row.why;
    const auto& shape = std::get<DrawnShape>(drawing[0]);
    ASSERT_EQ(shape.figures.size(), row.figures) << row.why;
    EXPECT_EQ(shape.figures[0].size(), row.corners) << row.why;
    EXPECT_EQ(shape.isClosed, row.closed) << row.why;
    EXPECT_NEAR(shape.figures[0][0].x, row.first.x, 1e-9) << row.why;
    EXPECT_NEAR(shape.figures[0][0].y, row.first.y, 1e-9) << row.why;
  }
}

TEST(Drawing, TakesItsToolsUpAndPutsThemAside) {
  const std::string box = record(0x041B, {20, 20, 0, 0});
  const std::string green = record(0x02FC, {0, 0xFF00, 0, 0}) + record(0x012D, {0});
  const Drawing drawing = drawingOf(metafile(kRedGround + kNoLine + record(0x001E, {}) + record(0x01F0, {0}) + green +
                                             box + record(0x0127, {0xFFFF}) + box));
  ASSERT_EQ(drawing.size(), 2u);
  EXPECT_EQ(std::get<DrawnShape>(drawing[0]).fill, (Colour{0, 255, 0})) << "the place of a tool is used again";
  EXPECT_EQ(std::get<DrawnShape>(drawing[1]).fill, (Colour{255, 0, 0})) << "as it was when it was saved";
  EXPECT_FALSE(std::get<DrawnShape>(drawing[0]).line);
}

TEST(Drawing, HasItsTexts) {
  const std::string font = record(0x02FB, {-50, 0, 900, 0, 700, 1, 0, 0, 0}, std::string("Arial\0", 6));
  const std::string texts = font + record(0x012D, {0}) + record(0x012E, {24 | 6}) + record(0x0209, {255, 0}) +
                            record(0x0A32, {100, 50, 4, 0}, "Town") +
                            record(0x0521, {3}, std::string("\xC9t\xE9\0", 4) + word(20) + word(10));
  const Drawing drawing = drawingOf(metafile(texts));
  ASSERT_EQ(drawing.size(), 2u);
  const auto& town = std::get<DrawnText>(drawing[0]);
  EXPECT_EQ(town.text, "Town");
  EXPECT_EQ(town.font.family, "Arial");
  EXPECT_TRUE(town.font.bold && town.font.italic);
  EXPECT_NEAR(town.height, 0.25, 1e-9);
  EXPECT_NEAR(town.angle, 90, 1e-9);
  EXPECT_EQ(town.alignment, Alignment::Center);
  EXPECT_EQ(town.place, TextHeight::BaseLine);
  EXPECT_EQ(town.colour, (Colour{255, 0, 0}));
  const auto& summer = std::get<DrawnText>(drawing[1]);
  EXPECT_EQ(summer.text, "\u00C9t\u00E9");
  EXPECT_NEAR(summer.at.x, 0.1, 1e-9);
  EXPECT_NEAR(summer.at.y, 0.1, 1e-9);
}

TEST(Drawing, OfABrokenFileIsReadAsFarAsItGoes) {
  std::string shapes;
  for (int i = 0; i < 30000; ++i)
    shapes += record(0x041B, {200, 100, 20, 10});
  EXPECT_LT(drawingOf(metafile(shapes)).size(), 20000u);
  const std::string whole = metafile(kRedGround + record(0x0538, {2, 3, 3, 0, 0, 9, 9, 9, 0, 20, 20, 29, 29, 29, 20}) +
                                     record(0x0A32, {100, 50, 4, 0}, "Town"));
  for (std::size_t cut = 0; cut < whole.size(); ++cut)
    EXPECT_LE(drawingOf(whole.substr(0, cut)).size(), 2u) << "cut at " << cut;
  EXPECT_TRUE(drawingOf("no metafile").empty());
}

TEST(Drawing, OfALetterStaysInItWhenItIsWritten) {
  std::string hex;
  appendRtfHex(hex, metafile(record(0x0418, {200, 100, 0, 0})));
  const std::string letter = "{\\rtf1 {\\pict\\wmetafile8\\picw2540\\pich5080 " + hex + "}\\par}";
  const Document document = readDocument(letter);
  const auto& picture = std::get<Paragraph>(document.body.at(0)).runs.at(0).picture;
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->kind, PictureKind::Metafile);
  EXPECT_EQ(picture->width, 1440);
  EXPECT_EQ(picture->height, 2880);
  EXPECT_TRUE(readDocument(writeDocument(document)) == document);
}

}  // namespace
}  // namespace zelvo
