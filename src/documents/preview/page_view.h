#pragma once

#include <cstdint>
#include <string>

#include "form/control.h"
#include "form/ports.h"

namespace zelvo {

/// How large a page is shown: so many percent of its size on paper, or as its window has room.
enum class PageZoom { Percent, FitWidth, WholePage };

/// The pages of a document as they will be printed, one at a time. It says what is to be shown; the face lays the
/// document out, with the same measures as for the printer. As a text it is the number of the page.
class PageView : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::Pages; }
  std::string shown() const override { return count > 0 ? std::to_string(page) : std::string(); }

  PrintJob job;
  std::uint64_t revision = 0;  ///< goes up when the job is another one
  int page = 1;
  int count = 0;  ///< 0 where no pages can be made
  PageZoom zoom = PageZoom::FitWidth;
  int percent = 100;  ///< of Percent

 protected:
  Result<void> take(std::string_view value) override;
};

}  // namespace zelvo
