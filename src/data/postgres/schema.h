#pragma once

#include <string>

#include "data/catalogue.h"
#include "data/postgres/server.h"

namespace zelvo::postgres {

std::string columnList(const Table& table);
/// The statements that make everyone who changes the table, or makes a new one, wait for the end of the transaction at
/// hand.
std::string locking(const Server& server, const Table& table);
std::string lockingTheSchema(const Server& server);

/// The statement that adds an empty column to a table.
std::string columnAddition(const Table& table, const Column& column);

/// The table as the schema has it; null when it is not there.
Result<const Table*> tableThere(Server& server, const Table& table);
/// Makes the table with its key and indexes, and the schema around it where it is missing. Trouble::Duplicate when the
/// table is there.
Result<void> makeTable(Server& server, const Table& table);
/// The same within the transaction at hand, which holds the schema's lock.
Result<void> makeTableWithin(Server& server, const Table& table);

}  // namespace zelvo::postgres
