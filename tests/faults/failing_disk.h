#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "flushed_disk.h"

namespace zelvo::testing {

/// What goes wrong with the disk at one of the calls that change what is on it.
enum class Fault {
  FailsOnce,         ///< one call fails, and the disk is well again
  FailsFromThenOn,   ///< no call succeeds any more
  FullOnce,          ///< there is no room for one call
  FullFromThenOn,    ///< half of a write still fits, then nothing; what takes no room goes on
  ReadOnly,          ///< nothing in the folder can be changed any more
  WritesInPieces,    ///< a write takes half of what it is given, as the system may
  Killed,            ///< the program ends before the call
  KilledInMidWrite,  ///< the program ends when half of a write is done
  PowerCut           ///< the computer ends before the call, or behind the last one: what was not flushed is lost
};
std::string nameOf(Fault fault);
bool kills(Fault fault);
/// Whether those who meet it go on where they are, or close everything, or the one as well as the other: a disk that
/// fails on does so while things are closed too.
std::vector<bool> waysToGoOn(Fault fault);
bool strikesWritesOnly(Fault fault);

/// What a call changes on a disk.
enum class Deed { Write, Create, Flush, Cut, Remove, Rename };

/// The disk under one folder, which fails at the wanted call until it is lifted. Calls are counted from 1, and only
/// those that the fault can strike: a full disk still removes and flushes. The test program brings the system's
/// functions that change files; they ask the disk that is failing now, if any, and so does all that uses them, the
/// database engine included. Nothing is really flushed in this program: its files outlive it without that, and what a
/// cut of the power would leave is worked out.
class FailingDisk {
 public:
  FailingDisk(std::string_view folder, Fault fault, int call);
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;
  ~FailingDisk() { lift(); }

  void lift();
  static bool isFailing() { return failing_ != nullptr; }
  bool struck() const { return !struckAt_.empty(); }
  /// The call that was struck first ("unlink /tmp/.../db1.mdb-journal"); empty when none was.
  const std::string& struckAt() const { return struckAt_; }
  bool struckARemoval() const { return struckARemoval_; }
  /// The work is done, and the fault may still come: the power is cut.
  void finish();

  /// What becomes of a call: it fails with an error, or goes through for its first `size` bytes.
  struct Fate {
    int error = 0;
    std::size_t size = 0;
    bool dies = false;  ///< the program ends behind it
  };
  static Fate fateOf(const char* call, const std::string& path, Deed deed, std::size_t size = 0);
  static void flushed(const std::string& path);

 private:
  bool isStrikable(const std::string& path, Deed deed) const;
  Fate strike(Deed deed, std::size_t size);

  static FailingDisk* failing_;  ///< the system's functions can be handed nothing
  std::string folder_;
  std::optional<FlushedDisk> platters_;  ///< kept where the power is going to be cut
  Fault fault_;
  int call_;
  int count_ = 0;
  std::string struckAt_;
  bool struckARemoval_ = false;
};

}  // namespace zelvo::testing
