#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "failing_disk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {

inline constexpr Fault allFaults[] = {Fault::FailsOnce,        Fault::FailsFromThenOn, Fault::FullOnce,
                                      Fault::FullFromThenOn,   Fault::WritesInPieces,  Fault::Killed,
                                      Fault::KilledInMidWrite, Fault::PowerCut};

/// What came of an operation that met a fault.
struct Tried {
  bool struck = false;  ///< false: it got through before the wanted call came
  bool killed = false;
  std::string at;    ///< the call that was struck
  std::string said;  ///< what the operation said went wrong; empty when all went well
  bool mayLeaveFiles = false;
};

/// Does the work, which gives what went wrong, while the disk of the folder fails at its n-th call. A fault that kills
/// strikes in a program of its own.
Tried tryUnder(Fault fault, int call, const TempFolder& folder, const std::function<std::string()>& work);

/// Tries with the fault at the first call, the second, ... until a try gets through without meeting it; `every` more
/// than 1 leaves calls out. Gives how many tries met it.
int atEveryCall(const std::function<Tried(int call)>& attempt, int every = 1);

/// Whether the message tells the cause of such a fault.
bool tellsOf(Fault fault, const std::string& message);

/// Everything in a folder as an office finds it: the bytes of its files, the records of its databases, each of which
/// must be sound. Files under the program's own names for unfinished work, and journals, are no part of it.
std::string seenIn(const std::string& folder);
/// The names of files of unfinished work.
std::vector<std::string> leftOversIn(const std::string& folder);

}  // namespace zelvo::testing
