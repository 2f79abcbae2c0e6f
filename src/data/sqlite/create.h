#pragma once

#include <string>

#include "base/result.h"
#include "data/catalogue.h"

namespace zelvo::sqlite {

/// Makes an empty database file: under another name beside it, which is given the right one only when it is whole. A
/// file that is there is Trouble::Duplicate, and stays as it is.
Result<void> createFile(std::string_view path, const Table& table);

/// A copy of a database as it stands between two changes, whoever works in it meanwhile; under a name that is free.
Result<void> copyDatabaseFile(std::string_view from, std::string_view to);

}  // namespace zelvo::sqlite
