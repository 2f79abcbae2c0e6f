#pragma once

#include "documents/editor/format_bar.h"
#include "form/screen.h"

namespace zelvo {

/// The office's letterhead, which stands over reports and where letters have "%mh". It lies as rich text in
/// "\gTitle.rtf" of the forms folder, and what is saved here counts at once.
class HeaderFrm : public Screen {
 public:
  explicit HeaderFrm(Desk& desk);

  /// Shows the letterhead as the forms folder has it; an office without one begins with an empty one.
  void Loadheader();

 private:
  void Form_Close() override;
  void showState();
  bool save();
  bool mayGiveUp();
  std::string path() const;

  FormatBar format_;
  RichTextBox RichTextBox1{*this, "RichTextBox1"};
  Label lblHint{*this, "lblHint"};
  Button cmdSave{*this, "cmdSave", "&Save"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
};

}  // namespace zelvo
