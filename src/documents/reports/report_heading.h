#pragma once

#include <string>
#include <string_view>

namespace zelvo {

/// A rich-text heading of the office, opened up so that a listing can follow it in the same file. The heading itself
/// stays as the office made it; what it has in the margin of its pages stands on the first page alone, as the next ones
/// carry the heads of the columns there.
class ReportHeading {
 public:
  /// An empty text gives an empty heading.
  explicit ReportHeading(std::string_view rtf);

  /// The number under which the listing's own font is entered, "Courier New".
  int font() const { return font_; }
  /// Whether the heading brings a footer of its own.
  bool hasFooter() const { return hasFooter_; }
  /// The file up to the place where the listing goes on; the brace that closes it is left to the listing. `setUp` is
  /// rich-text source that comes before the first text: paper, margins, headers.
  std::string opened(std::string_view setUp) const;

 private:
  struct Scan;
  std::string rtf_;
  int font_ = 0;
  bool hasFooter_ = false;
  bool textOpen_ = false;    // the last paragraph is not ended
  std::size_t setUpAt_ = 0;  // where the text begins
  std::size_t end_ = 0;      // where the file is closed
};

}  // namespace zelvo
