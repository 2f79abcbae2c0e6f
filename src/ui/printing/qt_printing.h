#pragma once

#include "ui/printing/paper_font.h"
#include "ui/printing/printers.h"
#include "ui/qt_face.h"

namespace zelvo {

/// The pages of a job, as they are previewed, kept and printed.
Result<PagedDocument> pagesOfJob(const PrintJob& job, const FontMeasure& fonts);

/// Prints letters and reports: lays the document onto pages, makes a PDF of them and hands it to the printer. Without a
/// printer, or when the user prefers it, the PDF is saved where the user says.
class QtPrinting : public Printing {
 public:
  QtPrinting(QtFace& face, Messages& messages, Pickers& pickers, std::string_view temporaryFolder);

  Result<void> print(const PrintJob& job) override;
  bool choosePrinter(PrintOptions& options) override;
  Result<PrintedCopy> copyOf(const PrintJob& job) override;
  Result<int> countPages(const PrintJob& job) override;

  /// The document of a job as a PDF.
  Result<std::string> pdfOfJob(const PrintJob& job) const;

 private:
  Result<void> savePdf(const PrintJob& job, const std::string& pdf);
  Result<void> sendPdf(const PrintJob& job, const std::string& pdf, const std::string& printer);

  QtFace& face_;
  Messages& messages_;
  Pickers& pickers_;
  std::string temporaryFolder_;
  QtFontMeasure fonts_;
};

}  // namespace zelvo
