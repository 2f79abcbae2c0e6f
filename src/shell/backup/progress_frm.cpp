#include "shell/backup/progress_frm.h"

#include <exception>

#include "base/number.h"

namespace zelvo {

ProgressFrm::ProgressFrm(Desk& itsDesk, std::string_view itsCaption, std::string_view explanation, Work work)
    : Screen(itsDesk, "progressfrm", itsCaption), work_(std::move(work)) {
  lblWhat.caption = explanation;
  cmdCancel.isCancel = true;
  onClick(cmdCancel, [this] { cmdCancel_Click(); });
}

// It takes effect between two files.
void ProgressFrm::cmdCancel_Click() {
  cancelled_ = true;
  cmdCancel.enabled = false;
  lblStep.caption = "Cancelling..";
}

void ProgressFrm::Form_Activate(bool first) {
  if (!first)
    return;
  outcome_ = doWork();
  closeMe();
}

Result<void> ProgressFrm::doWork() {
  try {
    return work_(*this);
  } catch (const std::exception& trouble) {
    return Error{Trouble::Failed, trouble.what()};
  }
}

Result<void> ProgressFrm::goesOn(std::string_view what, double done) {
  lblBar.caption = numberPicture(100 * done, "#0") + " %";
  if (!cancelled_)
    lblStep.caption = what;
  desk.face.listen();
  if (cancelled_ || desk.ended())
    return Error{Trouble::Cancelled, "It was cancelled."};
  return {};
}

}  // namespace zelvo
