#pragma once

#include <stdexcept>
#include <string>

namespace zelvo::fuzz {

/// A promise that does not hold of some text.
class Broken : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

inline void promise(bool holds, const std::string& what) {
  if (!holds)
    throw Broken("This does not hold: " + what);
}

}  // namespace zelvo::fuzz
