#pragma once

#include <ostream>

#include "app/town/town_options.h"
#include "base/result.h"

namespace zelvo {

/// Makes the whole town, telling of its progress. It is made beside its folder, under the folder's name and ".making",
/// and given its name at the end: a town that was broken off never looks like one. Refuses a folder that holds
/// anything.
Result<void> makeTown(const TownOptions& options, std::ostream& progress);

}  // namespace zelvo
