#include "data/sqlite/waiting.h"

#include <sqlite3.h>
#include <unistd.h>

#include <thread>

namespace zelvo::sqlite {

namespace {

constexpr int shortestMicroseconds = 300;
constexpr int longestMicroseconds = 1800;

}  // namespace

Waiting::Waiting(std::chrono::milliseconds patience)
    : patience_(patience), random_(static_cast<unsigned>(::getpid()) ^ std::random_device{}()) {}

void Waiting::attend(sqlite3* database) {
  sqlite3_busy_handler(database, &Waiting::askAgain, this);
}

int Waiting::askAgain(void* waiting, int times) {
  return static_cast<Waiting*>(waiting)->sleep(times == 0) ? 1 : 0;
}

bool Waiting::sleep(bool first) {
  const auto now = std::chrono::steady_clock::now();
  if (first)
    since_ = now;
  if (now - since_ >= patience_)
    return false;
  std::uniform_int_distribution<int> length(shortestMicroseconds, longestMicroseconds);
  std::this_thread::sleep_for(std::chrono::microseconds(length(random_)));
  return true;
}

}  // namespace zelvo::sqlite
