// zelvo-bench-pages FOLDER: fills every letter of the folder and lays it out, a PDF beside each, as the program prints
// them one after the other. bench/run times it.

#include <QGuiApplication>
#include <filesystem>
#include <iostream>

#include "base/files.h"
#include "documents/document_reader.h"
#include "documents/merge.h"
#include "ui/printing/pages_pdf.h"
#include "ui/printing/paper_font.h"

namespace {

using namespace zelvo;

MergeContext values() {
  MergeContext context;
  context.letterhead = "Town of Milford\nBuilding Department";
  context.name = "Smith, John";
  context.address = "12 Main Street";
  context.cityStateZip = "Milford, NY 10950";
  context.me = "R. Miller";
  for (std::size_t i = 1; i < context.values.size(); ++i)
    context.values[i] = "Value " + std::to_string(i);
  return context;
}

Result<void> printLetter(const std::string& path, const QtFontMeasure& fonts) {
  const auto rtf = readBytes(path);
  if (!rtf)
    return rtf.error();
  const auto merged = mergeLetter(*rtf, values(), {{2026, 11, 20}, 0}, {});
  if (!merged)
    return merged.error();
  const auto pdf = pdfOf(layOutPages(readDocument(*merged), PrintOptions{}, fonts), fileNameOf(path), fonts.faces());
  return pdf ? replaceFile(path + ".pdf", *pdf) : pdf.error();
}

}  // namespace

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(count, arguments);
  const QtFontMeasure fonts;
  for (const auto& entry : std::filesystem::directory_iterator(count > 1 ? arguments[1] : ".")) {
    if (entry.path().extension() != ".rtf")
      continue;
    if (const auto printed = printLetter(entry.path().string(), fonts); !printed) {
      std::cerr << printed.error().message << "\n";
      return 1;
    }
  }
  return 0;
}
