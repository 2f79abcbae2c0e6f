#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include "base/files.h"

namespace zelvo::testing {

/// What a public program says of a PDF, which lies beside it as roster.pdf. It may complain of nothing.
inline QByteArray readPdf(const std::string& pdf, const QString& program, const QStringList& arguments) {
  const QTemporaryDir folder;
  EXPECT_TRUE(replaceFile(folder.filePath("roster.pdf").toStdString(), pdf));
  QProcess reader;
  reader.setWorkingDirectory(folder.path());
  reader.start(program, arguments);
  EXPECT_TRUE(reader.waitForFinished()) << program.toStdString() << " is not installed";
  EXPECT_EQ(reader.readAllStandardError().toStdString(), "");
  return reader.readAllStandardOutput();
}

/// The words of a PDF with their places, in points.
inline QString boxesIn(const std::string& pdf) {
  return readPdf(pdf, "pdftotext", {"-bbox", "roster.pdf", "-"});
}

/// The words of a PDF, a blank between each two.
inline std::string wordsIn(const std::string& pdf) {
  return QString::fromUtf8(readPdf(pdf, "pdftotext", {"roster.pdf", "-"})).simplified().toStdString();
}

/// The first page as a viewer shows it, 96 dots to the inch.
inline QImage seenPdf(const std::string& pdf) {
  return QImage::fromData(readPdf(pdf, "pdftoppm", {"-r", "96", "-singlefile", "roster.pdf"}))
      .convertToFormat(QImage::Format_RGB32);
}

/// How much ink there is, in dots of black.
inline double darknessOf(const QImage& picture) {
  double sum = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      sum += 255 - qGray(picture.pixel(x, y));
  return sum / 255;
}

/// How far two pictures differ, against all the ink of the first.
inline double differenceOf(const QImage& first, QImage second) {
  QPainter painter(&second);
  painter.setCompositionMode(QPainter::CompositionMode_Difference);
  painter.drawImage(0, 0, first);
  painter.end();
  second.invertPixels();
  return darknessOf(second) / darknessOf(first);
}

}  // namespace zelvo::testing
