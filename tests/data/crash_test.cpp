// Computers that add to a database at once, and computers that are switched off in the middle of a store.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <thread>

#include "computers.h"
#include "small_office.h"

namespace zelvo {
namespace {

class SharedDatabase : public SmallOffice {
 protected:
  std::set<std::int32_t> stored() { return storedNumbers(*permits(connect())); }
  std::string path() { return folder.file("db1.mdb"); }
};

TEST_F(SharedDatabase, LosesNothingAcknowledgedWhenAComputerDies) {
  connect();
  std::mt19937 random(20260309);
  std::uniform_int_distribution<int> before(0, 2), lifeInMicroseconds(0, 8000);
  std::set<std::int32_t> all;
  for (int round = 0; round < 100; ++round) {
    const Computer computer = startAdding(path(), 1 << 20);
    for (const std::int32_t number : nextAcknowledged(computer, static_cast<std::size_t>(before(random))))
      all.insert(number);
    std::this_thread::sleep_for(std::chrono::microseconds(lifeInMicroseconds(random)));
    ::kill(computer.process, SIGKILL);
    for (const std::int32_t number : acknowledged(computer))
      all.insert(number);
    ASSERT_TRUE(WIFSIGNALED(ended(computer))) << "gave up by itself in round " << round;
    const auto now = stored();
    ASSERT_TRUE(std::includes(now.begin(), now.end(), all.begin(), all.end())) << "a permit lost in round " << round;
    ASSERT_EQ(soundness(folder, "db1.mdb"), "ok") << "round " << round;
  }
  EXPECT_GT(all.size(), 50u);
}

TEST_F(SharedDatabase, ComputersThatAddAtOnceTakeTurns) {
  constexpr int each = 40;
  connect();
  std::vector<Computer> computers;
  for (int i = 0; i < 8; ++i)
    computers.push_back(startAdding(path(), each));
  std::set<std::int32_t> all;
  for (const Computer& computer : computers) {
    for (const std::int32_t number : acknowledged(computer))
      EXPECT_TRUE(all.insert(number).second) << number << " was given twice";
    EXPECT_EQ(ended(computer), 0) << "a store failed";
  }
  ASSERT_EQ(all.size(), computers.size() * each);
  EXPECT_EQ(*all.rbegin() - *all.begin() + 1, static_cast<std::int32_t>(all.size())) << "no number is left out";
  EXPECT_EQ(stored(), all);
  EXPECT_EQ(soundness(folder, "db1.mdb"), "ok");
}

}  // namespace
}  // namespace zelvo
