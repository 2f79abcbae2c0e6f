#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <set>
#include <thread>

#include "base/number.h"
#include "base/text.h"
#include "permit_office.h"

namespace zelvo::testing {
namespace {

/// A computer of the office that adds permits on new parcels until its plug is pulled, and calls out every number that
/// the screen showed as stored.
class KilledWhileAdding : public PermitOffice {
 protected:
  [[noreturn]] void addUntilKilled(int round, int callOut) {
    APermits& permits = open();
    for (int lot = 1;; ++lot) {
      at.click(permits, "INew");
      typePermit(permits);
      at.set(permits, "Text1(3)", std::to_string(round));
      at.set(permits, "Text1(4)", std::to_string(lot));
      expectNewParcel();
      at.click(permits, "IAdd");
      const std::string stored = at.shown(permits, "Text1(1)") + "\n";
      if (::write(callOut, stored.data(), stored.size()) < 0)
        ::_exit(1);
    }
  }

  /// Runs such a computer for a moment; gives the numbers that it called out.
  std::vector<std::string> runAndKill(int round) {
    int pipe[2];
    EXPECT_EQ(::pipe(pipe), 0);
    const pid_t computer = ::fork();
    if (computer == 0) {
      ::close(pipe[0]);
      addUntilKilled(round, pipe[1]);
    }
    ::close(pipe[1]);
    std::this_thread::sleep_for(std::chrono::milliseconds(15 + (round * 37) % 60));
    ::kill(computer, SIGKILL);
    ::waitpid(computer, nullptr, 0);
    std::string calledOut;
    char buffer[4096];
    for (ssize_t got; (got = ::read(pipe[0], buffer, sizeof buffer)) > 0;)
      calledOut.append(buffer, static_cast<std::size_t>(got));
    ::close(pipe[0]);
    return linesOf(calledOut);
  }
};

TEST_F(KilledWhileAdding, NoStoredPermitIsLostAndNoneIsHalf) {
  std::set<std::string> promised;
  for (int round = 1; round <= 50; ++round)
    for (const std::string& number : runAndKill(round))
      EXPECT_TRUE(promised.insert(number).second) << number << " was given twice";
  ASSERT_FALSE(promised.empty());

  auto permits = permitsNow();
  for (const std::string& number : promised) {
    const auto found = permits->Find("[PERMIT] = '" + number + "'");
    EXPECT_TRUE(found.ok() && *found) << number << " is lost";
    permits->MoveFirst();
  }
  EXPECT_LE(permits->RecordCount(), promised.size() + 50);  // one a round may be stored and not called out
  ASSERT_TRUE(parcels.resetsbl().ok());
  for (; !permits->Eof(); permits->MoveNext()) {
    EXPECT_EQ(permits->text("BYUSER"), "Clara Whitcombe-Sa");
    const auto known = parcels.SBLExists(TrimSBL(currentSBL(*permits, parcels.parts)));
    EXPECT_TRUE(known.ok() && *known) << permits->text("PERMIT") << " has no parcel";
  }
  EXPECT_GE(Val(*readText(path("phi.txt"))) + 1, Val(permitsNow()->text("BLDGPRM")));
}

}  // namespace
}  // namespace zelvo::testing
