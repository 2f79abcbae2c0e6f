#pragma once

#include <span>
#include <string>

#include "base/result.h"

namespace zelvo::bench {

// What bench/run holds against public programs. Each gives the line that is printed: a figure, or what was found where
// bench/run times the whole process from outside.

using Arguments = std::span<const std::string>;

/// DATABASE PERMIT: opens the building permits as their screen does, goes to the last and back to one by its number.
/// The last word of the line is the most memory that the process had, in MB.
Result<std::string> openPermits(Arguments arguments);
/// DATABASE: the microseconds that the first 100 permits take, every field of them, once the screen is open.
Result<std::string> readFirstPage(Arguments arguments);
/// DATABASE QUERY: how many permits a query finds.
Result<std::string> countFound(Arguments arguments);

/// DATABASE COMPUTERS: adds permits, each computer a process of its own, and gives the ratio of the middle add to the
/// middle making, flushing and removing of a small file in the same folder.
Result<std::string> addPermits(Arguments arguments);

/// FILE DATABASE: makes the database and stores the permits of a text file in it, the columns of the catalogue in their
/// order, ended by the separators 1F (a field) and 1E (a record).
Result<std::string> importPermits(Arguments arguments);

/// FOLDER COUNT: the middle of the microseconds in which the parcel registry finds one of so many parcels. Makes the
/// registry when the folder has none.
Result<std::string> findParcels(Arguments arguments);

/// FOLDER COUNT: writes so many letters of an office into the folder, some 14 KB each, the same in every run.
Result<std::string> makeLetters(Arguments arguments);

/// FOLDER DATABASE: starts a PostgreSQL server and makes the folder one that keeps its permits there, those of the
/// database. Tells how to reach it and their schema as soon as they are there, and ends with its input.
/// Trouble::NotFound when no server is installed.
Result<std::string> serve(Arguments arguments);

/// PROGRAMFOLDER SCRIPT: carries out a script of zelvo-console; the microseconds that its last line took.
Result<std::string> workAtScreens(Arguments arguments);

}  // namespace zelvo::bench
