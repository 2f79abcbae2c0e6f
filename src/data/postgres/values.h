#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/engine.h"

namespace zelvo::postgres {

/// A value as text for the server; nothing for null.
using Parameter = std::optional<std::string>;
Parameter parameterOf(const Value& value);
/// The value of a column as the server tells it. What does not belong there comes as the text that it is.
Value valueOf(std::string_view text, ColumnType type);

/// The row as the server gives it back once it is stored: its texts are UTF-8 without zero characters.
Row asStored(Row row);

/// Adds a value to a line of COPY.
void appendCopied(std::string& line, const Value& value);

/// An id as the server writes it.
RowId idIn(std::string_view text);
std::string arrayText(std::span<const RowId> ids);
/// The ids of a binary array.
std::vector<RowId> idsOf(std::string_view bytes);

}  // namespace zelvo::postgres
