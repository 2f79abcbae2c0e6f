// zelvo-letter-pages: the part of zelvo-letter that lays a letter out with the fonts of this computer. It shows nothing
// and needs no display.

#include <QGuiApplication>
#include <iostream>

#include "app/letter/letter_file.h"
#include "base/files.h"
#include "documents/document_reader.h"
#include "ui/printing/pages_pdf.h"
#include "ui/printing/paper_font.h"

namespace {

using namespace zelvo;

Result<void> makePages(const std::string& file, const std::string& out) {
  const auto rtf = readLetterFile(file);
  if (!rtf)
    return rtf.error();
  const QtFontMeasure fonts;
  const auto pdf = pdfOf(layOutPages(readDocument(*rtf), PrintOptions{}, fonts), fileNameOf(file), fonts.faces());
  if (!pdf)
    return pdf.error();
  return replaceFile(out, *pdf);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "Usage: zelvo-letter-pages FILE.rtf OUT.pdf\n";
    return 2;
  }
  qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString&) {});  // of displays, and what they lack
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(count, arguments);
  if (const auto made = makePages(arguments[1], arguments[2]); !made) {
    std::cerr << "zelvo-letter: " << made.error().message << "\n";
    return 1;
  }
  return 0;
}
