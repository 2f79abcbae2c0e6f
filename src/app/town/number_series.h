#pragma once

#include <cstddef>
#include <string>

#include "base/date.h"

namespace zelvo {

/// The day on which the town stands still: everything recent is counted back from it.
inline constexpr Date kTownToday = {2026, 11, 20};

/// The dates and numbers of records that are filed one after the other: the first in the town's first month, the last
/// on its last day, on working days only. Numbers are "26-12", counted anew each year; in a town with very many records
/// the count runs on through the years, so that a free number is found at once in any year.
class NumberSeries {
 public:
  explicit NumberSeries(std::size_t count) : count_(count) {}

  std::size_t count() const { return count_; }
  Date date(std::size_t record) const;
  std::string year(std::size_t record) const;  ///< two digits
  std::size_t sequence(std::size_t record) const;
  std::string number(std::size_t record) const;
  /// The sequence of the next record that is filed in the town's last year.
  std::size_t next() const;

 private:
  std::size_t firstOf(int year) const;

  std::size_t count_;
};

}  // namespace zelvo
