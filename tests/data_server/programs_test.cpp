// An office that moves to a server by the program that is made for it, and goes on working there.

#include <sys/wait.h>

#include "app/house/sample_town.h"
#include "base/files.h"
#include "data/server_folder.h"
#include "test_server.h"

namespace zelvo::testing {
namespace {

class MovedTown : public SampleTown {
 protected:
  void SetUp() override {
    if (!TestServer::instance().lacking().empty())
      GTEST_SKIP() << TestServer::instance().lacking();
  }

  /// Gives the exit code, and keeps what was said on both outputs.
  int move(const std::string& arguments) {
    const std::string command =
        std::string(ZELVO_BIN) + "/zelvo-move " + arguments + " >'" + folder.file("said.txt") + "' 2>&1";
    const int status = std::system(command.c_str());
    said = readBytes(folder.file("said.txt")).valueOr("");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  static std::string asAdmin(std::string_view script) {
    return "set Text1 admin\nset Text2 admin\nclick cmdOK\n" + std::string(script);
  }
  std::string folderOfData() const { return "'" + town() + "/data'"; }

  std::string said;
};

TEST_F(MovedTown, TownGoesToTheServerIsBackedUpThereAndComesBack) {
  const std::string look = asClerk("show lblStatus\nshow Text1(18)\nquery sbl.mdb Select [SBLF] from SBL\n");
  const std::string before = run(look);
  ASSERT_NE(before.find("of 300"), std::string::npos) << before;

  ASSERT_EQ(move(folderOfData() + " to-server '" + TestServer::instance().line() + "'"), 0) << said;
  EXPECT_NE(said.find("BLDGPERM: 300 rows of db1.mdb copied and compared."), std::string::npos) << said;
  EXPECT_TRUE(keepsOnServer(data("")));
  EXPECT_EQ(run(look), before);

  EXPECT_NE(run(asAdmin("click backr\n")).find("[ Completed]"), std::string::npos);
  EXPECT_NE(run(asClerk(newPermit() + "answer Yes\nanswer Yes\nclick IAdd\nshow lblStatus\n")).find("of 301"),
            std::string::npos);

  ASSERT_EQ(move(folderOfData() + " to-files"), 0) << said;
  EXPECT_FALSE(keepsOnServer(data("")));
  EXPECT_NE(run(look).find("of 301"), std::string::npos);
  EXPECT_NE(run(asAdmin("click restore\nchoose ListView1 1\nanswer Yes\nclick Command1\n")).find("was restored"),
            std::string::npos);
  EXPECT_EQ(run(look), before) << "as it was when it was saved, on the server";
}

TEST_F(MovedTown, WhatCannotBeMovedIsToldAndStays) {
  const struct {
    std::string arguments, says;
  } cases[] = {
      {"", "zelvo-move DATAFOLDER to-server"},
      {folderOfData(), "zelvo-move DATAFOLDER to-server"},
      {folderOfData() + " to-server", "zelvo-move DATAFOLDER to-server"},
      {folderOfData() + " to-files more", "zelvo-move DATAFOLDER to-server"},
      {folderOfData() + " sideways", "zelvo-move DATAFOLDER to-server"},
      {folderOfData() + " to-files", "does not work on a server"},
      {"/nowhere to-server 'host=localhost'", "no such data folder"},
      {folderOfData() + " to-server 'host=127.0.0.1 port=1'", "could not be reached"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(move(row.arguments), 1) << row.arguments;
    EXPECT_NE(said.find(row.says), std::string::npos) << row.arguments << ": " << said;
  }
  EXPECT_FALSE(keepsOnServer(data("")));
  EXPECT_EQ(listFiles(data(""), "*.mdb").size(), 14u);
}

}  // namespace
}  // namespace zelvo::testing
