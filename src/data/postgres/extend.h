#pragma once

#include <string_view>

#include "base/result.h"
#include "data/catalogue.h"

namespace zelvo::postgres {

/// Gives the table of a database file's name on its server the columns of a longer layout, in one transaction: the rows
/// stay as they are, and the new columns are empty.
Result<void> extendOnServer(std::string_view path, const Table& layout);

}  // namespace zelvo::postgres
