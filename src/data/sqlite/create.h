#pragma once

#include <functional>
#include <string>

#include "base/result.h"
#include "data/catalogue.h"

namespace zelvo {
class Engine;
}

namespace zelvo::sqlite {

class Database;

/// Makes a database file, empty or filled by `fill`: under another name beside it, which is given the right one only
/// when it is whole. A file that is there is Trouble::Duplicate, and stays as it is.
Result<void> createFile(std::string_view path, const Table& table,
                        const std::function<Result<void>(Engine& file)>& fill = {});

/// A copy of a database as it stands between two changes, whoever works in it meanwhile; under a name that is free.
Result<void> copyDatabaseFile(std::string_view from, std::string_view to);

/// Gives a database that is there the content of another one, all of it or nothing, under the eyes of the computers
/// that have it open: they read on in the new content.
Result<void> replaceDatabaseFile(std::string_view from, std::string_view to);
/// The same of a database that the caller has open.
Result<void> copyDatabaseFile(Database& from, std::string_view to);
Result<void> replaceDatabaseFile(std::string_view from, Database& to);
/// Looks through a database from end to end; the error says what is damaged.
Result<void> checkDatabaseFile(std::string_view path);

}  // namespace zelvo::sqlite
