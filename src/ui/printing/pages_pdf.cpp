#include "ui/printing/pages_pdf.h"

#include <QDateTime>

#include "ui/printing/pdf_drawing.h"
#include "ui/printing/pdf_pictures.h"
#include "ui/printing/pdf_texts.h"

namespace zelvo {

namespace {

class PageWriter {
 public:
  explicit PageWriter(const PaperFaces& faces)
      : resources_(file_.reserve()),
        pages_(file_.reserve()),
        pictures_(file_),
        texts_(content_, fonts_, faces),
        drawings_(content_, texts_, faces) {}

  void add(const Page& page) {
    content_.clear();
    height_ = page.height;
    ink_ = Colour{};
    fill(page.shades);
    for (const PicturePiece& piece : page.pictures)
      if (piece.picture)
        show(piece);
    write(page.texts);
    fill(page.rules);
    const int content = file_.addPacked(packedForPdf(content_, false), "");
    std::string paper = "[0 0 ";
    appendLengths(paper, {page.width, page.height});
    kids_ +=
        pdfReference(file_.add("<</Type/Page/Parent " + pdfReference(pages_) + "/MediaBox" + paper + "]/Resources " +
                               pdfReference(resources_) + "/Contents " + pdfReference(content) + ">>")) +
        "\n";
    ++count_;
  }

  std::string finish(std::string_view title) {
    file_.write(resources_, "<</ProcSet[/PDF/Text/ImageB/ImageC/ImageI]/Font<<" + fonts_.addTo(file_) + ">>/XObject<<" +
                                pictures_.resources() + ">>>>");
    file_.write(pages_, "<</Type/Pages/Count " + std::to_string(count_) + "/Kids[" + kids_ + "]>>");
    const int catalogue = file_.add("<</Type/Catalog/Pages " + pdfReference(pages_) + ">>");
    const std::string now = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddhhmmss")).toStdString();
    const int information =
        file_.add("<</Title" + pdfText(title) + "/Creator(Zelvo)/Producer(Zelvo)/CreationDate(D:" + now + "Z)>>");
    return file_.finish(catalogue, information);
  }

 private:
  void takeInk(const Colour& colour) {
    if (colour == ink_)
      return;
    ink_ = colour;
    appendInk(content_, colour, "rg");
    appendInk(content_, colour, "RG");
  }

  void fill(const std::vector<FilledPiece>& pieces) {
    for (const FilledPiece& piece : pieces) {
      takeInk(piece.colour);
      appendLengths(content_, {piece.x, height_ - piece.y - piece.height, piece.width, piece.height});
      content_ += "re f\n";
    }
  }

  void show(const PicturePiece& piece) {
    content_ += "q ";
    appendLengths(content_, {piece.x, height_ - piece.y - piece.height, piece.width, piece.height});
    content_ += "re W n\n";
    const DrawingPlace whole(piece);
    if (piece.picture->kind == PictureKind::Metafile)
      drawings_.write(drawingOf(piece.picture->bytes), whole, height_);
    else
      showDots(*piece.picture, whole);
    content_ += "Q\n";
  }

  void showDots(const Picture& picture, const DrawingPlace& whole) {
    const std::string name = pictures_.nameOf(picture);
    if (name.empty())
      return;
    const QPointF topLeft = whole.of({0, 0}), bottomRight = whole.of({1, 1});
    appendLengths(content_, {bottomRight.x() - topLeft.x(), 0, 0, bottomRight.y() - topLeft.y(), topLeft.x(),
                             height_ - bottomRight.y()});
    content_ += "cm " + name + " Do\n";
  }

  void write(const std::vector<TextPiece>& texts) {
    texts_.begin();
    for (const TextPiece& text : texts) {
      takeInk(text.colour);
      texts_.write(text.text, text.font, text.x, height_ - text.baseline);
    }
    texts_.end();
  }

  PdfFile file_;
  int resources_, pages_;
  PdfFonts fonts_;
  PdfPictures pictures_;
  std::string content_;  // of the page being written
  PdfTexts texts_;
  PdfDrawing drawings_;
  std::string kids_;
  int count_ = 0;
  double height_ = 0;  // of its paper
  Colour ink_;
};

}  // namespace

Result<std::string> pdfOf(const PagedDocument& document, std::string_view title, const PaperFaces& faces) {
  if (document.isCutOff)
    return Error{Trouble::BadInput, "\"" + std::string(title) + "\" has more than " + std::to_string(kMostPages) +
                                        " pages, too many to be printed at once. Print it in parts."};
  PageWriter writer(faces);
  for (const Page& page : document.pages)
    writer.add(page);
  return writer.finish(title);
}

Result<std::string> pdfOf(const PagedDocument& document, std::string_view title) {
  return pdfOf(document, title, PaperFaces());
}

}  // namespace zelvo
