#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "data/recordset.h"

namespace zelvo {

// Computers that share a database. Each is a process of its own: the locks of a file belong to a process, and a process
// can be switched off.

/// Stores a permit under the next number, which is taken under the same transaction. Nothing when that failed.
inline std::optional<std::int32_t> addNextPermit(const std::shared_ptr<Connection>& connection) try {
  auto transaction = connection->begin();
  auto records = Recordset::open(connection, "Select * from BLDGPERM order by [PERMIT]");
  if (!transaction || !records)
    return std::nullopt;
  (*records)->MoveLast();
  const std::int32_t number =
      (*records)->Eof() ? 100000 : static_cast<std::int32_t>((*records)->get("PERMIT").number()) + 1;
  (*records)->AddNew();
  (*records)->set("PERMIT", number);
  (*records)->set("NOTES", std::string(static_cast<std::size_t>(number % 7) * 3000, 'n'));
  return (*records)->Update() && transaction->commit() ? std::optional(number) : std::nullopt;
} catch (const StoreError&) {
  return std::nullopt;
}

/// Adds permits as long as it is left to; writes each number down the pipe when the store has acknowledged it. Ends
/// with 1 when anything fails.
[[noreturn]] inline void addPermits(const std::string& path, int pipe, int count) {
  const auto connection = Connection::open(connectionText(path));
  for (int i = 0; connection.ok() && i < count; ++i) {
    const auto number = addNextPermit(*connection);
    if (!number)
      break;
    if (::write(pipe, &*number, sizeof *number) != sizeof *number || i + 1 == count)
      ::_exit(0);
  }
  ::_exit(1);
}

struct Computer {
  pid_t process;
  int pipe;
};

inline Computer startAdding(const std::string& path, int count) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t process = ::fork();
  if (process == 0)
    addPermits(path, ends[1], count);
  ::close(ends[1]);
  return {process, ends[0]};
}

/// The next numbers that are acknowledged; fewer when the computer is off before.
inline std::vector<std::int32_t> nextAcknowledged(const Computer& computer, std::size_t count) {
  std::vector<std::int32_t> numbers;
  for (std::int32_t number = 0;
       numbers.size() < count && ::read(computer.pipe, &number, sizeof number) == sizeof number;)
    numbers.push_back(number);
  return numbers;
}
/// All that are acknowledged, until the computer is off.
inline std::vector<std::int32_t> acknowledged(const Computer& computer) {
  auto numbers = nextAcknowledged(computer, SIZE_MAX);
  ::close(computer.pipe);
  return numbers;
}

/// How its process ended, as waitpid tells it.
inline int ended(const Computer& computer) {
  int status = 0;
  ::waitpid(computer.process, &status, 0);
  return status;
}

/// The numbers of all permits that there are; one that is there twice fails the test, and one of which a part is
/// missing.
inline std::set<std::int32_t> storedNumbers(Recordset& records) {
  std::set<std::int32_t> numbers;
  for (records.MoveFirst(); !records.Eof(); records.MoveNext()) {
    const auto number = static_cast<std::int32_t>(records.get("PERMIT").number());
    EXPECT_EQ(records.text("NOTES").size(), static_cast<std::size_t>(number % 7) * 3000) << number;
    numbers.insert(number);
  }
  EXPECT_EQ(numbers.size(), records.RecordCount()) << "a number was given twice";
  return numbers;
}

}  // namespace zelvo
