#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo {

/// A PDF as a file: numbered objects one behind the other, and the list of their places at the end.
class PdfFile {
 public:
  PdfFile();

  /// A number for an object that others refer to before it is written.
  int reserve();
  void write(int number, std::string_view object);
  int add(std::string_view object);
  /// Bytes that are packed already, with further entries that say what they are.
  int addPacked(std::string_view packed, std::string_view entries);

  /// The whole file; nothing can be added behind.
  std::string finish(int catalogue, int information);

 private:
  std::string bytes_;
  std::vector<std::size_t> places_;
};

/// Packs bytes as a PDF holds them. `thoroughly`: for what is packed once and used again, unless it would take long.
std::string packedForPdf(std::string_view bytes, bool thoroughly);
/// A text as an object of a PDF.
std::string pdfText(std::string_view text);
/// Appends the last so many hexadecimal digits of a number.
void appendPdfHex(std::string& object, unsigned number, int digits);
/// Appends a character in the hexadecimal digits of its units of two bytes.
void appendPdfCharacter(std::string& object, char32_t character);
/// Appends a number of so many thousandths and a blank.
void appendThousandths(std::string& object, long long thousandths);
/// A length in twips as a PDF measures it, in thousandths of a point.
long long pdfLength(double twips);
/// Appends lengths that are given in twips.
void appendLengths(std::string& object, std::initializer_list<double> twips);
/// The other object, as an entry names it.
std::string pdfReference(int number);

}  // namespace zelvo
