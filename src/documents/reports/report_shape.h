#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/reports/report.h"
#include "form/ports.h"

namespace zelvo {

/// A text as one line of at most so many characters; a longer one is cut and ends in "...".
std::string shortened(std::string_view text, std::size_t width);

/// How the columns of a listing stand on letter paper: under the print options where they fit so, else turned, then in
/// smaller letters, and at last with the widest columns narrowed.
class ReportShape {
 public:
  ReportShape(std::span<const ReportColumn> columns, const PrintOptions& options);

  bool landscape() const { return landscape_; }
  int points() const { return points_; }
  /// A row of values as one line of the listing, without blanks at its end.
  std::string line(const std::vector<std::string>& values) const;
  std::string captions() const;
  int width() const;  ///< of a line, in characters

 private:
  bool fits(const PrintOptions& options) const { return width() <= charactersAcross(options); }
  int charactersAcross(const PrintOptions& options) const;
  void narrow();

  struct Column {
    std::string caption;
    std::size_t width;
    bool toRight;
  };
  std::string value(std::string_view value, const Column& column) const;

  std::vector<Column> columns_;
  bool landscape_;
  int points_;
};

}  // namespace zelvo
