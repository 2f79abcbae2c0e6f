#include "ui/printing/pdf_file.h"

#include <QByteArray>
#include <QChar>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/text.h"

namespace zelvo {

PdfFile::PdfFile() : bytes_("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n") {}

int PdfFile::reserve() {
  places_.push_back(0);
  return static_cast<int>(places_.size());
}

void PdfFile::write(int number, std::string_view object) {
  places_[static_cast<std::size_t>(number) - 1] = bytes_.size();
  bytes_.append(std::to_string(number)).append(" 0 obj\n").append(object).append("\nendobj\n");
}

int PdfFile::add(std::string_view object) {
  const int number = reserve();
  write(number, object);
  return number;
}

int PdfFile::addPacked(std::string_view packed, std::string_view entries) {
  std::string object = "<</Filter/FlateDecode/Length " + std::to_string(packed.size());
  object.append(entries).append(">>stream\n").append(packed).append("\nendstream");
  return add(object);
}

std::string PdfFile::finish(int catalogue, int information) {
  const std::size_t list = bytes_.size();
  const std::string count = std::to_string(places_.size() + 1);
  bytes_ += "xref\n0 " + count + "\n0000000000 65535 f \n";
  for (const std::size_t place : places_) {
    const std::string digits = std::to_string(place);
    bytes_.append(10 - digits.size(), '0').append(digits).append(" 00000 n \n");
  }
  bytes_ += "trailer\n<</Size " + count + "/Root " + pdfReference(catalogue) + "/Info " + pdfReference(information) +
            ">>\nstartxref\n" + std::to_string(list) + "\n%%EOF\n";
  return std::move(bytes_);
}

std::string packedForPdf(std::string_view bytes, bool thoroughly) {
  constexpr std::size_t mostThoroughly = 500'000;
  constexpr qsizetype lengthInFront = 4;
  const QByteArray packed =
      qCompress(reinterpret_cast<const uchar*>(bytes.data()), static_cast<qsizetype>(bytes.size()),
                thoroughly && bytes.size() <= mostThoroughly ? 6 : 1);
  return {packed.constData() + lengthInFront, static_cast<std::size_t>(packed.size() - lengthInFront)};
}

void appendPdfHex(std::string& object, unsigned number, int digits) {
  constexpr std::string_view hex = "0123456789abcdef";
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
    object += hex[number >> shift & 0xF];
}

void appendPdfCharacter(std::string& object, char32_t character) {
  if (character > 0xFFFF) {
    appendPdfHex(object, QChar::highSurrogate(character), 4);
    character = QChar::lowSurrogate(character);
  }
  appendPdfHex(object, character, 4);
}

std::string pdfText(std::string_view text) {
  std::string object = "<feff";
  for (std::size_t position = 0; position < text.size();)
    appendPdfCharacter(object, nextCharacter(text, position));
  return object + ">";
}

void appendThousandths(std::string& object, long long thousandths) {
  if (thousandths < 0)
    object += '-';
  const long long size = std::llabs(thousandths);
  char digits[24];
  const auto whole = std::to_chars(digits, digits + sizeof digits, size / 1000);
  object.append(digits, whole.ptr);
  if (const int part = static_cast<int>(size % 1000); part != 0) {
    object += '.';
    object += static_cast<char>('0' + part / 100);
    object += static_cast<char>('0' + part / 10 % 10);
    object += static_cast<char>('0' + part % 10);
  }
  object += ' ';
}

long long pdfLength(double twips) {
  constexpr double thousandthsATwip = 50;
  return std::llround(twips * thousandthsATwip);
}

void appendLengths(std::string& object, std::initializer_list<double> twips) {
  for (const double length : twips)
    appendThousandths(object, pdfLength(length));
}

std::string pdfReference(int number) {
  return std::to_string(number) + " 0 R";
}

}  // namespace zelvo
