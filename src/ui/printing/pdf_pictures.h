#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "documents/document.h"
#include "ui/printing/pdf_file.h"

namespace zelvo {

/// The pictures of a PDF, made of dots. The same picture goes in once, however often a letter shows it.
class PdfPictures {
 public:
  explicit PdfPictures(PdfFile& file) : file_(file) {}

  /// The name under which a page shows the picture, as a square of one unit each way; empty when the picture cannot be
  /// read. The picture must outlive this.
  std::string nameOf(const Picture& picture);
  /// All of them, as entries of a PDF's resources.
  std::string resources() const;

 private:
  PdfFile& file_;
  std::unordered_map<std::string_view, int> objects_;  // by their bytes; 0: cannot be read
};

}  // namespace zelvo
