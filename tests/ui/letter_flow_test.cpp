#include "ui/writing/letter_flow.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include "sample_letters.h"

namespace zelvo::testing {
namespace {

/// A letter on its sheet, and somebody who writes in it.
struct Sheet : Hands {
  explicit Sheet(const Document& letter) : Hands(letter) {
    text.setDocumentLayout(flow = new LetterFlow(&text));
    text.setPageSize(QSizeF(640, 1e6));
  }
  std::vector<QRectF> boxes() const {
    std::vector<QRectF> all;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next())
      all.push_back(flow->blockBoundingRect(block));
    return all;
  }
  /// Lays out everything anew.
  void layOutAll() {
    text.setPageSize(QSizeF(300, 1e6));
    text.setPageSize(QSizeF(640, 1e6));
  }
  QImage drawn() const {
    QImage image(flow->documentSize().toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    flow->draw(&painter, context);
    return image;
  }

  LetterFlow* flow;
};

TEST(LetterFlow, AChangeLeavesEverythingWhereTheWholeLetterWouldHaveIt) {
  for (const auto& [why, letter] : sampleLetters()) {
    Sheet sheet(letter);
    QTextCursor cursor(&sheet.text);
    for (int step = 0; step < 100; ++step) {
      sheet.act(cursor);
      const auto boxes = sheet.boxes();
      const QSizeF size = sheet.flow->documentSize();
      sheet.layOutAll();
      ASSERT_EQ(boxes, sheet.boxes()) << why << ", step " << step;
      ASSERT_EQ(size, sheet.flow->documentSize()) << why << ", step " << step;
    }
  }
}

TEST(LetterFlow, EveryPlaceIsUnderItsOwnPoint) {
  const Sheet sheet(fullLetter());
  int places = 0;
  for (QTextBlock block = sheet.text.begin(); block.isValid(); block = block.next())
    for (int i = 0; i < block.length(); ++i) {
      const QTextLine line = block.layout()->lineForTextPosition(i);
      ASSERT_TRUE(line.isValid());
      const QPointF inside(line.cursorToX(i), line.y() + line.height() / 2);
      const QPointF point = sheet.flow->blockBoundingRect(block).topLeft() + inside;
      const int hit = sheet.flow->hitTest(point, Qt::FuzzyHit) - block.position();
      EXPECT_NEAR(line.cursorToX(hit), line.cursorToX(i), 0.5) << block.text().toStdString() << " at " << i;
      ++places;
    }
  EXPECT_GT(places, 60);
  EXPECT_EQ(sheet.flow->hitTest({-5, -5}, Qt::ExactHit), -1);
  EXPECT_EQ(sheet.flow->hitTest({1e6, 1e6}, Qt::FuzzyHit), sheet.text.characterCount() - 1) << "the end";
}

TEST(LetterFlow, CellsStandBesideEachOtherAndTheirTextWhereTheRowHasIt) {
  Sheet sheet(readDocument(
      "{\\rtf1 Above\\par\\trowd\\cellx3000\\clvertalc\\cellx6000\\clvertalb\\cellx9000\\pard\\intbl one\\par two\\par "
      "three\\cell middle\\cell bottom\\cell\\row\\pard Below\\par}"));
  QRectF above, one, three, middle, bottom, below;
  for (QTextBlock block = sheet.text.begin(); block.isValid(); block = block.next())
    for (const auto& [words, box] : {std::pair{"Above", &above},
                                     {"one", &one},
                                     {"three", &three},
                                     {"middle", &middle},
                                     {"bottom", &bottom},
                                     {"Below", &below}})
      if (block.text() == QLatin1String(words))
        *box = sheet.flow->blockBoundingRect(block);
  EXPECT_NEAR(middle.left() - one.left(), 200, 1);
  EXPECT_NEAR(bottom.left() - one.left(), 400, 1);
  EXPECT_NEAR(middle.center().y(), (one.top() + three.bottom()) / 2, 1);
  EXPECT_NEAR(bottom.bottom(), three.bottom(), 1);
  EXPECT_NEAR(one.top(), above.bottom(), 1) << "no empty line before the table";
  EXPECT_NEAR(below.top(), three.bottom(), 1);
}

TEST(LetterFlow, WhatIsDrawnIsWhereItStands) {
  Sheet sheet(readDocument("{\\rtf1 First\\par\\par\\pard\\qr Right\\par}"));
  const QImage image = sheet.drawn();
  for (QTextBlock block = sheet.text.begin(); block.isValid(); block = block.next()) {
    const QRect box = sheet.flow->blockBoundingRect(block).toAlignedRect();
    int left = 0, right = 0;
    for (int y = box.top(); y < box.bottom(); ++y)
      for (int x = box.left(); x < box.right(); ++x)
        if (qGray(image.pixel(x, y)) < 128)
          ++(x < box.center().x() ? left : right);
    EXPECT_EQ(left > 0, block.text() == "First") << block.text().toStdString();
    EXPECT_EQ(right > 0, block.text() == "Right") << block.text().toStdString();
  }
}

}  // namespace
}  // namespace zelvo::testing
