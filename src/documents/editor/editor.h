#pragma once

#include <optional>
#include <string>

#include "documents/editor/format_bar.h"
#include "documents/print_delivery.h"
#include "form/screen.h"

namespace zelvo {

/// The text editor: a merged letter is changed here before it is printed, and any rich-text file can be opened, changed
/// and stored. What the clerk did not touch stays as the office made it; nothing that was changed is given up
/// unasked.
class Editor : public Screen {
 public:
  explicit Editor(Desk& desk);

  /// Opens a merged letter, to be changed and then printed as it was asked for. A user who does not want to give up
  /// what is being written is an error.
  Result<void> edit(const PrintRequest& request);

  Button cmdOpen{*this, "cmdOpen", "Open.."};
  Button cmdSave{*this, "cmdSave", "Save"};
  Button cmdSaveAs{*this, "cmdSaveAs", "Save as.."};
  Button cmdPreview{*this, "cmdPreview", "Pre&view"};
  Button cmdPrint{*this, "cmdPrint", "Print"};
  Button cmdQuit{*this, "cmdQuit", "&Quit"};
  RichTextBox& text() { return RichTextBox1; }

 private:
  void Form_Close() override;
  void bindFiles();
  void bindFormat();
  void showState();
  void cmdOpen_Click();
  bool save();
  bool saveAs();
  bool saveTo(const std::string& path);
  bool mayGiveUp();
  void findNext();
  std::string name() const;
  Result<PrintRequest> asPrinted();
  void cmdPreview_Click();
  void cmdPrint_Click();

  std::string path_;                     // of the file; empty: it has none yet
  std::optional<PrintRequest> request_;  // what the letter was merged for

  // In the order of the Tab key, behind the files.
  FormatBar format_;
  Label lblFind{*this, "lblFind", "Find"};
  TextBox txtFind{*this, "txtFind"};
  CheckBox chkCase{*this, "chkCase", "&Match case"};
  Button cmdFind{*this, "cmdFind", "Find &next"};
  RichTextBox RichTextBox1{*this, "RichTextBox1"};
};

}  // namespace zelvo
