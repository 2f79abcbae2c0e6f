#include "documents/editor/header_frm.h"

#include "base/files.h"

namespace zelvo {

HeaderFrm::HeaderFrm(Desk& theDesk)
    : Screen(theDesk, "HeaderFrm", "Report Header"), format_(*this, theDesk, RichTextBox1) {
  lblHint.caption = "Stands over reports, and where a letter has %mh.";
  cmdCancel.isCancel = true;
  format_.bind([this](Control& control, std::function<void()> doing) { onClick(control, std::move(doing)); },
               [this](Control& control, std::function<void()> doing) { onEdit(control, std::move(doing)); },
               [this] {
                 setFocus(RichTextBox1);
                 showState();
               });
  onEdit(RichTextBox1, [this] { showState(); });
  onClick(cmdSave, [this] {
    if (save())
      closeMe();
  });
  onClick(cmdCancel, [this] { Form_Close(); });
  Loadheader();
  setFocus(RichTextBox1);
}

std::string HeaderFrm::path() const {
  return joinPath(desk.session.formsFolder, "\\gTitle.rtf");
}

// An older letterhead may be plain words.
void HeaderFrm::Loadheader() {
  const std::string header = readBytes(path()).valueOr(desk.session.reportHeader);
  if (!RichTextBox1.load(header)) {
    static_cast<void>(RichTextBox1.load({}));
    RichTextBox1.insert(header);
    RichTextBox1.noteStored();
  }
  showState();
}

void HeaderFrm::showState() {
  format_.refresh();
  cmdSave.enabled = RichTextBox1.changed();
}

bool HeaderFrm::save() {
  const std::string header = RichTextBox1.richText();
  if (const auto written = replaceFile(path(), header); !written) {
    desk.messages.tell(" " + caption, written.error().message, Icon::Critical);
    return false;
  }
  desk.session.reportHeader = header;
  RichTextBox1.noteStored();
  return true;
}

bool HeaderFrm::mayGiveUp() {
  if (!RichTextBox1.changed())
    return true;
  const Answer answer = desk.messages.ask({" " + caption, "The report header was changed.\nSave the changes?",
                                           Buttons::YesNoCancel, Icon::Question, Answer::Yes});
  return answer == Answer::No || (answer == Answer::Yes && save());
}

void HeaderFrm::Form_Close() {
  if (mayGiveUp())
    closeMe();
}

}  // namespace zelvo
