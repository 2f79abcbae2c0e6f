#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <vector>

#include "sample_town.h"

namespace zelvo::testing {
namespace {

/// A console that works at its own pace: it lives until nobody holds its script any more.
class RunningCopy {
 public:
  RunningCopy(const std::string& programFolder, int script) {
    std::array<int, 2> output;
    EXPECT_EQ(::pipe2(output.data(), O_CLOEXEC), 0);
    copy_ = ::fork();
    if (copy_ == 0) {
      ::dup2(script, 0);
      ::dup2(output[1], 1);
      const std::string program = std::string(ZELVO_BIN) + "/zelvo-console";
      ::execl(program.c_str(), program.c_str(), "--program-folder", programFolder.c_str(), nullptr);
      ::_exit(127);
    }
    ::close(output[1]);
    said_ = output[0];
  }
  RunningCopy(const RunningCopy&) = delete;
  RunningCopy& operator=(const RunningCopy&) = delete;
  ~RunningCopy() {
    ::close(said_);
    ::waitpid(copy_, nullptr, 0);
  }

  /// What it says until it waits for the user, or ended.
  std::string sayings() {
    std::string text;
    char piece[4096];
    while (text.find("screen: PswFrm\n") == std::string::npos) {
      pollfd wait{said_, POLLIN, 0};
      if (::poll(&wait, 1, 60'000) != 1)
        return text + "(silence)";
      const ssize_t got = ::read(said_, piece, sizeof piece);
      if (got <= 0)
        break;
      text.append(piece, static_cast<std::size_t>(got));
    }
    return text;
  }

 private:
  pid_t copy_;
  int said_;
};

TEST_F(SampleTown, OfManyCopiesStartedAtOnceExactlyOneRuns) {
  for (int round = 0; round < 5; ++round) {
    std::array<int, 2> script;
    ASSERT_EQ(::pipe2(script.data(), O_CLOEXEC), 0);
    std::vector<std::unique_ptr<RunningCopy>> copies;
    for (int copy = 0; copy < 8; ++copy)
      copies.push_back(std::make_unique<RunningCopy>(town() + "/program", script[0]));
    int runs = 0;
    for (const auto& copy : copies) {
      const std::string said = copy->sayings();
      const bool runsOn = said.ends_with("screen: PswFrm\n");
      if (runsOn)
        ++runs;
      else
        EXPECT_EQ(said, "message: [Zelvo] Zelvo is already running. {OK} -> OK (default)\nended: a second copy\n");
    }
    EXPECT_EQ(runs, 1) << "round " << round;
    ::close(script[1]);
    ::close(script[0]);
    copies.clear();
  }
}

TEST_F(SampleTown, FirstStartIsScriptedToo) {
  std::filesystem::create_directories(town() + "/fresh");
  const std::string begun = run("set Text1 New Haven\nset Text2 " + town() +
                                    "/records\nset Text3 Chief\nset Text4 key\nset Text5 key\nclick cmdOK\n"
                                    "set Text1 chief\nset Text2 KEY\nclick cmdOK\nclick permits\n" +
                                    newPermit() + "answer Yes\nclick IAdd\nshow lblStatus\n",
                                "", "fresh");
  EXPECT_EQ(linesWith(begun, "error"), "");
  EXPECT_TRUE(begun.starts_with("screen: FirstRun\nscreen: frmAbout\nscreen: PswFrm\n")) << begun;
  EXPECT_EQ(linesWith(begun, "lblStatus"), "lblStatus = Record 1 of 1\n") << begun;
  EXPECT_NE(run("", "", "fresh").find("screen: PswFrm"), std::string::npos) << "the second start is like any other";
}

TEST_F(SampleTown, DamagedUserListSaysWhatToDoAndLetsNobodyIn) {
  folder.write("town/program/Users.Set", "noise");
  const std::string output = run("set Text1 clerk\nset Text2 clerk\nclick cmdOK\nclick cmdCancel\n");
  EXPECT_NE(linesWith(output, "message: [Zelvo] ").find("put back a saved copy"), std::string::npos) << output;
  EXPECT_TRUE(output.ends_with("ended: sign-in given up\n")) << output;
  EXPECT_EQ(folder.read("town/program/Users.Set"), "noise");
}

TEST_F(SampleTown, TheAdministratorManagesTheUsers) {
  const std::string output =
      run("set Text1 admin\nset Text2 admin\nclick cmdOK\nclick usermanage\nclick Command1\n"
          "set Text1 Lee\nset Text2 new\nset Combo1 INSPECTOR\nclick Command1\n"
          "choose ListView1 clerk\nclick Command5\nset Text2 other\nclick Command1\nshow ListView1\nclick Command3\n");
  EXPECT_NE(output.find("ListView1: 4 rows, 3 columns\nadmin | admin | ADMIN\nCLERK | other | USER\n"
                        "inspector | inspector | INSPECTOR\nLee | new | INSPECTOR\n"),
            std::string::npos)
      << output;
  const std::string after = run("set Text1 lee\nset Text2 NEW\nclick cmdOK\n");
  EXPECT_NE(after.find("screen: MenuFrm"), std::string::npos) << after;
}

}  // namespace
}  // namespace zelvo::testing
