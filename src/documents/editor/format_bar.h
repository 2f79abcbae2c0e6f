#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "documents/editor/rich_text_box.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The tools over a letter that is being written: font, size, bold, italic, underline, alignment, undo and redo, cut,
/// copy and paste. They show what the selected words look like, and change them. The controls belong to the screen;
/// the screen binds them, and calls refresh after whatever changes the letter or its selection.
class FormatBar {
 public:
  FormatBar(Screen& screen, Desk& desk, RichTextBox& text);

  void refresh();
  /// Lets the screen run what each control does when it is clicked or changed, and `after` behind it.
  using Binding = std::function<void(Control&, std::function<void()>)>;
  void bind(const Binding& onClick, const Binding& onEdit, const std::function<void()>& after);

  Button cmdUndo, cmdRedo, cmdCut, cmdCopy, cmdPaste;
  Combo cboFont, cboSize;
  CheckBox chkBold, chkItalic, chkUnderline;
  Option optLeft, optCenter, optRight, optJustify;

 private:
  std::vector<std::pair<Control*, std::function<void()>>> deeds();
  void offerFonts();
  void chooseFont();
  void chooseSize();
  void chooseAlignment();
  void cut();
  void copy();
  void paste();

  Desk& desk_;
  RichTextBox& text_;
};

}  // namespace zelvo
