#include "documents/labels/label_printer.h"

#include "documents/labels/label_frm.h"

namespace zelvo {

Result<bool> LabelPrinter::print(const std::vector<LabelText>& labels, std::string_view title) {
  LabelFrm setUp(desk_, settings_);
  desk_.screens.showModal(setUp);
  if (!setUp.accepted() || desk_.ended())
    return false;
  const auto printed = printLabels(desk_, labels, settings_, title);
  if (!printed)
    return printed.error();
  settings_.start = printed->next;
  return true;
}

}  // namespace zelvo
