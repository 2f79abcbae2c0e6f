#pragma once

#include <gtest/gtest.h>

#include "base/files.h"
#include "documents/editor/editor.h"
#include "documents/editor/header_frm.h"
#include "documents/letter.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {

/// An office with one letter in its forms folder, and the screens that letters are written in.
class WritingOffice : public ::testing::Test {
 protected:
  WritingOffice() {
    at.session.programFolder = folder.path();
    at.session.formsFolder = folder.file("forms");
    folder.write("forms/notice.rtf",
                 "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\header Town of Alder Glen\\par}\\pard\\tqr\\tldot\\tx9000 "
                 "Dear %nm,\\par\r\n\\pard\\b Your permit\\b0  expires.\\par\r\n}");
    at.screens.learn("Editor", [](Desk& desk) { return std::make_unique<Editor>(desk); });
    at.screens.learn("HeaderFrm", [](Desk& desk) { return std::make_unique<HeaderFrm>(desk); });
  }

  Editor& openEditor() {
    at.screens.sweep();
    return dynamic_cast<Editor&>(*at.screens.open("Editor"));
  }
  /// The notice, opened in the editor by hand.
  Editor& openNotice() {
    Editor& editor = openEditor();
    at.pick(folder.file("forms/notice.rtf"));
    at.click(editor, "cmdOpen");
    return editor;
  }
  std::string notice() { return folder.read("forms/notice.rtf"); }
  /// Finds words and has them selected.
  void select(Screen& editor, std::string_view words) {
    at.set(editor, "txtFind", words);
    at.click(editor, "cmdFind");
  }
  std::string words(Screen& screen) { return at.shown(screen, "RichTextBox1"); }

  TempFolder folder;
  ScriptedDesk at;
  LetterPrinter letters{at.desk};
};

}  // namespace zelvo::testing
