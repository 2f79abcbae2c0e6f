#include "documents/preview/page_view.h"

#include "base/number.h"

namespace zelvo {

Result<void> PageView::take(std::string_view value) {
  const int wanted = CLng(Val(value));
  if (wanted < 1 || wanted > count)
    return Error{Trouble::BadInput, "There is no page " + std::string(value) + "."};
  page = wanted;
  return {};
}

}  // namespace zelvo
