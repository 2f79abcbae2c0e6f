#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "support/temp_folder.h"

namespace zelvo {

// Where the offices of the tests keep their records: in files, or on a server. What holds for both is tested in both,
// by the same tests; each of the two test programs brings its own of these functions.

/// Makes a folder a data folder. Gives the reason when that cannot be had on this machine.
std::string furnish(const std::string& folder);
/// Makes a database unreadable behind the back of whoever has it open.
void spoil(const TempFolder& folder, std::string_view file);
/// "ok", or what is damaged in a database that is looked through from end to end.
std::string soundness(const TempFolder& folder, std::string_view file);

/// While it lasts, a database that somebody has open cannot be reached.
struct Outage {
  virtual ~Outage() = default;
};
std::unique_ptr<Outage> loseContact(const TempFolder& folder, std::string_view file);

}  // namespace zelvo
