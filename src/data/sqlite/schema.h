#pragma once

#include <string>

#include "data/catalogue.h"
#include "data/sqlite/database.h"

namespace zelvo::sqlite {

/// Stamped into every file that we make, so that other programs' databases and those of a newer Zelvo are told apart.
inline constexpr int applicationMark = 0x5A6C766F;  // "Zlvo"
inline constexpr int layoutVersion = 1;

/// A name as statements write it.
std::string quoted(std::string_view name);
/// The column names of a table, quoted, with commas between them.
std::string columnList(const Table& table);

/// The statements that make an empty database of the table with its key and indexes.
std::string creation(const Table& table);
/// The statements that make, and remove, the indexes beside the key.
std::string indexCreation(const Table& table);
std::string indexRemoval(const Table& table);

/// Whether the database is one of ours, of a layout that this program knows.
Result<void> checkMark(Database& database);
/// The tables of the catalogue that the database holds, the parcel table in its real layout. None at all, and one that
/// lacks a column, is an error.
Result<std::vector<const Table*>> tablesOf(Database& database);

}  // namespace zelvo::sqlite
