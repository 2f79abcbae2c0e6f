#include "ui/printing/qt_printing.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardPaths>

#include "base/files.h"
#include "base/text.h"
#include "documents/document_reader.h"
#include "ui/printing/pages_pdf.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

constexpr std::string_view kSavePdf = "Save as a PDF file";
constexpr int kMostCopies = 99;

QString shownName(const Printer& printer) {
  const std::string& name = printer.description.empty() ? printer.name : printer.description;
  return QString::fromStdString(printer.accepting ? name : name + " (takes no jobs now)");
}

// Where the user's documents lie; the program folder is no place for them.
std::string userDocuments() {
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

}  // namespace

QtPrinting::QtPrinting(QtFace& face, Messages& messages, Pickers& pickers, std::string_view temporaryFolder)
    : face_(face), messages_(messages), pickers_(pickers), temporaryFolder_(temporaryFolder) {}

Result<PagedDocument> pagesOfJob(const PrintJob& job, const FontMeasure& fonts) {
  const auto rtf = readBytes(job.rtfPath);
  if (!rtf)
    return rtf.error();
  return layOutPages(readDocument(*rtf), job.options, fonts);
}

Result<std::string> QtPrinting::pdfOfJob(const PrintJob& job) const {
  const auto pages = pagesOfJob(job, fonts_);
  if (!pages)
    return pages.error();
  return pdfOf(*pages, job.title, fonts_.faces());
}

Result<PrintedCopy> QtPrinting::copyOf(const PrintJob& job) {
  const auto pdf = pdfOfJob(job);
  if (!pdf)
    return pdf.error();
  return PrintedCopy{*pdf, ".pdf"};
}

Result<int> QtPrinting::countPages(const PrintJob& job) {
  const auto pages = pagesOfJob(job, fonts_);
  if (!pages)
    return pages.error();
  return static_cast<int>(pages->pages.size());
}

Result<void> QtPrinting::print(const PrintJob& job) {
  const auto pdf = pdfOfJob(job);
  if (!pdf)
    return pdf.error();
  if (job.options.printer == kSavePdf)
    return savePdf(job, *pdf);
  const auto printers = reachablePrinters();
  if (!job.options.printer.empty())
    return sendPdf(job, *pdf, job.options.printer);
  if (!printers.empty())
    return sendPdf(job, *pdf, printers.front().name);
  messages_.tell(" No printer",
                 "There is no printer on this computer.\nThe document can be saved as a PDF file instead.");
  return savePdf(job, *pdf);
}

Result<void> QtPrinting::savePdf(const PrintJob& job, const std::string& pdf) {
  const auto path =
      pickers_.saveFile({"Save as PDF", "PDF files (*.pdf)|*.pdf", userDocuments()}, fileNameFor(job.title, ".pdf"));
  if (!path)
    return Error{Trouble::Cancelled, "\"" + job.title + "\" was not printed and not saved."};
  return replaceFile(*path, pdf);
}

Result<void> QtPrinting::sendPdf(const PrintJob& job, const std::string& pdf, const std::string& printer) {
  const std::string path = joinPath(temporaryFolder_, "zelvo-print.pdf");
  if (const auto written = replaceFile(path, pdf, Access::OwnerOnly); !written)
    return written;
  const auto number = sendToPrinter(printer, path, {job.title, job.options.copies, {}});
  static_cast<void>(deleteFile(path));  // the printing system has its own copy
  if (!number)
    return number.error();
  return {};
}

bool QtPrinting::choosePrinter(PrintOptions& options) {
  const auto printers = reachablePrinters();
  bool chosen = false;
  face_.overWindows([&](QWidget* parent) {
    QDialog dialog(parent);
    dialog.setWindowTitle(QStringLiteral("Print"));
    auto* names = new QComboBox(&dialog);
    for (const Printer& printer : printers)
      names->addItem(shownName(printer), QString::fromStdString(printer.name));
    const QString save = qtText(kSavePdf);
    names->addItem(save, save);
    names->setCurrentIndex(std::max(0, names->findData(QString::fromStdString(options.printer))));
    auto* copies = new QSpinBox(&dialog);
    copies->setRange(1, kMostCopies);
    copies->setValue(options.copies);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&Print"));
    auto* form = new QFormLayout(&dialog);
    form->addRow(QStringLiteral("P&rinter"), names);
    form->addRow(QStringLiteral("&Copies"), copies);
    form->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    chosen = dialog.exec() == QDialog::Accepted;
    if (!chosen)
      return;
    options.printer = names->currentData().toString().toStdString();
    options.copies = copies->value();
  });
  return chosen;
}

}  // namespace zelvo
