#pragma once

#include <cstddef>

#include "data/engine.h"

namespace zelvo {

/// Adds every row of a table, in the order of its ids, to the table of the same name in another store; counters stay as
/// they are. What is read is one moment's state. When it fails, the caller gives up what the target has got.
Result<void> copyRows(Engine& from, const Table& table, Engine& to);

/// Reads both tables from end to end and gives the number of their rows. Trouble::Failed when they differ in anything;
/// the message names the first record and column that do. A value counts as the target holds it (`Engine::asStored`).
Result<std::size_t> compareRows(Engine& from, const Table& table, Engine& to);

}  // namespace zelvo
