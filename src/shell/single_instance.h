#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zelvo {

/// The guard that lets one copy of the program run for a program folder and a user of the computer. The copies meet at
/// a name that lives in the system's memory alone: no file is touched, and the name is free again the moment its copy
/// is gone, however it ended. Programs started from this one do not hold it. On a system without such names, or when
/// another user took ours, every copy is the first.
class SingleInstance {
 public:
  explicit SingleInstance(std::string_view programFolder);
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  bool isFirst() const { return first_; }

  // Of a later copy.
  /// Asks the first copy to come to the front.
  void callFirst() const;

  // Of the first copy.
  /// Becomes readable when a later copy calls; -1 when there is nothing to watch.
  int descriptor() const { return listening_; }
  /// Takes the calls that came, without waiting, and runs onActivate once if there were any.
  void poll();
  std::function<void()> onActivate;

 private:
  std::string name_;
  bool first_ = true;
  int listening_ = -1;
};

}  // namespace zelvo
