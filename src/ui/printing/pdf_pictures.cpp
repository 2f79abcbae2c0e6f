#include "ui/printing/pdf_pictures.h"

#include <QImage>
#include <algorithm>

#include "documents/picture_file.h"
#include "ui/printing/picture_image.h"

namespace zelvo {

namespace {

std::string imageEntries(int width, int height, std::string_view colours, int bits) {
  return "/Type/XObject/Subtype/Image/Width " + std::to_string(width) + "/Height " + std::to_string(height) +
         "/ColorSpace" + std::string(colours) + "/BitsPerComponent " + std::to_string(bits);
}

// The lines of an image one behind the other, without what fills them up in memory.
std::string linesOf(const QImage& image) {
  const auto length = static_cast<std::size_t>((qsizetype{image.width()} * image.depth() + 7) / 8);
  std::string lines;
  lines.reserve(length * static_cast<std::size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y)
    lines.append(reinterpret_cast<const char*>(image.constScanLine(y)), length);
  return lines;
}

int addLines(PdfFile& file, const QImage& image, std::string_view colours, const std::string& more = {}) {
  const int bits = image.depth() == 1 ? 1 : 8;
  return file.addPacked(packedForPdf(linesOf(image), false),
                        imageEntries(image.width(), image.height(), colours, bits) + more);
}

// Stamps and scans have few colours, which are named once.
std::string colourTable(const QImage& image) {
  std::string table = "[/Indexed/DeviceRGB " + std::to_string(image.colorCount() - 1) + "<";
  for (const QRgb colour : image.colorTable())
    appendPdfHex(table, colour & 0xFFFFFF, 6);
  return table + ">]";
}

bool hasColourTable(const QImage& image) {
  return image.depth() <= 8 && image.colorCount() > 0 && !image.hasAlphaChannel();
}

// Where a picture lets the paper through: a picture of its own, in grey.
std::string maskOf(PdfFile& file, const QImage& image) {
  if (!image.hasAlphaChannel())
    return {};
  const QImage mask = image.convertToFormat(QImage::Format_Alpha8);
  return "/SMask " + pdfReference(addLines(file, mask, "/DeviceGray"));
}

int addImage(PdfFile& file, QImage image) {
  if (image.format() == QImage::Format_MonoLSB)
    image.convertTo(QImage::Format_Mono);
  if (hasColourTable(image))
    return addLines(file, image, colourTable(image));
  if (image.format() == QImage::Format_Grayscale8)
    return addLines(file, image, "/DeviceGray");
  const std::string mask = maskOf(file, image);
  image.convertTo(QImage::Format_RGB888);
  return addLines(file, image, "/DeviceRGB", mask);
}

// What a camera took goes into the PDF as it took it.
int addJpeg(PdfFile& file, const std::string& bytes, const PlainJpeg& jpeg) {
  return file.add("<<" + imageEntries(jpeg.width, jpeg.height, jpeg.colours == 1 ? "/DeviceGray" : "/DeviceRGB", 8) +
                  "/Filter/DCTDecode/Length " + std::to_string(bytes.size()) + ">>stream\n" + bytes + "\nendstream");
}

int add(PdfFile& file, const Picture& picture) {
  if (const auto jpeg = plainJpeg(picture.bytes))
    return addJpeg(file, picture.bytes, *jpeg);
  QImage image = imageOf(picture);
  return image.isNull() ? 0 : addImage(file, std::move(image));
}

std::string nameOfObject(int object) {
  return "/I" + std::to_string(object);
}

}  // namespace

std::string PdfPictures::nameOf(const Picture& picture) {
  const auto [known, isNew] = objects_.try_emplace(picture.bytes);
  if (isNew)
    known->second = add(file_, picture);
  return known->second == 0 ? std::string() : nameOfObject(known->second);
}

std::string PdfPictures::resources() const {
  std::string entries;
  for (const auto& [bytes, object] : objects_)
    if (object != 0)
      entries += nameOfObject(object) + " " + pdfReference(object);
  return entries;
}

}  // namespace zelvo
