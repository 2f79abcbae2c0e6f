#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "data/engine.h"
#include "form/session.h"

namespace zelvo {

/// Shows the user what is being done.
using ShowStatus = std::function<void(std::string_view text)>;

struct ConvertedRegistry {
  std::size_t parcels = 0;
  std::string setAside;        ///< the path of the old registry; empty on a server, where the rows stay in their table
  std::string versionTrouble;  ///< why "sblversion.txt" could not be written; the registry is converted all the same
};

/// Brings the parcel registry "sbl.mdb" of the data folder from the old layout to the extended one. A copy of the blank
/// "\wrk\sbl18.mdb" is filled from its rows, all 13 fields, and counted; then it takes the registry's place at one
/// stroke, and the old one stays as "sbl13.mdb" (or "sbl13-2.mdb" when that name is taken: nothing is overwritten).
/// Nobody else works in the registry meanwhile, and whoever has it open reads on in the new one. Killed or failing at
/// any point it leaves the old registry or the new one, whole.
///
/// Trouble::Busy when another computer works in the registry, Trouble::Duplicate when it has the extended layout
/// already.
Result<ConvertedRegistry> convertOldSBLtoSBL18(const Session& session, const ShowStatus& show,
                                               std::chrono::milliseconds patience = usualPatience);

/// Notes in "sblversion.txt" of a data folder that its registry has the extended layout.
Result<void> noteExtendedLayout(std::string_view dataFolder);

/// A second parcel file, "sbl18.mdb", that lies in the data folder beside the registry, and those of its parcels that
/// the registry lacks.
struct SecondRegistry {
  std::string path;
  std::vector<std::size_t> lacking;  ///< positions, from 0, in "Select * from SBL order by [SBLF]"
};
/// An empty path when there is none, or the tables lie on a server.
Result<SecondRegistry> secondRegistry(const Session& session);
/// Adds the lacking parcels to the registry, all or none, with the fields that both have.
Result<void> carryOver(const Session& session, const SecondRegistry& second);

}  // namespace zelvo
