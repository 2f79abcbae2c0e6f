// Computers that share the data folder, each a process of its own with the permit screen open.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <set>
#include <thread>

#include "base/number.h"
#include "base/text.h"
#include "data/database_care.h"
#include "permit_office.h"

namespace zelvo::testing {
namespace {

constexpr int untilKilled = 1 << 20;

class ManyComputers : public PermitOffice {
 protected:
  struct Computer {
    pid_t process;
    int calls;
  };

  /// A computer that adds permits, each on a new parcel of the block or all on one, and calls out every number that the
  /// screen showed as stored.
  Computer start(int block, int permits, bool newParcels) {
    int pipe[2];
    EXPECT_EQ(::pipe(pipe), 0);
    const pid_t process = ::fork();
    if (process == 0) {
      ::close(pipe[0]);
      add(block, permits, newParcels, pipe[1]);
      ::_exit(HasFailure() ? 1 : 0);
    }
    ::close(pipe[1]);
    return {process, pipe[0]};
  }

  /// What a computer called out until its end.
  std::vector<std::string> heard(const Computer& computer) {
    std::string calledOut;
    char buffer[4096];
    for (ssize_t got; (got = ::read(computer.calls, buffer, sizeof buffer)) > 0;)
      calledOut.append(buffer, static_cast<std::size_t>(got));
    ::close(computer.calls);
    return linesOf(calledOut);
  }

  static int ended(const Computer& computer) {
    int status = 0;
    ::waitpid(computer.process, &status, 0);
    return status;
  }

  void checkHighWater() {
    double highest = 0;
    for (auto permits = permitsNow(); !permits->Eof(); permits->MoveNext())
      highest = std::max(highest, Val(permits->text("BLDGPRM")));
    EXPECT_EQ(readText(path("phi.txt")).valueOr("none"), std::to_string(static_cast<int>(highest) + 1) + "\r\n");
  }

  bool hasParcel(const Recordset& permit) {
    const auto known = parcels.SBLExists(TrimSBL(currentSBL(permit, parcels.parts)));
    return known.ok() && *known;
  }

  void checkSound(std::string_view file) { EXPECT_EQ(troubleOf(checkDatabase(path(file))), ""); }

 private:
  static std::string troubleOf(const Result<void>& result) { return result ? "" : result.error().message; }

  void add(int block, int count, bool newParcels, int callOut) {
    APermits& permits = open();
    for (int lot = 1; lot <= count && !HasFailure(); ++lot) {
      at.click(permits, "INew");
      typePermit(permits);
      at.set(permits, "Text1(3)", std::to_string(block));
      at.set(permits, "Text1(4)", newParcels ? std::to_string(lot) : "1");
      if (newParcels || lot == 1)
        expectNewParcel();
      at.click(permits, "IAdd");
      const std::string stored = at.shown(permits, "Text1(1)") + "\n";
      if (::write(callOut, stored.data(), stored.size()) < 0)
        ::_exit(1);
    }
  }
};

TEST_F(ManyComputers, EightThatAddAThousandPermitsEachGiveNoNumberTwice) {
  constexpr int each = 1000;
  std::vector<Computer> computers;
  for (int block = 1; block <= 8; ++block)
    computers.push_back(start(block, each, false));
  std::vector<std::vector<std::string>> calls(computers.size());
  std::vector<std::thread> listeners;
  for (std::size_t i = 0; i < computers.size(); ++i)
    listeners.emplace_back([&, i] { calls[i] = heard(computers[i]); });
  for (std::thread& listener : listeners)
    listener.join();

  std::set<std::string> promised;
  for (std::size_t i = 0; i < computers.size(); ++i) {
    EXPECT_EQ(ended(computers[i]), 0) << "a store failed, or something was asked";
    promised.insert(calls[i].begin(), calls[i].end());
  }
  EXPECT_EQ(promised.size(), computers.size() * each);
  std::set<std::string> stored;
  for (auto permits = permitsNow(); !permits->Eof(); permits->MoveNext())
    stored.insert(permits->text("PERMIT"));
  EXPECT_EQ(stored, promised);
  checkHighWater();
}

TEST_F(ManyComputers, KilledAHundredTimesNoStoredPermitIsLostAndNoneIsHalf) {
  constexpr int rounds = 100;
  std::set<std::string> promised;
  for (int round = 1; round <= rounds; ++round) {
    const Computer computer = start(round, untilKilled, true);
    std::this_thread::sleep_for(std::chrono::milliseconds(15 + (round * 37) % 60));
    ::kill(computer.process, SIGKILL);
    ASSERT_TRUE(WIFSIGNALED(ended(computer))) << "gave up by itself in round " << round;
    for (const std::string& number : heard(computer))
      EXPECT_TRUE(promised.insert(number).second) << number << " was given twice";
  }
  ASSERT_FALSE(promised.empty());

  auto permits = permitsNow();
  for (const std::string& number : promised) {
    const auto found = permits->Find("[PERMIT] = '" + number + "'");
    EXPECT_TRUE(found.ok() && *found) << number << " is lost";
    permits->MoveFirst();
  }
  EXPECT_LE(permits->RecordCount(), promised.size() + rounds);  // one a round may be stored and not called out
  ASSERT_TRUE(parcels.resetsbl().ok());
  for (; !permits->Eof(); permits->MoveNext()) {
    EXPECT_EQ(permits->text("BYUSER"), "Clara Whitcombe-Sa");
    EXPECT_TRUE(hasParcel(*permits)) << permits->text("PERMIT") << " has no parcel";
  }
  EXPECT_GE(Val(*readText(path("phi.txt"))) + 1, Val(permitsNow()->text("BLDGPRM")));
  checkSound("db1.mdb");
  checkSound("sbl.mdb");
}

}  // namespace
}  // namespace zelvo::testing
