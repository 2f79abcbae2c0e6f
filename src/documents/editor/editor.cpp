#include "documents/editor/editor.h"

#include "base/files.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::string_view kRichTexts = "Rich text documents (*.rtf)|*.rtf|All Files|*.*";

std::string withExtension(const std::string& path) {
  return fileNameOf(path).find('.') == std::string::npos ? path + ".rtf" : path;
}

}  // namespace

Editor::Editor(Desk& theDesk) : Screen(theDesk, "Editor", "Editor"), format_(*this, theDesk, RichTextBox1) {
  cmdOpen.tip = "Open a rich-text file (Ctrl+O)";
  cmdSave.tip = "Save (Ctrl+S)";
  cmdSaveAs.tip = "Save under another name";
  cmdPreview.tip = "Show the pages as they will be printed";
  cmdPrint.tip = "Print (Ctrl+P)";
  txtFind.tip = "Words to look for (Ctrl+F)";
  cmdFind.tip = "Find the next place (F3)";
  cmdFind.isDefault = true;
  bindFiles();
  bindFormat();
  onEdit(RichTextBox1, [this] { showState(); });
  onEdit(txtFind, [this] { showStatus(""); });
  onClick(cmdFind, [this] { findNext(); });
  setFocus(RichTextBox1);
  showState();
}

void Editor::bindFiles() {
  onClick(cmdOpen, [this] { cmdOpen_Click(); });
  onClick(cmdSave, [this] { save(); });
  onClick(cmdSaveAs, [this] { saveAs(); });
  onClick(cmdPreview, [this] { cmdPreview_Click(); });
  onClick(cmdPrint, [this] { cmdPrint_Click(); });
  onClick(cmdQuit, [this] { Form_Close(); });
}

// The user writes on at once, whatever tool was used.
void Editor::bindFormat() {
  format_.bind([this](Control& control, std::function<void()> doing) { onClick(control, std::move(doing)); },
               [this](Control& control, std::function<void()> doing) { onEdit(control, std::move(doing)); },
               [this] {
                 setFocus(RichTextBox1);
                 showState();
               });
}

std::string Editor::name() const {
  if (request_)
    return request_->job.title;
  return path_.empty() ? "New document" : fileNameOf(path_);
}

void Editor::showState() {
  format_.refresh();
  caption = name() + (RichTextBox1.changed() ? " *" : "") + " - Editor";
}

Result<void> Editor::edit(const PrintRequest& request) {
  if (!mayGiveUp())
    return Error{Trouble::Cancelled, "\"" + request.job.title + "\" was not opened: \"" + name() +
                                         "\" is still being written.\nSave or print that first, and print again."};
  const auto letter = readBytes(request.job.rtfPath);
  const Result<void> loaded = letter ? RichTextBox1.load(*letter) : Result<void>(letter.error());
  if (!loaded)
    return loaded;
  request_ = request;
  path_.clear();
  setFocus(RichTextBox1);
  showStatus("Change the letter as it is wanted, and print it from here.");
  showState();
  return {};
}

void Editor::cmdOpen_Click() {
  if (!mayGiveUp())
    return;
  const auto path = desk.pickers.openFile({"Open", std::string(kRichTexts), desk.session.formsFolder});
  if (!path)
    return;
  const auto letter = readBytes(*path);
  const Result<void> loaded = letter ? RichTextBox1.load(*letter) : Result<void>(letter.error());
  if (!loaded)
    return desk.messages.tell(" Open", "\"" + *path + "\" cannot be opened.\n" + loaded.error().message,
                              Icon::Exclamation);
  path_ = *path;
  request_.reset();
  showStatus("");
  setFocus(RichTextBox1);
  showState();
}

// A merged letter is no file of the office yet, and a template is never overwritten by one.
bool Editor::save() {
  return path_.empty() ? saveAs() : saveTo(path_);
}

bool Editor::saveAs() {
  const std::string proposed = path_.empty() ? fileNameFor(name(), ".rtf") : fileNameOf(path_);
  const auto path = desk.pickers.saveFile({"Save as", std::string(kRichTexts), {}}, proposed);
  return path && saveTo(withExtension(*path));
}

bool Editor::saveTo(const std::string& path) {
  if (const auto written = replaceFile(path, RichTextBox1.richText()); !written) {
    desk.messages.tell(" Save", written.error().message, Icon::Critical);
    return false;
  }
  path_ = path;
  RichTextBox1.noteStored();
  showStatus("Saved as " + path);
  showState();
  return true;
}

bool Editor::mayGiveUp() {
  if (!RichTextBox1.changed())
    return true;
  const Answer answer = desk.messages.ask({" Editor", "\"" + name() + "\" was changed.\nSave the changes?",
                                           Buttons::YesNoCancel, Icon::Question, Answer::Yes});
  return answer == Answer::No || (answer == Answer::Yes && save());
}

void Editor::Form_Close() {
  if (mayGiveUp())
    closeMe();
}

// Goes on from the top when nothing more is found below.
void Editor::findNext() {
  const Document& letter = RichTextBox1.document();
  auto found = findText(letter, txtFind.text, RichTextBox1.selection().to, chkCase.checked);
  const bool fromTop = !found;
  if (fromTop)
    found = findText(letter, txtFind.text, {}, chkCase.checked);
  if (txtFind.text.empty() || !found) {
    showStatus(txtFind.text.empty() ? "" : "\"" + txtFind.text + "\" was not found.");
    return setFocus(txtFind, true);
  }
  showStatus(fromTop ? "Searched on from the top of the letter." : "");
  RichTextBox1.select(*found);
  showState();
}

// What goes to paper is always in "\tmp.rtf", changed or not.
Result<PrintRequest> Editor::asPrinted() {
  PrintRequest request = request_.value_or(PrintRequest{{name(), {}, desk.session.print}, {}});
  request.job.rtfPath = joinPath(desk.session.programFolder, "\\tmp.rtf");
  request.job.options.viewFirst = request.job.options.preview = false;
  if (const auto written = replaceFile(request.job.rtfPath, RichTextBox1.richText()); !written)
    return written.error();
  return request;
}

void Editor::cmdPreview_Click() {
  auto request = asPrinted();
  if (request)
    request->job.options.preview = true;
  const Result<void> shown = request ? deliver(desk, *request) : Result<void>(request.error());
  if (!shown)
    desk.messages.tell(" Print", shown.error().message, Icon::Critical);
}

// The printer of a record's letter was chosen with its options.
void Editor::cmdPrint_Click() {
  auto request = asPrinted();
  if (request && !request_ && !desk.printing.choosePrinter(request->job.options))
    return;
  showStatus("Printing to default printer...");
  const Result<void> printed = request ? printNow(desk, *request) : Result<void>(request.error());
  showStatus("");
  if (!printed)
    return desk.messages.tell(" Print", printed.error().message, Icon::Critical);
  if (request_)
    RichTextBox1.noteStored();  // it is on paper; nobody is asked about it any more
  showState();
}

}  // namespace zelvo
