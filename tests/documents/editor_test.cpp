#include "documents/editor/editor.h"

#include "documents/document_reader.h"
#include "documents/preview/pages_frm.h"
#include "writing_office.h"

namespace zelvo::testing {
namespace {

TEST_F(WritingOffice, ALetterThatNobodyChangedIsStoredAsItWas) {
  Editor& editor = openNotice();
  const std::string before = notice();
  EXPECT_EQ(words(editor), "Dear %nm,\nYour permit expires.");
  EXPECT_EQ(editor.caption, "notice.rtf - Editor");
  at.click(editor, "cmdSave");
  EXPECT_EQ(notice(), before);
  select(editor, "permit");
  at.click(editor, "chkItalic");
  EXPECT_EQ(editor.caption, "notice.rtf * - Editor");
  at.click(editor, "cmdUndo");
  at.click(editor, "cmdSave");
  EXPECT_EQ(notice(), before) << "a change taken back is none";
}

TEST_F(WritingOffice, WhatIsChangedIsStoredAndTheRestOfTheLetterStays) {
  Editor& editor = openNotice();
  select(editor, "PERMIT");
  EXPECT_EQ(at.shown(editor, "chkBold"), "1") << "the tools show what is selected";
  at.click(editor, "chkUnderline");
  at.set(editor, "cboSize", "14");
  at.set(editor, "cboFont", "courier new");
  at.click(editor, "optCenter");
  at.click(editor, "cmdSave");
  const Document stored = readDocument(notice());
  Document wanted = editor.text().document();
  EXPECT_TRUE(stored == wanted);
  ASSERT_EQ(stored.body.size(), 2u);
  EXPECT_EQ(plainText(stored.header.front()), "Town of Alder Glen") << "what the editor does not show";
  const auto& first = std::get<Paragraph>(stored.body[0]);
  ASSERT_EQ(first.style.tabs.size(), 1u);
  EXPECT_EQ(first.style.tabs.front().leader, TabLeader::Dots);
  const auto& second = std::get<Paragraph>(stored.body[1]);
  EXPECT_EQ(second.style.alignment, Alignment::Center);
  EXPECT_EQ(second.runs[1].text, "permit");
  EXPECT_EQ(second.runs[1].style.font, (TextFont{"Courier New", 14, true, false}));
  EXPECT_TRUE(second.runs[1].style.underline);
  EXPECT_FALSE(second.runs[0].style.underline);
}

TEST_F(WritingOffice, NothingChangedIsGivenUpUnasked) {
  Editor& editor = openNotice();
  const std::string before = notice();
  at.set(editor, "RichTextBox1", "Gone");
  at.expect(" Editor", "\"notice.rtf\" was changed.\nSave the changes?", Answer::Cancel);
  at.click(editor, "cmdQuit");
  EXPECT_TRUE(at.screens.isOpen(editor));
  EXPECT_EQ(words(editor), "Gone");
  at.expect(" Editor", "\"notice.rtf\" was changed.\nSave the changes?", Answer::No);
  editor.userCloses();
  EXPECT_EQ(notice(), before);

  Editor& again = openNotice();
  at.set(again, "RichTextBox1", "Kept");
  at.expect(" Editor", "\"notice.rtf\" was changed.\nSave the changes?", Answer::Yes);
  again.userCloses();
  EXPECT_FALSE(at.screens.isOpen(again));
  EXPECT_EQ(plainText(readDocument(notice())), "Kept\n");
}

TEST_F(WritingOffice, WhatIsNoRichTextIsNotOpenedAndAFolderThatRefusesLosesNothing) {
  Editor& editor = openNotice();
  folder.write("list.rtf", "plain words");
  at.pick(folder.file("list.rtf"));
  at.expect(" Open", "\"" + folder.file("list.rtf") + "\" cannot be opened.\nThis is no rich text.");
  at.click(editor, "cmdOpen");
  EXPECT_EQ(editor.caption, "notice.rtf - Editor");
  at.set(editor, "RichTextBox1", "Typed");
  at.pick(folder.file("nowhere/letter"));
  at.expect(" Save", "...");
  at.click(editor, "cmdSaveAs");
  EXPECT_EQ(words(editor), "Typed");
  at.pick(folder.file("letter"));
  at.click(editor, "cmdSaveAs");
  EXPECT_TRUE(FileExists(folder.file("letter.rtf")));
}

TEST_F(WritingOffice, FindGoesOnAndBeginsAgainAtTheTop) {
  Editor& editor = openNotice();
  select(editor, "e");
  EXPECT_EQ(editor.text().selection(), (TextRange{{0, 1}, {0, 2}}));
  at.click(editor, "cmdFind");
  EXPECT_EQ(editor.text().selection(), (TextRange{{1, 6}, {1, 7}}));
  for (int more = 0; more < 3; ++more)
    at.click(editor, "cmdFind");
  EXPECT_EQ(editor.text().selection(), (TextRange{{0, 1}, {0, 2}}));
  EXPECT_EQ(editor.status, "Searched on from the top of the letter.");
  at.set(editor, "chkCase", "1");
  select(editor, "PERMIT");
  EXPECT_EQ(editor.status, "\"PERMIT\" was not found.");
}

TEST_F(WritingOffice, WordsAreMovedWithTheirLook) {
  Editor& editor = openNotice();
  EXPECT_FALSE(at.control(editor, "cmdCut").enabled) << "nothing is selected";
  select(editor, "permit");
  at.click(editor, "cmdCut");
  EXPECT_EQ(words(editor), "Dear %nm,\nYour  expires.");
  EXPECT_EQ(at.desk.desktop.clipboard(), "permit");
  select(editor, "Dear");
  at.click(editor, "cmdPaste");
  EXPECT_EQ(words(editor), "permit %nm,\nYour  expires.");
  EXPECT_EQ(at.shown(editor, "chkBold"), "1");
  at.desk.desktop.setClipboard("one\r\ntwo");
  at.click(editor, "cmdPaste");
  EXPECT_EQ(words(editor), "permitone\ntwo %nm,\nYour  expires.");
  for (const char* text :
       {"permit %nm,\nYour  expires.", "Dear %nm,\nYour  expires.", "Dear %nm,\nYour permit expires."}) {
    at.click(editor, "cmdUndo");
    EXPECT_EQ(words(editor), text);
  }
  EXPECT_FALSE(at.control(editor, "cmdUndo").enabled);
  at.click(editor, "cmdRedo");
  EXPECT_EQ(words(editor), "Dear %nm,\nYour  expires.");
}

// ---- letters on their way to paper

TEST_F(WritingOffice, AMergedLetterIsChangedThenPrintedThenKept) {
  at.session.print.viewFirst = at.session.print.keepCopy = true;
  letters.context.name = "Smith, John";
  std::vector<std::string> kept;
  const KeepCopy keep = [&](const PrintedCopy& copy) -> Result<void> {
    kept.push_back(copy.bytes + copy.extension);
    return {};
  };
  ASSERT_TRUE(letters.print("notice.rtf", "Permit Notice", keep).ok());
  EXPECT_TRUE(at.printed.empty()) << "not before the clerk has seen it";
  auto& editor = dynamic_cast<Editor&>(*at.screens.front());
  EXPECT_EQ(words(editor), "Dear Smith, John,\nYour permit expires.");
  select(editor, "expires");
  editor.text().insert("has expired");
  at.click(editor, "cmdPrint");
  ASSERT_EQ(at.printed.size(), 1u);
  EXPECT_EQ(at.printed[0].title, "Permit Notice");
  EXPECT_FALSE(at.printed[0].options.viewFirst);
  EXPECT_EQ(plainText(readDocument(folder.read("tmp.rtf"))), "Dear Smith, John,\nYour permit has expired.\n");
  EXPECT_EQ(kept, std::vector<std::string>{"pages of Permit Notice.pdf"});
  at.click(editor, "cmdQuit");
  EXPECT_FALSE(at.screens.isOpen(editor)) << "what is on paper is not asked about";
}

TEST_F(WritingOffice, AQueueThatRefusesLosesNothing) {
  at.session.print.viewFirst = true;
  ASSERT_TRUE(letters.print("notice.rtf", "Permit Notice").ok());
  auto& editor = dynamic_cast<Editor&>(*at.screens.front());
  at.set(editor, "RichTextBox1", "Written by hand");
  at.printerSays = Error{Trouble::Failed, "The queue does not take it."};
  at.expect(" Print", "The queue does not take it.");
  at.click(editor, "cmdPrint");
  EXPECT_EQ(words(editor), "Written by hand");
  EXPECT_EQ(plainText(readDocument(folder.read("tmp.rtf"))), "Written by hand\n");
  at.expect(" Editor", "\"Permit Notice\" was changed.\nSave the changes?", Answer::Cancel);
  at.click(editor, "cmdQuit");
  EXPECT_TRUE(at.screens.isOpen(editor)) << "it is on no paper yet";
}

TEST_F(WritingOffice, ALetterUnderTheHandsIsNotPushedAsideByTheNextOne) {
  Editor& editor = openNotice();
  at.set(editor, "RichTextBox1", "Half a letter");
  at.session.print.viewFirst = true;
  at.expect(" Editor", "\"notice.rtf\" was changed.\nSave the changes?", Answer::Cancel);
  const auto refused = letters.print("notice.rtf", "Permit Notice");
  ASSERT_FALSE(refused.ok());
  EXPECT_EQ(words(editor), "Half a letter");
}

TEST_F(WritingOffice, PagesAreLookedAtThenPrinted) {
  at.session.print.preview = true;
  at.when("PagesFrm", [&](Screen& pages) {
    EXPECT_EQ(pages.caption, "Permit Notice - Preview");
    EXPECT_EQ(at.shown(pages, "lblPage"), "Page 1 of 3");
    EXPECT_FALSE(at.control(pages, "cmdPrev").enabled);
    at.click(pages, "cmdNext");
    at.set(pages, "Pages1", "3");
    EXPECT_EQ(at.shown(pages, "lblPage"), "Page 3 of 3");
    EXPECT_FALSE(at.control(pages, "cmdNext").enabled);
    EXPECT_FALSE(pages.userSets(at.control(pages, "Pages1"), "4").ok());
    at.set(pages, "cboZoom", "150 %");
    EXPECT_EQ(dynamic_cast<PageView&>(at.control(pages, "Pages1")).percent, 150);
    at.pick(folder.file("notice.pdf"));
    at.click(pages, "cmdPdf");
    at.click(pages, "cmdPrint");
  });
  ASSERT_TRUE(letters.print("notice.rtf", "Permit Notice").ok());
  EXPECT_EQ(at.printed.size(), 1u);
  EXPECT_EQ(folder.read("notice.pdf"), "pages of Permit Notice");
  ASSERT_TRUE(letters.print("notice.rtf", "Permit Notice").ok());
  EXPECT_EQ(at.printed.size(), 2u) << "asked for once, not for ever";
}

TEST_F(WritingOffice, ACopyThatCannotBeKeptIsHeardOf) {
  at.session.print.keepCopy = true;
  const KeepCopy full = [](const PrintedCopy&) -> Result<void> { return Error{Trouble::Full, "The disk is full."}; };
  const auto printed = letters.print("notice.rtf", "Permit Notice", full);
  ASSERT_FALSE(printed.ok());
  EXPECT_EQ(printed.error().message,
            "\"Permit Notice\" was printed, but no copy of it could be kept with the record.\nThe disk is full.");
  EXPECT_EQ(at.printed.size(), 1u);
}

// ---- the letterhead

TEST_F(WritingOffice, TheLetterheadIsSavedAndStandsInTheNextLetter) {
  folder.write("forms/head.rtf", "{\\rtf1 %mh\\par}");
  at.session.reportHeader = "Old plain words";
  at.when("HeaderFrm", [&](Screen& header) {
    EXPECT_EQ(words(header), "Old plain words");
    EXPECT_FALSE(at.control(header, "cmdSave").enabled);
    at.set(header, "RichTextBox1", "Town of Alder Glen\nBuilding Department");
    at.click(header, "optCenter");
    at.click(header, "cmdSave");
  });
  ASSERT_TRUE(at.screens.showModal("HeaderFrm"));
  EXPECT_EQ(plainText(readDocument(folder.read("forms/gTitle.rtf"))), "Town of Alder Glen\nBuilding Department\n");
  ASSERT_TRUE(letters.print("head.rtf", "Heading").ok());
  EXPECT_EQ(plainText(readDocument(folder.read("tmp.rtf"))), "Town of Alder Glen\nBuilding Department\n");

  at.when("HeaderFrm", [&](Screen& header) {
    EXPECT_EQ(words(header), "Town of Alder Glen\nBuilding Department");
    at.set(header, "RichTextBox1", "Nothing");
    at.expect(" Report Header", "The report header was changed.\nSave the changes?", Answer::No);
    at.click(header, "cmdCancel");
  });
  ASSERT_TRUE(at.screens.showModal("HeaderFrm"));
  EXPECT_EQ(plainText(readDocument(at.session.reportHeader)), "Town of Alder Glen\nBuilding Department\n");
}

}  // namespace
}  // namespace zelvo::testing
