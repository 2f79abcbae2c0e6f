// Computers that share a database, and computers that are switched off in the middle of a store. Each computer is a
// process of its own, as the locks of a file belong to a process.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <cstdint>
#include <random>
#include <set>
#include <thread>

#include "data/sqlite/database.h"
#include "small_office.h"

namespace zelvo {
namespace {

/// Takes the next number and stores a permit under it, as long as it is left to; writes each number down the pipe when
/// the store has acknowledged it. Ends with 1 when anything fails.
[[noreturn]] void addPermits(const std::string& path, int pipe, int count) {
  auto connection = Connection::open(connectionText(path));
  for (int i = 0; connection.ok() && i < count; ++i) {
    auto transaction = (*connection)->begin();
    if (!transaction)
      break;
    auto records = Recordset::open(*connection, "Select * from BLDGPERM order by [PERMIT]");
    if (!records)
      break;
    (*records)->MoveLast();
    const std::int32_t number =
        (*records)->Eof() ? 100000 : static_cast<std::int32_t>((*records)->get("PERMIT").number()) + 1;
    (*records)->AddNew();
    (*records)->set("PERMIT", number);
    (*records)->set("NOTES", std::string(static_cast<std::size_t>(number % 7) * 3000, 'n'));
    if (!(*records)->Update() || !transaction->commit())
      break;
    if (::write(pipe, &number, sizeof number) != sizeof number || i + 1 == count)
      ::_exit(0);
  }
  ::_exit(1);
}

struct Computer {
  pid_t process;
  int pipe;
};

Computer startAdding(const std::string& path, int count) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t process = ::fork();
  if (process == 0)
    addPermits(path, ends[1], count);
  ::close(ends[1]);
  return {process, ends[0]};
}

/// The numbers that were acknowledged, until the computer is off.
std::vector<std::int32_t> acknowledged(const Computer& computer) {
  std::vector<std::int32_t> numbers;
  for (std::int32_t number = 0; ::read(computer.pipe, &number, sizeof number) == sizeof number;)
    numbers.push_back(number);
  ::close(computer.pipe);
  return numbers;
}

class SharedDatabase : public SmallOffice {
 protected:
  std::set<std::int32_t> stored() {
    std::set<std::int32_t> numbers;
    auto records = permits(connect());
    for (; !records->Eof(); records->MoveNext())
      numbers.insert(static_cast<std::int32_t>(records->get("PERMIT").number()));
    EXPECT_EQ(numbers.size(), records->RecordCount()) << "a number was given twice";
    return numbers;
  }
  std::string integrity() {
    auto database = sqlite::Database::open(folder.file("db1.mdb"), sqlite::Database::Mode::ReadWrite);
    return database.ok() ? (*database)->ask("pragma integrity_check").valueOr("no answer") : troubleOf(database);
  }
};

TEST_F(SharedDatabase, LosesNothingAcknowledgedWhenAComputerDies) {
  connect();
  std::mt19937 random(20260309);
  std::uniform_int_distribution<int> lifeInMicroseconds(500, 60000);
  std::set<std::int32_t> all;
  for (int round = 0; round < 50; ++round) {
    const Computer computer = startAdding(folder.file("db1.mdb"), 1 << 20);
    std::this_thread::sleep_for(std::chrono::microseconds(lifeInMicroseconds(random)));
    ::kill(computer.process, SIGKILL);
    for (const std::int32_t number : acknowledged(computer))
      all.insert(number);
    int status = 0;
    ::waitpid(computer.process, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "gave up by itself in round " << round;
    const auto now = stored();
    for (const std::int32_t number : all)
      ASSERT_TRUE(now.contains(number)) << number << " lost in round " << round;
    ASSERT_EQ(integrity(), "ok") << "round " << round;
  }
  EXPECT_FALSE(all.empty());
}

TEST_F(SharedDatabase, ComputersThatAddAtOnceTakeTurns) {
  constexpr int each = 60;
  connect();
  const Computer computers[] = {startAdding(folder.file("db1.mdb"), each), startAdding(folder.file("db1.mdb"), each),
                                startAdding(folder.file("db1.mdb"), each)};
  std::set<std::int32_t> all;
  for (const Computer& computer : computers) {
    for (const std::int32_t number : acknowledged(computer))
      EXPECT_TRUE(all.insert(number).second) << number << " was given twice";
    int status = 0;
    ::waitpid(computer.process, &status, 0);
    EXPECT_EQ(status, 0) << "a store failed";
  }
  EXPECT_EQ(all.size(), std::size(computers) * each);
  EXPECT_EQ(*all.rbegin() - *all.begin() + 1, static_cast<std::int32_t>(all.size())) << "no number is left out";
  EXPECT_EQ(stored(), all);
  EXPECT_EQ(integrity(), "ok");
}

}  // namespace
}  // namespace zelvo
