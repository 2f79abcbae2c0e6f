#pragma once

#include <string_view>

#include "base/file_trouble.h"

namespace zelvo::postgres {

/// What a server's error code (an SQLSTATE) means for the office: which database, what was wrong, what to do. `detail`
/// is the server's own word, told only where we have no better one.
Error serverError(FileDeed deed, std::string_view path, std::string_view state, std::string_view detail);

/// The server cannot be reached, or let nobody in.
Error notReached(std::string_view path, std::string_view server, std::string_view detail);
/// The connection broke. What it was in the middle of was given up whole; unless it was just being kept: then nobody
/// knows.
enum class BrokeWhile { Working, Keeping };
Error brokeOff(FileDeed deed, std::string_view path, BrokeWhile when);

}  // namespace zelvo::postgres
