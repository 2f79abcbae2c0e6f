#pragma once

#include <string>
#include <string_view>

#include "base/result.h"

namespace zelvo {

// A data folder whose tables lie on a server holds a file "server.txt" with one line: how to reach it, as PostgreSQL's
// programs take it ("host=records.town dbname=zelvo user=clerk"). Each such folder has a schema of its own there, whose
// name stands in "schema.txt" beside it: every computer that shares the folder reads the same name, however the folder
// is called on it. The first one to need the name makes it up.

inline constexpr std::string_view serverFile = "server.txt";
inline constexpr std::string_view schemaFile = "schema.txt";

struct ServerPlace {
  std::string connection;
  std::string schema;  ///< small letters, digits and "_"
};

bool keepsOnServer(std::string_view folder);
/// The same, asked at every change of a file: the folder is not searched for other spellings of the name.
bool keepsOnServerNow(std::string_view folder);
/// The folder's name for its schema; made up, and noted, where there is none yet.
Result<std::string> schemaOf(std::string_view folder);
/// Errors tell which of the two files is wrong, and never repeat the first, which may hold a password.
Result<ServerPlace> serverPlace(std::string_view folder);

}  // namespace zelvo
