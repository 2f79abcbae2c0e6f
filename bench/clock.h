#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace zelvo::bench {

/// Since it was made.
class Stopwatch {
 public:
  double microseconds() const {
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Of one time at least.
inline double middle(std::vector<double> times) {
  const auto half = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), half, times.end());
  return *half;
}

}  // namespace zelvo::bench
