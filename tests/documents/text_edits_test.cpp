#include "documents/editor/text_edits.h"

#include <gtest/gtest.h>

#include "documents/editor/rich_text_box.h"
#include "support/scripted_desk.h"

namespace zelvo::testing {
namespace {

Run words(std::string text, bool bold = false) {
  Run run;
  run.text = std::move(text);
  run.style.font.bold = bold;
  return run;
}

Paragraph line(std::string text) {
  return {{}, {words(std::move(text))}, {}};
}

TableRow row(std::vector<std::string> cells) {
  TableRow made;
  for (std::string& cell : cells)
    made.cells.emplace_back().paragraphs = {line(std::move(cell))};
  return made;
}

// Paragraphs 0; 1 and 2 in a table; 3; 4 behind a page break.
Document letter() {
  Document made;
  made.body = {line("Owner"), row({"left", "right"}), line("Notice"), PageBreak{}, line("End")};
  return made;
}

TEST(TextEdits, ARangeIsReplacedWhereverItLies) {
  struct Row {
    const char* why;
    TextRange range;
    const char* with;
    const char* text;
  };
  const Row rows[] = {{"inside a word", {{0, 1}, {0, 3}}, "-", "O-er\nleft\tright\nNotice\nEnd\n"},
                      {"nothing", {{3, 6}, {3, 6}}, "s", "Owner\nleft\tright\nNotices\nEnd\n"},
                      {"over a page break", {{3, 3}, {4, 1}}, "+", "Owner\nleft\tright\nNot+nd\n"},
                      {"a whole table between", {{0, 2}, {3, 3}}, "", "Owice\nEnd\n"},
                      {"into a table", {{0, 2}, {1, 2}}, "", "Ow\nft\tright\nNotice\nEnd\n"},
                      {"from cell to cell", {{1, 1}, {2, 4}}, "X", "Owner\nlX\tt\nNotice\nEnd\n"},
                      {"two lines in a cell", {{1, 0}, {1, 4}}, "a\r\nb", "Owner\na b\tright\nNotice\nEnd\n"},
                      {"beyond the end", {{4, 1}, {99, 99}}, "", "Owner\nleft\tright\nNotice\nE\n"},
                      {"all", {{0, 0}, {4, 3}}, "New", "New\n"}};
  for (const Row& test : rows) {
    Document made = letter();
    replaceText(made, test.range, test.with);
    EXPECT_EQ(plainText(made), test.text) << test.why;
  }
  Document empty;
  EXPECT_EQ(replaceText(empty, {}, "First\nwords"), (TextPlace{1, 5}));
  EXPECT_EQ(plainText(empty), "First\nwords\n");
}

TEST(TextEdits, LettersOutsideTheRangeKeepTheirLook) {
  Document made;
  made.body = {Paragraph{{}, {words("Überbau ", false), words("alt", true)}, {}}, line("")};
  changeStyle(made, {{0, 2}, {0, 10}}, [](TextStyle& style) { style.underline = true; });
  const auto& runs = std::get<Paragraph>(made.body[0]).runs;
  ASSERT_EQ(runs.size(), 4u);
  EXPECT_EQ(runs[0].text + "|" + runs[1].text + "|" + runs[2].text + "|" + runs[3].text, "Ü|berbau |a|lt");
  EXPECT_TRUE(!runs[0].style.underline && runs[1].style.underline && runs[2].style.underline);
  EXPECT_TRUE(runs[3].style.font.bold && !runs[3].style.underline);
  EXPECT_FALSE(lookOf(made, {{0, 0}, {0, 3}}).underline) << "mixed is neither";
  EXPECT_EQ(lookOf(made, {{0, 3}, {0, 9}}).underline, true);
  EXPECT_EQ(lookOf(made, wholeOf(made)).bold, std::nullopt);
  EXPECT_EQ(lookOf(made, {{0, 12}, {0, 12}}).bold, true) << "as the letter before the caret";
}

std::vector<Block> lines(const std::string& letters) {
  std::vector<Block> body;
  for (const char letter : letters)
    body.emplace_back(line(std::string(1, letter)));
  return body;
}

TEST(BodyChange, OnlyWhatDiffersIsChangedAndCanBeTakenBack) {
  struct Row {
    const char *before, *after;
    std::size_t at, gone, come;
  };
  const Row rows[] = {{"abc", "abc", 3, 0, 0},  {"abc", "axc", 1, 1, 1}, {"abc", "ac", 1, 1, 0},
                      {"aa", "aaa", 2, 0, 1},   {"", "ab", 0, 0, 2},     {"abc", "", 0, 3, 0},
                      {"abcd", "axyd", 1, 2, 2}};
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.before) + " -> " + row.after);
    std::vector<Block> body = lines(row.before);
    StoredBody stored;
    stored.store(body);
    BodyChange trimmed{0, body.size(), lines(row.after)};
    trimChange(body, trimmed);
    BodyChange change = changeBetween(body, lines(row.after));
    EXPECT_EQ(change.at, row.at);
    EXPECT_EQ(change.gone, row.gone);
    EXPECT_EQ(change.come.size(), row.come);
    EXPECT_TRUE(trimmed.at == change.at && trimmed.gone == change.gone && trimmed.come == change.come);
    BodyChange back = makeChange(body, std::move(change));
    EXPECT_TRUE(body == lines(row.after));
    stored.noteChange(body, row.at, row.come);
    EXPECT_EQ(stored.differs(), std::string(row.before) != row.after);
    makeChange(body, std::move(back));
    EXPECT_TRUE(body == lines(row.before));
    stored.noteChange(body, row.at, row.gone);
    EXPECT_FALSE(stored.differs()) << "what is taken back is no change";
  }
}

class WritingScreen : public Screen {
 public:
  explicit WritingScreen(Desk& itsDesk) : Screen(itsDesk, "WritingFrm", "Writing") {}
  RichTextBox box{*this, "RichTextBox1"};
};

TEST(RichTextBox, AWordIsOneStepBackAndALookChosenBeforeTypingIsTyped) {
  ScriptedDesk at;
  WritingScreen screen(at.desk);
  RichTextBox& box = screen.box;
  ASSERT_TRUE(box.load("{\\rtf1 }").ok());
  std::string typed;
  for (const char letter : std::string("to be")) {
    typed += letter;
    box.typed({0, 1, {line(typed)}}, {{0, typed.size()}, {0, typed.size()}});
  }
  box.undo();
  EXPECT_EQ(box.shown(), "to ");
  box.undo();
  EXPECT_EQ(box.shown(), "");
  box.redo();
  box.redo();
  EXPECT_EQ(box.shown(), "to be");
  box.changeStyle([](TextStyle& style) { style.font.bold = true; });
  EXPECT_EQ(box.look().bold, true);
  box.insert("!");
  EXPECT_EQ(lookOf(box.document(), {{0, 5}, {0, 6}}).bold, true);
  EXPECT_EQ(lookOf(box.document(), {{0, 0}, {0, 5}}).bold, false);
}

}  // namespace
}  // namespace zelvo::testing
