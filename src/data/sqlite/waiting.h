#pragma once

#include <chrono>
#include <random>

struct sqlite3;

namespace zelvo::sqlite {

/// Waits for a database that another computer holds. Many computers asking in a steady beat starve each other, so each
/// sleeps a short time of random length, and asks again until its patience is over.
class Waiting {
 public:
  explicit Waiting(std::chrono::milliseconds patience);

  /// From now on the connection waits. Before its first statement, as every statement can find the database locked.
  void attend(sqlite3* database);

 private:
  static int askAgain(void* waiting, int times);
  bool sleep(bool first);

  std::chrono::milliseconds patience_;
  std::chrono::steady_clock::time_point since_;
  std::minstd_rand random_;
};

}  // namespace zelvo::sqlite
