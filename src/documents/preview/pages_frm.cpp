#include "documents/preview/pages_frm.h"

#include <algorithm>

#include "base/files.h"
#include "base/number.h"

namespace zelvo {

namespace {

constexpr std::string_view kFitWidth = "Fit width";
constexpr std::string_view kWholePage = "Whole page";
constexpr int kSmallest = 50, kLargest = 400;

}  // namespace

PagesFrm::PagesFrm(Desk& theDesk, const PrintRequest& request)
    : Screen(theDesk, "PagesFrm", request.job.title + " - Preview"), request_(request) {
  request_.job.options.preview = request_.job.options.viewFirst = false;
  Pages1.job = request_.job;
  cboZoom.freeText = false;
  cboZoom.items = {
      std::string(kFitWidth), std::string(kWholePage), "50 %", "75 %", "100 %", "150 %", "200 %", "300 %", "400 %"};
  cboZoom.text = kFitWidth;
  cmdFirst.tip = "First page (Ctrl+Home)";
  cmdPrev.tip = "Previous page (Alt+Left)";
  cmdNext.tip = "Next page (Alt+Right)";
  cmdLast.tip = "Last page (Ctrl+End)";
  cmdClose.isCancel = true;
  bindButtons();
  const auto count = desk.printing.countPages(request_.job);
  Pages1.count = count ? *count : 0;
  if (!count)
    showStatus(count.error().message);
  setFocus(Pages1);
  showPage();
}

void PagesFrm::bindButtons() {
  onClick(cmdFirst, [this] { turnTo(1); });
  onClick(cmdPrev, [this] { turnTo(Pages1.page - 1); });
  onClick(cmdNext, [this] { turnTo(Pages1.page + 1); });
  onClick(cmdLast, [this] { turnTo(Pages1.count); });
  onEdit(cboZoom, [this] { chooseZoom(); });
  onEdit(Pages1, [this] { showPage(); });
  onClick(cmdPrint, [this] { cmdPrint_Click(); });
  onClick(cmdPdf, [this] { cmdPdf_Click(); });
  onClick(cmdClose, [this] { closeMe(); });
}

void PagesFrm::turnTo(int page) {
  Pages1.page = std::clamp(page, 1, std::max(1, Pages1.count));
  setFocus(Pages1);
  showPage();
}

void PagesFrm::showPage() {
  const bool any = Pages1.count > 0;
  lblPage.caption = any ? "Page " + std::to_string(Pages1.page) + " of " + std::to_string(Pages1.count) : "No pages";
  cmdFirst.enabled = cmdPrev.enabled = any && Pages1.page > 1;
  cmdNext.enabled = cmdLast.enabled = Pages1.page < Pages1.count;
}

void PagesFrm::chooseZoom() {
  Pages1.zoom = cboZoom.text == kFitWidth    ? PageZoom::FitWidth
                : cboZoom.text == kWholePage ? PageZoom::WholePage
                                             : PageZoom::Percent;
  if (Pages1.zoom == PageZoom::Percent)
    Pages1.percent = std::clamp<int>(CInt(Val(cboZoom.text)), kSmallest, kLargest);
  setFocus(Pages1);
}

void PagesFrm::cmdPrint_Click() {
  showStatus("Printing to default printer...");
  const auto printed = printNow(desk, request_);
  showStatus("");
  if (!printed)
    return desk.messages.tell(" Print", printed.error().message, Icon::Critical);
  closeMe();
}

void PagesFrm::cmdPdf_Click() {
  const auto copy = desk.printing.copyOf(request_.job);
  if (!copy)
    return desk.messages.tell(" Print", copy.error().message, Icon::Critical);
  const auto path = desk.pickers.saveFile({"Save as PDF", "PDF files (*.pdf)|*.pdf", {}},
                                          fileNameFor(request_.job.title, copy->extension));
  if (!path)
    return;
  const auto written = replaceFile(*path, copy->bytes);
  written ? showStatus("Saved as " + *path) : desk.messages.tell(" Print", written.error().message, Icon::Critical);
}

}  // namespace zelvo
