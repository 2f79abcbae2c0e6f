#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace zelvo {

/// What was done, line by line, for the one who moves the office.
using MoveReport = std::function<void(const std::string& line)>;

/// Moves an office from its files to a server: every table of the catalogue that the data folder has, counted and
/// compared, then `server.txt` with the connection text, and the files set aside into the folder "moved-" + `stamp`.
/// The schema is the one that `schema.txt` names, else a new one. Refused when a table there has rows already, when a
/// database cannot be read, and when anything came out otherwise: then all is as it was.
Result<void> moveToServer(std::string_view dataFolder, std::string_view connection, std::string_view stamp,
                          const MoveReport& tell);

/// Moves an office from its server to files, in the same way; the tables on the server stay. What names the server is
/// set aside into "moved-" + `stamp`. Refused when the data folder holds a database of the office already.
Result<void> moveToFiles(std::string_view dataFolder, std::string_view stamp, const MoveReport& tell);

}  // namespace zelvo
