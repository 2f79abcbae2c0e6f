#include "ui/writing/qt_letter.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <filesystem>

#include "base/files.h"
#include "documents/document_reader.h"
#include "documents/document_writer.h"
#include "documents/editor/editor.h"
#include "sample_letters.h"
#include "sample_screen.h"

namespace zelvo::testing {
namespace {

TEST(QtLetter, ALetterComesBackFromTheEditorAsItWentIn) {
  for (const auto& [why, letter] : sampleLetters()) {
    QTextDocument text;
    QtLetter converter;
    converter.show(letter, text);
    EXPECT_TRUE(converter.read(text) == letter) << why << "\n"
                                                << writeDocument(letter) << "\n"
                                                << writeDocument(converter.read(text));
  }
}

TEST(QtLetter, TheLettersOfTheOfficeComeBackToo) {
  QTextDocument text;
  const std::filesystem::path project =
      std::filesystem::path(ZELVO_TEST_DATA).parent_path().parent_path().parent_path();
  const std::string forms = (project / "src/app/town/forms").string();
  int seen = 0;
  for (const std::string& name : listFiles(forms, "*.rtf")) {
    const Document letter = readDocument(readBytes(joinPath(forms, name)).value());
    QtLetter converter;
    converter.show(letter, text);
    EXPECT_TRUE(converter.read(text) == letter) << name;
    ++seen;
  }
  EXPECT_GT(seen, 5);
}

TEST(QtLetter, EveryPlaceOfTheLetterIsOneOfTheText) {
  const Document letter = fullLetter();
  QTextDocument text;
  QtLetter converter;
  converter.show(letter, text);
  const auto all = paragraphsOf(letter);
  for (std::size_t i = 0; i < all.size(); ++i)
    for (const std::size_t offset : {std::size_t(0), lengthOf(*all[i]) / 2, lengthOf(*all[i])}) {
      const TextPlace place{i, offset};
      const TextPlace back = converter.placeOf(text, converter.positionOf(text, place));
      EXPECT_LE(std::max(back.offset, offset) - std::min(back.offset, offset), 3u) << i << ", " << offset;
      EXPECT_EQ(back.paragraph, i);
    }
}

TEST(QtLetter, WhatIsTypedTakesNothingElseAlong) {
  QTextDocument text;
  QtLetter converter;
  const Document letter = fullLetter();
  converter.show(letter, text);
  QTextCursor cursor(&text);
  cursor.setPosition(converter.positionOf(text, {0, 6}));
  cursor.insertText("S");
  Document typed = converter.read(text);
  EXPECT_TRUE(typed.header == letter.header);
  auto& heading = std::get<Paragraph>(typed.body.front());
  EXPECT_EQ(plainText(heading), "NOTICES");
  EXPECT_EQ(heading.runs.size(), 1u) << "in the look of the word";
  heading = std::get<Paragraph>(letter.body.front());
  EXPECT_TRUE(typed == letter) << "all the rest is as it was";
}

TEST(QtLetter, WhatIsReadOfAChangeIsWhatTheWholeLetterGives) {
  for (const auto& [why, letter] : sampleLetters()) {
    Hands hands(letter);
    QTextCursor cursor(&hands.text);
    for (int step = 0; step < 300; ++step) {
      hands.act(cursor);
      if (hands.any(4) == 0)
        hands.act(cursor);  // two changes told of at once
      hands.take();
      ASSERT_TRUE(hands.body == hands.converter.read(hands.text).body) << why << ", step " << step;
      if (hands.text.characterCount() < 20) {
        hands.converter.show(letter, hands.text);
        hands.body = letter.body;
      }
    }
  }
}

TEST(QtLetter, AKeyCostsTheLineThatItIsTypedOn) {
  std::string report = "{\\rtf1 ";
  for (int line = 0; line < 2000; ++line)
    report += "26-00001  Smith, John\\par ";
  Hands hands(readDocument(report + "}"));
  QTextCursor cursor(&hands.text);
  cursor.setPosition(hands.text.characterCount() / 2);
  for (int key = 0; key < 100; ++key) {
    cursor.insertText("a");
    hands.take();
  }
  EXPECT_LE(hands.converter.blocksRead(), 100u) << "the rest of the letter is not read again";
  EXPECT_TRUE(hands.body == hands.converter.read(hands.text).body);
}

TEST(QtLetter, APartIsShownAnewInItsPlaceOrNotAtAll) {
  const Document letter = fullLetter();
  Hands hands(letter);
  std::vector<Block> next = letter.body;
  next[0] = next[1];
  next.insert(next.begin() + 1, letter.body[2]);
  ASSERT_TRUE(hands.converter.showPart(next, 0, 1, 2, hands.text));
  EXPECT_TRUE(hands.converter.read(hands.text).body == next);
  const auto row = std::ranges::find_if(next, [](const Block& block) { return block.index() == 1; });
  const auto place = static_cast<std::size_t>(row - next.begin());
  EXPECT_FALSE(hands.converter.showPart(next, place, 1, place + 1, hands.text)) << "a table is shown with the rest";
  EXPECT_TRUE(hands.converter.read(hands.text).body == next);
}

/// The editor in its window, over the sample screen.
class EditorWindow : public WindowTest {
 protected:
  EditorWindow() {
    screens.learn("Editor", [](Desk& desk) { return std::make_unique<Editor>(desk); });
    editor = static_cast<Editor*>(screens.open("Editor"));
    window = house.face.windowOf(*editor);
    screens.close(*screen);
    settle();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == window; }, 2000));
    EXPECT_TRUE(editor->text().load("{\\rtf1 Dear owner,\\par}").ok());
    window->refresh();
    paper = the<QTextEdit>("RichTextBox1");
    paper->setFocus();
  }

  /// Presses a tool by its keys, which shows it pressed for a moment first.
  bool tool(Qt::Key which, const std::function<bool()>& done) {
    key(which, Qt::ControlModifier);
    return QTest::qWaitFor(done, 2000);
  }
  bool isBold() { return lookOf(editor->text().document(), {{0, 12}, {0, 17}}).bold == true; }

  Editor* editor = nullptr;
  QTextEdit* paper = nullptr;
};

TEST_F(EditorWindow, KeysAndToolsWorkOnTheSameLetter) {
  key(Qt::Key_End);
  QTest::keyClicks(paper, " hello");
  settle();
  EXPECT_EQ(editor->text().shown(), "Dear owner, hello");
  EXPECT_TRUE(editor->caption.find('*') != std::string::npos);
  key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(editor->text().selection(), (TextRange{{0, 12}, {0, 17}}));
  EXPECT_TRUE(tool(Qt::Key_B, [this] { return isBold(); }));
  EXPECT_EQ(paper->textCursor().selectedText(), "hello") << "still selected";
  EXPECT_EQ(window->focusWidget(), paper) << "and written on at once";
  EXPECT_TRUE(tool(Qt::Key_X, [this] { return editor->text().shown() == "Dear owner, "; }));
  EXPECT_TRUE(tool(Qt::Key_V, [this] { return editor->text().shown() == "Dear owner, hello"; }));
  EXPECT_TRUE(isBold()) << "it came back as it was";
  key(Qt::Key_Return);
  QTest::keyClicks(paper, "x");
  settle();
  EXPECT_EQ(editor->text().shown(), "Dear owner, hello\nx");
  while (editor->text().canUndo()) {
    const std::uint64_t before = editor->text().revision();
    ASSERT_TRUE(tool(Qt::Key_Z, [this, before] { return editor->text().revision() != before; }));
  }
  EXPECT_EQ(paper->toPlainText().toStdString(), "Dear owner,");
  EXPECT_FALSE(editor->text().changed());
  EXPECT_TRUE(tool(Qt::Key_I, [this] { return editor->text().typingStyle().has_value(); }));
  QTest::keyClicks(paper, "Q");
  settle();
  EXPECT_EQ(lookOf(editor->text().document(), {{0, 11}, {0, 12}}).italic, true) << "chosen before it was typed";
}

}  // namespace
}  // namespace zelvo::testing
