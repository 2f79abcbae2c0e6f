#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

namespace zelvo {

/// What kind of trouble it was, for a caller that acts differently on some of them.
enum class Trouble {
  Failed,     ///< anything else; the message says what
  NotFound,   ///< the file, row, table or column is not there
  BadInput,   ///< what was given cannot be read: a query cut short, a text that is no number
  Duplicate,  ///< the key is in use
  Conflict,   ///< someone else changed the row since it was read
  ReadOnly,   ///< the file or folder may not be written
  Busy,       ///< another computer kept the file locked for longer than we wait
  Full,       ///< the disk is full
  NotOurs,    ///< the file is no database, or one of another program
  Cancelled   ///< the user gave it up
};

/// Why something could not be done. The message is for the office: what was wrong and what to do.
struct Error {
  Trouble trouble = Trouble::Failed;
  std::string message;
};

/// Either a value or the reason why there is none. Every result must be looked at.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : held_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : held_(std::in_place_index<1>, std::move(error)) {}

  bool ok() const { return held_.index() == 0; }
  explicit operator bool() const { return ok(); }

  T& value() & { return assert(ok()), std::get<0>(held_); }
  const T& value() const& { return assert(ok()), std::get<0>(held_); }
  T&& value() && { return assert(ok()), std::get<0>(std::move(held_)); }
  T& operator*() & { return value(); }
  const T& operator*() const& { return value(); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }
  T valueOr(T other) const& { return ok() ? value() : std::move(other); }

  const Error& error() const { return assert(!ok()), std::get<1>(held_); }

 private:
  std::variant<T, Error> held_;
};

/// The result of something that is done or not done.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : failed_(true), error_(std::move(error)) {}

  bool ok() const { return !failed_; }
  explicit operator bool() const { return ok(); }
  const Error& error() const { return assert(failed_), error_; }

 private:
  bool failed_ = false;
  Error error_;
};

}  // namespace zelvo
