#pragma once

#include <memory>
#include <string_view>

#include "data/sqlite/database.h"

namespace zelvo::sqlite {

/// Opens a database for this program alone: until it is closed nobody else reads or changes it, those who have it open
/// included. Trouble::Busy when somebody works in it at this moment and goes on for longer than the patience.
Result<std::unique_ptr<Database>> openAlone(std::string_view path, std::chrono::milliseconds patience);

}  // namespace zelvo::sqlite
