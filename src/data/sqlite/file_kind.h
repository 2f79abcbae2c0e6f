#pragma once

#include <string>

#include "data/sqlite/database.h"

namespace zelvo::sqlite {

/// How a file may be opened. That it is not there, or is a folder, is an error.
Result<Database::Mode> modeOf(const std::string& path);

/// The first bytes of an open file, as they are on the disk. The file is read through the open database: to open it a
/// second time and close it would drop the locks that another screen of this program holds on it.
Result<std::string> headOf(Database& database);
/// Looks at the first bytes of an open file before any statement touches it. Each thing that it may be instead of a
/// database has a message of its own: empty, a database of the office's old engine, no database at all.
Result<void> checkHead(Database& database);
/// Whether it keeps its changes in a second file, which computers cannot share; to be asked after checkHead.
bool writesAhead(Database& database);

}  // namespace zelvo::sqlite
