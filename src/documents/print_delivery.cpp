#include "documents/print_delivery.h"

#include "documents/editor/editor.h"
#include "documents/preview/pages_frm.h"

namespace zelvo {

namespace {

Result<void> keepCopy(Desk& desk, const PrintRequest& request) {
  const auto copy = desk.printing.copyOf(request.job);
  const Result<void> kept = copy ? request.keep(*copy) : Result<void>(copy.error());
  if (kept)
    return kept;
  return Error{kept.error().trouble, "\"" + request.job.title +
                                         "\" was printed, but no copy of it could be kept with the record.\n" +
                                         kept.error().message};
}

Result<void> openInEditor(Desk& desk, const PrintRequest& request) {
  auto* editor = dynamic_cast<Editor*>(desk.screens.open("Editor"));
  if (!editor)
    return Error{Trouble::NotFound, "The editor is not part of this program. Print without changing the form first."};
  return editor->edit(request);
}

}  // namespace

Result<void> printNow(Desk& desk, const PrintRequest& request) {
  if (auto printed = desk.printing.print(request.job); !printed)
    return printed;
  return request.keep && request.job.options.keepCopy ? keepCopy(desk, request) : Result<void>();
}

Result<void> deliver(Desk& desk, const PrintRequest& request) {
  desk.session.print.preview = false;  // the next document is asked about anew
  if (request.job.options.preview) {
    PagesFrm pages(desk, request);
    desk.screens.showModal(pages);
    return {};
  }
  return request.job.options.viewFirst ? openInEditor(desk, request) : printNow(desk, request);
}

}  // namespace zelvo
