// zelvo-letter as support uses it: a program of its own.

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>

#include "base/files.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

class LetterProgram : public ::testing::Test {
 protected:
  /// Works in the folder; gives the exit code and keeps what was printed.
  int run(const std::string& arguments) {
    const std::string command =
        "cd '" + folder.path() + "' && " + ZELVO_BIN + "/zelvo-letter " + arguments + " >printed.txt 2>errors.txt";
    const int status = std::system(command.c_str());
    printed = readBytes(folder.file("printed.txt")).valueOr("");
    errors = readBytes(folder.file("errors.txt")).valueOr("");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  TempFolder folder;
  std::string printed, errors;
};

TEST_F(LetterProgram, PrintsTheTextOfALetter) {
  folder.write("a.rtf", "{\\rtf1{\\header h}D\\'e9j\\'e0\\par\\trowd\\cellx9\\cellx18\\intbl a\\cell b\\cell\\row}");
  EXPECT_EQ(run("text a.rtf"), 0) << errors;
  EXPECT_EQ(printed, "Déjà\na\tb\n");
  EXPECT_EQ(errors, "");
}

TEST_F(LetterProgram, FillsALetter) {
  folder.write("a.rtf", "{\\rtf1 ## %nm %ad %zp %ln %mi %id %ms %me %mh %01 %25 %26 %dl %si\\par}");
  EXPECT_EQ(
      run("merge a.rtf b.rtf --now '11/20/2026 10:15' counter=3 nm=N 'ad=1 Main St' zp=Z ln=L mi=M id=I ms=S me=E "
          "'mh=two\\nlines' '1=back\\\\slash' 25="),
      0)
      << errors;
  EXPECT_EQ(readBytes(folder.file("b.rtf")).valueOr(""),
            "{\\rtf1 3 N 1 Main St Z L M I S E two\\line lines back\\\\slash  %26 November 20, 2026 \\par}");
  folder.write("town/memos/sig.bmp", std::string("BM") + std::string(24, '\0') + "no picture");
  EXPECT_EQ(run("merge a.rtf c.rtf --program-folder town"), 0) << errors;
}

TEST_F(LetterProgram, SaysWhatIsWrong) {
  folder.write("plain.rtf", "Dear Mr. Smith");
  folder.write("a.rtf", "{\\rtf1 a}");
  struct Row {
    const char* arguments;
    int exit;
    const char* said;
  };
  const Row rows[] = {{"", 2, "Say what is to be done"},
                      {"print a.rtf", 2, "\"print\" is nothing"},
                      {"text", 2, "Name the letter."},
                      {"text a.rtf b.rtf", 2, "\"b.rtf\" is one argument too many"},
                      {"merge a.rtf", 2, "Name the letter, and the file"},
                      {"merge a.rtf b.rtf nm", 2, "\"nm\" is no SLOT=VALUE"},
                      {"merge a.rtf b.rtf xx=1", 2, "no slot \"xx\""},
                      {"merge a.rtf b.rtf 26=1", 2, "no slot \"26\""},
                      {"merge a.rtf b.rtf 0=1", 2, "no slot \"0\""},
                      {"merge a.rtf b.rtf counter=x", 2, "not \"x\""},
                      {"merge a.rtf b.rtf --now", 2, "--now needs a value"},
                      {"merge a.rtf b.rtf --now 2/30/2026", 2, "\"2/30/2026\" is no date"},
                      {"merge a.rtf b.rtf --then 1", 2, "no option --then"},
                      {"text none.rtf", 1, "none.rtf"},
                      {"text plain.rtf", 1, "\"plain.rtf\" is no rich text"},
                      {"merge plain.rtf b.rtf", 1, "\"plain.rtf\" is no rich text"},
                      {"merge a.rtf nowhere/b.rtf", 1, "nowhere"}};
  for (const Row& row : rows) {
    EXPECT_EQ(run(row.arguments), row.exit) << row.arguments;
    EXPECT_TRUE(errors.starts_with("zelvo-letter: ")) << row.arguments << ": " << errors;
    EXPECT_NE(errors.find(row.said), std::string::npos) << row.arguments << ": " << errors;
    EXPECT_EQ(errors.find("Usage:") != std::string::npos, row.exit == 2) << row.arguments;
  }
  EXPECT_FALSE(FileExists(folder.file("b.rtf")));
  EXPECT_EQ(run("--help"), 0);
  EXPECT_NE(printed.find("Usage:"), std::string::npos);
}

// The pages need the fonts of the windows: a build without them says so.
TEST_F(LetterProgram, LaysALetterOutWhereThereAreWindows) {
  folder.write("a.rtf", "{\\rtf1 a\\page b}");
  const bool windows = FileExists(std::string(ZELVO_BIN) + "/zelvo-letter-pages");
  EXPECT_EQ(run("pdf a.rtf a.pdf"), windows ? 0 : 1) << errors;
  if (windows)
    EXPECT_TRUE(readBytes(folder.file("a.pdf")).valueOr("").starts_with("%PDF-"));
  else
    EXPECT_NE(errors.find("no windows"), std::string::npos) << errors;
  EXPECT_EQ(run("pdf none.rtf a.pdf"), 1);
}

}  // namespace
}  // namespace zelvo
