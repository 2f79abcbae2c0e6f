#pragma once

#include <span>
#include <string>

#include "data/catalogue.h"
#include "form/screen.h"

namespace zelvo {

// Search by example: the clerk fills the boxes of an empty record with what is known, and every record that holds it
// is found. Conditions are built piece by piece; each piece ends in " AND", which the caller cuts.

/// The pieces that the filled boxes Text1(n) stand for: a text may stand anywhere in its column (and may hold the
/// wildcards % _ [a-z], typed on purpose), an amount is meant by its value, the parcel's parts as they are.
/// Columns of `whole` are compared as they are.
std::string exampleClauses(const Screen& screen, const Table& table, std::span<const std::string_view> whole = {});

/// One piece of such a condition; nothing when the text is blank.
std::string containsClause(std::string_view column, std::string_view text);
std::string amountClause(std::string_view column, std::string_view text);
/// The column is the text, or the number by its value: "7" finds "007".
std::string wholeClause(std::string_view column, std::string_view text);
/// "[VD3] = #03/09/2026# AND", or between two dates when a second is given.
std::string dateClause(std::string_view column, const Date& from);
std::string dateRangeClause(std::string_view column, const Date& after, const Date& before);

/// In a search the date that means that none was given.
inline constexpr Date kNoDateGiven{1901, 1, 1};

}  // namespace zelvo
