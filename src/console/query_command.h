#pragma once

#include <string_view>

#include "base/result.h"
#include "console/conversation.h"

namespace zelvo {

/// Says the rows of a query in the office's dialect on a database of the data folder, all columns of each, under a line
/// "db1.mdb: 2 rows, 93 columns". It reads only.
Result<void> showQuery(std::string_view dataFolder, std::string_view file, std::string_view query, Conversation& talk);

}  // namespace zelvo
